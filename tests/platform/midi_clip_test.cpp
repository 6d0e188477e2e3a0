/*
 * Standard MIDI files: which files are valid, and how long they play.
 *
 * Unless stated otherwise, a quarter has 500 ticks (01 F4), so that at the default tempo of half a
 * second a tick is a millisecond. 83 74 is 500 ticks later (3 * 128 + 116), 87 68 is 1000 ticks
 * later, 00 at once.
 */
#include "support/octets.h"
#include "support/play_length.h"

#include <QtEndian>

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <utility>

namespace {

constexpr int LongestTime = std::numeric_limits<int>::max();

/// Nothing if the clip is not opened.
std::optional<int> playLength(const QByteArray &clip)
{
    return playLength(clip, "mid");
}

QByteArray chunk(const QByteArray &type, const QByteArray &data)
{
    QByteArray length(4, '\0');
    qToBigEndian(quint32(data.size()), length.data());
    return type + length + data;
}

/// From format, number of tracks and division, of two octets each.
QByteArray header(const QByteArray &fields)
{
    return chunk("MThd", fields);
}

QByteArray track(const QByteArray &events)
{
    return chunk("MTrk", events);
}

/// A file of format 0 with 500 ticks per quarter.
QByteArray song(const QByteArray &events)
{
    return header("00 00 00 01 01 F4"_octets) + track(events);
}

QByteArray riff(const QByteArray &midi)
{
    // The sizes, with the least significant octet first, are those of an empty file.
    return QByteArray("RIFF") + "0C 00 00 00"_octets + "RMIDdata" + "00 00 00 00"_octets + midi;
}

struct Row
{
    const char *name;
    QByteArray clip;
    int milliseconds;
};

template <std::size_t N>
void expectLengths(const Row (&rows)[N])
{
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(playLength(row.clip), row.milliseconds);
    }
}

template <std::size_t N>
void expectNotOpened(const std::pair<const char *, QByteArray> (&rows)[N])
{
    for (const auto &[name, clip] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(playLength(clip), std::nullopt);
    }
}

// Small files with all features. Truncation shortens them.
const Row smallFiles[] = {
    // 500 + 2 * 500 + 1000 / 2 ticks: quarters of 500, 1000 and 250 ms
    {"three tempi",
     song("00 90 3C 40 83 74 FF 51 03 0F 42 40 83 74 3C 00 00 FF 51 03 03 D0 90 "
          "00 C0 05 00 F0 02 7E F7 87 68 FF 2F 00"_octets),
     2000},
    // a quarter lasts 1 s in both tracks, and the second has two of them
    {"format 1",
     header("00 01 00 02 01 F4"_octets) + track("00 FF 51 03 0F 42 40 00 FF 2F 00"_octets)
         + track("00 90 3C 40 87 68 80 3C 40 00 FF 2F 00"_octets),
     2000},
    // 1 s and 1000 ms
    {"format 2",
     header("00 02 00 02 01 F4"_octets) + track("00 FF 51 03 0F 42 40 83 74 FF 2F 00"_octets)
         + track("87 68 FF 2F 00"_octets),
     2000},
    // 25 * 40 ticks a second
    {"SMPTE", header("00 00 00 01 E7 28"_octets) + track("87 68 90 3C 40 00 FF 2F 00"_octets),
     1000},
    {"in RIFF", riff(song("83 74 90 3C 40 83 74 3C 00"_octets)), 1000},
};

} // namespace

TEST(MidiClip, FollowsTheTempo)
{
    expectLengths({
        {"default", song("83 74 FF 2F 00"_octets), 500},
        {"one second a quarter", song("00 FF 51 03 0F 42 40 83 74 FF 2F 00"_octets), 1000},
        // quarters of 500, 250 and 1000 ms
        {"three tempi",
         song("83 74 FF 51 03 03 D0 90 83 74 FF 51 03 0F 42 40 83 74 FF 2F 00"_octets), 1750},
        {"the later of two at one tick",
         song("00 FF 51 03 03 D0 90 00 FF 51 03 0F 42 40 83 74 FF 2F 00"_octets), 1000},
        {"a change at the end changes nothing", song("83 74 FF 51 03 0F 42 40"_octets), 500},
        {"a tempo of 0 is ignored", song("00 FF 51 03 00 00 00 83 74 FF 2F 00"_octets), 500},
        {"a tempo of two octets is ignored", song("00 FF 51 02 0F 42 83 74 FF 2F 00"_octets), 500},
        {"a tempo of four octets is ignored", song("00 FF 51 04 0F 42 40 00 83 74 FF 2F 00"_octets),
         500},
        // one tick of FF FF FF microseconds
        {"slowest",
         header("00 00 00 01 00 01"_octets) + track("00 FF 51 03 FF FF FF 01 FF 2F 00"_octets),
         16777},
    });
}

// One tick per quarter, and a tempo of as many microseconds as the row's name.
TEST(MidiClip, RoundsToTheNearestMillisecond)
{
    const QByteArray file = header("00 00 00 01 00 01"_octets);
    expectLengths({
        {"499", file + track("00 FF 51 03 00 01 F3 01 FF 2F 00"_octets), 0},
        {"500", file + track("00 FF 51 03 00 01 F4 01 FF 2F 00"_octets), 1},
        {"2499", file + track("00 FF 51 03 00 09 C3 01 FF 2F 00"_octets), 2},
        {"2500", file + track("00 FF 51 03 00 09 C4 01 FF 2F 00"_octets), 3},
        {"400 and 400, together",
         file + track("00 FF 51 03 00 01 90 01 FF 51 03 00 01 90 01 FF 2F 00"_octets), 1},
    });
}

TEST(MidiClip, PlaysTheTracksOfFormats0And1AtOnce)
{
    const QByteArray format1 = header("00 01 00 02 01 F4"_octets);
    const QByteArray toOneSecond = track("00 FF 51 03 0F 42 40 00 FF 2F 00"_octets);
    const QByteArray quarter = track("83 74 FF 2F 00"_octets);
    const QByteArray twoQuarters = track("87 68 FF 2F 00"_octets);
    expectLengths({
        {"format 0", header("00 00 00 02 01 F4"_octets) + quarter + twoQuarters, 1000},
        {"the longest counts", format1 + twoQuarters + quarter, 1000},
        {"tempo from the first", format1 + toOneSecond + quarter, 1000},
        {"tempo from the last", format1 + quarter + toOneSecond, 1000},
        // 1000 ms from tick 0, 250 ms from tick 500 of the second track, 500 ms from tick 1000
        {"changes in two tracks, in the order of time",
         format1 + track("00 FF 51 03 0F 42 40 87 68 FF 51 03 07 A1 20 83 74 FF 2F 00"_octets)
             + track("83 74 FF 51 03 03 D0 90 00 FF 2F 00"_octets),
         1750},
        {"changes at the same tick, the later track's counts",
         format1 + track("00 FF 51 03 03 D0 90 83 74 FF 2F 00"_octets) + toOneSecond, 1000},
    });
}

TEST(MidiClip, PlaysTheTracksOfFormat2OneAfterTheOther)
{
    const QByteArray format2 = header("00 02 00 02 01 F4"_octets);
    const QByteArray slowQuarter = track("00 FF 51 03 0F 42 40 83 74 FF 2F 00"_octets);
    const QByteArray quarter = track("83 74 FF 2F 00"_octets);
    // one tick of 400 microseconds
    const QByteArray shortest = track("00 FF 51 03 00 01 90 01 FF 2F 00"_octets);
    expectLengths({
        {"one", format2 + quarter, 500},
        {"each with its own tempo", format2 + slowQuarter + quarter + quarter, 2000},
        {"rounded as a whole", header("00 02 00 03 00 01"_octets) + shortest + shortest + shortest,
         1},
        {"in frames",
         header("00 02 00 02 E7 28"_octets) + track("87 68 FF 2F 00"_octets) + slowQuarter, 1500},
    });
}

TEST(MidiClip, CountsFramesInsteadOfQuarters)
{
    const QByteArray thousandTicks = track("87 68 FF 2F 00"_octets);
    expectLengths({
        {"24 * 125 a second", header("00 00 00 01 E8 7D"_octets) + thousandTicks, 333},
        {"25 * 40 a second", header("00 00 00 01 E7 28"_octets) + thousandTicks, 1000},
        // 1000 ticks are 10 frames of 1001 / 30 ms
        {"29.97 * 100 a second", header("00 00 00 01 E3 64"_octets) + thousandTicks, 334},
        // 97 38 is 3000 ticks: 30 frames
        {"29.97 * 100 a second, 30 frames",
         header("00 00 00 01 E3 64"_octets) + track("97 38 FF 2F 00"_octets), 1001},
        {"30 * 80 a second", header("00 00 00 01 E2 50"_octets) + thousandTicks, 417},
        {"30 * 255 a second", header("00 00 00 01 E2 FF"_octets) + thousandTicks, 131},
        {"whatever the tempo",
         header("00 00 00 01 E7 28"_octets) + track("00 FF 51 03 03 D0 90 87 68 FF 2F 00"_octets),
         1000},
    });
}

// Every row is followed by a quarter.
TEST(MidiClip, SkipsEveryKindOfEvent)
{
    const Row rows[] = {
        {"note off", "00 80 3C 40"_octets, 500},
        {"note on", "00 9F 3C 40"_octets, 500},
        {"key pressure", "00 A0 3C 40"_octets, 500},
        {"controller", "00 B0 07 7F"_octets, 500},
        {"program", "00 C0 05"_octets, 500},
        {"channel pressure", "00 DF 40"_octets, 500},
        {"pitch bend", "00 E0 00 40"_octets, 500},
        {"running status", "00 90 3C 40 81 00 3C 00"_octets, 628},
        {"running status with one octet", "00 C0 05 81 00 06 81 00 07"_octets, 756},
        {"system exclusive", "00 F0 03 7E 7F F7"_octets, 500},
        {"system exclusive, continued", "00 F0 02 43 12 01 F7 03 43 12 F7"_octets, 501},
        {"text", "00 FF 01 02 68 69"_octets, 500},
        {"text of 128 octets", "00 FF 01 81 00"_octets + octet('t', 128), 500},
        {"meta event without data", "00 FF 01 00"_octets, 500},
        {"unknown meta event", "00 FF 7E 01 FF"_octets, 500},
        {"running status after a meta event", "00 90 3C 40 00 FF 01 01 74 81 00 3C 00"_octets, 628},
        {"running status after a system exclusive", "00 90 3C 40 00 F0 01 F7 81 00 3C 00"_octets,
         628},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(playLength(song(row.clip + "83 74 FF 2F 00"_octets)), row.milliseconds);
    }
}

TEST(MidiClip, ReadsDeltaTimesOfUpToFourOctets)
{
    expectLengths({
        {"smallest", song("00 FF 2F 00"_octets), 0},
        {"most in one octet", song("7F FF 2F 00"_octets), 127},
        {"least in two octets", song("81 00 FF 2F 00"_octets), 128},
        {"most in two octets", song("FF 7F FF 2F 00"_octets), 16'383},
        {"least in three octets", song("81 80 00 FF 2F 00"_octets), 16'384},
        {"most in three octets", song("FF FF 7F FF 2F 00"_octets), 2'097'151},
        {"least in four octets", song("81 80 80 00 FF 2F 00"_octets), 2'097'152},
        {"most in four octets", song("FF FF FF 7F FF 2F 00"_octets), 268'435'455},
        {"with zeros in front", song("80 80 80 01 FF 2F 00"_octets), 1},
    });
}

TEST(MidiClip, EndsWithTheLastEvent)
{
    expectLengths({
        {"without an end of track", song("00 90 3C 40 83 74 3C 00"_octets), 500},
        {"after the end of the track nothing counts", song("83 74 FF 2F 00 83 74 90 3C 40"_octets),
         500},
        {"an end of track with data", song("83 74 FF 2F 01 00 83 74 90 3C 40"_octets), 500},
        {"no event", song(""), 0},
    });
}

// Every row except the last follows a note of 500 ticks, and would add another 500.
TEST(MidiClip, EndsATrackWhereItIsDamaged)
{
    const std::pair<const char *, QByteArray> rows[] = {
        {"delta time of five octets", "80 80 80 83 74 90 3C 40"_octets},
        {"longest delta time of five octets", "FF FF FF FF 7F 90 3C 40"_octets},
        {"delta time without its end", "83"_octets},
        {"delta time without an event", "83 74"_octets},
        {"note without velocity", "83 74 90 3C"_octets},
        {"running status without velocity", "83 74 3C"_octets},
        {"status as first data octet", "83 74 90 80 40"_octets},
        {"status as second data octet", "83 74 90 3C 80"_octets},
        {"system exclusive without length", "83 74 F0"_octets},
        {"system exclusive longer than the track", "83 74 F0 03 7E F7"_octets},
        {"meta event without type", "83 74 FF"_octets},
        {"meta event without length", "83 74 FF 51"_octets},
        {"meta event longer than the track", "83 74 FF 51 03 0F 42"_octets},
        {"length of five octets", "83 74 FF 01 80 80 80 80 00"_octets},
        {"largest length", "83 74 F7 FF FF FF 7F 00"_octets},
        {"song position", "83 74 F2 00 00 00 90 3C 40"_octets},
        {"timing clock", "83 74 F8 00 90 3C 40"_octets},
        {"active sensing", "83 74 FE 00 90 3C 40"_octets},
    };
    for (const auto &[name, damage] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(playLength(song("00 90 3C 40 83 74 3C 00"_octets + damage)), 500);
    }
    EXPECT_EQ(playLength(song("83 74 3C 40"_octets)), 0) << "data without a status before";
}

TEST(MidiClip, PlaysTheTracksAfterADamagedOne)
{
    expectLengths({
        {"at once",
         header("00 01 00 02 01 F4"_octets) + track("83 74 F8"_octets)
             + track("87 68 FF 2F 00"_octets),
         1000},
        {"one after the other",
         header("00 02 00 02 01 F4"_octets) + track("83 74 90 3C 40 01 F8"_octets)
             + track("87 68 FF 2F 00"_octets),
         1500},
    });
}

TEST(MidiClip, CountsThePresentTracks)
{
    const QByteArray quarter = track("83 74 FF 2F 00"_octets);
    expectLengths({
        {"65535 announced", header("00 02 FF FF 01 F4"_octets) + quarter, 500},
        {"none announced", header("00 02 00 00 01 F4"_octets) + quarter, 500},
        {"one announced, two there", header("00 02 00 01 01 F4"_octets) + quarter + quarter, 1000},
        {"the second truncated in its type", header("00 02 00 02 01 F4"_octets) + quarter + "MTr",
         500},
        {"the second truncated in its length",
         header("00 02 00 02 01 F4"_octets) + quarter + "MTrk" + "00 00 00"_octets, 500},
    });
}

TEST(MidiClip, SkipsChunksOfOtherPrograms)
{
    const QByteArray quarter = track("83 74 FF 2F 00"_octets);
    const QByteArray format2 = header("00 02 00 02 01 F4"_octets);
    const QByteArray unknown = chunk("XFIH", quarter);
    expectLengths({
        {"chunk before the tracks", format2 + unknown + quarter, 500},
        {"chunk between the tracks", format2 + quarter + unknown + quarter, 1000},
        {"chunk of odd length", format2 + chunk("XFIH", "00"_octets) + quarter, 500},
        {"empty chunk", format2 + chunk("XFIH", "") + quarter, 500},
        {"longer header", header("00 00 00 01 01 F4 4D 54"_octets) + quarter, 500},
        {"in RIFF", riff(song("83 74 FF 2F 00"_octets)), 500},
        {"in RIFF with more after",
         riff(song("83 74 FF 2F 00"_octets)) + "DISP" + "04 00 00 00 01 00 00 00"_octets, 500},
    });
}

TEST(MidiClip, TreatsNoChunkAsLongerThanTheFile)
{
    const QByteArray endless = "FF FF FF FF"_octets;
    const QByteArray format2 = header("00 02 00 02 01 F4"_octets);
    expectLengths({
        {"track", format2 + "MTrk" + endless + "83 74 FF 2F 00"_octets, 500},
        {"chunk after a track",
         format2 + track("83 74 FF 2F 00"_octets) + "XFIH" + endless
             + track("83 74 FF 2F 00"_octets),
         500},
    });
    expectNotOpened({
        {"header", "MThd" + endless + "00 00 00 01 01 F4"_octets + track("83 74 FF 2F 00"_octets)},
        {"chunk before the track", format2 + "XFIH" + endless + track("83 74 FF 2F 00"_octets)},
    });
}

TEST(MidiClip, IsNotOpenedWithoutAHeaderAndATrack)
{
    const QByteArray quarter = track("83 74 FF 2F 00"_octets);
    expectNotOpened({
        {"something else", "#!AMR\n"},
        {"a track alone", quarter},
        {"other letters", "MThD" + header("00 00 00 01 01 F4"_octets).sliced(4) + quarter},
        {"header of five octets", header("00 00 00 01 01"_octets) + quarter},
        {"empty header", header("") + quarter},
        {"format 3", header("00 03 00 01 01 F4"_octets) + quarter},
        {"format 256", header("01 00 00 01 01 F4"_octets) + quarter},
        {"no ticks a quarter", header("00 00 00 01 00 00"_octets) + quarter},
        {"no ticks a frame", header("00 00 00 01 E7 00"_octets) + quarter},
        {"26 frames a second", header("00 00 00 01 E6 28"_octets) + quarter},
        {"128 frames a second", header("00 00 00 01 80 28"_octets) + quarter},
        {"1 frame a second", header("00 00 00 01 FF 28"_octets) + quarter},
        {"no track", header("00 00 00 01 01 F4"_octets)},
        {"no track but a chunk", header("00 00 00 01 01 F4"_octets) + chunk("XFIH", quarter)},
        {"a second header", header("00 00 00 01 01 F4"_octets) + header(quarter)},
        {"RIFF without MIDI", riff("WAVE")},
        {"RIFF alone", "RIFF"},
        {"RIFF in RIFF", riff(riff(song("83 74 FF 2F 00"_octets)))},
    });
}

TEST(MidiClip, StopsAtTheLongestRepresentableTime)
{
    // FF FF FF 7F is 268435455 ticks, 5 ms each.
    const QByteArray format2 = header("00 02 00 02 00 64"_octets);
    const QByteArray longTrack = track("FF FF FF 7F FF 2F 00"_octets);
    // 3000 * 268435455 ticks of 16.7 s each are more microseconds than 64 bits hold.
    const QByteArray slow = "00 FF 51 03 FF FF FF"_octets;
    expectLengths({
        {"one track fits", format2 + longTrack, 1'342'177'275},
        {"two do not", format2 + longTrack + longTrack, LongestTime},
        {"nor do three", format2 + longTrack + longTrack + longTrack, LongestTime},
        {"one tick a quarter", header("00 00 00 01 00 01"_octets) + longTrack, LongestTime},
        {"24 ticks a second", header("00 00 00 01 E8 01"_octets) + longTrack, LongestTime},
        {"most ticks at the slowest tempo",
         header("00 00 00 01 00 01"_octets)
             + track(slow + "FF FF FF 7F C0 05"_octets.repeated(3000)),
         LongestTime},
        {"most ticks at the slowest tempo, finely divided",
         header("00 00 00 01 7F FF"_octets)
             + track(slow + "FF FF FF 7F C0 05"_octets.repeated(3000)),
         LongestTime},
    });
}

TEST(MidiClip, ReturnsTheSameLengthAgain)
{
    const QByteArray clip = smallFiles[2].clip;
    MP_PlayerEngine *engine = MP_CreatePlayerEngine(nullptr, nullptr);
    ASSERT_TRUE(engine->open(clip.constData(), int(clip.size()), "mid"));
    for (int i = 0; i < 2; ++i) {
        StaticStreamInfo info;
        EXPECT_TRUE(engine->getStreamInfo(&info));
        EXPECT_EQ(info.playDuration, smallFiles[2].milliseconds);
    }
    engine->close();
    engine->destroy();
}

TEST(MidiClip, SmallFilesHaveTheExpectedLength)
{
    expectLengths(smallFiles);
}

TEST(MidiClip, TruncatedFilePlaysItsRest)
{
    for (const Row &file : smallFiles) {
        const qsizetype firstTrack = file.clip.indexOf("MTrk") + 8;
        int before = 0;
        for (qsizetype size = 0; size < file.clip.size(); ++size) {
            SCOPED_TRACE(testing::Message() << file.name << ", first " << size);
            const auto length = playLength(file.clip.first(size));
            EXPECT_EQ(length.has_value(), size >= firstTrack);
            EXPECT_GE(length.value_or(0), before);
            EXPECT_LE(length.value_or(0), file.milliseconds);
            before = length.value_or(0);
        }
    }
}

TEST(MidiClip, FlippedBitHasALengthOrIsNotOpened)
{
    for (const Row &file : smallFiles) {
        const qsizetype magic = file.clip.indexOf("MThd");
        for (qsizetype bit = 0; bit < file.clip.size() * 8; ++bit) {
            SCOPED_TRACE(testing::Message() << file.name << ", bit " << bit);
            QByteArray clip = file.clip;
            clip[bit / 8] = char(clip[bit / 8] ^ 1 << bit % 8);
            const auto length = playLength(clip);
            EXPECT_GE(length.value_or(0), 0);
            const bool isInMagic = bit / 8 >= magic && bit / 8 < magic + 4;
            EXPECT_FALSE(isInMagic && length);
        }
    }
}
