/*
 * The list of messages: what it reads, shows and draws, keys, and the folder that changes.
 */
#include "list/message_list_view.h"

#include "message_folder.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMutex>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QThread>
#include <QToolButton>

#include <algorithm>

class ListTest : public QObject
{
    Q_OBJECT

private slots:
    void onlyVisibleRowsGetThumbnails();
    void noMoreThumbnailsAtOnceThanProcessors();
    void thumbnailsThatAreNotWantedAnyMoreAreNotBegun();
    void folderIsListedWithItsHeadersFirst();
    void fiveThousandMessagesAreListed();
    void emptyFolderSaysSo();
    void filterWithoutResultSaysSo();
    void changesOfTheFolderAreNoticed();
    void keysMoveBetweenFilterAndTable();
    void sortCommandReversesTheOrderTheSecondTime();
    void filteringKeepsTheShownMessage();
    void listIsReplacedWhileItIsRead();
    void hostileFilesAreListed();
    void filesThatAreRemovedWhileTheyAreReadGetNoRows();
    void stopKeepsWhatWasRead();
};

namespace {

QString cell(const QAbstractItemModel &model, int row, int column)
{
    return model.index(row, column).data().toString();
}

bool says(const MessageListView &view, const char *text)
{
    const QList<QLabel *> labels = view.findChildren<QLabel *>();
    return std::ranges::any_of(labels, [text](const QLabel *label) {
        return label->isVisible() && label->text().startsWith(QLatin1StringView(text));
    });
}

QTableView *tableOf(const MessageListView &view)
{
    return view.findChild<QTableView *>();
}

} // namespace

void ListTest::onlyVisibleRowsGetThumbnails()
{
    const MessageFolder folder;
    for (int i = 0; i < 100; ++i)
        folder.add(i);
    MessageListView view;
    view.resize(600, 400);
    view.show();
    view.open({folder.path()});
    QTRY_VERIFY(!view.isBusy());
    QTRY_VERIFY(view.model().hasThumbnail(0));
    QTest::qWait(50);
    QVERIFY2(view.thumbnails().begun() < 20,
             qPrintable(QString::number(view.thumbnails().begun())));
    QVERIFY(!view.model().hasThumbnail(99));
    tableOf(view)->scrollToBottom();
    QTRY_VERIFY(view.model().hasThumbnail(99));
    QVERIFY(!view.model().hasThumbnail(50));
}

void ListTest::noMoreThumbnailsAtOnceThanProcessors()
{
    std::atomic<int> drawing = 0;
    std::atomic<int> most = 0;
    Thumbnails thumbnails([&](const QString &) {
        const int now = ++drawing;
        most = std::max(most.load(), now);
        QThread::msleep(1);
        --drawing;
        return QImage(1, 1, QImage::Format_RGB32);
    });
    const QSignalSpy ready(&thumbnails, &Thumbnails::ready);
    QStringList files;
    for (int i = 0; i < 50; ++i)
        files += QString::number(i);
    thumbnails.want(files);
    QTRY_COMPARE(ready.count(), 50);
    QVERIFY(most <= QThread::idealThreadCount());
    QVERIFY(thumbnails.mostAtOnce() <= QThread::idealThreadCount());
}

void ListTest::thumbnailsThatAreNotWantedAnyMoreAreNotBegun()
{
    QMutex wait;
    wait.lock();
    Thumbnails thumbnails([&wait](const QString &) {
        const QMutexLocker locker(&wait);
        return QImage();
    });
    QStringList files;
    for (int i = 0; i < 50; ++i)
        files += QString::number(i);
    thumbnails.want(files);
    thumbnails.want({QStringLiteral("last")});
    wait.unlock();
    const QSignalSpy ready(&thumbnails, &Thumbnails::ready);
    QTRY_COMPARE(ready.count(), QThread::idealThreadCount() + 1);
    QCOMPARE(thumbnails.begun(), QThread::idealThreadCount() + 1);
}

void ListTest::folderIsListedWithItsHeadersFirst()
{
    const MessageFolder folder;
    for (int i = 0; i < 20; ++i)
        folder.add(i);
    MessageListView view;
    QSignalSpy current(&view, &MessageListView::current);
    view.open({folder.path()});
    QVERIFY(view.isBusy());
    QVERIFY(!view.findChild<QProgressBar *>()->parentWidget()->isHidden());
    QTRY_VERIFY(view.isListed());
    QCOMPARE(view.model().rowCount(), 20);
    QTRY_VERIFY(!view.isBusy());
    QTRY_VERIFY(view.findChild<QProgressBar *>()->parentWidget()->isHidden());
    QCOMPARE(current.count(), 1); // the first message
    QCOMPARE(current[0][0].toString(), folder.filePath(QStringLiteral("00000.mms")));
}

void ListTest::fiveThousandMessagesAreListed()
{
    const MessageFolder folder;
    for (int i = 0; i < 5000; ++i)
        folder.add(i);
    MessageListView view;
    view.resize(700, 500);
    view.show();
    view.open({folder.path()});
    QTRY_VERIFY_WITH_TIMEOUT(view.isListed(), 60'000);
    tableOf(view)->sortByColumn(MessageListModel::Date, Qt::DescendingOrder);
    QCOMPARE(cell(*tableOf(view)->model(), 0, MessageListModel::Subject), QStringLiteral("04999"));
    QTRY_VERIFY_WITH_TIMEOUT(!view.isBusy(), 120'000);
    QCOMPARE(view.model().rowCount(), 5000);
    QVERIFY(view.thumbnails().begun() < 100);
    view.findChild<QLineEdit *>()->setText(QStringLiteral("0123"));
    QCOMPARE(tableOf(view)->model()->rowCount(), 11); // 00123, and 01230 to 01239
}

void ListTest::emptyFolderSaysSo()
{
    const MessageFolder folder;
    MessageListView view;
    view.show();
    view.open({folder.path()});
    QTRY_VERIFY(!view.isBusy());
    QTRY_VERIFY(says(view, "There are no messages"));
}

void ListTest::filterWithoutResultSaysSo()
{
    const MessageFolder folder;
    folder.add(1);
    MessageListView view;
    view.show();
    view.open({folder.path()});
    QTRY_VERIFY(!view.isBusy());
    view.findChild<QLineEdit *>()->setText(QStringLiteral("nowhere"));
    QVERIFY(says(view, "No message contains"));
}

void ListTest::changesOfTheFolderAreNoticed()
{
    const MessageFolder folder;
    folder.add(1);
    const QString second = folder.add(2);
    MessageListView view;
    view.open({folder.path()});
    QTRY_VERIFY(!view.isBusy());
    const QString added = folder.add(3);
    folder.write(QStringLiteral("other.txt"), "no message");
    QTRY_VERIFY(view.model().rowOf(added) >= 0);
    QCOMPARE(view.model().rowCount(), 3);
    QVERIFY(QFile::remove(second));
    QTRY_VERIFY(view.model().rowOf(second) < 0);
    QVERIFY(QFile::remove(added));
    folder.write(QStringLiteral("00003.mms"), MessageFolder::message(12345));
    QTRY_COMPARE(cell(view.model(), view.model().rowOf(added), MessageListModel::Subject),
                 QStringLiteral("12345"));
}

void ListTest::keysMoveBetweenFilterAndTable()
{
    const MessageFolder folder;
    folder.add(1);
    folder.add(2);
    MessageListView view;
    view.show();
    view.open({folder.path()});
    QTRY_VERIFY(!view.isBusy());
    auto *words = view.findChild<QLineEdit *>();
    words->setFocus();
    QTest::keyClicks(words, QStringLiteral("00002"));
    QCOMPARE(tableOf(view)->model()->rowCount(), 1);
    QTest::keyClick(words, Qt::Key_Down);
    QCOMPARE(view.focusWidget(), tableOf(view));
    QSignalSpy opened(&view, &MessageListView::opened);
    tableOf(view)->selectRow(0);
    QTest::keyClick(tableOf(view), Qt::Key_Return);
    QCOMPARE(opened.count(), 1);
    QTest::keyClick(words, Qt::Key_Escape);
    QCOMPARE(words->text(), QString());
}

void ListTest::sortCommandReversesTheOrderTheSecondTime()
{
    const MessageFolder folder;
    folder.add(1);
    folder.add(2);
    MessageListView view;
    view.open({folder.path()});
    QTRY_VERIFY(!view.isBusy());
    const auto bySubject = [](const QAction *command) { return command->text() == u"Subject"; };
    const auto command = std::ranges::find_if(view.sortCommands(), bySubject);
    QVERIFY(command != view.sortCommands().end());
    const QAbstractItemModel &shown = *tableOf(view)->model();
    (*command)->trigger();
    QCOMPARE(cell(shown, 0, MessageListModel::Subject), QStringLiteral("00001"));
    (*command)->trigger();
    QCOMPARE(cell(shown, 0, MessageListModel::Subject), QStringLiteral("00002"));
}

void ListTest::filteringKeepsTheShownMessage()
{
    const MessageFolder folder;
    folder.add(1);
    folder.add(2);
    MessageListView view;
    view.show();
    QSignalSpy current(&view, &MessageListView::current);
    view.open({folder.path()});
    QTRY_VERIFY(!view.isBusy());
    QCOMPARE(current.count(), 1); // the first
    auto *words = view.findChild<QLineEdit *>();
    words->setText(QStringLiteral("00002"));
    QCOMPARE(current.count(), 1);
    QTest::keyClick(words, Qt::Key_Return);
    QCOMPARE(current.count(), 2); // the first match
    QCOMPARE(current[1][0].toString(), folder.filePath(QStringLiteral("00002.mms")));
}

void ListTest::listIsReplacedWhileItIsRead()
{
    const MessageFolder large;
    for (int i = 0; i < 1000; ++i)
        large.add(i);
    const MessageFolder small;
    small.add(1);
    MessageListView view;
    view.open({large.path()});
    view.open({small.path()});
    QTRY_VERIFY(!view.isBusy());
    QTest::qWait(50);
    QCOMPARE(view.model().rowCount(), 1);
}

void ListTest::hostileFilesAreListed()
{
    MessageListView view;
    view.show();
    view.open({QStringLiteral(QVL_FIXTURES)});
    QTRY_VERIFY(!view.isBusy());
    QVERIFY(view.model().rowCount() > 10);
    for (int row = 0; row < view.model().rowCount(); ++row)
        QCOMPARE(view.model().rowOf(view.model().file(row)), row);
}

void ListTest::filesThatAreRemovedWhileTheyAreReadGetNoRows()
{
    const MessageFolder folder;
    QStringList files;
    for (int i = 0; i < 2000; ++i)
        files += folder.add(i);
    MessageListView view;
    view.open({folder.path()});
    QTRY_VERIFY(view.isListed());
    for (const QString &file : files.sliced(3))
        QVERIFY(QFile::remove(file));
    QTRY_COMPARE(view.model().rowCount(), 3);
    QTRY_VERIFY(!view.isBusy());
    QTest::qWait(2 * FolderWatch::Delay);
    QCOMPARE(view.model().rowCount(), 3);
}

void ListTest::stopKeepsWhatWasRead()
{
    const MessageFolder folder;
    for (int i = 0; i < 3000; ++i)
        folder.add(i);
    MessageListView view;
    view.open({folder.path()});
    QTRY_VERIFY(view.model().rowCount() > 0);
    QVERIFY(view.isBusy());
    view.findChild<QToolButton *>()->click();
    QTRY_VERIFY(!view.isBusy());
    QVERIFY(view.model().rowCount() > 0);
    QVERIFY(view.findChild<QProgressBar *>()->parentWidget()->isHidden());
}

QTEST_MAIN(ListTest)
#include "list_test.moc"
