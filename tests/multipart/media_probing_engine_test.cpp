/*
 * The media probes of a body part with the desktop's own player engine.
 */
#include "multipart/part_facts.h"

#include <gtest/gtest.h>

namespace {

constexpr int NotMeasured = -1;

// 117 AMR frames without data, of 20 ms each.
const QByteArray Amr = "#!AMR\n" + octet(0x7C, 117);

// A quarter of 500 ms, one of 250 ms and two of 1000 ms: 2750 ms.
const QByteArray MidiOfThreeTempi = "4D 54 68 64 00 00 00 06 00 00 00 01 00 78"
                                    " 4D 54 72 6B 00 00 00 1A"
                                    " 00 FF 51 03 07 A1 20"
                                    " 78 FF 51 03 03 D0 90"
                                    " 78 FF 51 03 0F 42 40"
                                    " 81 70 FF 2F 00"_octets;

PartFacts amr(const QString &format, const QString &location = {}, const QString &name = {})
{
    return {.format = format, .location = location, .name = name, .data = Amr};
}

} // namespace

TEST(PlayDurationOnTheHost, IsThatOfTheClipRoundedUpToHalfSeconds)
{
    Part part = partWith(amr("audio/amr"));
    EXPECT_EQ(part.getPlayDur(), 2500);
    EXPECT_TRUE(part.isMediaObjectSupported());
}

TEST(PlayDurationOnTheHost, FollowsTheTemposOfAMelody)
{
    Part part = partWith({.format = "audio/midi", .data = MidiOfThreeTempi});
    EXPECT_EQ(part.getPlayDur(), 3000);
    EXPECT_TRUE(part.isMediaObjectSupported());
}

TEST(PlayDurationOnTheHost, IsMinusOneForOctetsThatAreNotAClip)
{
    for (const char *format :
         {"audio/amr", "audio/midi", "audio/mpeg", "video/3gpp", "video/mpeg"}) {
        SCOPED_TRACE(format);
        Part part = partWith({.format = format, .data = "These octets are no clip."});
        EXPECT_EQ(part.getPlayDur(), NotMeasured);
        EXPECT_FALSE(part.isMediaObjectSupported());
    }
}

TEST(PlayDurationOnTheHost, IsMinusOneForAnEmptyBody)
{
    EXPECT_EQ(partWith({.format = "audio/amr"}).getPlayDur(), NotMeasured);
}

TEST(PlayDurationOnTheHost, IsMinusOneForAClipThatIsTooLongToMeasure)
{
    Part part = partWith({.format = "audio/amr", .data = "#!AMR\n" + octet(0x7C, 600'000)});
    EXPECT_EQ(part.getPlayDur(), NotMeasured);
    EXPECT_TRUE(part.isMediaObjectSupported()) << "it opens all the same";
}

TEST(PlayDurationOnTheHost, ChoosesTheReaderByMediaTypeThenLocation)
{
    struct Row
    {
        const char *name;
        PartFacts part;
        int duration;
    };
    const Row rows[] = {
        {"media type", amr("audio/amr"), 2500},
        {"media type before location", amr("audio/amr", "a.wav"), 2500},
        {"media type of something else", amr("audio/mpeg", "a.amr"), NotMeasured},
        {"location", amr("video/x", "a.amr"), 2500},
        {"location in upper case", amr("audio/x", "A.AMR"), 2500},
        {"location of something else", amr("audio/x", "a.wav"), NotMeasured},
        {"display name is not asked", amr("audio/x", "", "a.amr"), NotMeasured},
        {"nothing to go by", amr("video/x"), NotMeasured},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(partWith(row.part).getPlayDur(), row.duration);
    }
}

TEST(MediaSupportOnTheHost, ChoosesTheReaderByMediaTypeThenName)
{
    struct Row
    {
        const char *name;
        PartFacts part;
        bool supported;
    };
    const Row rows[] = {
        {"media type", amr("audio/amr"), true},
        {"media type before names", amr("audio/amr", "a.wav", "a.wav"), true},
        {"media type of something else", amr("audio/mpeg", "a.amr", "a.amr"), false},
        {"display name", amr("audio/x", "", "a.amr"), true},
        {"display name in upper case", amr("audio/x", "", "A.AMR"), true},
        {"display name before location", amr("audio/x", "a.amr", "a.wav"), false},
        {"location", amr("video/x", "a.amr"), true},
        {"nothing to go by", amr("video/x"), false},
        {"empty body", {.format = "audio/amr"}, false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(partWith(row.part).isMediaObjectSupported(), row.supported);
    }
}

TEST(MediaSupportOnTheHost, IsForgottenWhenTheOctetsChange)
{
    Part part = partWith(amr("audio/amr"));
    EXPECT_EQ(part.getPlayDur(), 2500);
    part.setBodyData("no clip", 7);
    EXPECT_FALSE(part.isMediaObjectSupported());
    EXPECT_EQ(part.getPlayDur(), NotMeasured);
    part.setBodyData(Amr);
    EXPECT_TRUE(part.isMediaObjectSupported());
    EXPECT_EQ(part.getPlayDur(), 2500);
}
