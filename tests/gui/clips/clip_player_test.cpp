/*
 * Clips of the fixtures, decoded by the real child process and played by a clock that the test
 * advances.
 */
#include "gui/clips/clip_test.h"

#include "convert/converter.h"

namespace {

constexpr qsizetype WavHeader = 44; // octets

} // namespace

class ClipPlayerTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void playsTheWholeSound_data();
    void playsTheWholeSound();
    void emitsThePicturesOfAVideoWhenTheyAreDue();
    void endsAfterTheLastPictureWasShown();
    void playsFromATime();
    void playsFromATimeAfterTheEnd();
    void showsThePictureOfATimeAndWaits();
    void goesOnAfterAPause();
    void doesNotCountTheTimeUntilTheFirstPicture();
    void goesElsewhereWhilePlaying();
    void playsAgain();
    void playsWithoutAnAudioDevice();
    void playsWithTheUsualAudioDevice();
    void leavesOutSoundThatTheDeviceTakesTooLate();
    void leavesOutPicturesThatAreLate();
};

void ClipPlayerTest::cleanup()
{
    QVERIFY2(PlayedClip::until(hasNoChildren), "a child process is left");
}

void ClipPlayerTest::playsTheWholeSound_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("ms");
    QTest::newRow("amr") << "sound.amr" << 1000;
    QTest::newRow("mp3") << "sound.mp3" << 500;
    QTest::newRow("aac") << "sound.aac" << 640;
    QTest::newRow("m4a") << "sound.m4a" << 512;
    QTest::newRow("wav") << "sound.wav" << 510;
}

void ClipPlayerTest::playsTheWholeSound()
{
    QFETCH(const QString, name);
    QFETCH(const int, ms);
    const QByteArray clip = fixture(name);
    const QString extension = name.section(u'.', -1);
    PlayedClip played(clip, extension);
    played.player->start(0);
    QVERIFY(PlayedClip::untilRead());
    QVERIFY(played.playToEnd());
    QCOMPARE(played.ends, 1);
    const QByteArray wav = Converter::wavOf(clip, extension);
    QVERIFY(wav.size() > WavHeader);
    QCOMPARE(played.heard.samples.size(), wav.size() - WavHeader);
    QVERIFY(played.heard.samples == wav.sliced(WavHeader));
    QVERIFY(played.heard.samples.count('\0') < played.heard.samples.size() / 2);
    QCOMPARE(played.heard.form.rate, 8000);
    QCOMPARE(played.heard.form.channels, 1);
    QCOMPARE(played.player->position(), ms);
}

void ClipPlayerTest::emitsThePicturesOfAVideoWhenTheyAreDue()
{
    PlayedClip played(fixture("video.3gp"), "3gp");
    played.player->start(0);
    QVERIFY(PlayedClip::untilRead());
    QList<qint64> shownAt;
    QObject::connect(played.player.get(), &ClipPlayer::frame,
                     [&](const QImage &, qint64) { shownAt += played.player->position(); });
    QVERIFY(played.playToEnd(20));
    QCOMPARE(played.times, AllTimes);
    for (qsizetype i = 0; i < shownAt.size(); ++i)
        QVERIFY2(shownAt[i] - played.times[i] >= 0, "a picture is too early");
    QCOMPARE(played.images.first().size(), QSize(32, 32));
    const Converter::VideoPicture first =
        Converter::firstPictureOf(fixture("video.3gp"), QStringLiteral("3gp"));
    QCOMPARE(played.images.first(), QImage::fromData(first.png).convertedTo(QImage::Format_RGB888));
    QCOMPARE(played.heard.samples.size(), AmrSecond);
}

void ClipPlayerTest::endsAfterTheLastPictureWasShown()
{
    PlayedClip played(fixture("video.3gp"), "3gp");
    played.player->start(0);
    QVERIFY(PlayedClip::untilRead());
    played.pass(980);
    QCOMPARE(played.times, AllTimes);
    QCOMPARE(played.ends, 0);
    played.pass(40);
    QCOMPARE(played.ends, 1);
    QCOMPARE(played.player->position(), 1000);
    QCOMPARE(played.player->queuedOctets(), 0);
}

void ClipPlayerTest::playsFromATime()
{
    PlayedClip whole(fixture("video.3gp"), "3gp");
    whole.player->start(0);
    QVERIFY(PlayedClip::untilRead());
    QVERIFY(whole.playToEnd());
    PlayedClip played(fixture("video.3gp"), "3gp");
    played.player->start(500);
    QVERIFY(PlayedClip::untilRead());
    QVERIFY(played.playToEnd());
    QCOMPARE(played.times, QList<qint64>({400, 600, 800}));
    QCOMPARE(played.images, whole.images.sliced(2));
    QCOMPARE(played.heard.samples.size(), AmrSecond / 2);
    QCOMPARE(played.player->position(), 1000);
}

void ClipPlayerTest::playsFromATimeAfterTheEnd()
{
    for (const QString name : {"video.3gp", "sound.amr"}) {
        PlayedClip played(fixture(name), name.section(u'.', -1));
        played.player->start(5000);
        QVERIFY(played.playToEnd());
        QCOMPARE(played.ends, 1);
        QVERIFY(played.heard.samples.isEmpty());
    }
}

void ClipPlayerTest::showsThePictureOfATimeAndWaits()
{
    PlayedClip played(fixture("video.3gp"), "3gp");
    played.player->showAt(500);
    QVERIFY(PlayedClip::untilRead());
    played.pass(10'000, 1000);
    QCOMPARE(played.times, QList<qint64>({400}));
    QCOMPARE(played.player->position(), 500);
    QCOMPARE(played.heard.devices, 0);
    played.player->start(500);
    QVERIFY(hasNoChildren()); // nothing is decoded again
    QVERIFY(played.playToEnd());
    QCOMPARE(played.times, QList<qint64>({400, 600, 800}));
}

void ClipPlayerTest::goesOnAfterAPause()
{
    PlayedClip played(fixture("video.3gp"), "3gp");
    played.player->start(0);
    QVERIFY(PlayedClip::untilRead());
    played.pass(240);
    QVERIFY(played.heard.isPlaying);
    played.player->pause();
    QVERIFY(!played.heard.isPlaying);
    played.pass(10'000, 1000);
    QCOMPARE(played.times, QList<qint64>({0, 200}));
    QCOMPARE(played.player->position(), 240);
    played.player->start(240);
    QVERIFY(played.heard.isPlaying);
    QVERIFY(hasNoChildren());
    QVERIFY(played.playToEnd());
    QCOMPARE(played.times, AllTimes);
    QCOMPARE(played.heard.samples.size(), AmrSecond);
    QCOMPARE(played.heard.devices, 1);
}

void ClipPlayerTest::doesNotCountTheTimeUntilTheFirstPicture()
{
    PlayedClip played(fixture("video.3gp"), "3gp");
    played.player->start(0);
    played.now += 60'000;
    QCOMPARE(played.player->position(), 0);
    QVERIFY(PlayedClip::untilRead());
    QCOMPARE(played.player->position(), 0);
    QVERIFY(played.playToEnd());
    QCOMPARE(played.times, AllTimes);
}

void ClipPlayerTest::goesElsewhereWhilePlaying()
{
    PlayedClip played(fixture("video.3gp"), "3gp");
    played.player->start(0);
    QVERIFY(PlayedClip::untilRead());
    played.pass(240);
    played.player->start(700);
    QVERIFY(PlayedClip::untilRead());
    QVERIFY(played.playToEnd());
    QCOMPARE(played.times, QList<qint64>({0, 200, 600, 800}));
    QCOMPARE(played.ends, 1);
}

void ClipPlayerTest::playsAgain()
{
    PlayedClip played(fixture("video.3gp"), "3gp");
    for (int i = 1; i <= 2; ++i) {
        played.player->start(0);
        QVERIFY(PlayedClip::untilRead());
        QVERIFY(played.playUntil([&] { return played.ends == i; }));
    }
    QCOMPARE(played.times, AllTimes + AllTimes);
    QCOMPARE(played.heard.samples.size(), 2 * AmrSecond);
}

void ClipPlayerTest::playsWithoutAnAudioDevice()
{
    PlayedClip played(fixture("video.3gp"), "3gp");
    played.hasDevice = false;
    played.player->start(0);
    QVERIFY(PlayedClip::untilRead());
    QVERIFY(played.playToEnd());
    QCOMPARE(played.times, AllTimes);
    QCOMPARE(played.ends, 1);
    QVERIFY(played.failures.isEmpty());
}

// A machine with tests may have none.
void ClipPlayerTest::playsWithTheUsualAudioDevice()
{
    ClipPlayer player(fixture("sound.amr"), "amr");
    bool hasEnded = false;
    QObject::connect(&player, &ClipPlayer::ended, [&] { hasEnded = true; });
    player.start(0);
    QVERIFY(PlayedClip::until([&] { return hasEnded; }));
    QCOMPARE(player.position(), 1000);
}

void ClipPlayerTest::leavesOutSoundThatTheDeviceTakesTooLate()
{
    PlayedClip played(fixture("sound.amr"), "amr");
    played.heard.room = 101; // half a sample is not written
    played.player->start(0);
    QVERIFY(PlayedClip::untilRead());
    QVERIFY(played.playToEnd());
    QCOMPARE(played.ends, 1);
    QVERIFY(!played.heard.samples.isEmpty());
    QVERIFY(played.heard.samples.size() < AmrSecond);
    QCOMPARE(played.heard.samples.size() % 2, 0);
}

void ClipPlayerTest::leavesOutPicturesThatAreLate()
{
    PlayedClip played(fixture("video.3gp"), "3gp");
    played.player->start(0);
    QVERIFY(PlayedClip::untilRead());
    played.pass(20);
    played.pass(680, 680);
    QVERIFY(played.playToEnd());
    QCOMPARE(played.times, QList<qint64>({0, 600, 800}));
}

QVL_CLIP_TEST_MAIN(ClipPlayerTest)
#include "clip_player_test.moc"
