/*
 * The presentation: layout forms, metas, slides, placing elements of a document, reading and
 * writing colors and text size, what is removed before sending, copying. Names for new content and
 * ownership have their own test files.
 */
#include "base/durations.h"
#include "presentation/presentation.h"

#include "presentation/model_facts.h"
#include "presentation/smil_result.h"
#include "support/fake_player_engine.h"

#include <gtest/gtest.h>

#include <memory>
#include <tuple>

namespace {

class PresentationTest : public testing::Test
{
protected:
    void SetUp() override { FakePlayerEngine::reset(); }
    void TearDown() override { FakePlayerEngine::reset(); }

    Multipart message;
    Presentation data{&message};
};

// "left top width height fit id" of a region.
QString regionText(const MMS_COMP_SMILRegion &region)
{
    QStringList pieces;
    for (const float number :
         {region.getLeft(), region.getTop(), region.getWidth(), region.getHeight()})
        pieces += QString::number(double(number));
    return (pieces + QStringList{QString::number(region.getFit()), region.getId()}).join(' ');
}

QStringList regionsOf(const Presentation &presentation)
{
    QStringList regions;
    for (unsigned int i = 0; i < presentation.getRegionCount(); ++i)
        regions += regionText(*presentation.getRegion(i));
    return regions;
}

QStringList kindsOf(const Presentation &presentation)
{
    QStringList kinds;
    for (unsigned int i = 0; i < presentation.getTotalSlidesNum(); ++i)
        kinds += kindsOf(*presentation.getSlide(i));
    return kinds;
}

void appendSlides(Presentation &presentation, const QStringList &slides)
{
    for (const QString &kinds : slides)
        appendKinds(*presentation.appendSlide(QvlDuration::Default), kinds);
}

std::pair<int, int> rootSize(const Presentation &presentation)
{
    return {presentation.getRootLayout()->getWidth(), presentation.getRootLayout()->getHeight()};
}

} // namespace

TEST_F(PresentationTest, NewOneIsEmptyInPixels)
{
    EXPECT_EQ(SMIL_UNIT_PIXEL, 0);
    EXPECT_EQ(SMIL_UNIT_PERCENT, 1);
    EXPECT_EQ(data.getLayoutMeasureUnit(), SMIL_UNIT_PIXEL);
    EXPECT_EQ(data.getTotalSlidesNum(), 0U);
    EXPECT_EQ(data.getMetaCount(), 0U);
    EXPECT_EQ(data.getRegionCount(), 0U);
    EXPECT_EQ(data.getRootLayout(), data.getLayout()->getRootLayout());
    EXPECT_EQ(std::as_const(data).getLayout(), data.getLayout());
    EXPECT_EQ(rootSize(data), std::pair(QvlHandset::ScreenWidth, QvlHandset::ScreenHeight));
    EXPECT_EQ(data.getMultiPart(), &message);
    EXPECT_TRUE(data.isEmpty());
    EXPECT_EQ(Presentation(nullptr).getMultiPart(), nullptr);
}

TEST_F(PresentationTest, FixedRegionsAreTextAndImage)
{
    EXPECT_EQ(data.getTextRegionId(), "text");
    EXPECT_EQ(data.getImgRegionId(), "image");
}

TEST_F(PresentationTest, RootLayoutTextsArePixels)
{
    const std::tuple<QString, QString, int, int> rows[] = {
        {"176", "208", 176, 208}, {" 176PX ", "\t208px", 176, 208},
        {"", QString(), -1, -1},  {"px", " ", -1, -1},
        {"50%", "abc", 0, 0},     {"-5", "+7px", -5, 7},
        {"12px3", "1.5", 0, 0},   {"12 px", "99999999999", 12, 0},
    };
    for (const auto &[width, height, x, y] : rows) {
        SCOPED_TRACE((width + ' ' + height).toStdString());
        EXPECT_EQ(data.setRootLayout(width, height, "red"), data.getRootLayout());
        EXPECT_EQ(rootSize(data), std::pair(x, y));
        EXPECT_EQ(data.getRootLayout()->getBackgroundColor()->kind, SMIL_COLOR_NONE);
    }
}

TEST_F(PresentationTest, RootLayoutElementSetsTheColorToo)
{
    Element element("root-layout",
                    {{"width", "176px"}, {"height", "100%"}, {"background-color", "red"}});
    EXPECT_EQ(data.setRootLayout(element), SmilResult::Ok);
    EXPECT_EQ(rootSize(data), std::pair(176, 0));
    EXPECT_EQ(data.getRootLayout()->getBackgroundColor()->name, "red");
    EXPECT_EQ(data.setRootLayout(1, 2), data.getRootLayout());
    EXPECT_EQ(rootSize(data), std::pair(1, 2));
}

namespace {

struct RegionRow
{
    QStringList geometry; // left, top, width, height
    QString region;
    int unit = SMIL_UNIT_PIXEL;
};

const RegionRow RegionRows[] = {
    {{"0", "50%", "100%", "50%"}, "0 50 100 50 0 x", SMIL_UNIT_PERCENT},
    {{"", "", "", ""}, "0 0 -1 -1 0 x"},
    {{QString(), QString(), QString(), QString()}, "0 0 -1 -1 0 x"},
    {{" ", "px", " PX ", "px"}, "0 0 -1 -1 0 x"},
    {{"1px", " 2PX ", "3 px", "4"}, "1 2 3 4 0 x"},
    {{"1.5", "-2.25", "+3", ".5"}, "1.5 -2.25 3 0.5 0 x"},
    {{"1e2", "1E-1", "2e", "2e+"}, "100 0.1 2 2 0 x"},
    {{"7abc", "abc", "5.", "--5"}, "7 0 5 0 0 x"},
    {{"nan", "inf", "-infinity", "+inf"}, "0 0 0 0 0 x"},
    {{"1e39", "-1e39", "1e999", "0x10"}, "0 0 0 0 0 x"},
    // the highest float
    {{"340282346638528859811704183484516925440", "3.5e38", "0", "0"}, "3.40282e+38 0 0 0 0 x"},
    {{"+-5", "-+5", "+", "-"}, "0 0 0 0 0 x"},
    {{"1,5", "1 2", "12px3", "1px%"}, "1 1 12 1 0 x", SMIL_UNIT_PERCENT},
    {{"%", "0", "0", "0"}, "0 0 0 0 0 x", SMIL_UNIT_PERCENT},
};

} // namespace

TEST_F(PresentationTest, RegionTextsAreReadByTheirLeadingNumber)
{
    for (const RegionRow &row : RegionRows) {
        SCOPED_TRACE(row.geometry.join('|').toStdString());
        Presentation fresh(nullptr);
        const QStringList &g = row.geometry;
        EXPECT_EQ(regionText(*fresh.appendRegion(g[0], g[1], g[2], g[3], "hidden", "x")),
                  row.region);
        EXPECT_EQ(fresh.getLayoutMeasureUnit(), row.unit);
    }
}

TEST_F(PresentationTest, AnyGeometryTextWithPercentSetsTheUnitPermanently)
{
    for (int place = 0; place < 4; ++place) {
        SCOPED_TRACE(place);
        Presentation fresh(nullptr);
        QStringList g{"1", "2", "3", "4"};
        fresh.appendRegion(g[0], g[1], g[2], g[3], "50%", "50%");
        EXPECT_EQ(fresh.getLayoutMeasureUnit(), SMIL_UNIT_PIXEL);
        g[place] += '%';
        fresh.appendRegion(g[0], g[1], g[2], g[3], "fill", "x");
        EXPECT_EQ(fresh.getLayoutMeasureUnit(), SMIL_UNIT_PERCENT);
        fresh.appendRegion("5", "6", "7", "8", "fill", "y");
        EXPECT_EQ(fresh.getLayoutMeasureUnit(), SMIL_UNIT_PERCENT);
    }
}

TEST_F(PresentationTest, EqualRegionsAreKeptOnceInEveryForm)
{
    MMS_COMP_SMILRegion *first = data.appendRegion(0.0F, 0.0F, 120.0F, 160.0F, "hidden", "Image");
    EXPECT_EQ(data.appendRegion("0", "0", "120px", "160", "hidden", "Image"), first);
    EXPECT_EQ(data.appendRegion(0.0F, 0.0F, 120.0F, 160.0F, "hidden", "Image"), first);
    MMS_COMP_SMILRegion equal(*first);
    data.appendRegion(&equal); // stays the caller's
    data.appendRegion(static_cast<MMS_COMP_SMILRegion *>(nullptr));
    EXPECT_EQ(regionsOf(data), QStringList("0 0 120 160 0 Image"));
    data.appendRegion(0.0F, 0.0F, 120.0F, 160.0F, "Fill", "image");
    auto other = std::make_unique<MMS_COMP_SMILRegion>();
    data.appendRegion(other.release());
    EXPECT_EQ(regionsOf(data),
              (QStringList{"0 0 120 160 0 Image", "0 0 120 160 5 image", "0 0 120 160 0 default"}));
    EXPECT_EQ(data.getRegion(3), nullptr);
}

TEST_F(PresentationTest, MetasAreKeptInOrder)
{
    EXPECT_TRUE(data.appendMeta("a", "1"));
    EXPECT_TRUE(data.appendMeta("", ""));
    EXPECT_TRUE(data.appendMeta("a", "1"));
    EXPECT_EQ(data.getMetaCount(), 3U);
    EXPECT_EQ(data.getMeta(2)->getName(), "a");
    EXPECT_EQ(data.getMeta(2)->getContent(), "1");
    EXPECT_EQ(data.getMeta(1)->getName(), "");
    EXPECT_EQ(data.getMeta(3), nullptr);
    EXPECT_EQ(data.getMeta(0xFFFFFFFF), nullptr);
}

TEST_F(PresentationTest, SlidesAreCreatedOnItsMessageWithASignedDuration)
{
    const std::pair<unsigned int, int> rows[] = {
        {0U, 0}, {2300U, 2300}, {0xFFFFFFFFU, -1}, {0xFFFFFFFEU, -2}, {0x7FFFFFFFU, 2147483647}};
    for (const auto &[given, dur] : rows) {
        const Slide *slide = data.appendSlide(given);
        EXPECT_EQ(slide, data.getSlide(data.getTotalSlidesNum() - 1));
        EXPECT_EQ(slide->getDur(), dur);
        EXPECT_EQ(slide->getMultiPart(), &message);
    }
    auto *own = new Slide(nullptr);
    data.appendSlide(own);
    data.appendSlide(nullptr);
    EXPECT_EQ(data.getTotalSlidesNum(), 6U);
    EXPECT_EQ(data.getSlide(5), own);
    for (const unsigned int index : {6U, 0x80000000U, 0xFFFFFFFFU})
        EXPECT_EQ(data.getSlide(index), nullptr);
}

TEST_F(PresentationTest, SlidesCanBeMoved)
{
    appendSlides(data, {"t", "a", "ti"});
    Slide *taken = data.takeSlide(2);
    ASSERT_TRUE(taken);
    EXPECT_EQ(kindsOf(data), (QStringList{"t", "a"}));
    EXPECT_EQ(taken->getMediaObjectCount(), 2U);
    EXPECT_TRUE(data.insertSlide(0, taken));
    EXPECT_EQ(kindsOf(data), (QStringList{"ti", "t", "a"}));
    taken = data.takeSlide(0);
    EXPECT_TRUE(data.insertSlide(2, taken));
    EXPECT_EQ(kindsOf(data), (QStringList{"t", "a", "ti"}));
}

TEST_F(PresentationTest, SlidesOutOfRangeAreNotMoved)
{
    appendSlides(data, {"t"});
    EXPECT_FALSE(data.takeSlide(1));
    EXPECT_FALSE(data.insertSlide(0, nullptr));
    const auto kept = std::make_unique<Slide>(&message);
    EXPECT_FALSE(data.insertSlide(2, kept.get()));
    EXPECT_EQ(data.getTotalSlidesNum(), 1U);
}

TEST_F(PresentationTest, ObjectOperationsGoToTheSlide)
{
    appendSlides(data, {"t", "ta"});
    EXPECT_EQ(data.getMediaObjectCount(1), 2U);
    EXPECT_EQ(data.getMediaObject(1, 1)->getSrc(), "a1");
    EXPECT_EQ(data.getMediaObject(1, 2), nullptr);
    data.getSlide(1)->setDur(1234);
    EXPECT_TRUE(data.insertMediaObject(1, 0, newObject(SMIL_MEDIA_VIDEO)));
    EXPECT_EQ(data.getSlide(1)->getDur(), QvlDuration::Default);
    EXPECT_EQ(kindsOf(data), (QStringList{"t", "vta"}));
    EXPECT_TRUE(data.deleteMediaObject(1, 1));
    EXPECT_TRUE(data.deleteMediaObject(1, 2)); // does not exist
    EXPECT_EQ(kindsOf(data), (QStringList{"t", "va"}));
}

TEST_F(PresentationTest, SlideOutOfRangeHasNoObjects)
{
    appendSlides(data, {"t"});
    const std::unique_ptr<Object> object(newObject(SMIL_MEDIA_IMAGE));
    for (const unsigned int slide : {1U, 0xFFFFFFFFU}) {
        EXPECT_EQ(data.getMediaObjectCount(slide), 0U);
        EXPECT_EQ(data.getMediaObject(slide, 0), nullptr);
        EXPECT_FALSE(data.insertMediaObject(slide, 0, object.get()));
        EXPECT_FALSE(data.deleteMediaObject(slide, 0));
    }
    EXPECT_FALSE(data.insertMediaObject(0, 2, object.get()));
    EXPECT_FALSE(data.insertMediaObject(0, 0, nullptr));
    EXPECT_EQ(kindsOf(data), QStringList("t"));
}

TEST_F(PresentationTest, CleanKeepsLayoutAndUnit)
{
    appendSlides(data, {"t", "i"});
    data.appendMeta("a", "1");
    data.setRootLayout(176, 208);
    data.appendRegion("1%", "2", "3", "4", "fill", "x");
    data.clean();
    EXPECT_EQ(data.getTotalSlidesNum(), 0U);
    EXPECT_EQ(data.getMetaCount(), 0U);
    EXPECT_EQ(rootSize(data), std::pair(176, 208));
    EXPECT_EQ(regionsOf(data), QStringList("1 2 3 4 1 x"));
    EXPECT_EQ(data.getLayoutMeasureUnit(), SMIL_UNIT_PERCENT);
    EXPECT_EQ(data.getMultiPart(), &message);
}

TEST_F(PresentationTest, UnitIsStoredAndTheSetterReturnsTrue)
{
    EXPECT_TRUE(data.setLayoutMeasureUnit(SMIL_UNIT_PERCENT));
    EXPECT_EQ(data.getLayoutMeasureUnit(), SMIL_UNIT_PERCENT);
    EXPECT_TRUE(data.setLayoutMeasureUnit(SMIL_UNIT_PIXEL));
    EXPECT_EQ(data.getLayoutMeasureUnit(), SMIL_UNIT_PIXEL);
}

namespace {

struct PlacingRow
{
    const char *what;
    QStringList before;
    QString tag;
    bool newSlide;
    QStringList after;
};

const PlacingRow PlacingRows[] = {
    {"first", {}, "text", false, {"t"}},
    {"new slide", {"i"}, "text", true, {"i", "t"}},
    {"room on the last slide", {"t", "i"}, "text", false, {"t", "it"}},
    {"second text", {"t"}, "text", false, {"t", "t"}},
    {"video beside an image", {"i"}, "video", false, {"i", "v"}},
    {"image beside a video", {"v"}, "img", false, {"v", "i"}},
    {"audio beside a video", {"v"}, "audio", false, {"va"}},
    {"second audio", {"a"}, "audio", false, {"a", "a"}},
    {"ref never has room", {"", "t"}, "ref", false, {"", "t", "r"}},
    {"empty last slide", {""}, "img", false, {"i"}},
    {"room on the first slide only", {"", "t"}, "text", false, {"", "t", "t"}},
    {"capitals are unknown", {"t"}, "IMG", false, {"t?"}},
    {"capitals do not fit either", {"v"}, "IMG", false, {"v", "?"}},
    {"unknown leaves room", {"?"}, "Img", false, {"??"}},
    {"blanks", {}, " text ", false, {"t"}},
    {"capital ref", {}, "REF", false, {"?"}},
};

} // namespace

TEST_F(PresentationTest, ElementGoesToTheLastSlideWhenItHasRoom)
{
    Part *part = addPart(message, {.location = "a", .data = "clip"});
    for (const PlacingRow &row : PlacingRows) {
        SCOPED_TRACE(row.what);
        part->setDispFileType(Part::Attachment);
        Presentation fresh(nullptr);
        appendSlides(fresh, row.before);
        Object *created = nullptr;
        Element element(row.tag, {{"src", "a"}});
        EXPECT_EQ(fresh.appendElementObject(element, &message, row.newSlide, 777, &created),
                  SmilResult::Ok);
        EXPECT_EQ(kindsOf(fresh), row.after);
        const Slide *last = fresh.getSlide(fresh.getTotalSlidesNum() - 1);
        EXPECT_EQ(created, last->getMediaObject(last->getMediaObjectCount() - 1));
        EXPECT_EQ(created->getData(), part);
        EXPECT_EQ(created->getMultiPart(), &message);
        const bool added = row.after.size() > row.before.size();
        EXPECT_EQ(last->getDur(), added ? 777 : QvlDuration::Default);
        EXPECT_EQ(last->getMultiPart(), added ? &message : nullptr);
        created->setData(nullptr); // the next row needs the part
    }
    EXPECT_EQ(FakePlayerEngine::record.created, 0);
}

TEST_F(PresentationTest, OtherElementsChangeNothing)
{
    appendParts(message, {{.location = "a"}});
    for (const char *tag : {"image", "par", "param", "", "texts", "te xt", "meta"}) {
        SCOPED_TRACE(tag);
        auto *untouched = newObject(SMIL_MEDIA_REF);
        const std::unique_ptr<Object> owner(untouched);
        Object *created = untouched;
        for (const bool newSlide : {false, true}) {
            Element element(tag, {{"src", "a"}});
            EXPECT_EQ(data.appendElementObject(element, &message, newSlide, 1, &created),
                      SmilResult::NotAMedia);
        }
        EXPECT_EQ(created, untouched);
    }
    EXPECT_EQ(data.appendElementObject(nullptr, &message, true, 1, nullptr), SmilResult::NotAMedia);
    EXPECT_EQ(data.getTotalSlidesNum(), 0U);
    EXPECT_EQ(factsOf(message), (QList<PartFacts>{{.location = "a"}}));
}

TEST_F(PresentationTest, ElementWithoutContentChangesNothing)
{
    appendSlides(data, {"t"});
    for (Multipart *multipart : {&message, static_cast<Multipart *>(nullptr)}) {
        for (const bool newSlide : {false, true}) {
            for (const char *tag : {"img", "text"}) {
                Object *created = nullptr;
                Element element(tag, {{"src", "missing"}});
                EXPECT_EQ(data.appendElementObject(element, multipart, newSlide, 1, &created),
                          SmilResult::NotInMessage);
                EXPECT_EQ(created, nullptr);
            }
        }
    }
    EXPECT_EQ(kindsOf(data), QStringList("t"));
    EXPECT_EQ(data.appendElementObject(Element("img"), nullptr, true, 1, nullptr),
              SmilResult::NotInMessage);
}

namespace {

Object *boundObject(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type, Multipart &message,
                    const PartFacts &facts)
{
    return newObject(type, facts.location, &message, addPart(message, facts));
}

} // namespace

TEST_F(PresentationTest, FirstObjectOfALocationOrContentIdIsDeleted)
{
    const std::pair<QString, QStringList> rows[] = {
        {"a", {"tv", "i"}},      {"A", {"itv", ""}}, {"cid:ID", {"iv", "i"}},
        {" <id> ", {"iv", "i"}}, {"c", {"it", "i"}}, {"other", {"itv", "i"}},
        {"second", {"itv", ""}},
    };
    for (const auto &[location, kinds] : rows) {
        SCOPED_TRACE(location.toStdString());
        Multipart parts;
        Presentation fresh(&parts);
        Slide *slide = fresh.appendSlide(1234U);
        slide->appendObject(boundObject(SMIL_MEDIA_IMAGE, parts, {.location = "a"}));
        slide->appendObject(boundObject(SMIL_MEDIA_TEXT, parts, {.location = "b", .id = "<Id>"}));
        slide->appendObject(boundObject(SMIL_MEDIA_VIDEO, parts, {.location = "c"}));
        slide = fresh.appendSlide(1234U);
        slide->appendObject(
            boundObject(SMIL_MEDIA_IMAGE, parts, {.location = "second", .id = "a"}));
        fresh.deleteObjectByDataLocation(location);
        EXPECT_EQ(kindsOf(fresh), kinds);
        EXPECT_EQ(parts.getPartCount(), location == "other" ? 4 : 3);
        EXPECT_EQ(fresh.getSlide(0)->getDur(), location == "c" ? QvlDuration::Default : 1234);
    }
}

TEST_F(PresentationTest, DeletingByLocationComparesThePartNotTheSrc)
{
    appendSlides(data, {"t"});
    data.deleteObjectByDataLocation("t0");
    EXPECT_EQ(kindsOf(data), QStringList("t"));
}

namespace {

QString colorOf(const Slide &slide)
{
    return QString::number(slide.getPageColor().kind) + slide.getPageColor().name;
}

QStringList paramsOf(const Presentation &presentation, unsigned int slide)
{
    QStringList params;
    for (unsigned int i = 0; i < presentation.getMediaObjectCount(slide); ++i)
        params += paramsOf(*presentation.getMediaObject(slide, i)).join(';');
    return params;
}

} // namespace

TEST_F(PresentationTest, RootColorBecomesPageColorAndParamOfEverySlide)
{
    appendSlides(data, {"ti", "a"});
    data.getRootLayout()->setBackgroundColor("red");
    data.getSlide(0)->setTextColor({SMIL_COLOR_RGB, "", QColor(0, 128, 255)});
    data.getSlide(0)->setTextSize("large");
    data.updateParamToSlide();
    EXPECT_EQ(colorOf(*data.getSlide(0)), "1red");
    EXPECT_EQ(colorOf(*data.getSlide(1)), "1red");
    EXPECT_EQ(paramsOf(data, 0),
              (QStringList{"background-color|#ff0000|0|;"
                           "foreground-color|#0080ff|0|;textsize|large|0|",
                           "background-color|#ff0000|0|"}));
    EXPECT_EQ(paramsOf(data, 1), QStringList("background-color|#ff0000|0|"));
}

TEST_F(PresentationTest, OnlyTheGivenSlideGetsItsParams)
{
    appendSlides(data, {"t", "t"});
    data.getRootLayout()->setBackgroundColor("red");
    data.updateParamToSlideAt(1);
    data.updateParamToSlideAt(2);
    EXPECT_EQ(paramsOf(data, 0), QStringList(""));
    EXPECT_EQ(paramsOf(data, 1), QStringList("background-color|#ff0000|0|;textsize||0|"));
}

TEST_F(PresentationTest, RootLayoutWithoutColorClearsThePageColors)
{
    appendSlides(data, {"ti"});
    data.getSlide(0)->setPageColor({SMIL_COLOR_NAMED, "blue", Qt::blue});
    data.getSlide(0)->updatePageColorToElem();
    data.updateParamToSlide();
    EXPECT_EQ(colorOf(*data.getSlide(0)), "0");
    EXPECT_EQ(paramsOf(data, 0), (QStringList{"textsize||0|", ""}));
}

TEST_F(PresentationTest, ParamsBecomeColorsAndTextSizeOfEverySlide)
{
    appendSlides(data, {"t", "i"});
    Object *text = data.getMediaObject(0, 0);
    text->updateParamByName("background-color", "red");
    text->updateParamByName("foreground-color", "#0080ff");
    text->updateParamByName("textsize", "large");
    data.updateParamFromSlide();
    EXPECT_EQ(colorOf(*data.getSlide(0)), "1red");
    EXPECT_EQ(data.getSlide(0)->getTextColor().color, QColor(0, 128, 255));
    EXPECT_EQ(data.getSlide(0)->getTextSize(), "large");
    EXPECT_EQ(colorOf(*data.getSlide(1)), "3");
    EXPECT_EQ(data.getSlide(1)->getTextColor().kind, SMIL_COLOR_INVALID);
    EXPECT_EQ(data.getSlide(1)->getTextSize(), "normal");
}

namespace {

struct EmptyTextRow
{
    const char *what;
    QString kinds;
    QByteArray content; // of the first object
    MMS_COMP_COLOR color;
    QString after;
};

const MMS_COMP_COLOR NoColor{SMIL_COLOR_INVALID, "", QColor()};
const MMS_COMP_COLOR Red{SMIL_COLOR_RGB, "", Qt::red};

const EmptyTextRow EmptyTextRows[] = {
    {"no color", "t", "", NoColor, ""},
    {"kind none", "t", "", {SMIL_COLOR_NONE, "", Qt::red}, ""},
    {"kind invalid", "t", "", {SMIL_COLOR_INVALID, "", Qt::red}, ""},
    {"red", "t", "", Red, "t"},
    {"named red", "t", "", {SMIL_COLOR_NAMED, "red", Qt::red}, "t"},
    {"white", "t", "", {SMIL_COLOR_RGB, "", Qt::white}, ""},
    {"named white", "t", "", {SMIL_COLOR_NAMED, "white", Qt::white}, ""},
    {"nearly white", "t", "", {SMIL_COLOR_RGB, "", QColor(255, 255, 254)}, "t"},
    {"black", "t", "", {SMIL_COLOR_RGB, "", Qt::black}, "t"},
    {"red, image", "ti", "", Red, "i"},
    {"red, video", "tv", "", Red, "v"},
    {"red, audio", "ta", "", Red, "a"},
    {"red, ref", "tr", "", Red, "tr"},
    {"red, second text", "tt", "", Red, "tt"},
    {"no color, image", "ti", "", NoColor, "i"},
    {"no color, second text", "tt", "", NoColor, "t"},
    {"content", "ti", "a", NoColor, "ti"},
    {"zero octet is content", "t", octet(0), NoColor, "t"},
    {"empty image", "i", "", NoColor, "i"},
};

} // namespace

TEST_F(PresentationTest, EmptyTextIsRemovedBeforeSendingUnlessOnlyItCarriesAColor)
{
    for (const EmptyTextRow &row : EmptyTextRows) {
        SCOPED_TRACE(row.what);
        Multipart parts;
        Presentation fresh(&parts);
        Slide *slide = fresh.appendSlide(1234U);
        appendKinds(*slide, row.kinds);
        slide->getMediaObject(0)->setMultiPart(&parts);
        slide->getMediaObject(0)->setData(addPart(parts, {.location = "a", .data = row.content}));
        slide->setPageColor(row.color);
        fresh.removeEmptyTextBeforeSend();
        EXPECT_EQ(kindsOf(*slide), row.after);
        EXPECT_EQ(parts.getPartCount(), row.after == row.kinds ? 1 : 0);
        EXPECT_EQ(slide->getDur(), 1234);
    }
}

TEST_F(PresentationTest, TextWithoutPartStaysAndEverySlideIsChecked)
{
    appendSlides(data, {"t", "ti"});
    data.getMediaObject(1, 0)->setData(addPart(message, {.location = "a"}));
    data.removeEmptyTextBeforeSend();
    EXPECT_EQ(kindsOf(data), (QStringList{"t", "i"}));
}

TEST_F(PresentationTest, IsEmptyWhenEverySlideIsBlank)
{
    const std::pair<QStringList, bool> rows[] = {
        {{}, true},          {{""}, true},        {{"t"}, true},  {{"t", "", "tt"}, true},
        {{"t", "i"}, false}, {{"a", "t"}, false}, {{"r"}, false},
    };
    for (const auto &[slides, empty] : rows) {
        Presentation fresh(nullptr);
        appendSlides(fresh, slides);
        EXPECT_EQ(fresh.isEmpty(), empty) << slides.join(' ').toStdString();
    }
}

TEST_F(PresentationTest, IsEmptyWithOneEmptyTextButNotWithCharacters)
{
    appendSlides(data, {"t"});
    Part *part = addPart(message, {.location = "a"});
    data.getMediaObject(0, 0)->setData(part);
    EXPECT_TRUE(data.isEmpty());
    part->setBodyData(QByteArray("a"));
    EXPECT_FALSE(data.isEmpty());
}

TEST_F(PresentationTest, MessageIsSetForEverySlideButNotForObjects)
{
    appendSlides(data, {"t", "i"});
    Multipart other;
    EXPECT_TRUE(data.setMultiPart(&other));
    EXPECT_EQ(data.getMultiPart(), &other);
    for (unsigned int i = 0; i < 2; ++i) {
        EXPECT_EQ(data.getSlide(i)->getMultiPart(), &other);
        EXPECT_EQ(data.getMediaObject(i, 0)->getMultiPart(), nullptr);
    }
    EXPECT_TRUE(data.setMultiPart(nullptr));
    EXPECT_EQ(data.getSlide(1)->getMultiPart(), nullptr);
}

namespace {

// Fills @p data with two slides, a layout in per cent and two metas.
void fillForCopy(Presentation &data, Multipart &message)
{
    appendParts(message, {{.location = "a"}, {.location = "b"}});
    for (const char *src : {"a", "b"})
        data.appendElementObject(Element("img", {{"src", src}}), &message, true, 777, nullptr);
    data.setRootLayout(176, 208);
    data.getRootLayout()->setBackgroundColor("red");
    data.appendRegion("1%", "2", "3", "4", "meet", "x");
    data.appendRegion("5", "6", "7", "8", "slice", "y");
    data.appendMeta("a", "1");
    data.appendMeta("b", "2");
}

} // namespace

TEST_F(PresentationTest, CopyHasEverythingExceptTheRootColor)
{
    fillForCopy(data, message);
    Multipart target;
    target.copyFrom(message);
    const Presentation copy(data, &target);
    EXPECT_EQ(copy.getMultiPart(), &target);
    EXPECT_EQ(copy.getLayoutMeasureUnit(), SMIL_UNIT_PERCENT);
    EXPECT_EQ(rootSize(copy), std::pair(176, 208));
    EXPECT_EQ(copy.getRootLayout()->getBackgroundColor()->kind, SMIL_COLOR_NONE);
    EXPECT_EQ(regionsOf(copy), regionsOf(data));
    EXPECT_EQ(copy.getMetaCount(), 2U);
    EXPECT_EQ(copy.getMeta(1)->getContent(), "2");
    EXPECT_EQ(kindsOf(copy), (QStringList{"i", "i"}));
    EXPECT_EQ(copy.getSlide(1)->getDur(), 777);
    EXPECT_EQ(copy.getMediaObject(1, 0)->getData(), target.getBodypartByIndex(1));
    EXPECT_EQ(copy.getMediaObject(1, 0)->getMultiPart(), &target);
    EXPECT_EQ(copy.getSlide(1)->getMultiPart(), &target);
}

TEST_F(PresentationTest, CopyIsAppendedToTheTarget)
{
    fillForCopy(data, message);
    Presentation target(nullptr);
    target.getRootLayout()->setBackgroundColor("blue");
    target.appendRegion("5", "6", "7", "8", "slice", "y");
    target.appendMeta("own", "0");
    appendSlides(target, {"t"});
    EXPECT_TRUE(data.copyTo(&target, &message));
    EXPECT_EQ(target.getRootLayout()->getBackgroundColor()->name, "blue");
    EXPECT_EQ(regionsOf(target), (QStringList{"5 6 7 8 4 y", "1 2 3 4 2 x"}));
    EXPECT_EQ(target.getMetaCount(), 3U);
    EXPECT_EQ(kindsOf(target), (QStringList{"t", "i", "i"}));
    EXPECT_EQ(target.getSlide(0)->getMultiPart(), &message);
    for (unsigned int slide : {1U, 2U})
        target.getMediaObject(slide, 0)->setData(nullptr); // the parts are the source's
}

TEST_F(PresentationTest, CopyStopsAtTheFirstSlideThatFails)
{
    fillForCopy(data, message);
    message.getBodypartByIndex(1)->setDispFileType(Part::Attachment);
    Presentation target(nullptr);
    EXPECT_FALSE(data.copyTo(&target, &message));
    EXPECT_EQ(kindsOf(target), QStringList("i"));
    EXPECT_EQ(target.getMetaCount(), 2U);
    EXPECT_EQ(target.getRegionCount(), 2U);
    EXPECT_EQ(target.getMultiPart(), &message);
    target.getMediaObject(0, 0)->setData(nullptr);
}

TEST_F(PresentationTest, CopyNeedsATargetAndForContentAMessage)
{
    EXPECT_FALSE(data.copyTo(nullptr, &message));
    Presentation target(&message);
    EXPECT_TRUE(data.copyTo(&target, nullptr));
    EXPECT_EQ(target.getMultiPart(), nullptr);
    appendSlides(data, {""});
    EXPECT_TRUE(data.copyTo(&target, nullptr));
    appendSlides(data, {"t"});
    EXPECT_FALSE(data.copyTo(&target, nullptr));
    EXPECT_EQ(target.getTotalSlidesNum(), 2U);
}

TEST_F(PresentationTest, CopyOntoItselfDoublesMetasAndSlides)
{
    fillForCopy(data, message);
    EXPECT_TRUE(data.copyTo(&data, &message));
    EXPECT_EQ(data.getMetaCount(), 4U);
    EXPECT_EQ(data.getRegionCount(), 2U);
    EXPECT_EQ(kindsOf(data), (QStringList{"i", "i", "i", "i"}));
}
