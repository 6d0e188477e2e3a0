/*
 * iMelody: which files are melodies, and how long they play.
 *
 * Unless stated otherwise, the beat is 120 per minute: a full note lasts 2000 ms, and c2, a
 * quarter, 500 ms.
 */
#include "support/octets.h"
#include "support/play_length.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <optional>

namespace {

constexpr int LongestTime = std::numeric_limits<int>::max();

/// Nothing if the clip is not opened.
std::optional<int> playLength(const QByteArray &clip)
{
    return playLength(clip, "imy");
}

/// A file with the lines that every file has and @p lines.
QByteArray tune(const QByteArray &lines)
{
    return "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\n" + lines + "\r\nEND:IMELODY\r\n";
}

struct Row
{
    QByteArray text;
    int milliseconds;
};

void expectMelodies(std::initializer_list<Row> rows)
{
    for (const auto &[melody, milliseconds] : rows) {
        SCOPED_TRACE(melody.left(80).constData());
        EXPECT_EQ(playLength(tune("MELODY:" + melody)), milliseconds);
    }
}

void expectFiles(std::initializer_list<Row> rows)
{
    for (const auto &[text, milliseconds] : rows) {
        SCOPED_TRACE(text.constData());
        EXPECT_EQ(playLength(text), milliseconds);
    }
}

// A beat of 100: quarters of 600 ms. 600 + 300 + 3 * (900 + 525) + 75 ms
const QByteArray smallFile = tune("BEAT:100\r\nSTYLE:S1\r\nVOLUME:V7\r\n"
                                  "MELODY:*4c2V+&d3ledon(r2.#e3:@3V-)\r\n vibeoff*5g5");
constexpr int smallFileLength = 5250;

} // namespace

TEST(ImelodyClip, PlaysNotesAndRestsOfEveryDuration)
{
    expectMelodies({
        {"c0", 2000},
        {"c1", 1000},
        {"c2", 500},
        {"c3", 250},
        {"c4", 125},
        {"c5", 63}, // 62.5
        {"r0", 2000},
        {"r5r5", 125},
        {"c2d2e2f2g2a2b2r2", 4000},
        {"C2D2E2F2G2A2B2R2", 4000},
        {"", 0},
    });
}

TEST(ImelodyClip, LengthensAndShortensBySpecifier)
{
    expectMelodies({
        {"c2.", 750},
        {"c2:", 875},
        {"c2;", 333},
        {"c2;d2;e2;", 1000},
        {"c5.", 94}, // 93.75
        {"c5:", 109}, // 109.375
        {"c5;", 42}, // 41.67
        {"c5;c5;c5;", 125},
        {"r1.", 1500},
        {"c2..", 750},
    });
}

TEST(ImelodyClip, TakesNoTimeForOtherCommands)
{
    expectMelodies({
        {"#c2&d2", 1000},
        {"*0c2*8d2", 1000},
        {"*4#c2.", 750},
        {"ledonledoffvibeonvibeoffbackonbackoff", 0},
        {"ledonc2ledoffd2vibeone2vibeofff2backong2backoffa2", 3000},
        {"V0c2V15d2V+e2V-f2", 2000},
    });
}

TEST(ImelodyClip, SkipsUnknownCharacters)
{
    expectMelodies({
        {"x!c2 ?d2/h2", 1000},
        {"c6c9", 0},
        {"c e", 0},
        {"c 2", 0},
        {".c2", 500},
        {"\xFF\xE4"
         "c2\xA0",
         500},
        {QByteArray("c2\0d2", 5), 1000},
        {"c22", 500},
    });
}

TEST(ImelodyClip, PlaysRepeats)
{
    expectMelodies({
        {"(c2@1)", 500},
        {"(c2@3)", 1500},
        {"(c2d2.@2)e2", 3000},
        {"c2(d2@2)e2(f2@3)", 3500},
        {"(c2@3V+)d2", 2000},
        {"(c2@12)", 6000},
        {"(c5@2)", 125},
        {"(@9)c2", 500},
    });
}

TEST(ImelodyClip, PlaysAnEndlessRepeatOnceAndNothingAfterIt)
{
    expectMelodies({
        {"(c2@0)", 500},
        {"(c2@0)d2", 500},
        {"c2(d2e2@0V-)f2(g2@4)", 1500},
        {"(c2@00)d2", 500},
    });
}

TEST(ImelodyClip, PlaysMalformedRepeatsOnce)
{
    expectMelodies({
        {"(c2@3", 500}, // not closed
        {"(c2)d2", 1000},
        {"(c2@)d2", 1000},
        {"c2@3d2)e2", 1500}, // not opened
        {"c2@0)d2", 1000},
        {")c2", 500},
        {"(c2@3))d2", 2000},
    });
}

TEST(ImelodyClip, RepeatsTheInnermostOfNestedRepeats)
{
    expectMelodies({
        {"(c2(d2@2)e2@3)", 2000},
        {"(c2@5(d2)e2)", 1500},
        {"((((c2@2)@2)@2)@2)", 1000},
        {"(c2(d2@0)e2@3)", 1000},
    });
}

TEST(ImelodyClip, FollowsTheBeat)
{
    expectFiles({
        {tune("MELODY:c2"), 500},
        {tune("BEAT:25\r\nMELODY:c2"), 2400},
        {tune("BEAT:100\r\nMELODY:c5"), 75},
        {tune("BEAT:120\r\nMELODY:c2"), 500},
        {tune("BEAT:900\r\nMELODY:c2"), 67}, // 66.67
        {tune("BEAT:900\r\nMELODY:c2d2e2"), 200},
        {tune("BEAT:7 \r\nBEAT: 60 \r\nMELODY:c2"), 1000},
        {tune("MELODY:c2\r\nBEAT:60"), 1000},
    });
}

TEST(ImelodyClip, UsesTheDefaultForAnInvalidBeat)
{
    for (const char *beat : {"0", "1", "24", "901", "99999999", "4294967416",
                             "18446744073709551736", "-60", "", "fast", "60 beats", "0x3C"}) {
        SCOPED_TRACE(beat);
        EXPECT_EQ(playLength(tune(QByteArray("BEAT:") + beat + "\r\nMELODY:c2")), 500);
    }
}

TEST(ImelodyClip, PlaysAsLongInEveryStyle)
{
    for (const char *style : {"S0", "S1", "S2", "S9", ""}) {
        SCOPED_TRACE(style);
        EXPECT_EQ(playLength(tune(QByteArray("STYLE:") + style + "\r\nMELODY:c2r2")), 1000);
    }
}

TEST(ImelodyClip, ReadsLines)
{
    expectFiles({
        {"BEGIN:IMELODY\nMELODY:c2\nEND:IMELODY\n", 500},
        {"BEGIN:IMELODY\nMELODY:c2", 500},
        {"BEGIN:IMELODY", 0},
        {"BEGIN:IMELODY\r\nEND:IMELODY", 0},
        {"BEGIN:IMELODY\nc2d2", 0},
        {"begin:iMelody\nBeat:60\nmelody:c2\nend:imelody\nMELODY:c0", 1000},
        {"\r\n \tBEGIN:IMELODY \r\nMELODY:c2\r\n", 500},
        {"BEGIN:IMELODY\nMELODY:c2\nEND:IMELODY\nMELODY:c0\nBEAT:60", 500},
        {"BEGIN:IMELODY\nNAME:MELODY:c0\nMELODY:c2\nCOMPOSER:c2", 500},
    });
}

TEST(ImelodyClip, JoinsFoldedLines)
{
    expectFiles({
        {tune("MELODY:c2\r\n d2\r\n\te2"), 1500},
        {tune("MELODY:c\r\n 2.(d2\n @\n\t3)"), 2250},
        {tune("MEL\r\n ODY:c2\r\nBEAT:6\r\n 0"), 1000},
        {tune("MELODY:c2\r\nd2"), 500},
    });
}

TEST(ImelodyClip, IsNotOpenedWithoutItsFirstLine)
{
    for (const char *text : {"c2", "\r\n", "MELODY:c2", "VERSION:1.2\nBEGIN:IMELODY\nMELODY:c2",
                             "BEGIN:IMELOD", "BEGIN:IMELODYS\nMELODY:c2", "BEGIN:VCARD\nMELODY:c2",
                             "BEGIN: IMELODY\nMELODY:c2", "BEGIN:IMELODY MELODY:c2"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(playLength(text), std::nullopt);
    }
}

TEST(ImelodyClip, StopsAtTheLongestRepresentableTime)
{
    const auto nested = [](int depth) {
        return QByteArray(depth, '(') + "c0" + QByteArray("@4294967295)").repeated(depth);
    };
    expectMelodies({
        {"(c0@1000000)", 2'000'000'000},
        {"(c3@8589934)", 2'147'483'500},
        {"(c3@8589934)(c4@1)r5.r5.", LongestTime},
        {"(c3@8589935)", LongestTime},
        {"(c0@4294967295)", LongestTime},
        {"(c0@4294967296)", LongestTime},
        {"(c0@18446744073709551616)", LongestTime},
        {"(c0@" + QByteArray(100'000, '9') + ")", LongestTime},
        {"c0(c0@4294967295)(d0@4294967295)e0", LongestTime},
        {nested(255), LongestTime},
        {QByteArray("(c0@4294967295)").repeated(255), LongestTime},
        {"(@4294967295)c2", 500},
    });
    expectFiles({
        // 8053063 * 266.667 ms
        {tune("BEAT:900\r\nMELODY:(c0@8053063)"), 2'147'483'467},
        {tune("BEAT:900\r\nMELODY:(c0@8053064)"), LongestTime},
        {tune("BEAT:25\r\nMELODY:(c0@223696)"), 2'147'481'600},
        {tune("BEAT:25\r\nMELODY:(c0@223697)"), LongestTime},
    });
}

TEST(ImelodyClip, PlaysLongMelodies)
{
    expectMelodies({
        {QByteArray("c2").repeated(50'000), 25'000'000},
        {QByteArray(100'000, '('), 0},
        {QByteArray("c2)").repeated(33'333), 16'666'500},
        {QByteArray("(c2@2").repeated(20'000), 10'000'000},
        {QByteArray("c\r\n 2").repeated(20'000), 10'000'000},
    });
}

TEST(ImelodyClip, SmallFileHasTheExpectedLength)
{
    EXPECT_EQ(playLength(smallFile), smallFileLength);
}

TEST(ImelodyClip, TruncatedFilePlaysItsRest)
{
    int before = 0;
    for (qsizetype size = 0; size < smallFile.size(); ++size) {
        SCOPED_TRACE(size);
        const auto length = playLength(smallFile.first(size));
        EXPECT_EQ(length.has_value(), size >= qsizetype(qstrlen("BEGIN:IMELODY")));
        EXPECT_GE(length.value_or(0), before);
        EXPECT_LE(length.value_or(0), smallFileLength);
        before = length.value_or(0);
    }
}

TEST(ImelodyClip, FlippedBitHasALengthOrIsNotOpened)
{
    for (qsizetype bit = 0; bit < smallFile.size() * 8; ++bit) {
        SCOPED_TRACE(bit);
        QByteArray clip = smallFile;
        clip[bit / 8] = char(clip[bit / 8] ^ 1 << bit % 8);
        EXPECT_GE(playLength(clip).value_or(0), 0);
    }
}
