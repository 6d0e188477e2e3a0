/*
 * Clips that take over or exhaust their child process: a decoder does what the clip says. The
 * player says that it failed, takes limited memory, and leaves no process.
 */
#include "gui/clips/clip_test.h"

#include <QDir>

namespace {

using namespace std::chrono_literals;

constexpr qsizetype MB = 1 << 20;
constexpr qsizetype MostQueued = 12 * MB;
constexpr auto ShortPatience = 500ms;

ChildCommand misbehaving()
{
    ChildCommand command;
    command.moduleFolder = QStringLiteral(QVL_MISBEHAVING);
    return command;
}

/// A process, from its state in /proc.
struct Process
{
    char state = 0; ///< R, S, Z and so on; 0 for no process
    qint64 ticks = 0; ///< of processor time
};

/// The children of this process, by their numbers.
QMap<int, Process> childProcesses()
{
    QMap<int, Process> all;
    const QStringList names = QDir("/proc").entryList({"[1-9]*"}, QDir::Dirs);
    for (const QString &name : names) {
        QFile file("/proc/" + name + "/stat");
        if (!file.open(QIODevice::ReadOnly))
            continue; // it has ended
        const QByteArray line = file.readAll();
        const QByteArrayList fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
        if (fields.value(1).toLongLong() == QCoreApplication::applicationPid())
            all[name.toInt()] = {fields[0][0], fields[11].toLongLong() + fields[12].toLongLong()};
    }
    return all;
}

/// The memory of this process now, in octets.
qint64 memory()
{
    QFile file("/proc/self/statm");
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() * 4096
                                          : 0;
}

} // namespace

class MisbehavingClipTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void endsAClipThatNeverEnds();
    void letsTheChildWaitDuringAPause();
    void saysThatAClipStoppedItsDecoder_data();
    void saysThatAClipStoppedItsDecoder();
    void saysThatAClipTakesTooLong_data();
    void saysThatAClipTakesTooLong();
    void doesNotTakeAPauseForAStuckProcess();
    void leavesNoProcessWheneverItIsDeleted_data();
    void leavesNoProcessWheneverItIsDeleted();
    void leavesNoProcessAfterManySeeks();
};

void MisbehavingClipTest::cleanup()
{
    QVERIFY2(PlayedClip::until(hasNoChildren), "a child process is left");
}

void MisbehavingClipTest::endsAClipThatNeverEnds()
{
    PlayedClip played("play on", "amr", misbehaving());
    qsizetype mostQueued = 0;
    qint64 mostMemory = 0;
    int pictures = 0;
    QObject::connect(played.player.get(), &ClipPlayer::frame, [&] {
        played.images.clear();
        played.heard.samples.clear();
        mostQueued = std::max(mostQueued, played.player->queuedOctets());
        mostMemory = std::max(mostMemory, memory());
        ++pictures;
    });
    const qint64 before = memory();
    played.player->start(0);
    QVERIFY(played.playToEnd(500));
    QCOMPARE(played.ends, 1);
    QCOMPARE(played.player->position(), 600'000);
    QVERIFY(pictures > 10);
    QVERIFY(mostQueued < MostQueued);
    QVERIFY(mostMemory < before + 64 * MB);
}

void MisbehavingClipTest::letsTheChildWaitDuringAPause()
{
    PlayedClip played("play on", "amr", misbehaving(), ShortPatience);
    played.player->showAt(0);
    QVERIFY(PlayedClip::until([] { return childProcesses().size() == 1; }));
    const int child = childProcesses().firstKey();
    // The player's queue is full, then the pipe.
    qsizetype queued = -1;
    qint64 ticks = -1;
    int calm = 0;
    QVERIFY(PlayedClip::until([&] {
        const Process process = childProcesses().value(child);
        const bool isWaiting = process.state == 'S' && process.ticks == ticks
            && played.player->queuedOctets() == queued && queued > MB;
        queued = played.player->queuedOctets();
        ticks = process.ticks;
        calm = isWaiting ? calm + 1 : 0; // on a busy machine a process rests between two reads
        return calm > 20;
    }));
    for (int i = 0; i < 20; ++i) {
        QTest::qWait(int(ShortPatience / 10ms)); // longer than the patience in all
        QCOMPARE(childProcesses().value(child).state, 'S');
        QCOMPARE(childProcesses().value(child).ticks, ticks);
        QCOMPARE(played.player->queuedOctets(), queued);
    }
    QVERIFY(queued < MostQueued);
    QCOMPARE(played.times, QList<qint64>({0}));
    played.player->start(0);
    const auto hasPlayedMoreThanTheQueue = [&] { return played.times.size() > 100; };
    QVERIFY(played.playUntil(hasPlayedMoreThanTheQueue, 500));
    QCOMPARE(childProcesses().keys(), QList<int>({child}));
}

void MisbehavingClipTest::saysThatAClipStoppedItsDecoder_data()
{
    QTest::addColumn<int>("pictures");
    QTest::newRow("crash") << 0;
    QTest::newRow("kill") << 0;
    QTest::newRow("memory") << 0;
    QTest::newRow("write on") << 0;
    QTest::newRow("same time") << 1;
    QTest::newRow("play and kill") << 1;
}

void MisbehavingClipTest::saysThatAClipStoppedItsDecoder()
{
    QFETCH(const int, pictures);
    PlayedClip played(QTest::currentDataTag(), "amr", misbehaving());
    played.player->showAt(0);
    QVERIFY(played.playToEnd());
    QCOMPARE(played.times.size(), pictures);
    QCOMPARE(played.failures,
             QStringList("The decoder was stopped by this clip. The clip may be damaged."));
    QCOMPARE(played.player->queuedOctets(), 0);
    QVERIFY(PlayedClip::until(hasNoChildren));
}

void MisbehavingClipTest::saysThatAClipTakesTooLong_data()
{
    QTest::addColumn<QByteArray>("wish");
    QTest::newRow("compute") << QByteArray("compute");
    QTest::newRow("sleep") << QByteArray("sleep");
}

void MisbehavingClipTest::saysThatAClipTakesTooLong()
{
    QFETCH(const QByteArray, wish);
    PlayedClip played(wish, "amr", misbehaving(), ShortPatience);
    played.player->start(0);
    QVERIFY(played.playToEnd());
    QCOMPARE(played.failures, QStringList("The decoder was stopped, because it took too long."));
    QVERIFY(PlayedClip::until(hasNoChildren));
}

void MisbehavingClipTest::doesNotTakeAPauseForAStuckProcess()
{
    PlayedClip played("play on", "amr", misbehaving(), ShortPatience);
    played.player->start(0);
    QVERIFY(PlayedClip::until([&] { return played.player->queuedOctets() > 8 * MB; }));
    played.player->pause();
    QTest::qWait(int(3 * ShortPatience / 1ms));
    QVERIFY(played.failures.isEmpty());
    played.player->start(0);
    QVERIFY(played.playToEnd(500));
    QCOMPARE(played.ends, 1);
}

void MisbehavingClipTest::leavesNoProcessWheneverItIsDeleted_data()
{
    QTest::addColumn<QByteArray>("wish");
    for (const char *wish : {"play on", "sleep", "compute", "write on", "crash"})
        QTest::newRow(wish) << QByteArray(wish);
}

void MisbehavingClipTest::leavesNoProcessWheneverItIsDeleted()
{
    QFETCH(const QByteArray, wish);
    for (int turns = 0; turns < 50; turns += 7) {
        PlayedClip played(wish, "amr", misbehaving());
        played.player->start(0);
        for (int i = 0; i < turns; ++i)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        played.player.reset();
        QVERIFY(hasNoChildren());
    }
}

void MisbehavingClipTest::leavesNoProcessAfterManySeeks()
{
    PlayedClip played("play on", "amr", misbehaving());
    for (int i = 0; i < 10; ++i)
        played.player->start(i * 1000);
    QVERIFY(PlayedClip::until([] { return childProcesses().size() == 1; }));
    played.player.reset();
    QVERIFY(hasNoChildren());
}

QVL_CLIP_TEST_MAIN(MisbehavingClipTest)
#include "misbehaving_clip_test.moc"
