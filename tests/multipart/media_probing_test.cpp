/*
 * The media probes of a body part with a fake player engine, in a program without a GUI.
 */
#include "multipart/pictures.h"
#include "support/fake_player_engine.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QIODevice>

#include <gtest/gtest.h>

#include <limits>

using FakePlayerEngine::behavior;
using FakePlayerEngine::record;

namespace {

class MediaProbing : public testing::Test
{
protected:
    MediaProbing() { FakePlayerEngine::reset(); }
    ~MediaProbing() override { FakePlayerEngine::reset(); }
};

using PlayDuration = MediaProbing;
using MediaSupport = MediaProbing;
using MediaCheck = MediaProbing;

PartFacts clip(const QString &format, const QString &location = {}, const QString &name = {})
{
    return {.format = format, .location = location, .name = name, .data = "clip"};
}

// Reading a record changes type and octets without the setters.
void becomeClip(Part &part)
{
    QByteArray octets;
    QDataStream out(&octets, QIODevice::WriteOnly);
    partWith(clip("audio/amr")).writeToStream(out);
    QDataStream in(octets);
    part.readFromStream(in);
}

// What a part remembers of its probes. The engine opens a clip only if it remembers nothing.
enum class Known { Nothing, Supported, Unsupported };

Known knownOf(const Part &probed)
{
    Part part(probed);
    becomeClip(part);
    const int before = record.created;
    const bool supported = part.isMediaObjectSupported();
    if (record.created != before)
        return Known::Nothing;
    return supported ? Known::Supported : Known::Unsupported;
}

} // namespace

TEST_F(PlayDuration, RoundsUpToHalfSecondsByTheSignedRemainder)
{
    constexpr int Largest = std::numeric_limits<int>::max(); // 147 past a multiple of 500
    constexpr int Smallest = std::numeric_limits<int>::min();
    const std::pair<int, int> rows[] = {
        {1, 500},
        {499, 500},
        {500, 500},
        {501, 1000},
        {2340, 2500},
        {2500, 2500},
        {3600001, 3600500},
        {-2, -2},
        {-499, -499},
        {-500, -500},
        {-501, -501},
        {Smallest, Smallest},
        {2147482999, 2147483000},
        {2147483001, 2147483500},
        {2147483500, 2147483500},
        {2147483501, 2147483501},
        {Largest, Largest},
    };
    for (const auto &[milliseconds, rounded] : rows) {
        SCOPED_TRACE(milliseconds);
        behavior.duration = milliseconds;
        Part part = partWith(clip("audio/amr"));
        EXPECT_EQ(part.getPlayDur(), rounded);
        EXPECT_EQ(knownOf(part), Known::Supported);
    }
}

TEST_F(PlayDuration, OpensTheOctetsWithoutDevicesAndReleasesTheEngine)
{
    Part part = partWith(clip("audio/amr"));
    EXPECT_EQ(part.getPlayDur(), 2500);
    EXPECT_EQ(record.created, 1);
    EXPECT_FALSE(record.gotDevice);
    EXPECT_EQ(record.opened, 1);
    EXPECT_EQ(record.data, "clip");
    EXPECT_EQ(record.infos, 1);
    EXPECT_EQ(record.closed, 1);
    EXPECT_EQ(record.destroyed, 1);
}

TEST_F(PlayDuration, FailuresAreMinusOneAndSomeAreRemembered)
{
    struct Row
    {
        const char *name;
        FakePlayerEngine::Behavior engine;
        PartFacts part;
        Known known;
        int created, opened, infos, closed, destroyed;
    };
    const PartFacts amr = clip("audio/amr");
    const PartFacts empty = {.format = "audio/amr"};
    const Row rows[] = {
        {"no octets", {}, empty, Known::Nothing, 0, 0, 0, 0, 0},
        {"no engine", {.exists = false}, amr, Known::Nothing, 1, 0, 0, 0, 0},
        {"no extension", {}, clip("video/x", "clip"), Known::Unsupported, 1, 0, 0, 0, 1},
        {"does not open", {.opens = false}, amr, Known::Unsupported, 1, 1, 0, 0, 1},
        {"no information", {.hasInfo = false}, amr, Known::Nothing, 1, 1, 1, 1, 1},
        {"nothing filled in", {.fillsInfo = false}, amr, Known::Nothing, 1, 1, 1, 1, 1},
        {"duration 0", {.duration = 0}, amr, Known::Nothing, 1, 1, 1, 1, 1},
        {"duration -1", {.duration = -1}, amr, Known::Nothing, 1, 1, 1, 1, 1},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        FakePlayerEngine::reset();
        behavior = row.engine;
        Part part = partWith(row.part);
        EXPECT_EQ(part.getPlayDur(), -1);
        const auto &[created, opened, infos, closed, destroyed, device, data, ext] = record;
        EXPECT_EQ(created, row.created);
        EXPECT_EQ(opened, row.opened);
        EXPECT_EQ(infos, row.infos);
        EXPECT_EQ(closed, row.closed);
        EXPECT_EQ(destroyed, row.destroyed);
        EXPECT_EQ(knownOf(part), row.known);
    }
}

TEST_F(PlayDuration, FailureWithoutAVerdictKeepsThePreviousVerdict)
{
    for (const FakePlayerEngine::Behavior &engine :
         {FakePlayerEngine::Behavior{.exists = false}, {.hasInfo = false}, {.duration = 0}}) {
        behavior = {};
        Part part = partWith(clip("audio/amr"));
        EXPECT_EQ(part.getPlayDur(), 2500);
        behavior = engine;
        EXPECT_EQ(part.getPlayDur(), -1);
        EXPECT_EQ(knownOf(part), Known::Supported);
    }
}

TEST_F(PlayDuration, ExtensionComesFromTheMediaTypeThenTheLocation)
{
    struct Row
    {
        const char *name;
        PartFacts part;
        QByteArray extension;
    };
    const Row rows[] = {
        {"media type", clip("audio/amr"), "amr"},
        {"media type before location", clip("audio/amr", "a.WAV"), "amr"},
        {"location in its case", clip("audio/x", "a.b.WAV"), "WAV"},
        {"display name is not asked", clip("audio/x", "a.wav", "a.amr"), "wav"},
        {"local 8-bit", clip("audio/x", QString("a.") + QChar(0xE9)),
         QString(QChar(0xE9)).toLocal8Bit()},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(partWith(row.part).getPlayDur(), 2500);
        EXPECT_EQ(record.extension, row.extension);
    }
}

TEST_F(PlayDuration, WithoutExtensionNothingIsOpened)
{
    for (const PartFacts &facts : {clip("video/x"), clip("video/x", "clip", "clip.mpg"),
                                   clip("video/x", "clip."), clip("video/x", "a.b/clip")}) {
        FakePlayerEngine::reset();
        Part part = partWith(facts);
        EXPECT_EQ(part.getPlayDur(), -1);
        EXPECT_EQ(record.opened, 0);
        EXPECT_FALSE(part.isMediaObjectSupported());
        EXPECT_EQ(record.created, 1); // the duration's own
    }
}

TEST_F(PlayDuration, ProbesAnewEveryTime)
{
    Part part = partWith(clip("audio/amr"));
    EXPECT_EQ(part.getPlayDur(), 2500);
    behavior.opens = false;
    EXPECT_EQ(part.getPlayDur(), -1);
    behavior = {.duration = 400};
    EXPECT_EQ(part.getPlayDur(), 500);
    EXPECT_EQ(record.created, 3);
    EXPECT_EQ(record.destroyed, 3);
}

TEST_F(PlayDuration, ClassifiesPartsOfEveryType)
{
    for (const char *format : {"image/jpeg", "text/plain"}) {
        SCOPED_TRACE(format);
        behavior = {};
        Part part = partWith({.format = format, .data = "no picture"});
        EXPECT_EQ(part.getPlayDur(), 2500);
        EXPECT_TRUE(part.isMediaObjectSupported());
        behavior = {.opens = false};
        EXPECT_EQ(part.getPlayDur(), -1);
        EXPECT_FALSE(part.isMediaObjectSupported());
    }
}

TEST_F(MediaSupport, MeasuredClipIsSupportedWithoutOpeningItAgain)
{
    Part part = partWith(clip("audio/amr"));
    EXPECT_EQ(part.getPlayDur(), 2500);
    behavior.opens = false;
    EXPECT_TRUE(part.isMediaObjectSupported());
    EXPECT_EQ(record.created, 1);
}

TEST_F(MediaSupport, OtherTypesAreSupportedWithoutProbing)
{
    behavior.opens = false;
    for (const char *format : {"text/plain", "application/smil", "/", "Audio/amr", "VIDEO/mpeg",
                               "Image/jpeg", " audio/amr"}) {
        SCOPED_TRACE(format);
        Part part = partWith({.format = format, .data = "clip"});
        EXPECT_TRUE(part.isMediaObjectSupported());
        EXPECT_EQ(record.created, 0);
        EXPECT_EQ(knownOf(part), Known::Nothing);
        record.created = 0;
    }
}

TEST_F(MediaSupport, ClipIsSupportedWhenTheEngineOpensIt)
{
    for (const char *format : {"audio/amr", "video/mpeg"}) {
        for (const bool opens : {true, false}) {
            FakePlayerEngine::reset();
            behavior.opens = opens;
            Part part = partWith(clip(format));
            EXPECT_EQ(part.isMediaObjectSupported(), opens);
            EXPECT_EQ(record.opened, 1);
            EXPECT_EQ(record.data, "clip");
            EXPECT_EQ(record.infos, 0);
            EXPECT_EQ(record.closed, opens ? 1 : 0);
            EXPECT_EQ(record.destroyed, 1);
            EXPECT_FALSE(record.gotDevice);
        }
    }
}

TEST_F(MediaSupport, AnswerForAClipIsNotRemembered)
{
    Part part = partWith(clip("audio/amr"));
    for (const bool opens : {false, true, false, true}) {
        behavior.opens = opens;
        EXPECT_EQ(part.isMediaObjectSupported(), opens);
    }
    EXPECT_EQ(record.created, 4);
}

TEST_F(MediaSupport, WithoutAnEngineNoClipIsSupported)
{
    behavior.exists = false;
    Part part = partWith(clip("audio/amr"));
    EXPECT_FALSE(part.isMediaObjectSupported());
    EXPECT_EQ(record.created, 1);
    behavior.exists = true;
    EXPECT_TRUE(part.isMediaObjectSupported());
}

TEST_F(MediaSupport, EmptyClipIsOpenedToo)
{
    EXPECT_TRUE(partWith({.format = "audio/amr"}).isMediaObjectSupported());
    EXPECT_EQ(record.opened, 1);
    EXPECT_EQ(record.data, "");
}

TEST_F(MediaSupport, ExtensionComesFromTheMediaTypeThenTheName)
{
    struct Row
    {
        const char *name;
        PartFacts part;
        QByteArray extension;
    };
    const Row rows[] = {
        {"media type", clip("audio/AMR"), "amr"},
        {"media type before names", clip("video/mpeg", "a.WAV", "a.AVI"), "mpg"},
        {"display name in its case", clip("audio/x", "a.amr", "a.WAV"), "WAV"},
        {"location in its case", clip("audio/x", "a.WAV"), "WAV"},
        {"display name without one", clip("audio/x", "a.wav", "a"), ""},
        {"location without one", clip("audio/x", "a"), ""},
        {"Latin-1", clip("audio/x", QString("a.") + QChar(0xE9)), "E9"_octets},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        FakePlayerEngine::reset();
        EXPECT_TRUE(partWith(row.part).isMediaObjectSupported());
        EXPECT_EQ(record.opened, 1);
        EXPECT_EQ(record.extension, row.extension);
    }
}

TEST_F(MediaSupport, ClipWithoutExtensionAndNameIsNotSupported)
{
    Part part = partWith(clip("audio/x"));
    EXPECT_FALSE(part.isMediaObjectSupported());
    EXPECT_EQ(record.created, 0);
    part.setDispFileName("a.wav");
    EXPECT_TRUE(part.isMediaObjectSupported());
}

TEST_F(MediaSupport, PictureIsSupportedWhenItDecodes)
{
    expectPicturesProbed();
    EXPECT_EQ(record.created, 0);
}

TEST_F(MediaSupport, PictureDecodesUnderAnApplicationWithoutGui)
{
    int count = 1;
    char name[] = "test";
    char *arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    expectPicturesProbed();
}

TEST_F(MediaSupport, PictureIsProbedAnewWhenItsOctetsChange)
{
    Part part = partWith({.format = "image/x", .data = "no picture"});
    EXPECT_FALSE(part.isMediaObjectSupported());
    part.setBodyData(Pictures[0].octets);
    EXPECT_TRUE(part.isMediaObjectSupported());
    part.setBodyData("no picture", 10);
    EXPECT_FALSE(part.isMediaObjectSupported());
}

TEST_F(MediaSupport, AnswerForAPictureIsRemembered)
{
    for (const PictureRow &row : Pictures) {
        SCOPED_TRACE(row.name);
        Part part = partWith({.format = "image/x", .data = row.octets});
        EXPECT_EQ(part.isMediaObjectSupported(), row.decodes);
        EXPECT_EQ(knownOf(part), row.decodes ? Known::Supported : Known::Unsupported);
    }
}

TEST_F(MediaCheck, IsForgottenWhenTypeOrOctetsChange)
{
    struct Row
    {
        const char *name;
        void (*change)(Part &);
        bool forgotten;
    };
    const Row rows[] = {
        {"type", [](Part &p) { p.setContentType("audio"); }, true},
        {"type code", [](Part &p) { p.setContentType(6); }, true},
        {"unknown type code", [](Part &p) { p.setContentType(9999); }, false},
        {"subtype", [](Part &p) { p.setContentSubType("amr"); }, true},
        {"subtype code", [](Part &p) { p.setSubTypeCode(66); }, true},
        {"unknown subtype code", [](Part &p) { p.setSubTypeCode(9999); }, false},
        {"octets", [](Part &p) { p.setBodyData("clip", 4); }, true},
        {"no octets", [](Part &p) { p.setBodyData("clip", 0); }, true},
        {"octets at null", [](Part &p) { p.setBodyData(nullptr, 4); }, true},
        {"array", [](Part &p) { p.setBodyData(QByteArray("clip")); }, true},
        {"charset", [](Part &p) { p.setCharset("c"); }, false},
        {"charset code", [](Part &p) { p.setCharsetByCode(2); }, false},
        {"transfer encoding", [](Part &p) { p.setContentXferEncoding("x"); }, false},
        {"transfer encoding code", [](Part &p) { p.setContentXferEncodingByCode(1); }, false},
        {"location", [](Part &p) { p.setContentLocation("l"); }, false},
        {"ID", [](Part &p) { p.setContentID("i"); }, false},
        {"display name", [](Part &p) { p.setDispFileName("n"); }, false},
        {"description", [](Part &p) { p.setDescription("d"); }, false},
        {"display file type", [](Part &p) { p.setDispFileType(0); }, false},
        {"reference count", [](Part &p) { p.setRefCount(2); }, false},
    };
    for (const bool opens : {true, false}) {
        for (const Row &row : rows) {
            SCOPED_TRACE(row.name);
            behavior = {.opens = opens};
            Part part = partWith(clip("audio/amr", "a.wav"));
            part.getPlayDur();
            const Known before = opens ? Known::Supported : Known::Unsupported;
            EXPECT_EQ(knownOf(part), before);
            row.change(part);
            EXPECT_EQ(knownOf(part), row.forgotten ? Known::Nothing : before);
        }
    }
}

TEST_F(MediaCheck, IsCopiedButNotPartOfTheRecord)
{
    Part part = partWith(clip("audio/amr"));
    EXPECT_EQ(part.getPlayDur(), 2500);
    EXPECT_EQ(knownOf(Part(part)), Known::Supported);
    becomeClip(part);
    EXPECT_EQ(knownOf(part), Known::Supported);
    Part fresh;
    becomeClip(fresh);
    EXPECT_EQ(knownOf(fresh), Known::Nothing);
}
