/*
 * The time of playing: which slide is shown, for how long, and which of its media.
 */
#include "stage/player.h"

#include "input/message.h"
#include "manual_clock.h"
#include "stage/timing.h"

#include <QSignalSpy>
#include <QTest>

class PlayerTest : public QObject
{
    Q_OBJECT

private slots:
    void slidesLastAsLongAsThePresentationSays();
    void zeroIsShownForHalfASecond();
    void withoutDurationFiveSeconds();
    void withoutDurationAsLongAsTheClip();
    void indefiniteLastsUntilNext();
    void mediaBeginAndEnd();
    void endBeforeTheBeginIsIgnored();
    void pauseKeepsThePosition();
    void previousAndNextGoToBegins();
    void nextAfterTheLastSlideIsTheEnd();
    void playAfterTheEndBeginsAgain();
    void seekIsLimitedToTheSlides();
    void slideWaitsForItsClips();
    void slideDoesNotWaitForLongerClips();
    void withoutSlidesNothingPlays();
    void receiversMayPause();
    void newSlidesStop();

private:
    ManualClock m_clock;
};

namespace {

std::vector<SlideTiming> durations(std::initializer_list<int> list)
{
    std::vector<SlideTiming> slides;
    for (const int duration : list)
        slides.push_back({duration, false, {}});
    return slides;
}

std::vector<SlideTiming> timingOfSmil(const QByteArray &body, const QByteArray &clip = {})
{
    Message message;
    const auto add = [&message](const char *type, const char *subtype, const char *location,
                                const QByteArray &octets) {
        auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
        part->setContentType(QString::fromLatin1(type));
        part->setContentSubType(QString::fromLatin1(subtype));
        part->setContentLocation(QString::fromLatin1(location));
        if (part->setBodyData(octets.constData(), int(octets.size())) != MultipartResult::Ok)
            qFatal("no memory");
        message.parts().appendBodypart(part.release());
    };
    add("application", "smil", "s.smil", "<smil><body>" + body + "</body></smil>");
    add("text", "plain", "a.txt", "text");
    if (!clip.isEmpty())
        add("audio", "amr", "a.amr", clip);
    if (!message.present().isOk())
        qFatal("no presentation");
    return timingOf(message);
}

// A second of AMR: 50 frames of 12.2 kbit/s (RFC 4867, 5).
QByteArray secondOfSound()
{
    return "#!AMR\n" + QByteArray("\x3C" + QByteArray(31, '\0')).repeated(50);
}

} // namespace

void PlayerTest::slidesLastAsLongAsThePresentationSays()
{
    Player player(&m_clock);
    QSignalSpy slides(&player, &Player::slideChanged);
    const QSignalSpy ended(&player, &Player::ended);
    player.setSlides(durations({1000, 2500}));
    player.play();
    m_clock.advance(999);
    QCOMPARE(player.slide(), 0);
    QCOMPARE(player.position(), 999);
    m_clock.advance(1);
    QCOMPARE(player.slide(), 1);
    QCOMPARE(player.position(), 0);
    m_clock.advance(2499);
    QVERIFY(player.isPlaying());
    m_clock.advance(1);
    QVERIFY(!player.isPlaying());
    QVERIFY(player.isAtEnd());
    QCOMPARE(player.position(), 2500);
    QCOMPARE(ended.count(), 1);
    QVERIFY(!m_clock.isWaiting());
}

void PlayerTest::zeroIsShownForHalfASecond()
{
    QCOMPARE(timingOfSmil("<par dur='0s'><text src='a.txt'/></par>").at(0).duration, 500);
}

void PlayerTest::withoutDurationFiveSeconds()
{
    QCOMPARE(timingOfSmil("<par><text src='a.txt'/></par>").at(0).duration, 5000);
}

void PlayerTest::withoutDurationAsLongAsTheClip()
{
    const auto timing = timingOfSmil("<par><audio src='a.amr'/></par>", secondOfSound());
    QCOMPARE(timing.at(0).duration, 1000);
    QVERIFY(timing.at(0).waitsForClips);
}

void PlayerTest::indefiniteLastsUntilNext()
{
    Player player(&m_clock);
    player.setSlides(timingOfSmil("<par dur='indefinite'><text src='a.txt'/></par>"
                                  "<par dur='1s'><text src='a.txt'/></par>"));
    QCOMPARE(player.duration(), QvlDuration::Indefinite);
    player.play();
    m_clock.advance(3'600'000);
    QCOMPARE(player.slide(), 0);
    QVERIFY(player.isPlaying());
    player.next();
    QCOMPARE(player.slide(), 1);
    m_clock.advance(1000);
    QVERIFY(player.isAtEnd());
}

void PlayerTest::mediaBeginAndEnd()
{
    Player player(&m_clock);
    player.setSlides(timingOfSmil("<par dur='4s'><text src='a.txt' begin='1s' end='3s'/></par>"));
    player.play();
    QVERIFY(!player.isActive(0));
    m_clock.advance(1000);
    QVERIFY(player.isActive(0));
    m_clock.advance(1999);
    QVERIFY(player.isActive(0));
    m_clock.advance(1);
    QVERIFY(!player.isActive(0));
    QVERIFY(!player.isActive(1));
    QVERIFY(!player.isActive(-1));
}

void PlayerTest::endBeforeTheBeginIsIgnored()
{
    const auto timing = timingOfSmil("<par dur='4s'><text src='a.txt' begin='2s' end='1s'/></par>");
    QCOMPARE(timing.at(0).media.at(0).begin, 2000);
    QCOMPARE(timing.at(0).media.at(0).end, int(MediaSpan::WithSlide));
}

void PlayerTest::pauseKeepsThePosition()
{
    Player player(&m_clock);
    player.setSlides(durations({1000}));
    player.play();
    m_clock.advance(400);
    player.pause();
    m_clock.advance(5000);
    QCOMPARE(player.position(), 400);
    QVERIFY(!m_clock.isWaiting());
    player.play();
    m_clock.advance(599);
    QVERIFY(player.isPlaying());
    m_clock.advance(1);
    QVERIFY(player.isAtEnd());
}

void PlayerTest::previousAndNextGoToBegins()
{
    Player player(&m_clock);
    player.setSlides(durations({1000, 1000, 1000}));
    player.play();
    m_clock.advance(300);
    player.next();
    QCOMPARE(player.slide(), 1);
    QCOMPARE(player.position(), 0);
    QVERIFY(player.isPlaying());
    m_clock.advance(300);
    player.previous();
    player.previous();
    QCOMPARE(player.slide(), 0);
    QCOMPARE(player.position(), 0);
}

void PlayerTest::nextAfterTheLastSlideIsTheEnd()
{
    Player player(&m_clock);
    const QSignalSpy ended(&player, &Player::ended);
    player.setSlides(durations({1000}));
    player.play();
    player.next();
    QVERIFY(player.isAtEnd());
    QVERIFY(!player.isPlaying());
    QCOMPARE(ended.count(), 1);
}

void PlayerTest::playAfterTheEndBeginsAgain()
{
    Player player(&m_clock);
    player.setSlides(durations({500, 500}));
    player.play();
    m_clock.advance(1000);
    QVERIFY(player.isAtEnd());
    player.play();
    QCOMPARE(player.slide(), 0);
    QCOMPARE(player.position(), 0);
    QVERIFY(player.isPlaying());
}

void PlayerTest::seekIsLimitedToTheSlides()
{
    Player player(&m_clock);
    player.setSlides(durations({1000, QvlDuration::Indefinite}));
    player.seek(0, 1500);
    QCOMPARE(player.position(), 1000);
    player.seek(0, -5);
    QCOMPARE(player.position(), 0);
    player.seek(7, 300);
    QCOMPARE(player.slide(), 1);
    QCOMPARE(player.position(), 300);
    player.seek(-1, 10);
    QCOMPARE(player.slide(), 0);
}

void PlayerTest::slideWaitsForItsClips()
{
    Player player(&m_clock);
    player.setSlides({{1000, true, {}}, {1000, true, {}}});
    player.play();
    player.setClipsPlaying(true);
    m_clock.advance(1200);
    QCOMPARE(player.slide(), 0);
    QCOMPARE(player.position(), 1000);
    player.setClipsPlaying(false);
    m_clock.advance(Player::Tick);
    QCOMPARE(player.slide(), 1);
    player.setClipsPlaying(true); // one that never ends
    m_clock.advance(1000 + Player::LongestWait);
    QVERIFY(player.isAtEnd());
}

void PlayerTest::slideDoesNotWaitForLongerClips()
{
    Player player(&m_clock);
    player.setSlides({{1000, false, {}}, {1000, false, {}}});
    player.play();
    player.setClipsPlaying(true);
    m_clock.advance(1000);
    QCOMPARE(player.slide(), 1);
}

void PlayerTest::withoutSlidesNothingPlays()
{
    Player player(&m_clock);
    player.setSlides({});
    player.play();
    player.next();
    player.seek(0, 0);
    QVERIFY(!player.isPlaying());
    QVERIFY(!player.isAtEnd());
    QCOMPARE(player.position(), 0);
}

void PlayerTest::receiversMayPause()
{
    Player player(&m_clock);
    connect(&player, &Player::positionChanged, &player, [&player](int position) {
        if (position >= 200)
            player.pause();
    });
    player.setSlides(durations({1000}));
    player.play();
    m_clock.advance(5000);
    QVERIFY(!player.isPlaying());
    QVERIFY(player.position() >= 200 && player.position() <= 200 + Player::Tick);
}

void PlayerTest::newSlidesStop()
{
    Player player(&m_clock);
    player.setSlides(durations({1000, 1000}));
    player.play();
    m_clock.advance(1500);
    player.setSlides(durations({700}));
    QVERIFY(!player.isPlaying());
    QCOMPARE(player.slide(), 0);
    QCOMPARE(player.duration(), 700);
    QVERIFY(!m_clock.isWaiting());
}

QTEST_GUILESS_MAIN(PlayerTest)
#include "player_test.moc"
