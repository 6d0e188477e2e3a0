/*
 * The places of media on the page, in the handset's layout and in a sender's.
 */
#include "render/layout.h"

#include "tools/render/slides_to_draw.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr QRectF UpperHalf(0, 0, 120, 80);
constexpr QRectF LowerHalf(0, 80, 120, 80);

struct Placed
{
    const char16_t *imageRegion;
    const char16_t *textRegion;
    QRectF image;
    QRectF text;
};

QRectF areaOf(const QList<PlacedObject> &places, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type)
{
    for (const PlacedObject &place : places) {
        if (place.object->getMediaElementType() == type)
            return place.area;
    }
    return QRectF();
}

/// A slide with a text followed by an image: the image is above only if a rule places it there.
QList<PlacedObject> placed(Message *message, const Placed &row)
{
    message->slides().appendSlide(3000u);
    return Page(message->slides())
        .place({addObject(message, 0, SMIL_MEDIA_TEXT, QString::fromUtf16(row.textRegion), "a"),
                addObject(message, 0, SMIL_MEDIA_IMAGE, QString::fromUtf16(row.imageRegion), "a")});
}

void expectPlaced(Message *message, const Placed &row)
{
    const auto places = placed(message, row);
    EXPECT_EQ(areaOf(places, SMIL_MEDIA_IMAGE), row.image);
    EXPECT_EQ(areaOf(places, SMIL_MEDIA_TEXT), row.text);
}

const Placed handsetRows[] = {
    {u"text", u"image", LowerHalf, UpperHalf},   {u"image", u"text", LowerHalf, UpperHalf},
    {u"text", u"text", LowerHalf, UpperHalf},    {u"nowhere", u"text", LowerHalf, UpperHalf},
    {u"text", u"nowhere", LowerHalf, UpperHalf}, {u"", u"", LowerHalf, UpperHalf},
};

} // namespace

TEST(RenderLayout, HandsetRegionsShareThePageInTheOrderOfTheSlide)
{
    for (const Placed &row : handsetRows) {
        SCOPED_TRACE(QString::fromUtf16(row.imageRegion).toStdString());
        Message message;
        MMS_COMP_SMILParser::updateToCorvaneRegion(&message.slides());
        expectPlaced(&message, row);
    }
}

TEST(RenderLayout, TextAfterItsPictureIsBelowIt)
{
    Message message;
    MMS_COMP_SMILParser::updateToCorvaneRegion(&message.slides());
    message.slides().appendSlide(3000u);
    const auto *image = addObject(&message, 0, SMIL_MEDIA_IMAGE, QStringLiteral("image"), "a");
    const auto *text = addObject(&message, 0, SMIL_MEDIA_TEXT, QStringLiteral("text"), "a");
    const auto places = Page(message.slides()).place({image, text});
    EXPECT_TRUE(message.slides().getSlide(0)->isTextBellowImg());
    EXPECT_EQ(areaOf(places, SMIL_MEDIA_IMAGE), UpperHalf);
    EXPECT_EQ(areaOf(places, SMIL_MEDIA_TEXT), LowerHalf);
}

TEST(RenderLayout, OneObjectHasTheWholePage)
{
    Message message;
    MMS_COMP_SMILParser::updateToCorvaneRegion(&message.slides());
    message.slides().appendSlide(3000u);
    const auto *object = addObject(&message, 0, SMIL_MEDIA_IMAGE, QStringLiteral("image"), "a");
    const auto places = Page(message.slides()).place({object});
    EXPECT_EQ(areaOf(places, SMIL_MEDIA_IMAGE), QRectF(QPointF(0, 0), HandsetPage));
    EXPECT_TRUE(places[0].sharesPage);
}

TEST(RenderLayout, HandsetRegionsAreRecognizedInPercent)
{
    Message message;
    message.slides().setLayoutMeasureUnit(SMIL_UNIT_PERCENT);
    MMS_COMP_SMILParser::updateToCorvaneRegion(&message.slides());
    expectPlaced(&message, {u"text", u"image", LowerHalf, UpperHalf});
}

TEST(RenderLayout, HandsetRegionsShareALargePage)
{
    Message message;
    message.slides().setRootLayout(240, 400);
    MMS_COMP_SMILParser::updateToCorvaneRegion(&message.slides());
    expectPlaced(&message, {u"image", u"text", QRectF(0, 200, 240, 200), QRectF(0, 0, 240, 200)});
}

TEST(RenderLayout, RegionsOfTheSenderStayWhereTheyAre)
{
    Message message;
    const QRectF above(5, 10, 100, 50);
    const QRectF below(15, 90, 60, 90);
    addRegion(&message, QStringLiteral("a"), above);
    addRegion(&message, QStringLiteral("b"), below, "slice");
    const auto places = placed(&message, {u"b", u"a", {}, {}});
    EXPECT_EQ(areaOf(places, SMIL_MEDIA_TEXT), above);
    EXPECT_EQ(areaOf(places, SMIL_MEDIA_IMAGE), below);
    EXPECT_EQ(places[1].fit, SMIL_REGION_FIT_SLICE);
    EXPECT_FALSE(places[0].sharesPage);
}

TEST(RenderLayout, RegionsInPercentScaleWithThePage)
{
    Message message;
    message.slides().setRootLayout(200, 400);
    message.slides().setLayoutMeasureUnit(SMIL_UNIT_PERCENT);
    addRegion(&message, QStringLiteral("a"), QRectF(0, 0, 50, 25));
    addRegion(&message, QStringLiteral("b"), QRectF(50, 25, 50, 75));
    expectPlaced(&message, {u"a", u"b", QRectF(0, 0, 100, 100), QRectF(100, 100, 100, 300)});
}

TEST(RenderLayout, ObjectsOfOneRegionShareThePage)
{
    Message message;
    addRegion(&message, QStringLiteral("a"), QRectF(10, 10, 100, 50));
    expectPlaced(&message, {u"a", u"a", LowerHalf, UpperHalf});
}

TEST(RenderLayout, RegionWithoutVisibleAreaIsIgnored)
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const QRectF areas[] = {{0, 500, 20, 20},     {-50, 0, 20, 20}, {0, 0, -20, 20},
                            {0, 0, 20, 0},        {nan, 0, 20, 20}, {0, nan, 20, 20},
                            {0, 0, infinity, 20}, {0, 0, 20, nan}};
    for (const QRectF &area : areas) {
        SCOPED_TRACE(testing::PrintToString(area));
        Message message;
        addRegion(&message, QStringLiteral("a"), area);
        message.slides().appendSlide(3000u);
        const auto *object = addObject(&message, 0, SMIL_MEDIA_IMAGE, QStringLiteral("a"), "a");
        EXPECT_EQ(Page(message.slides()).place({object})[0].area,
                  QRectF(QPointF(0, 0), HandsetPage));
    }
}

TEST(RenderLayout, PageHasTheSizeOfTheRootLayoutWithinLimits)
{
    constexpr int most = std::numeric_limits<int>::max();
    const struct
    {
        QSize root;
        QSize page;
    } rows[] = {{{176, 208}, {176, 208}}, {{-1, -1}, {120, 160}},  {{0, 0}, {120, 160}},
                {{1, 1}, {1, 1}},         {{-5, 200}, {120, 200}}, {{most, most}, {2048, 2048}}};
    for (const auto &row : rows) {
        Message message;
        EXPECT_EQ(pageSize(message.slides()), HandsetPage);
        message.slides().setRootLayout(row.root.width(), row.root.height());
        EXPECT_EQ(pageSize(message.slides()), row.page);
    }
}

TEST(RenderLayout, UnitGrowsWithThePageAndIsAtLeastOne)
{
    EXPECT_EQ(pageUnit({120, 160}), 1);
    EXPECT_EQ(pageUnit({60, 80}), 1);
    EXPECT_EQ(pageUnit({240, 160}), 1);
    EXPECT_EQ(pageUnit({240, 480}), 2);
}
