/*
 * Reads folders in threads: first all headers, then whole messages. Needs no window.
 */
#include "loader/folder_loader.h"

#include "message_folder.h"

#include <QTest>
#include <QThread>

#include <semaphore>

class LoaderTest : public QObject
{
    Q_OBJECT

private slots:
    void headersComeBeforeWholeMessages();
    void headerHasSenderSubjectDateAndSize();
    void wholeMessageHasStatePartsAndTexts();
    void otherFilesAreSkippedAndCounted();
    void fileThatCannotBeReadSaysWhy();
    void emptyFolderIsDone();
    void reloadReadsOnlyThatFile();
    void notifiesOnlyWhenTheQueueWasEmpty();
    void canBeCanceledWhileItReads();
    void textsAreShortened();
    void damagedMessagesAreListed();
};

namespace {

constexpr std::size_t Many = 100'000;

/// Waits for the loader's threads without an event loop.
class Waiter
{
public:
    std::function<void()> notify()
    {
        return [this] {
            ++m_notified;
            m_wake.release();
        };
    }
    /// All results, until the loader is done.
    std::vector<LoadedMessage> takeAll(FolderLoader *loader)
    {
        std::vector<LoadedMessage> all;
        while (!loader->isDone()) {
            std::ignore = m_wake.try_acquire_for(std::chrono::milliseconds(20));
            for (LoadedMessage &message : loader->take(Many))
                all.push_back(std::move(message));
        }
        return all;
    }
    int notified() const { return m_notified; }

private:
    std::counting_semaphore<> m_wake{0};
    std::atomic<int> m_notified = 0;
};

} // namespace

void LoaderTest::headersComeBeforeWholeMessages()
{
    const MessageFolder folder;
    for (int i = 0; i < 50; ++i)
        folder.add(i);
    Waiter waiter;
    FolderLoader loader({folder.path()}, waiter.notify());
    const std::vector<LoadedMessage> all = waiter.takeAll(&loader);
    QCOMPARE(all.size(), std::size_t(100));
    for (std::size_t i = 0; i < all.size(); ++i)
        QCOMPARE(all[i].isWhole, i >= 50);
    QCOMPARE(loader.headersRead(), 50);
    QCOMPARE(loader.messagesRead(), 50);
    QCOMPARE(loader.fraction(), 1.0);
}

void LoaderTest::headerHasSenderSubjectDateAndSize()
{
    const MessageFolder folder;
    const QString name = folder.add(7);
    const LoadedMessage header = loadHeader(name);
    QVERIFY(!header.isWhole);
    QCOMPARE(header.entry.file, name);
    QCOMPARE(header.entry.from, QStringLiteral("+491"));
    QCOMPARE(header.entry.subject, QStringLiteral("00007"));
    QCOMPARE(header.entry.date.value_or(0), 1'000'000'007);
    QCOMPARE(header.entry.octets, MessageFolder::message(7).size());
    QCOMPARE(header.entry.slides, 0);
}

void LoaderTest::wholeMessageHasStatePartsAndTexts()
{
    const MessageFolder folder;
    const LoadedMessage whole = loadWhole(folder.add(7));
    QVERIFY(whole.isWhole);
    QCOMPARE(whole.entry.slides, 1);
    QCOMPARE(whole.entry.count(MessageList::PartKind::Text), 1);
    QCOMPARE(whole.entry.state, MessageState::Ok);
    QCOMPARE(whole.texts, QStringLiteral("words 00007\n"));
}

void LoaderTest::otherFilesAreSkippedAndCounted()
{
    const MessageFolder folder;
    folder.add(1);
    folder.write(QStringLiteral("notes.txt"), "nothing");
    folder.write(QStringLiteral(".hidden.mms"), MessageFolder::message(2));
    Waiter waiter;
    FolderLoader loader({folder.path()}, waiter.notify());
    QCOMPARE(waiter.takeAll(&loader).size(), std::size_t(2)); // a header and a message
    QCOMPARE(loader.skipped(), 1);
}

void LoaderTest::fileThatCannotBeReadSaysWhy()
{
    Waiter waiter;
    FolderLoader loader({QStringLiteral("/no/such/file")}, waiter.notify());
    const std::vector<LoadedMessage> all = waiter.takeAll(&loader);
    QVERIFY(!all.empty());
    QVERIFY(!all.back().entry.error.isEmpty());
    QCOMPARE(all.back().entry.state, MessageState::Refused);
}

void LoaderTest::emptyFolderIsDone()
{
    const MessageFolder folder;
    Waiter waiter;
    FolderLoader loader({folder.path()}, waiter.notify());
    QVERIFY(waiter.takeAll(&loader).empty());
    QVERIFY(loader.isListed());
    QCOMPARE(waiter.notified(), 1); // at the end
}

void LoaderTest::reloadReadsOnlyThatFile()
{
    const MessageFolder folder;
    folder.add(1);
    folder.add(2);
    Waiter waiter;
    FolderLoader loader({folder.path()}, waiter.notify());
    waiter.takeAll(&loader);
    const QString changed = folder.add(2);
    folder.write(QStringLiteral("00002.mms"), MessageFolder::message(3));
    loader.reload({changed});
    QVERIFY(!loader.isDone());
    const std::vector<LoadedMessage> again = waiter.takeAll(&loader);
    QCOMPARE(again.size(), std::size_t(1));
    QCOMPARE(again[0].entry.subject, QStringLiteral("00003"));
}

void LoaderTest::notifiesOnlyWhenTheQueueWasEmpty()
{
    const MessageFolder folder;
    for (int i = 0; i < 200; ++i)
        folder.add(i);
    Waiter waiter;
    FolderLoader loader({folder.path()}, waiter.notify());
    while (loader.messagesRead() < 200)
        QThread::yieldCurrentThread();
    QVERIFY(loader.take(Many).size() >= 399); // the last one may be on its way
    QCOMPARE(waiter.notified(), 2); // the first result, and the end of the headers
}

void LoaderTest::canBeCanceledWhileItReads()
{
    const MessageFolder folder;
    for (int i = 0; i < 2000; ++i)
        folder.add(i);
    Waiter waiter;
    auto loader = std::make_unique<FolderLoader>(QStringList(folder.path()), waiter.notify());
    while (loader->headersRead() == 0)
        QThread::yieldCurrentThread();
    QVERIFY(loader->messagesRead() < 2000);
    loader.reset(); // returns, and no thread uses the waiter any more
}

void LoaderTest::textsAreShortened()
{
    const MessageFolder folder;
    QByteArray message = MessageFolder::message(1);
    message.truncate(message.indexOf(QByteArray::fromHex("84A301")) + 3);
    message += MessageFolder::part(QByteArray(5000, 'w'));
    folder.write(QStringLiteral("long.mms"), message);
    const LoadedMessage whole = loadWhole(folder.filePath(QStringLiteral("long.mms")));
    QCOMPARE(whole.texts.size(), LoadedMessage::MostTexts);
}

void LoaderTest::damagedMessagesAreListed()
{
    for (int length = 2; length < MessageFolder::message(1).size(); ++length) {
        const MessageFolder folder;
        folder.write(QStringLiteral("a.mms"), MessageFolder::message(1).first(length));
        const QString name = folder.filePath(QStringLiteral("a.mms"));
        QCOMPARE(loadHeader(name).entry.file, name);
        QCOMPARE(loadWhole(name).entry.octets, length);
    }
}

QTEST_APPLESS_MAIN(LoaderTest)
#include "loader_test.moc"
