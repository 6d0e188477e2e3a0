/*
 * What the tests of clips share: a clock and an audio device of their own, and what a player did.
 */
#pragma once

#include "clips/clip_player.h"
#include "convert/child.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QTest>
#include <QTimer>

#include <sys/wait.h>

#include <cerrno>
#include <cstring>

constexpr int AmrSecond = 16'000; ///< octets of samples
inline const QList<qint64> AllTimes{0, 200, 400, 600, 800}; ///< of the video in the fixtures

/// The octets of a clip in the fixtures.
inline QByteArray fixture(const QString &name)
{
    QFile file(QStringLiteral(QVL_FIXTURES "/clips/") + name);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isOpen);
    return isOpen ? file.readAll() : QByteArray();
}

/// True without any child process, not even a zombie.
inline bool hasNoChildren()
{
    siginfo_t info{};
    return ::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT | __WALL) == -1 && errno == ECHILD;
}

/// What an audio device got.
struct Heard
{
    Sound::Form form{};
    QByteArray samples;
    int devices = 0;
    qsizetype room = 1 << 20; ///< octets that the device takes each time
    bool isPlaying = true;
};

class HeardOutput : public SoundOutput
{
public:
    HeardOutput(Heard *heard, const Sound::Form &form) : m_heard(heard)
    {
        heard->form = form;
        ++heard->devices;
    }

    qsizetype freeOctets() const override { return m_heard->room; }
    void write(QByteArrayView samples) override { m_heard->samples += samples; }
    void setPlaying(bool isPlaying) override { m_heard->isPlaying = isPlaying; }

private:
    Heard *m_heard;
};

/// A player whose time the test advances.
class PlayedClip
{
public:
    PlayedClip(const QByteArray &clip, const QString &extension)
        : PlayedClip(clip, extension, ChildCommand())
    {
    }

    PlayedClip(const QByteArray &clip, const QString &extension, const ChildCommand &command,
               std::chrono::milliseconds patience = ClipSetup::usualPatience())
    {
        ClipSetup setup;
        setup.command = command;
        setup.patience = patience;
        setup.now = [this] { return now; };
        setup.openSound = [this](const Sound::Form &form) -> std::unique_ptr<SoundOutput> {
            return hasDevice ? std::make_unique<HeardOutput>(&heard, form) : nullptr;
        };
        player = std::make_unique<ClipPlayer>(clip, extension, setup);
        QObject::connect(player.get(), &ClipPlayer::frame, [this](const QImage &image, qint64 ms) {
            times += ms;
            images += image;
        });
        QObject::connect(player.get(), &ClipPlayer::ended, [this] { ++ends; });
        QObject::connect(player.get(), &ClipPlayer::incomplete,
                         [this](const QString &why) { missing += why; });
        QObject::connect(player.get(), &ClipPlayer::failed,
                         [this](const QString &why) { failures += why; });
    }

    /// Handles events until the condition holds. False after a minute.
    static bool until(const std::function<bool()> &condition)
    {
        QElapsedTimer timer;
        timer.start();
        QTimer wake; // for conditions that no event of this process fulfills
        wake.start(5);
        while (!condition()) {
            if (timer.hasExpired(60'000))
                return false;
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        return true;
    }

    /// Reads the whole clip, which fits into the queue, while no time passes.
    static bool untilRead() { return until(hasNoChildren); }

    /// Advances the clock in steps, and plays what is due at each.
    void pass(qint64 ms, qint64 step = 20)
    {
        for (const qint64 end = now + ms; now < end;) {
            now = std::min(now + step, end);
            tick();
        }
    }

    /// Lets the player look at the clock, unless it waits.
    void tick()
    {
        const auto *timer = player->findChild<QTimer *>();
        bool hasTicked = false;
        const auto connection =
            QObject::connect(timer, &QTimer::timeout, [&] { hasTicked = true; });
        until([&] { return hasTicked || !player || !timer->isActive(); });
        QObject::disconnect(connection);
    }

    bool isDone() const { return ends > 0 || !failures.isEmpty(); }

    /// Advances the clock until the clip ends or fails. False if it does not.
    bool playToEnd(qint64 step = 20)
    {
        return playUntil([this] { return isDone(); }, step);
    }

    /// Advances the clock until the condition holds. False after a minute.
    bool playUntil(const std::function<bool()> &condition, qint64 step = 20)
    {
        return until([&] {
            if (condition())
                return true;
            now += step;
            tick();
            return condition();
        });
    }

    qint64 now = 1000;
    bool hasDevice = true;
    Heard heard;
    QList<qint64> times; ///< of the pictures
    QList<QImage> images;
    QStringList missing;
    QStringList failures;
    int ends = 0;
    std::unique_ptr<ClipPlayer> player;
};

/// main() of a test program, which is its own child process.
#define QVL_CLIP_TEST_MAIN(Test) \
    int main(int argc, char **argv) \
    { \
        if (argc > 1 && std::strcmp(argv[1], ConvertChild::Argument) == 0) \
            return ConvertChild::run(argc - 2, argv + 2); \
        QGuiApplication application(argc, argv); \
        Test test; \
        return QTest::qExec(&test, argc, argv); \
    }
