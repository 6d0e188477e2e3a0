/*
 * Durations of slides whose media differ in length. This program has its own player engine: the
 * octets of a clip are its length in milliseconds as a decimal number, and other octets cannot be
 * opened.
 */
#include "base/durations.h"
#include "platform/player_engine.h"
#include "presentation/model_facts.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class LengthEngine final : public MP_PlayerEngine
{
public:
    void destroy() override { delete this; }

    bool open(const char *data, int size, const char *) override
    {
        bool ok = false;
        m_length = QByteArray(data, size).toInt(&ok);
        return ok;
    }

    void close() override { }

    bool getStreamInfo(StaticStreamInfo *info) override
    {
        info->playDuration = m_length;
        return true;
    }

private:
    int m_length = 0;
};

} // namespace

MP_PlayerEngine *MP_CreatePlayerEngine(SOUNDM_AudioDevice_Interface *, Qvl_VideoDevice *)
{
    return new LengthEngine;
}

namespace {

struct Timing
{
    int dur;
    bool manual;

    bool operator==(const Timing &) const = default;
};

void PrintTo(const Timing &timing, std::ostream *out)
{
    *out << timing.dur << (timing.manual ? " set by hand" : " derived");
}

Timing timingOf(const Slide &slide)
{
    return {slide.getDur(), slide.getSetDurManually()};
}

void setTiming(Slide &slide, const Timing &timing)
{
    slide.setDur(timing.dur);
    slide.setSetDurManually(timing.manual);
}

Object *newClip(Multipart &multipart, char kind, const QByteArray &length)
{
    Part *part = addPart(multipart, {.location = "clip.amr", .data = length});
    return newObject(kindOf(kind), "clip.amr", nullptr, part);
}

struct Row
{
    const char *video; // null for no video
    const char *audio;
    Timing before;
    Timing after;
};

constexpr Timing Derived{1234, false};
constexpr Timing ByHand{1234, true};
constexpr int Longest = 2147483500;

const Row Rows[] = {
    {nullptr, nullptr, Derived, {QvlDuration::Default, false}},
    {nullptr, nullptr, ByHand, {1500, true}},
    {nullptr, nullptr, {2300, true}, {2500, true}},
    {nullptr, nullptr, {2300, false}, {QvlDuration::Default, false}},
    {nullptr, nullptr, {2500, true}, {2500, true}},
    {nullptr, nullptr, {2501, true}, {3000, true}},
    {nullptr, nullptr, {1, true}, {500, true}},
    {nullptr, nullptr, {0, true}, {0, true}},
    {nullptr, nullptr, {QvlDuration::NotGiven, true}, {QvlDuration::NotGiven, true}},
    {nullptr, nullptr, {QvlDuration::Indefinite, true}, {QvlDuration::Indefinite, true}},
    {nullptr, nullptr, {-2147483647 - 1, true}, {-2147483647 - 1, true}},
    {nullptr, nullptr, {Longest, true}, {Longest, true}},
    {nullptr, nullptr, {Longest + 1, true}, {Longest, true}},
    {nullptr, nullptr, {2147483647, true}, {Longest, true}},

    {nullptr, "3200", Derived, {3500, false}},
    {nullptr, "3200", ByHand, {3500, false}},
    {"3200", nullptr, Derived, {3500, false}},
    {"3200", nullptr, ByHand, {3500, false}},
    {"4000", "3200", Derived, {7500, false}},
    {"4000", "3200", ByHand, {7500, false}},
    {"3200", "4000", Derived, {7500, false}},
    {"1", "1", Derived, {1000, false}},
    {"500", "501", Derived, {1500, false}},
    {nullptr, "1", Derived, {500, false}},
    {nullptr, "500", Derived, {500, false}},

    {nullptr, "", ByHand, {1500, true}},
    {nullptr, "x", Derived, {QvlDuration::Default, false}},
    {nullptr, "x", ByHand, {1500, true}},
    {"x", "x", Derived, {QvlDuration::Default, false}},
    {nullptr, "0", ByHand, {1500, true}},
    {nullptr, "-700", ByHand, {1500, true}},
    {"-700", "-700", Derived, {QvlDuration::Default, false}},
    {"x", "3200", ByHand, {3500, false}},
    {"3200", "x", ByHand, {3500, false}},
    {"-700", "1000", ByHand, {1000, false}},
    {"1000", "-700", ByHand, {1000, false}},
    {"0", "1000", ByHand, {1000, false}},

    {nullptr, "2147483647", Derived, {Longest, false}},
    {"2147483000", nullptr, Derived, {2147483000, false}},
    {"2147483647", "2147483647", Derived, {Longest, false}},
    {"2147483500", "1", Derived, {Longest, false}},
};

} // namespace

TEST(SlideDuration, IsTheClipsElseTheUsersElseTheDefault)
{
    for (const Row &row : Rows) {
        SCOPED_TRACE(std::string(row.video ? row.video : "none") + " and "
                     + (row.audio ? row.audio : "none"));
        Multipart multipart;
        Slide slide(nullptr);
        if (row.audio)
            slide.appendObject(newClip(multipart, 'a', row.audio));
        if (row.video)
            slide.appendObject(newClip(multipart, 'v', row.video));
        setTiming(slide, row.before);
        slide.rectifyDur();
        EXPECT_EQ(timingOf(slide), row.after);
        slide.rectifyDur();
        EXPECT_EQ(timingOf(slide), row.after);
    }
}

TEST(SlideDuration, OnlyTheFirstVideoAndTheFirstAudioCount)
{
    Multipart multipart;
    Slide slide(nullptr);
    for (const char *length : {"1000", "20000"}) {
        slide.appendObject(newClip(multipart, 'a', length));
        slide.appendObject(newClip(multipart, 'v', length));
    }
    slide.rectifyDur();
    EXPECT_EQ(slide.getDur(), 2000);
}

TEST(SlideDuration, UnboundFirstClipCountsAsNone)
{
    Multipart multipart;
    Slide slide(nullptr);
    slide.appendObject(newObject(SMIL_MEDIA_AUDIO));
    slide.appendObject(newClip(multipart, 'a', "1000"));
    setTiming(slide, ByHand);
    slide.rectifyDur();
    EXPECT_EQ(timingOf(slide), (Timing{1500, true}));
}

TEST(SlideDuration, IsUpdatedByInsertingTakingAndRemoving)
{
    Multipart multipart;
    Slide slide(nullptr);
    setTiming(slide, ByHand);
    EXPECT_TRUE(slide.insert(0, newClip(multipart, 'a', "3200")));
    EXPECT_EQ(timingOf(slide), (Timing{3500, false}));
    EXPECT_TRUE(slide.insert(1, newClip(multipart, 'v', "4000")));
    EXPECT_EQ(timingOf(slide), (Timing{7500, false}));
    delete slide.getAudioElem(true);
    EXPECT_EQ(timingOf(slide), (Timing{4000, false}));
    slide.removeImgLikeElem();
    EXPECT_EQ(timingOf(slide), (Timing{QvlDuration::Default, false}));
}

TEST(SlideDuration, RemovingTheOnlyAudioKeepsADurationSetSince)
{
    Multipart multipart;
    Slide slide(nullptr);
    EXPECT_TRUE(slide.insert(0, newClip(multipart, 'a', "3200")));
    setTiming(slide, {2300, true});
    EXPECT_TRUE(slide.remove(0));
    EXPECT_EQ(timingOf(slide), (Timing{2500, true}));
}

TEST(SlideDuration, IsUpdatedByNewContent)
{
    Multipart multipart;
    Slide slide(nullptr);
    const auto update = [&](MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type, const char *length) {
        const QString name = "clip" + QString::number(type) + ".amr";
        EXPECT_TRUE(slide.updateData("", name, type, "", length, true, &multipart));
        return slide.getDur();
    };
    EXPECT_EQ(update(SMIL_MEDIA_AUDIO, "3200"), 3500);
    EXPECT_EQ(update(SMIL_MEDIA_VIDEO, "4000"), 7500);
    EXPECT_EQ(update(SMIL_MEDIA_AUDIO, "100"), 4500);
    EXPECT_EQ(update(SMIL_MEDIA_TEXT, "9000"), 4500);
    EXPECT_EQ(update(SMIL_MEDIA_IMAGE, "9000"), 4500); // the video's place, and its duration stays
    EXPECT_FALSE(slide.isVideoExist());
    slide.rectifyDur();
    EXPECT_EQ(slide.getDur(), 500);
}

TEST(SlideDuration, NeitherCopyingNorAppendingMeasures)
{
    Multipart multipart;
    Part *part = addPart(multipart, {.location = "clip.amr", .data = "3200", .display = 0});
    Slide source(nullptr);
    source.appendObject(newObject(SMIL_MEDIA_AUDIO, "clip.amr", nullptr, part));
    EXPECT_EQ(source.getDur(), QvlDuration::Default);
    Slide target(nullptr);
    EXPECT_TRUE(source.copyTo(&target, &multipart));
    EXPECT_EQ(timingOf(target), (Timing{QvlDuration::Default, false}));
}
