/*
 * The list of messages: model, filter, order, thumbnails, and the folder that changes.
 */
#include "list/folder_watch.h"
#include "list/message_list_view.h"

#include "message_folder.h"

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QLineEdit>
#include <QMutex>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QThread>

#include <algorithm>

class ListTest : public QObject
{
    Q_OBJECT

private slots:
    void rowHasTheTextsOfItsMessage();
    void wholeMessageReplacesItsHeader();
    void stateOfAHeaderIsNotKnown();
    void controlCharactersAreVisible();
    void removedFilesLoseTheirRows();
    void manyRemovedFilesLoseTheirRows();
    void filterFindsEveryWordInAnyField();
    void columnsSortByValue();
    void whatHasNoValueComesLastInBothOrders();
    void onlyVisibleRowsGetThumbnails();
    void noMoreThumbnailsAtOnceThanProcessors();
    void thumbnailsThatAreNotWantedAnyMoreAreNotBegun();
    void folderIsListedWithItsHeadersFirst();
    void fiveThousandMessagesAreListed();
    void emptyFolderSaysSo();
    void filterWithoutResultSaysSo();
    void changesOfTheFolderAreNoticed();
    void newFoldersAreWatched();
    void keysMoveBetweenFilterAndTable();
    void listIsReplacedWhileItIsRead();
    void hostileFilesAreListed();
};

namespace {

constexpr int Address = MessageListModel::Address;

LoadedMessage loaded(const QString &file, const QString &from = {}, const QString &subject = {},
                     std::optional<qint64> date = {})
{
    LoadedMessage message;
    message.entry.file = file;
    message.entry.from = from;
    message.entry.subject = subject;
    message.entry.date = date;
    message.entry.octets = 100;
    return message;
}

QString cell(const QAbstractItemModel &model, int row, int column)
{
    return model.index(row, column).data().toString();
}

QStringList column(const QAbstractItemModel &model, int column)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts += cell(model, row, column);
    return texts;
}

/// A list of three messages, two of which have a subject.
std::vector<LoadedMessage> three()
{
    std::vector<LoadedMessage> messages;
    messages.push_back(loaded("/c", "+493", "beta", 30));
    messages.push_back(loaded("/a", "+491", "Alpha", 100));
    messages.push_back(loaded("/b", "+492"));
    return messages;
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

void ListTest::rowHasTheTextsOfItsMessage()
{
    MessageListModel model;
    const QAbstractItemModelTester tester(&model);
    LoadedMessage message = loaded("/folder/a.mms", {}, "Hello");
    message.isWhole = true;
    message.entry.to = {"+491", "+492", "+493"};
    message.entry.parts[std::size_t(MessageList::PartKind::Audio)] = 1;
    message.entry.state = MessageState::Changed;
    model.add({message});
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(cell(model, 0, Address), QStringLiteral("+491 and 2 more"));
    QCOMPARE(cell(model, 0, MessageListModel::Subject), QStringLiteral("Hello"));
    QCOMPARE(cell(model, 0, MessageListModel::Date), QString());
    QCOMPARE(cell(model, 0, MessageListModel::Media), QStringLiteral("audio"));
    QCOMPARE(cell(model, 0, MessageListModel::State), QStringLiteral("changed"));
}

void ListTest::wholeMessageReplacesItsHeader()
{
    MessageListModel model;
    const QAbstractItemModelTester tester(&model);
    model.add(three());
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    LoadedMessage whole = loaded("/a", "+491", "Alpha", 100);
    whole.isWhole = true;
    whole.entry.state = MessageState::Refused;
    model.add({whole});
    QCOMPARE(model.rowCount(), 3);
    QCOMPARE(cell(model, 1, MessageListModel::State), QStringLiteral("refused"));
    QCOMPARE(changed.count(), 1);
    // The columns of the header are not sorted again.
    QCOMPARE(changed[0][0].toModelIndex().column(), int(MessageListModel::Media));
}

void ListTest::stateOfAHeaderIsNotKnown()
{
    MessageListModel model;
    model.add(three());
    QCOMPARE(cell(model, 0, MessageListModel::State), QString());
    QVERIFY(!model.hasSlides(0));
}

void ListTest::controlCharactersAreVisible()
{
    MessageListModel model;
    model.add({loaded("/a", "+491", QStringLiteral("a\x1b[2J\u202Eb"))});
    const QString shown = cell(model, 0, MessageListModel::Subject);
    QVERIFY(!shown.contains(QChar(0x1b)));
    QVERIFY(!shown.contains(QChar(0x202E)));
    QVERIFY(!model.index(0, MessageListModel::Subject)
                 .data(Qt::ToolTipRole)
                 .toString()
                 .contains(QChar(0x1b)));
}

void ListTest::removedFilesLoseTheirRows()
{
    MessageListModel model;
    const QAbstractItemModelTester tester(&model);
    model.add(three());
    model.remove({"/a", "/unknown"});
    QCOMPARE(column(model, Address), QStringList({"+493", "+492"}));
    QCOMPARE(model.rowOf("/b"), 1);
    QCOMPARE(model.rowOf("/a"), -1);
}

void ListTest::manyRemovedFilesLoseTheirRows()
{
    MessageListModel model;
    const QAbstractItemModelTester tester(&model);
    std::vector<LoadedMessage> messages;
    QStringList removed;
    for (int i = 0; i < 100; ++i) {
        messages.push_back(loaded(QString::number(i)));
        if (i != 42)
            removed += QString::number(i);
    }
    model.add(std::move(messages));
    model.remove(removed);
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(model.rowOf("42"), 0);
}

void ListTest::filterFindsEveryWordInAnyField()
{
    MessageListModel model;
    std::vector<LoadedMessage> messages = three();
    messages[2].texts = QStringLiteral("Grüße vom Hafen");
    model.add(std::move(messages));
    MessageFilter filter;
    filter.setSourceModel(&model);
    const auto rowsFor = [&filter](const QString &words) {
        filter.setWords(words);
        return filter.rowCount();
    };
    QCOMPARE(rowsFor("+49"), 3);
    QCOMPARE(rowsFor("ALPHA"), 1);
    QCOMPARE(rowsFor("GRÜßE"), 1);
    QCOMPARE(rowsFor("hafen +492"), 1);
    QCOMPARE(rowsFor("hafen +491"), 0);
    QCOMPARE(rowsFor("  "), 3);
}

void ListTest::columnsSortByValue()
{
    MessageListModel model;
    model.add(three());
    MessageFilter filter;
    filter.setSourceModel(&model);
    filter.sort(MessageListModel::Date, Qt::AscendingOrder); // 30 before 100
    QCOMPARE(column(filter, Address).first(2), QStringList({"+493", "+491"}));
    filter.sort(MessageListModel::Subject, Qt::AscendingOrder); // ignoring case
    QCOMPARE(column(filter, MessageListModel::Subject).first(2), QStringList({"Alpha", "beta"}));
    filter.sort(-1);
    QCOMPARE(column(filter, Address), QStringList({"+493", "+491", "+492"}));
}

void ListTest::whatHasNoValueComesLastInBothOrders()
{
    MessageListModel model;
    model.add(three());
    MessageFilter filter;
    filter.setSourceModel(&model);
    for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        filter.sort(MessageListModel::Date, order);
        QCOMPARE(cell(filter, 2, Address), QStringLiteral("+492"));
        filter.sort(MessageListModel::Subject, order);
        QCOMPARE(cell(filter, 2, Address), QStringLiteral("+492"));
    }
}

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
    QVERIFY(!view.findChild<QProgressBar *>()->isHidden());
    QTRY_VERIFY(view.isListed());
    QCOMPARE(view.model().rowCount(), 20);
    QTRY_VERIFY(!view.isBusy());
    QTRY_VERIFY(view.findChild<QProgressBar *>()->isHidden());
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

void ListTest::newFoldersAreWatched()
{
    const MessageFolder folder;
    FolderWatch watch;
    watch.watch({folder.path()});
    QSignalSpy changed(&watch, &FolderWatch::changed);
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("inner")));
    folder.write(QStringLiteral("inner/a.mms"), "1");
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(changed[0][0].toStringList(), {folder.filePath(QStringLiteral("inner/a.mms"))});
    folder.write(QStringLiteral("inner/b.mms"), "2");
    QTRY_COMPARE(changed.count(), 2);
    QCOMPARE(changed[1][0].toStringList(), {folder.filePath(QStringLiteral("inner/b.mms"))});
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

QTEST_MAIN(ListTest)
#include "list_test.moc"
