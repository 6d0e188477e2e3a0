/*
 * Slides: composing, the effect of changes on order and duration, colors as params, copying. All
 * clips have the same length here; slide_duration_test.cpp covers different ones.
 */
#include "base/durations.h"
#include "presentation/slide.h"

#include "presentation/model_facts.h"
#include "presentation/smil_result.h"
#include "support/fake_player_engine.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <tuple>

namespace {

using Color = MMS_COMP_COLOR;

class SlideTest : public testing::Test
{
protected:
    void SetUp() override { FakePlayerEngine::reset(); }
    void TearDown() override { FakePlayerEngine::reset(); }
};

using SlideDuration = SlideTest;

QString colorText(const Color &color)
{
    return QString::number(color.kind) + '|' + color.name + '|'
        + (color.color.isValid() ? color.color.name() : "invalid");
}

const Color Blue{SMIL_COLOR_RGB, "", QColor(0, 128, 255)};

} // namespace

TEST_F(SlideTest, NewOneIsEmptyAndLastsFiveSeconds)
{
    Multipart multipart;
    const Slide slide(&multipart);
    EXPECT_EQ(slide.getDur(), QvlDuration::Default);
    EXPECT_FALSE(slide.getSetDurManually());
    EXPECT_EQ(slide.getMediaObjectCount(), 0U);
    EXPECT_EQ(slide.getMultiPart(), &multipart);
    EXPECT_EQ(colorText(slide.getPageColor()), "3||invalid");
    EXPECT_EQ(colorText(slide.getTextColor()), "3||invalid");
    EXPECT_EQ(slide.getTextSize(), "");
    EXPECT_EQ(Slide(nullptr).getMultiPart(), nullptr);
}

TEST_F(SlideTest, SettersStoreTheirValueAndReturnTrue)
{
    Multipart multipart;
    Slide slide(nullptr);
    EXPECT_TRUE(slide.setDur(QvlDuration::Indefinite));
    EXPECT_TRUE(slide.setSetDurManually(true));
    EXPECT_TRUE(slide.setMultiPart(&multipart));
    EXPECT_TRUE(slide.setPageColor({SMIL_COLOR_NAMED, "red", Qt::red}));
    EXPECT_TRUE(slide.setTextColor(Blue));
    EXPECT_TRUE(slide.setTextSize("Large"));
    EXPECT_EQ(slide.getDur(), QvlDuration::Indefinite);
    EXPECT_TRUE(slide.getSetDurManually());
    EXPECT_EQ(slide.getMultiPart(), &multipart);
    EXPECT_EQ(colorText(slide.getPageColor()), "1|red|#ff0000");
    EXPECT_EQ(colorText(slide.getTextColor()), "2||#0080ff");
    EXPECT_EQ(slide.getTextSize(), "Large");
}

TEST_F(SlideTest, ObjectsAreFoundByTheirIndex)
{
    Slide slide(nullptr);
    appendKinds(slide, "ttv");
    EXPECT_EQ(slide.getMediaObject(2)->getSrc(), "v2");
    for (const unsigned int index : {3U, 0x80000000U, 0xFFFFFFFFU})
        EXPECT_EQ(slide.getMediaObject(index), nullptr);
}

TEST_F(SlideTest, AppendAcceptsEverythingExceptNull)
{
    Slide slide(nullptr);
    slide.appendObject(nullptr);
    appendKinds(slide, "ttiva?rr");
    EXPECT_EQ(kindsOf(slide), "ttiva?rr");
}

TEST_F(SlideTest, InsertRefusesNullAndIndicesBeyondTheEnd)
{
    Slide slide(nullptr);
    appendKinds(slide, "t");
    slide.setDur(1234);
    const std::unique_ptr<Object> video(newObject(SMIL_MEDIA_VIDEO));
    for (const unsigned int index : {2U, 0x80000000U, 0xFFFFFFFFU})
        EXPECT_FALSE(slide.insert(index, video.get())) << index;
    EXPECT_FALSE(slide.insert(0, nullptr));
    EXPECT_EQ(kindsOf(slide), "t");
    EXPECT_EQ(slide.getDur(), 1234);
}

namespace {

struct ChangeRow
{
    const char *what;
    QString before;
    std::function<void(Slide &)> change;
    QString after;
    bool derived; // whether the duration is updated
};

void insert(Slide &slide, unsigned int index, char kind)
{
    EXPECT_TRUE(slide.insert(index, newObject(kindOf(kind), "new")));
}

void update(Slide &slide, char kind, bool textBelowImage = false)
{
    EXPECT_TRUE(slide.updateData("r", "new", kindOf(kind), "x", "octets", textBelowImage, nullptr));
}

void remove(Slide &slide, unsigned int index)
{
    EXPECT_TRUE(slide.remove(index));
}

const ChangeRow ChangeRows[] = {
    {"append audio", "", [](Slide &s) { s.appendObject(newObject(SMIL_MEDIA_AUDIO)); }, "a", false},
    {"append video", "", [](Slide &s) { s.appendObject(newObject(SMIL_MEDIA_VIDEO)); }, "v", false},
    {"insert audio in front", "t", [](Slide &s) { insert(s, 0, 'a'); }, "at", true},
    {"insert video at the end", "t", [](Slide &s) { insert(s, 1, 'v'); }, "tv", true},
    {"insert text between", "ia", [](Slide &s) { insert(s, 1, 't'); }, "ita", false},
    {"insert image", "", [](Slide &s) { insert(s, 0, 'i'); }, "i", false},
    {"insert ref", "", [](Slide &s) { insert(s, 0, 'r'); }, "r", false},
    {"insert unknown", "", [](Slide &s) { insert(s, 0, '?'); }, "?", false},
    {"insert does not check", "vt", [](Slide &s) { insert(s, 1, 'v'); }, "vvt", true},

    {"remove audio", "ta", [](Slide &s) { remove(s, 1); }, "t", true},
    {"remove video", "vt", [](Slide &s) { remove(s, 0); }, "t", true},
    {"remove text", "tv", [](Slide &s) { remove(s, 0); }, "v", false},
    {"remove image", "ia", [](Slide &s) { remove(s, 0); }, "a", false},
    {"remove ref", "r", [](Slide &s) { remove(s, 0); }, "", false},
    {"remove after the end", "a", [](Slide &s) { remove(s, 1); }, "a", false},
    {"remove far after the end", "a", [](Slide &s) { remove(s, 0xFFFFFFFF); }, "a", false},

    {"take text", "vtt", [](Slide &s) { delete s.getTextElem(true); }, "vt", false},
    {"take video", "tv", [](Slide &s) { delete s.getVideoElem(true); }, "t", true},
    {"take audio", "ta", [](Slide &s) { delete s.getAudioElem(true); }, "t", true},
    {"take picture, a video", "tv", [](Slide &s) { delete s.getImgObjectLikeElem(true); }, "t",
     true},
    {"take picture, an image", "ti", [](Slide &s) { delete s.getImgObjectLikeElem(true); }, "t",
     true},
    {"take no text", "v", [](Slide &s) { EXPECT_FALSE(s.getTextElem(true)); }, "v", false},
    {"take no video", "ta", [](Slide &s) { EXPECT_FALSE(s.getVideoElem(true)); }, "ta", false},
    {"take no audio", "tv", [](Slide &s) { EXPECT_FALSE(s.getAudioElem(true)); }, "tv", false},
    {"take no picture", "ta", [](Slide &s) { EXPECT_FALSE(s.getImgObjectLikeElem(true)); }, "ta",
     false},
    {"look at text", "t", [](Slide &s) { EXPECT_TRUE(s.getTextElem(false)); }, "t", false},
    {"look at video", "v", [](Slide &s) { EXPECT_TRUE(s.getVideoElem(false)); }, "v", false},
    {"look at audio", "a", [](Slide &s) { EXPECT_TRUE(s.getAudioElem(false)); }, "a", false},
    {"look at picture", "v", [](Slide &s) { EXPECT_TRUE(s.getImgObjectLikeElem(false)); }, "v",
     false},

    {"remove first text", "vtat", [](Slide &s) { s.removeTextElem(); }, "vat", false},
    {"remove no text", "va", [](Slide &s) { s.removeTextElem(); }, "va", false},
    {"remove picture, an image", "tiv", [](Slide &s) { s.removeImgLikeElem(); }, "tv", false},
    {"remove picture, a video", "tvi", [](Slide &s) { s.removeImgLikeElem(); }, "ti", true},
    {"remove no picture", "ta?r", [](Slide &s) { s.removeImgLikeElem(); }, "ta?r", false},
    {"remove video by src", "tv", [](Slide &s) { s.removeBySrc("v1"); }, "t", true},
    {"remove audio by src", "ta", [](Slide &s) { s.removeBySrc("a1"); }, "t", true},
    {"remove text by src", "ta", [](Slide &s) { s.removeBySrc("t0"); }, "a", false},
    {"src in other case", "tv", [](Slide &s) { s.removeBySrc("V1"); }, "tv", false},
    {"src with a blank", "tv", [](Slide &s) { s.removeBySrc("v1 "); }, "tv", false},

    {"update text", "tv", [](Slide &s) { update(s, 't'); }, "tv", false},
    {"new text", "v", [](Slide &s) { update(s, 't', true); }, "vt", false},
    {"update video", "tv", [](Slide &s) { update(s, 'v'); }, "tv", true},
    {"new video", "t", [](Slide &s) { update(s, 'v'); }, "tv", true},
    {"video for an image", "ti", [](Slide &s) { update(s, 'v'); }, "tv", true},
    {"image for a video", "tv", [](Slide &s) { update(s, 'i'); }, "ti", false},
    {"new image", "", [](Slide &s) { update(s, 'i'); }, "i", false},
    {"update audio", "ta", [](Slide &s) { update(s, 'a'); }, "ta", true},
    {"new audio", "t", [](Slide &s) { update(s, 'a'); }, "ta", true},
    {"new ref", "t", [](Slide &s) { update(s, 'r'); }, "tr", false},
    {"new unknown", "t", [](Slide &s) { update(s, '?'); }, "t?", false},
};

} // namespace

TEST_F(SlideDuration, IsUpdatedWhenClipsAreAddedOrRemoved)
{
    for (const ChangeRow &row : ChangeRows) {
        SCOPED_TRACE(row.what);
        FakePlayerEngine::behavior.exists = false;
        Slide slide(nullptr);
        appendKinds(slide, row.before);
        slide.setDur(1234);
        row.change(slide);
        EXPECT_EQ(kindsOf(slide), row.after);
        EXPECT_EQ(slide.getDur(), row.derived ? QvlDuration::Default : 1234);
    }
}

TEST_F(SlideTest, RemoveBySrcRemovesOnlyTheFirst)
{
    Slide slide(nullptr);
    for (const char kind : QByteArray("tia"))
        slide.appendObject(newObject(kindOf(kind), "same"));
    slide.removeBySrc("same");
    EXPECT_EQ(kindsOf(slide), "ia");
}

TEST_F(SlideTest, LookupsFindTheFirstOfTheirKind)
{
    Slide slide(nullptr);
    appendKinds(slide, "rivaatt");
    EXPECT_EQ(slide.getTextElem(false)->getSrc(), "t5");
    EXPECT_EQ(slide.getVideoElem(false)->getSrc(), "v2");
    EXPECT_EQ(slide.getImgObjectLikeElem(false)->getSrc(), "i1");
    EXPECT_EQ(slide.getAudioElem(false)->getSrc(), "a3");
    const std::unique_ptr<Object> taken(slide.getAudioElem(true));
    EXPECT_EQ(taken->getSrc(), "a3");
    EXPECT_EQ(slide.getAudioElem(false)->getSrc(), "a4");
    EXPECT_EQ(kindsOf(slide), "rivatt");
}

TEST_F(SlideTest, VideoCountsAsAnImageToo)
{
    const std::tuple<QString, bool, bool, bool> rows[] = {
        {"", false, false, false},  {"t", false, false, false}, {"i", false, true, false},
        {"v", true, true, false},   {"a", false, false, true},  {"r?", false, false, false},
        {"tiva", true, true, true},
    };
    for (const auto &[kinds, video, image, audio] : rows) {
        SCOPED_TRACE(kinds.toStdString());
        Slide slide(nullptr);
        appendKinds(slide, kinds);
        EXPECT_EQ(slide.isVideoExist(), video);
        EXPECT_EQ(slide.isImageExist(), image);
        EXPECT_EQ(slide.isAudioExist(), audio);
    }
}

TEST_F(SlideTest, HasRoomForOneTextOnePictureAndOneAudio)
{
    const QStringList tags = {"text", "img", "video", "audio"};
    const std::pair<QString, QStringList> rows[] = {
        {"", tags},
        {"t", {"img", "video", "audio"}},
        {"i", {"text", "audio"}},
        {"v", {"text", "audio"}},
        {"a", {"text", "img", "video"}},
        {"r?", tags},
        {"ti", {"audio"}},
        {"va", {"text"}},
        {"tia", {}},
    };
    for (const auto &[kinds, free] : rows) {
        Slide slide(nullptr);
        appendKinds(slide, kinds);
        for (const QString &tag : tags) {
            SCOPED_TRACE(kinds.toStdString() + ' ' + tag.toStdString());
            EXPECT_EQ(slide.canBeInserted(tag), free.contains(tag));
            EXPECT_EQ(slide.canBeInserted(tag.toUpper()), free.contains(tag));
        }
        for (const char *tag : {"ref", "REF", "image", "", " text", "text ", "par"})
            EXPECT_FALSE(slide.canBeInserted(tag)) << tag;
    }
}

TEST_F(SlideTest, NewContentIsPlacedByTheOrderOfTextAndPicture)
{
    struct Row
    {
        QString before;
        char kind;
        bool textBelowImage;
        QString after;
        int place;
    };
    const Row rows[] = {
        {"ia", 't', false, "tia", 0},   {"ia", 't', true, "iat", 2},  {"av", 't', false, "atv", 1},
        {"a", 't', false, "at", 1},     {"a", 't', true, "at", 1},    {"", 't', false, "t", 0},
        {"iav", 't', false, "iatv", 2}, {"t", 'i', true, "it", 0},    {"t", 'i', false, "ti", 1},
        {"at", 'v', true, "avt", 1},    {"ta", 'v', false, "tav", 2}, {"a", 'i', true, "ai", 1},
        {"tat", 'i', true, "tait", 2},  {"rt", 'a', true, "rta", 2},  {"t", 'r', true, "tr", 1},
        {"ti", '?', false, "ti?", 2},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.before.toStdString() + row.kind + (row.textBelowImage ? " below" : ""));
        Slide slide(nullptr);
        appendKinds(slide, row.before);
        update(slide, row.kind, row.textBelowImage);
        EXPECT_EQ(kindsOf(slide), row.after);
        EXPECT_EQ(sourcesOf(slide).indexOf("new"), row.place);
    }
}

TEST_F(SlideTest, NewContentReplacesTheLastTextOrPictureAndTheFirstOfOtherKinds)
{
    struct Row
    {
        QString before;
        char kind;
        QString after;
        int place;
    };
    const Row rows[] = {
        {"tit", 't', "tit", 2}, {"iti", 'i', "iti", 2}, {"ivt", 'i', "iit", 1},
        {"vit", 'v', "vvt", 1}, {"aa", 'a', "aa", 0},   {"trr", 'r', "trr", 1},
        {"??", '?', "??", 0},
    };
    for (const Row &row : rows) {
        for (const bool below : {false, true}) {
            SCOPED_TRACE(row.before.toStdString() + row.kind);
            Slide slide(nullptr);
            appendKinds(slide, row.before);
            update(slide, row.kind, below);
            EXPECT_EQ(kindsOf(slide), row.after);
            EXPECT_EQ(sourcesOf(slide).indexOf("new"), row.place);
        }
    }
}

TEST_F(SlideTest, NewContentGoesIntoTheGivenMessage)
{
    for (const char kind : QByteArray("avtir?")) {
        SCOPED_TRACE(kind);
        Multipart own;
        Multipart given;
        Slide slide(&own);
        EXPECT_TRUE(slide.updateData("r", "d/n", kindOf(kind), "x", "octets", true, &given));
        EXPECT_EQ(own.getPartCount(), 0);
        EXPECT_EQ(locationsOf(given), QStringList("d/n"));
        const Object *object = slide.getMediaObject(0);
        EXPECT_EQ(object->getMultiPart(), &given);
        EXPECT_EQ(object->getRegionId(), "r");
        EXPECT_EQ(object->getAlt(), "d/n");
        EXPECT_EQ(object->getData()->getBodyData(), "octets");
        EXPECT_EQ(object->getData()->getSubType(), "x");
    }
}

TEST_F(SlideTest, ReplacedContentStaysInItsPart)
{
    Multipart multipart;
    Slide slide(&multipart);
    ASSERT_TRUE(slide.updateData("r", "a.jpg", SMIL_MEDIA_IMAGE, "jpeg", "1", true, &multipart));
    Part *part = slide.getMediaObject(0)->getData();
    ASSERT_TRUE(slide.updateData("q", "b.3gp", SMIL_MEDIA_VIDEO, "3gpp", "2", true, &multipart));
    EXPECT_EQ(slide.getMediaObject(0)->getData(), part);
    EXPECT_EQ(factsOf(multipart),
              (QList<PartFacts>{{.format = "video/3gpp",
                                 .location = "b.3gp",
                                 .name = "b.3gp",
                                 .data = "2",
                                 .display = 0}}));
    EXPECT_EQ(factsOf(*slide.getMediaObject(0)),
              (ObjectFacts{.type = 1, .src = "b.3gp", .region = "q", .alt = "b.3gp"}));
}

TEST_F(SlideTest, TextIsBelowTheImageUnlessAPictureFollowsIt)
{
    const std::pair<QString, bool> rows[] = {
        {"", true},    {"t", true},   {"i", true},     {"it", true},   {"tv", false},
        {"ti", false}, {"vt", true},  {"tait", false}, {"iti", false}, {"ta", true},
        {"tr", true},  {"itt", true}, {"vatr", true},  {"tat?", true},
    };
    for (const auto &[kinds, below] : rows) {
        Slide slide(nullptr);
        appendKinds(slide, kinds);
        EXPECT_EQ(slide.isTextBellowImg(), below) << kinds.toStdString();
    }
}

TEST_F(SlideTest, IsBlankWithOnlyEmptyTexts)
{
    const std::tuple<const char *, QString, QList<QByteArray>, bool> rows[] = {
        {"no object", "", {}, true},
        {"empty text", "t", {""}, true},
        {"zero octet", "t", {octet(0)}, true},
        {"zero octet in front", "t", {octet(0) + "abc"}, true},
        {"two empty texts", "tt", {"", octet(0)}, true},
        {"text", "t", {"a"}, false},
        {"blank", "t", {" "}, false},
        {"second text", "tt", {"", "a"}, false},
        {"empty image", "i", {""}, false},
        {"empty audio", "ta", {"", ""}, false},
        {"empty ref", "r", {""}, false},
        {"empty unknown", "?", {""}, false},
    };
    for (const auto &[what, kinds, contents, blank] : rows) {
        SCOPED_TRACE(what);
        Multipart multipart;
        Slide slide(nullptr);
        appendKinds(slide, kinds);
        for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i)
            slide.getMediaObject(i)->setData(addPart(multipart, {.data = contents[int(i)]}));
        EXPECT_EQ(slide.isBlank(), blank);
    }
}

TEST_F(SlideTest, TextWithoutPartIsBlank)
{
    Slide slide(nullptr);
    appendKinds(slide, "tt");
    EXPECT_TRUE(slide.isBlank());
    appendKinds(slide, "i");
    EXPECT_FALSE(slide.isBlank());
}

TEST_F(SlideTest, PageSizeCountsTheOctetsOfAllObjects)
{
    Multipart multipart;
    Slide slide(nullptr);
    EXPECT_EQ(slide.getPageSize(), 0U);
    appendKinds(slide, "t");
    EXPECT_EQ(slide.getPageSize(), 0U);
    Part *part = addPart(multipart, {.data = octet(0, 300)});
    slide.appendObject(newObject(SMIL_MEDIA_IMAGE, "", nullptr, part));
    slide.appendObject(newObject(SMIL_MEDIA_REF, "", nullptr, part));
    slide.appendObject(
        newObject(SMIL_MEDIA_AUDIO, "", nullptr, addPart(multipart, {.data = "12"})));
    EXPECT_EQ(slide.getPageSize(), 602U);
}

namespace {

Part *addClip(Multipart &multipart, const QString &location)
{
    return addPart(multipart, {.location = location, .data = "clip"});
}

} // namespace

TEST_F(SlideDuration, AudioOf3200MillisecondsIsRoundedUpTo3500)
{
    Multipart multipart;
    FakePlayerEngine::behavior.duration = 3200;
    Slide slide(nullptr);
    slide.setSetDurManually(true);
    EXPECT_TRUE(
        slide.insert(0, newObject(SMIL_MEDIA_AUDIO, "", nullptr, addClip(multipart, "a.amr"))));
    EXPECT_EQ(slide.getDur(), 3500);
    EXPECT_FALSE(slide.getSetDurManually());
    EXPECT_EQ(FakePlayerEngine::record.opened, 1);
}

TEST_F(SlideDuration, OnlyTheFirstVideoAndTheFirstAudioAreMeasured)
{
    Multipart multipart;
    FakePlayerEngine::behavior.duration = 1000;
    Slide slide(nullptr);
    for (const char kind : QByteArray("aavvti"))
        slide.appendObject(newObject(kindOf(kind), "", nullptr, addClip(multipart, "a.amr")));
    EXPECT_EQ(FakePlayerEngine::record.created, 0);
    slide.rectifyDur();
    EXPECT_EQ(slide.getDur(), 2000);
    EXPECT_EQ(FakePlayerEngine::record.opened, 2);
    EXPECT_EQ(FakePlayerEngine::record.destroyed, 2);
}

TEST_F(SlideDuration, NothingIsMeasuredForOtherMedia)
{
    Multipart multipart;
    Slide slide(nullptr);
    for (const char kind : QByteArray("tir?"))
        EXPECT_TRUE(
            slide.insert(0, newObject(kindOf(kind), "", nullptr, addClip(multipart, "a.amr"))));
    EXPECT_EQ(FakePlayerEngine::record.created, 0);
    slide.rectifyDur();
    EXPECT_EQ(FakePlayerEngine::record.created, 0);
    EXPECT_EQ(slide.getDur(), QvlDuration::Default);
}

TEST_F(SlideDuration, TakingAPictureLeavesTheDurationOfTheRest)
{
    Multipart multipart;
    FakePlayerEngine::behavior.duration = 1200;
    Slide slide(nullptr);
    for (const char kind : QByteArray("ia"))
        slide.appendObject(newObject(kindOf(kind), "", nullptr, addClip(multipart, "a.amr")));
    EXPECT_EQ(slide.getDur(), QvlDuration::Default);
    delete slide.getImgObjectLikeElem(true);
    EXPECT_EQ(slide.getDur(), 1500);
}

namespace {

struct ColorRow
{
    const char *what;
    QString kinds;
    QStringList values; // of the params of the objects, "" for none
    QString color;
};

// Sets the param of every object that has a value in @p row.
void appendColored(Slide &slide, const ColorRow &row, const char *param)
{
    appendKinds(slide, row.kinds);
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i) {
        if (!row.values[int(i)].isEmpty())
            slide.getMediaObject(i)->updateParamByName(param, row.values[int(i)]);
    }
}

QStringList valuesOf(const Slide &slide, const char *param)
{
    QStringList values;
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i)
        values += slide.getMediaObject(i)->getParamValueByName(param);
    return values;
}

const Color Old{SMIL_COLOR_NAMED, "old", QColor(1, 2, 3)};

} // namespace

TEST_F(SlideTest, ColorIsWrittenAsSixLowerCaseDigits)
{
    const std::pair<QColor, const char *> rows[] = {
        {QColor(0, 128, 255), "#0080ff"},       {QColor(15, 0, 1), "#0f0001"},
        {QColor(255, 255, 255), "#ffffff"},     {QColor(), "#000000"},
        {QColor(171, 205, 239, 10), "#abcdef"}, {QColor::fromHsv(120, 255, 255), "#00ff00"},
    };
    for (const auto &[color, text] : rows) {
        for (const int kind : {SMIL_COLOR_NAMED, SMIL_COLOR_RGB}) {
            SCOPED_TRACE(text);
            Slide slide(nullptr);
            appendKinds(slide, "t");
            slide.setPageColor({kind, "red", color});
            slide.setTextColor({kind, "red", color});
            slide.updatePageColorToElem();
            slide.updateTextColorToElem();
            EXPECT_EQ(paramsOf(*slide.getMediaObject(0)),
                      (QStringList{QString("background-color|%1|0|").arg(text),
                                   QString("foreground-color|%1|0|").arg(text)}));
        }
    }
}

TEST_F(SlideTest, PageColorGoesToTheFirstTextPictureAndAudio)
{
    const std::pair<QString, QStringList> rows[] = {
        {"", {}},
        {"tia", {"#0080ff", "#0080ff", "#0080ff"}},
        {"ttvvaa", {"#0080ff", "", "#0080ff", "", "#0080ff", ""}},
        {"iv", {"#0080ff", ""}},
        {"r?", {"", ""}},
    };
    for (const auto &[kinds, values] : rows) {
        Slide slide(nullptr);
        appendKinds(slide, kinds);
        slide.setPageColor(Blue);
        slide.updatePageColorToElem();
        EXPECT_EQ(valuesOf(slide, "background-color"), values) << kinds.toStdString();
    }
}

TEST_F(SlideTest, TextColorGoesToTheFirstTextOnly)
{
    const std::pair<QString, QStringList> rows[] = {
        {"attir", {"", "#0080ff", "", "", ""}},
        {"air?", {"", "", "", ""}},
    };
    for (const auto &[kinds, values] : rows) {
        Slide slide(nullptr);
        appendKinds(slide, kinds);
        slide.setTextColor(Blue);
        slide.updateTextColorToElem();
        EXPECT_EQ(valuesOf(slide, "foreground-color"), values) << kinds.toStdString();
    }
}

TEST_F(SlideTest, UsableColorChangesTheValueOfAnExistingParam)
{
    Slide slide(nullptr);
    appendKinds(slide, "t");
    Object *text = slide.getMediaObject(0);
    text->appendParamElem("background-color", "old", SMIL_PARAM_VALUE_REF, "x");
    slide.setPageColor(Blue);
    slide.updatePageColorToElem();
    EXPECT_EQ(paramsOf(*text), QStringList("background-color|#0080ff|1|x"));
}

TEST_F(SlideTest, UnusableColorIsRemovedFromEveryObjectOnce)
{
    for (const int kind : {int(SMIL_COLOR_NONE), int(SMIL_COLOR_INVALID), -1, 4}) {
        SCOPED_TRACE(kind);
        Slide slide(nullptr);
        appendKinds(slide, "ttir?a");
        for (unsigned int i = 0; i < 6; ++i) {
            for (const char *name : {"background-color", "foreground-color", "background-color"})
                slide.getMediaObject(i)->appendParamElem(name, "v", SMIL_PARAM_VALUE_DATA, "");
        }
        slide.setPageColor({kind, "red", Qt::red});
        slide.setTextColor({kind, "red", Qt::red});
        slide.updatePageColorToElem();
        slide.updateTextColorToElem();
        for (unsigned int i = 0; i < 6; ++i)
            EXPECT_EQ(paramsOf(*slide.getMediaObject(i)), QStringList("background-color|v|0|"));
    }
}

TEST_F(SlideTest, PageColorIsTheFirstUsableColorOfTextPictureAndAudio)
{
    const ColorRow rows[] = {
        {"text", "tia", {"red", "#0000ff", "#00ff00"}, "1|red|#ff0000"},
        {"picture", "tia", {"", "#0000ff", "#00ff00"}, "2||#0000ff"},
        {"picture, text unreadable", "tva", {"Red", "#0000ff", ""}, "2||#0000ff"},
        {"audio", "tia", {"", "#12345", "lime"}, "1|lime|#00ff00"},
        {"order of the objects does not matter", "ait", {"lime", "blue", "red"}, "1|red|#ff0000"},
        {"second text is not asked", "tt", {"", "red"}, "3|old|#010203"},
        {"second picture is not asked", "iv", {"", "red"}, "3|old|#010203"},
        {"ref is not asked", "r?", {"red", "red"}, "3|old|#010203"},
        {"none usable", "tia", {"Red", "", "rgb(1,2,3)"}, "3|old|#010203"},
        {"no object", "", {}, "3|old|#010203"},
    };
    for (const ColorRow &row : rows) {
        SCOPED_TRACE(row.what);
        Slide slide(nullptr);
        appendColored(slide, row, "background-color");
        slide.setPageColor(Old);
        slide.updatePageColorFromElem();
        EXPECT_EQ(colorText(slide.getPageColor()), row.color);
    }
}

TEST_F(SlideTest, TextColorComesFromTheFirstText)
{
    const ColorRow rows[] = {
        {"named", "it", {"blue", "red"}, "1|red|#ff0000"},
        {"digits", "t", {"#0080ff"}, "2||#0080ff"},
        {"short digits are not doubled", "t", {"#fff"}, "2||#0f0f0f"},
        {"only the picture has one", "ti", {"", "red"}, "3|old|#010203"},
        {"only the second text has one", "tt", {"", "red"}, "3|old|#010203"},
        {"unreadable", "t", {"#gg0000"}, "3|old|#010203"},
        {"no text", "ia", {"red", "red"}, "3|old|#010203"},
    };
    for (const ColorRow &row : rows) {
        SCOPED_TRACE(row.what);
        Slide slide(nullptr);
        appendColored(slide, row, "foreground-color");
        slide.setTextColor(Old);
        slide.updateTextColorFromElem();
        EXPECT_EQ(colorText(slide.getTextColor()), row.color);
    }
}

TEST_F(SlideTest, TextSizeIsAParamOfTheFirstText)
{
    Slide slide(nullptr);
    appendKinds(slide, "itt");
    slide.setTextSize("large");
    EXPECT_EQ(slide.updateTextSizeToElem(), SmilResult::Ok);
    EXPECT_EQ(valuesOf(slide, "textsize"), (QStringList{"", "large", ""}));
    slide.setTextSize("");
    slide.updateTextSizeFromElem();
    EXPECT_EQ(slide.getTextSize(), "large");
}

TEST_F(SlideTest, EmptyTextSizeIsAParam)
{
    Slide slide(nullptr);
    appendKinds(slide, "t");
    EXPECT_EQ(slide.updateTextSizeToElem(), SmilResult::Ok);
    EXPECT_EQ(paramsOf(*slide.getMediaObject(0)), QStringList("textsize||0|"));
}

TEST_F(SlideTest, TextSizeWithoutParamIsEmptyAndWithoutTextNormal)
{
    Slide slide(nullptr);
    appendKinds(slide, "i");
    slide.setTextSize("large");
    EXPECT_EQ(slide.updateTextSizeToElem(), SmilResult::Ok);
    EXPECT_EQ(slide.getMediaObject(0)->getParamCount(), 0);
    slide.updateTextSizeFromElem();
    EXPECT_EQ(slide.getTextSize(), "normal");
    appendKinds(slide, "t");
    slide.updateTextSizeFromElem();
    EXPECT_EQ(slide.getTextSize(), "");
}

TEST_F(SlideTest, ClearKeepsFlagColorsAndTextSize)
{
    Multipart multipart;
    Part *part = addPart(multipart, {.location = "a"});
    Slide slide(&multipart);
    slide.appendObject(newObject(SMIL_MEDIA_IMAGE, "a", &multipart, part));
    slide.setDur(1234);
    slide.setSetDurManually(true);
    slide.setPageColor(Old);
    slide.setTextColor(Blue);
    slide.setTextSize("large");
    slide.clear();
    EXPECT_EQ(slide.getMediaObjectCount(), 0U);
    EXPECT_EQ(multipart.getPartCount(), 0);
    EXPECT_EQ(slide.getDur(), QvlDuration::Default);
    EXPECT_TRUE(slide.getSetDurManually());
    EXPECT_EQ(colorText(slide.getPageColor()), "1|old|#010203");
    EXPECT_EQ(colorText(slide.getTextColor()), "2||#0080ff");
    EXPECT_EQ(slide.getTextSize(), "large");
    EXPECT_EQ(slide.getMultiPart(), &multipart);
}

namespace {

// A slide with one object for every location.
std::unique_ptr<Slide> slideToCopy(const QStringList &locations)
{
    auto slide = std::make_unique<Slide>(nullptr);
    for (const QString &location : locations)
        slide->appendObject(newObject(SMIL_MEDIA_IMAGE, location));
    slide->setDur(QvlDuration::Indefinite);
    slide->setSetDurManually(true);
    slide->setPageColor(Old);
    slide->setTextColor(Blue);
    slide->setTextSize("large");
    return slide;
}

} // namespace

TEST_F(SlideTest, CopyHasEverything)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "a", .display = 0}, {.location = "b", .display = 0}});
    const auto source = slideToCopy({"b", "a"});
    Slide target(nullptr);
    appendKinds(target, "t");
    EXPECT_TRUE(source->copyTo(&target, &multipart));
    EXPECT_EQ(sourcesOf(target), (QStringList{"t0", "b", "a"}));
    EXPECT_EQ(target.getMediaObject(1)->getData(), multipart.getBodypartByIndex(1));
    EXPECT_EQ(target.getMediaObject(1)->getMultiPart(), &multipart);
    EXPECT_EQ(target.getMultiPart(), &multipart);
    EXPECT_EQ(target.getDur(), QvlDuration::Indefinite);
    EXPECT_TRUE(target.getSetDurManually());
    EXPECT_EQ(colorText(target.getPageColor()), "1|old|#010203");
    EXPECT_EQ(colorText(target.getTextColor()), "2||#0080ff");
    EXPECT_EQ(target.getTextSize(), "large");
    EXPECT_EQ(FakePlayerEngine::record.created, 0);
}

TEST_F(SlideTest, FailedCopyKeepsTheObjectsBeforeTheFailure)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "a", .display = 0}, {.location = "b"}});
    const auto source = slideToCopy({"a", "b", "a"}); // b is an attachment
    Slide target(nullptr);
    EXPECT_FALSE(source->copyTo(&target, &multipart));
    EXPECT_EQ(sourcesOf(target), QStringList("a"));
    EXPECT_EQ(target.getDur(), QvlDuration::Indefinite);
    EXPECT_EQ(target.getMultiPart(), &multipart);
    EXPECT_FALSE(target.getSetDurManually());
    EXPECT_EQ(colorText(target.getPageColor()), "3||invalid");
    EXPECT_EQ(colorText(target.getTextColor()), "3||invalid");
    EXPECT_EQ(target.getTextSize(), "");
}

TEST_F(SlideTest, CopyOfAnEmptySlideNeedsNoMessage)
{
    Slide target(nullptr);
    EXPECT_TRUE(slideToCopy({})->copyTo(&target, nullptr));
    EXPECT_EQ(target.getDur(), QvlDuration::Indefinite);
    EXPECT_FALSE(slideToCopy({"a"})->copyTo(&target, nullptr));
    EXPECT_FALSE(slideToCopy({})->copyTo(nullptr, nullptr));
}

TEST_F(SlideTest, CopyOntoItselfDoublesTheObjects)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "a", .display = 0}});
    const auto slide = slideToCopy({"a"});
    EXPECT_TRUE(slide->copyTo(slide.get(), &multipart));
    EXPECT_EQ(sourcesOf(*slide), (QStringList{"a", "a"}));
}
