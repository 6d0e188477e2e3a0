/*
 * Clips that cannot be decoded, or not whole: the player says why. The program may delete the
 * player whenever it is told something.
 */
#include "gui/clips/clip_test.h"

namespace {

/// The video with sound of a codec that FFmpeg knows, but does not decode.
QByteArray withUnknownSound()
{
    return fixture("video.3gp").replace("samr", "ssmv");
}

/// The video with pictures of a codec that FFmpeg does not know.
QByteArray withUnknownPictures(QByteArray clip)
{
    return clip.replace("mp4v", "zzzz").replace("esds", "free");
}

} // namespace

class ClipFailuresTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void saysThatATypeHasNoDecoder_data();
    void saysThatATypeHasNoDecoder();
    void saysWhichCodecHasNoDecoder();
    void namesACodecThatIsNotKnown();
    void playsTheRestOfAClipWithACodecWithoutDecoder();
    void saysThatTheDecoderIsMissing();
    void saysThatTheProgramCannotBeStarted();
    void saysThatAClipCannotBeDecoded_data();
    void saysThatAClipCannotBeDecoded();
    void mayBeDeletedInItsSignals_data();
    void mayBeDeletedInItsSignals();
};

void ClipFailuresTest::cleanup()
{
    QVERIFY2(PlayedClip::until(hasNoChildren), "a child process is left");
}

void ClipFailuresTest::saysThatATypeHasNoDecoder_data()
{
    QTest::addColumn<QString>("extension");
    for (const char *extension : {"ogg", "mid", "imy", "m3u8", "mpd", "sdp", "xspf", ""})
        QTest::newRow(*extension ? extension : "none") << QString(extension);
}

void ClipFailuresTest::saysThatATypeHasNoDecoder()
{
    QFETCH(const QString, extension);
    QVERIFY(!ClipPlayer::canPlay(extension));
    PlayedClip played(fixture("sound.ogg"), extension);
    played.player->start(0);
    QVERIFY(played.playToEnd());
    QCOMPARE(played.failures.size(), 1);
    QVERIFY2(played.failures.first().contains('"' + extension + '"'),
             qPrintable(played.failures.first()));
}

void ClipFailuresTest::saysWhichCodecHasNoDecoder()
{
    PlayedClip played(withUnknownPictures(withUnknownSound()), "3gp");
    played.player->start(0);
    QVERIFY(played.playToEnd());
    QCOMPARE(played.failures.size(), 1);
    QVERIFY2(played.failures.first().contains("smv"), qPrintable(played.failures.first()));
    QVERIFY(played.missing.isEmpty());
    QCOMPARE(played.ends, 0);
}

void ClipFailuresTest::namesACodecThatIsNotKnown()
{
    PlayedClip played(withUnknownPictures(fixture("video.3gp")).replace("zzzz", "z\x1bz\n"), "3gp");
    played.player->start(0);
    QVERIFY(played.playToEnd());
    QCOMPARE(played.missing.size(), 1);
    QVERIFY2(played.missing.first().contains("z[27]z[10]"), qPrintable(played.missing.first()));
    QCOMPARE(played.heard.samples.size(), AmrSecond);
}

void ClipFailuresTest::playsTheRestOfAClipWithACodecWithoutDecoder()
{
    PlayedClip played(withUnknownSound(), "3gp");
    played.player->start(0);
    QVERIFY(PlayedClip::untilRead());
    QVERIFY(played.playToEnd());
    QCOMPARE(played.times, AllTimes);
    QCOMPARE(played.missing.size(), 1);
    QVERIFY2(played.missing.first().contains("smv"), qPrintable(played.missing.first()));
    QVERIFY(played.failures.isEmpty());
}

void ClipFailuresTest::saysThatTheDecoderIsMissing()
{
    ChildCommand command;
    command.moduleFolder = "/nonexistent";
    PlayedClip played(fixture("sound.amr"), "amr", command);
    played.player->start(0);
    QVERIFY(played.playToEnd());
    QCOMPARE(played.failures, QStringList("The decoder for clips is not installed."));
}

void ClipFailuresTest::saysThatTheProgramCannotBeStarted()
{
    ChildCommand command;
    command.program = "/nonexistent";
    PlayedClip played(fixture("sound.amr"), "amr", command);
    played.player->start(0);
    QVERIFY(played.playToEnd());
    QCOMPARE(played.failures, QStringList("The decoder for clips is not installed."));
}

void ClipFailuresTest::saysThatAClipCannotBeDecoded_data()
{
    QTest::addColumn<QByteArray>("clip");
    QTest::addColumn<QString>("extension");
    QTest::newRow("empty") << QByteArray() << "amr";
    QTest::newRow("noise") << QByteArray(5000, 'x') << "3gp";
    QTest::newRow("header only") << QByteArray("#!AMR\n") << "amr";
    QTest::newRow("another type") << fixture("video.3gp") << "avi";
    QTest::newRow("truncated") << fixture("video.3gp").first(1000) << "3gp";
}

void ClipFailuresTest::saysThatAClipCannotBeDecoded()
{
    QFETCH(const QByteArray, clip);
    QFETCH(const QString, extension);
    PlayedClip played(clip, extension);
    played.player->start(0);
    QVERIFY(played.playToEnd());
    QCOMPARE(played.failures.size(), 1);
    QVERIFY2(played.failures.first().contains("cannot be decoded"),
             qPrintable(played.failures.first()));
    QVERIFY(played.times.isEmpty());
}

void ClipFailuresTest::mayBeDeletedInItsSignals_data()
{
    QTest::addColumn<QByteArray>("clip");
    QTest::addColumn<QString>("extension");
    QTest::newRow("frame") << fixture("video.3gp") << "3gp";
    QTest::newRow("incomplete") << withUnknownPictures(fixture("video.3gp")) << "3gp";
    QTest::newRow("ended") << fixture("sound.amr") << "amr";
    QTest::newRow("failed") << QByteArray() << "amr";
}

void ClipFailuresTest::mayBeDeletedInItsSignals()
{
    QFETCH(const QByteArray, clip);
    QFETCH(const QString, extension);
    PlayedClip played(clip, extension);
    QString deletedIn;
    const auto deleteIn = [&](const char *signal) {
        if (deletedIn.isEmpty()) {
            deletedIn = signal;
            played.player.reset();
        }
    };
    ClipPlayer *player = played.player.get();
    QObject::connect(player, &ClipPlayer::frame, [&] { deleteIn("frame"); });
    QObject::connect(player, &ClipPlayer::incomplete, [&] { deleteIn("incomplete"); });
    QObject::connect(player, &ClipPlayer::ended, [&] { deleteIn("ended"); });
    QObject::connect(player, &ClipPlayer::failed, [&] { deleteIn("failed"); });
    player->start(0);
    QVERIFY(played.playUntil([&] { return !deletedIn.isEmpty(); }));
    QCOMPARE(deletedIn, QString(QTest::currentDataTag()));
    QVERIFY(hasNoChildren());
}

QVL_CLIP_TEST_MAIN(ClipFailuresTest)
#include "clip_failures_test.moc"
