/*
 * The main window: what it opens, shows and remembers.
 */
#include "message_folder.h"
#include "shown_texts.h"
#include "user_folders.h"

#include "list/folder_watch.h"
#include "list/message_list_view.h"
#include "stage/stage_panel.h"
#include "window/main_window.h"
#include "window/parts_panel.h"
#include "window/recent_files.h"
#include "window/settings_dialog.h"
#include "window/state_bar.h"
#include "window/summary_panel.h"
#include "writing/compose_window.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPointer>
#include <QTest>
#include <QTreeWidget>

class MainWindowTest : public QObject
{
    Q_OBJECT

public:
    static void initMain() { useFoldersOfTheTest(); }

private slots:
    void init();
    void cleanup();

    void beginsEmptyWithoutActionsForAMessage();
    void oneFileIsShownWithoutAList();
    void folderBecomesAListBesideTheMessage();
    void notificationIsShownAsOne();
    void refusedMessageSaysWhy();
    void messageInOrderHasNoStateLine();
    void fileThatCannotBeReadSaysWhy();
    void nextMessageReplacesAllPanels();
    void lastOfSeveralFilesIsShown();
    void droppedFilesAreOpened();
    void otherDropsAreRefused();
    void replyOpensAWindowToWriteIn();
    void replyToAllLeavesOutTheOwnAddress();
    void actionsFollowTheMessage();
    void chosenListEntryOpensAWindow();
    void shortcutsAreDifferent();
    void hiddenListDoesNotReplaceTheMessage();
    void fileThatIsGoneIsNotRecent();
    void emptiedFolderShowsNoMessage();
    void everyFixtureIsShownAndReplaced();

private:
    void open(const QStringList &names);
    QAction *action(const QString &text) const;

    QPointer<MainWindow> m_window;
};

namespace {

QString fixture(const QString &name)
{
    return QStringLiteral(QVL_FIXTURES "/") + name;
}

QString textOf(const StateBar &bar)
{
    QString text;
    for (const QLabel *label : bar.findChildren<QLabel *>())
        text += label->text();
    return text;
}

template <typename Widget>
QList<Widget *> topLevel()
{
    QList<Widget *> found;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *window = qobject_cast<Widget *>(widget))
            found += window;
    }
    return found;
}

} // namespace

void MainWindowTest::init()
{
    m_window = new MainWindow;
    m_window->setVisible(true);
}

void MainWindowTest::cleanup()
{
    for (ComposeWindow *window : topLevel<ComposeWindow>())
        delete window;
    for (MainWindow *window : topLevel<MainWindow>())
        delete window;
}

void MainWindowTest::open(const QStringList &names)
{
    m_window->open(names);
    QTRY_VERIFY(!m_window->isBusy());
}

QAction *MainWindowTest::action(const QString &text) const
{
    for (QAction *action : m_window->findChildren<QAction *>()) {
        if (plain(action->text()) == text)
            return action;
    }
    qFatal("no action %s", qPrintable(text));
}

void MainWindowTest::beginsEmptyWithoutActionsForAMessage()
{
    QVERIFY(m_window->findChild<SummaryPanel *>()->isVisible());
    QVERIFY(!m_window->findChild<StagePanel *>()->isVisible());
    QVERIFY(!m_window->findChild<MessageListView *>()->isVisible());
    for (const char *text : {"Reply", "Reply to All", "Forward", "Edit as New", "Print",
                             "Export as Page", "Save Part", "Save All Parts"})
        QVERIFY2(!action(QString::fromLatin1(text))->isEnabled(), text);
    QVERIFY(action(QStringLiteral("New Message"))->isEnabled());
}

void MainWindowTest::oneFileIsShownWithoutAList()
{
    open({fixture(QStringLiteral("messages/related.mms"))});
    QVERIFY(m_window->findChild<StagePanel *>()->isVisible());
    QVERIFY(!m_window->findChild<MessageListView *>()->isVisible());
    QCOMPARE(m_window->findChild<PartsPanel *>()->findChild<QTreeWidget *>()->topLevelItemCount(),
             4);
    QCOMPARE(m_window->windowTitle(), QStringLiteral("related.mms"));
}

void MainWindowTest::folderBecomesAListBesideTheMessage()
{
    open({fixture(QStringLiteral("messages"))});
    QVERIFY(m_window->findChild<MessageListView *>()->isVisible());
}

void MainWindowTest::notificationIsShownAsOne()
{
    open({fixture(QStringLiteral("messages/notification.mms"))});
    QVERIFY(m_window->findChild<SummaryPanel *>()->isVisible());
    QVERIFY(!m_window->findChild<StagePanel *>()->isVisible());
}

void MainWindowTest::refusedMessageSaysWhy()
{
    open({fixture(QStringLiteral("show/truncated-body.mms"))});
    const auto *bar = m_window->findChild<StateBar *>();
    QVERIFY(bar->isVisible());
    QVERIFY2(textOf(*bar).contains(QStringLiteral("refused")), qPrintable(textOf(*bar)));
    QVERIFY(textOf(*bar).contains(QStringLiteral("octet")));
}

void MainWindowTest::messageInOrderHasNoStateLine()
{
    open({fixture(QStringLiteral("messages/notification.mms"))});
    QVERIFY(!m_window->findChild<StateBar *>()->isVisible());
}

void MainWindowTest::fileThatCannotBeReadSaysWhy()
{
    open({fixture(QStringLiteral("messages/related.mms"))});
    open({fixture(QStringLiteral("messages/no-such-file.mms"))});
    auto *summary = m_window->findChild<SummaryPanel *>();
    QVERIFY(summary->isVisible());
    QVERIFY(!m_window->findChild<StateBar *>()->isVisible());
    bool saysWhy = false;
    for (const QLabel *label : summary->findChildren<QLabel *>())
        saysWhy = saysWhy || label->text().contains(QStringLiteral("no such file"));
    QVERIFY(saysWhy);
    QVERIFY(!action(QStringLiteral("Reply"))->isEnabled());
}

void MainWindowTest::nextMessageReplacesAllPanels()
{
    open({fixture(QStringLiteral("messages/related.mms"))});
    open({fixture(QStringLiteral("messages/notification.mms"))});
    QCOMPARE(m_window->findChild<PartsPanel *>()->findChild<QTreeWidget *>()->topLevelItemCount(),
             0);
    QCOMPARE(m_window->shown().message->parts().getPartCount(), 0);
}

void MainWindowTest::lastOfSeveralFilesIsShown()
{
    m_window->open({fixture(QStringLiteral("messages/related.mms"))});
    open({fixture(QStringLiteral("messages/mixed.mms"))});
    QCOMPARE(m_window->shown().fileName, fixture(QStringLiteral("messages/mixed.mms")));
}

void MainWindowTest::droppedFilesAreOpened()
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(fixture(QStringLiteral("messages/mixed.mms")))});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window, &drop);
    QTRY_COMPARE(m_window->shown().fileName, fixture(QStringLiteral("messages/mixed.mms")));
}

void MainWindowTest::otherDropsAreRefused()
{
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("http://example.org/a.mms"))});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(m_window, &enter);
    QVERIFY(!enter.isAccepted());
}

void MainWindowTest::replyOpensAWindowToWriteIn()
{
    open({fixture(QStringLiteral("show/retrieve-conf.mms"))});
    action(QStringLiteral("Reply"))->trigger();
    QCOMPARE(topLevel<ComposeWindow>().size(), 1);
}

void MainWindowTest::replyToAllLeavesOutTheOwnAddress()
{
    SettingsDialog settings;
    settings.findChild<QLineEdit *>()->setText(QStringLiteral(" +4915187654321 "));
    settings.accept();
    open({fixture(QStringLiteral("messages/mixed.mms"))}); // to this number and, in copy, to Anna
    action(QStringLiteral("Reply to All"))->trigger();
    const QList<ComposeWindow *> windows = topLevel<ComposeWindow>();
    QCOMPARE(windows.size(), 1);
    const EditedHeader &header = *windows.first()->editor().state().header;
    std::vector<EditedAddress> recipients = header.to;
    recipients.insert(recipients.end(), header.cc.begin(), header.cc.end());
    QCOMPARE(recipients.size(), std::size_t(1));
    QCOMPARE(recipients.front().address, QStringLiteral("anna@example.org"));
}

void MainWindowTest::actionsFollowTheMessage()
{
    open({fixture(QStringLiteral("messages/related.mms"))});
    QVERIFY(action(QStringLiteral("Forward"))->isEnabled());
    open({fixture(QStringLiteral("messages/notification.mms"))});
    QVERIFY(!action(QStringLiteral("Forward"))->isEnabled());
    QVERIFY(action(QStringLiteral("Export as Page"))->isEnabled());
}

void MainWindowTest::chosenListEntryOpensAWindow()
{
    open({fixture(QStringLiteral("messages"))});
    emit m_window->findChild<MessageListView *>()->opened(
        fixture(QStringLiteral("messages/related.mms")));
    QCOMPARE(topLevel<MainWindow>().size(), 2);
    for (const MainWindow *window : topLevel<MainWindow>())
        QTRY_VERIFY(!window->isBusy());
}

void MainWindowTest::hiddenListDoesNotReplaceTheMessage()
{
    const MessageFolder folder;
    folder.add(1);
    open({folder.path()});
    open({fixture(QStringLiteral("messages/mixed.mms"))});
    folder.write(QStringLiteral("00001.mms"), MessageFolder::message(2));
    QTest::qWait(3 * FolderWatch::Delay);
    QVERIFY(!m_window->isBusy());
    QCOMPARE(m_window->shown().fileName, fixture(QStringLiteral("messages/mixed.mms")));
}

void MainWindowTest::emptiedFolderShowsNoMessage()
{
    const MessageFolder folder;
    const QString name = folder.add(1);
    open({folder.path()});
    QTRY_COMPARE(m_window->shown().fileName, name);
    QVERIFY(QFile::remove(name));
    QTRY_VERIFY(m_window->shown().fileName.isEmpty());
    QVERIFY(m_window->findChild<SummaryPanel *>()->isVisible());
}

void MainWindowTest::fileThatIsGoneIsNotRecent()
{
    const QString name = fixture(QStringLiteral("messages/gone.mms"));
    open({name});
    QSettings settings;
    QVERIFY(!RecentFiles(&settings).names().contains(name));
}

void MainWindowTest::shortcutsAreDifferent()
{
    QMap<QKeySequence, QString> texts;
    for (const QAction *action : m_window->findChildren<QAction *>()) {
        for (const QKeySequence &keys : action->shortcuts()) {
            if (action->shortcutContext() == Qt::WidgetShortcut
                || action->shortcutContext() == Qt::WidgetWithChildrenShortcut)
                continue;
            QVERIFY2(
                !texts.contains(keys),
                qPrintable(keys.toString() + u' ' + texts.value(keys) + u' ' + action->text()));
            texts.insert(keys, action->text());
        }
    }
    QVERIFY(texts.size() > 10);
}

void MainWindowTest::everyFixtureIsShownAndReplaced()
{
    for (const char *folder : {"messages", "show", "versions"}) {
        const QDir files(fixture(QString::fromLatin1(folder)));
        const QStringList names =
            files.entryList({QStringLiteral("*.mms"), QStringLiteral("*.octets")}, QDir::Files);
        QVERIFY2(!names.isEmpty(), folder);
        for (const QString &name : names) {
            open({files.filePath(name)});
            QCOMPARE(m_window->shown().fileName, files.filePath(name));
        }
    }
}

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
