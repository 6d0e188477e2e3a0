/*
 * Folders that change while they are watched.
 */
#include "list/folder_watch.h"

#include "message_folder.h"

#include <QSignalSpy>
#include <QTest>

class FolderWatchTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void addedMessageIsReported();
    void otherAddedFilesAreNotMessages();
    void fileWrittenInPlaceIsReported();
    void messageThatIsNoneAnyMoreIsReported();
    void fileThatBecomesAMessageIsReported();
    void removedFileIsReported();
    void newFoldersAreWatched();
    void foldersOfAnEarlierCallAreNotWatched();
    void filesAloneAreNotWatched();
    void endsWhileItReads();

private:
    /// Watches the folder of the test.
    void watch();

    std::unique_ptr<MessageFolder> m_folder;
    std::unique_ptr<FolderWatch> m_watch;
    QStringList m_messages;
    QStringList m_others;
    QStringList m_removed;
};

namespace {

/// Rewrites a file without a change of its folder.
void writeInPlace(const QString &name, const QByteArray &octets)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadWrite) || file.write(octets) != octets.size()
        || !file.resize(octets.size()))
        qFatal("cannot write %s", qPrintable(name));
}

} // namespace

void FolderWatchTest::init()
{
    m_folder = std::make_unique<MessageFolder>();
    m_watch = std::make_unique<FolderWatch>();
    for (QStringList *names : {&m_messages, &m_others, &m_removed})
        names->clear();
    connect(
        m_watch.get(), &FolderWatch::changed, this,
        [this](const QStringList &messages, const QStringList &others, const QStringList &removed) {
            m_messages += messages;
            m_others += others;
            m_removed += removed;
        });
}

void FolderWatchTest::watch()
{
    QSignalSpy watching(m_watch.get(), &FolderWatch::watching);
    m_watch->watch({m_folder->path()});
    QTRY_COMPARE(watching.count(), 1);
}

void FolderWatchTest::addedMessageIsReported()
{
    m_folder->add(1);
    watch();
    const QString added = m_folder->add(2);
    QTRY_COMPARE(m_messages, QStringList(added));
    QVERIFY(m_others.isEmpty());
    QVERIFY(m_removed.isEmpty());
}

void FolderWatchTest::otherAddedFilesAreNotMessages()
{
    watch();
    m_folder->write(QStringLiteral("a.txt"), "text");
    QTRY_COMPARE(m_others, QStringList(m_folder->filePath(QStringLiteral("a.txt"))));
    QVERIFY(m_messages.isEmpty());
}

void FolderWatchTest::fileWrittenInPlaceIsReported()
{
    const QString name = m_folder->add(1);
    watch();
    // The system watches the files a little later than the folder.
    int number = 2;
    QTRY_VERIFY((writeInPlace(name, MessageFolder::message(number++)), !m_messages.isEmpty()));
    QVERIFY(m_messages.contains(name));
    QVERIFY(m_removed.isEmpty());
}

void FolderWatchTest::messageThatIsNoneAnyMoreIsReported()
{
    const QString name = m_folder->add(1);
    watch();
    m_folder->add(2); // a change of the folder
    writeInPlace(name, "text");
    QTRY_COMPARE(m_others, QStringList(name));
}

void FolderWatchTest::fileThatBecomesAMessageIsReported()
{
    const QString name = m_folder->filePath(QStringLiteral("a.mms"));
    m_folder->write(QStringLiteral("a.mms"), {});
    watch();
    m_folder->add(2);
    writeInPlace(name, MessageFolder::message(1));
    QTRY_VERIFY(m_messages.contains(name));
}

void FolderWatchTest::removedFileIsReported()
{
    const QString name = m_folder->add(1);
    watch();
    QVERIFY(QFile::remove(name));
    QTRY_COMPARE(m_removed, QStringList(name));
}

void FolderWatchTest::newFoldersAreWatched()
{
    watch();
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("inner")));
    m_folder->write(QStringLiteral("inner/a.mms"), MessageFolder::message(1));
    QTRY_COMPARE(m_messages, QStringList(m_folder->filePath(QStringLiteral("inner/a.mms"))));
    m_folder->write(QStringLiteral("inner/b.mms"), MessageFolder::message(2));
    QTRY_VERIFY(m_messages.contains(m_folder->filePath(QStringLiteral("inner/b.mms"))));
}

void FolderWatchTest::foldersOfAnEarlierCallAreNotWatched()
{
    watch();
    const MessageFolder other;
    QSignalSpy watching(m_watch.get(), &FolderWatch::watching);
    m_watch->watch({other.path()});
    QTRY_COMPARE(watching.count(), 1);
    m_folder->add(1);
    const QString added = other.add(2);
    QTRY_COMPARE(m_messages, QStringList(added));
    QTest::qWait(2 * FolderWatch::Delay); // longer than a report takes
    QCOMPARE(m_messages, QStringList(added));
}

void FolderWatchTest::filesAloneAreNotWatched()
{
    QSignalSpy watching(m_watch.get(), &FolderWatch::watching);
    m_watch->watch({m_folder->add(1), QStringLiteral("/no/such/folder")});
    QTRY_COMPARE(watching.count(), 1);
}

void FolderWatchTest::endsWhileItReads()
{
    for (int i = 0; i < 1000; ++i)
        m_folder->add(i);
    m_watch->watch({m_folder->path()});
    m_watch.reset(); // returns, and nothing is reported any more
    QTest::qWait(1);
    QVERIFY(m_messages.isEmpty());
}

QTEST_GUILESS_MAIN(FolderWatchTest)
#include "folder_watch_test.moc"
