/*
 * Pictures on the page: fitted into regions, rotated, and the first of an animation.
 */
#include "render/picture.h"

#include "support/octets.h"
#include "tools/render/slides_to_draw.h"

#include <gtest/gtest.h>

namespace {

struct FitRow
{
    const char *fit;
    QSize picture;
    QRect red; // in the region 20,30 40x40
    QRect blue;
};

const FitRow fitRows[] = {
    {"hidden", {20, 10}, {20, 30, 10, 10}, {30, 30, 10, 10}},
    {"scroll", {20, 10}, {20, 30, 10, 10}, {30, 30, 10, 10}},
    {"odd", {20, 10}, {20, 30, 10, 10}, {30, 30, 10, 10}},
    {"hidden", {120, 80}, {20, 30, 40, 40}, {}},
    {"hidden", {60, 20}, {20, 30, 30, 20}, {50, 30, 10, 20}},
    {"meet", {160, 80}, {20, 30, 20, 20}, {40, 30, 20, 20}},
    {"meet", {40, 80}, {20, 30, 10, 40}, {30, 30, 10, 40}},
    {"fill", {160, 80}, {20, 30, 20, 40}, {40, 30, 20, 40}},
    {"slice", {160, 80}, {20, 30, 40, 40}, {}},
    {"slice", {80, 160}, {20, 30, 20, 40}, {40, 30, 20, 40}},
};

// Scaling mixes the two colors where they meet.
void expectNear(const QRect &actual, const QRect &expected, int tolerance = 1)
{
    EXPECT_EQ(actual.isEmpty(), expected.isEmpty());
    EXPECT_NEAR(actual.left(), expected.left(), tolerance);
    EXPECT_NEAR(actual.right(), expected.right(), tolerance);
    EXPECT_EQ(actual.top(), expected.top());
    EXPECT_EQ(actual.bottom(), expected.bottom());
}

// A JPEG of a camera that was held upright: its left side must be shown on top.
QByteArray heldUpright(const QImage &image)
{
    const QByteArray exif = "FF E1 00 22 45 78 69 66 00 00 4D 4D 00 2A 00 00 00 08 00 01"_octets;
    const QByteArray orientation = "01 12 00 03 00 00 00 01 00 06 00 00 00 00 00 00"_octets;
    return jpeg(image).insert(2, exif + orientation);
}

// Two pictures of one pixel: red, then blue.
QByteArray animation()
{
    const QByteArray screen = "47 49 46 38 39 61 01 00 01 00 80 00 00 FF 00 00 00 00 FF"_octets;
    const QByteArray delay = "21 F9 04 00 0A 00 00 00"_octets;
    const QByteArray red = "2C 00 00 00 00 01 00 01 00 00 02 02 44 01 00"_octets;
    const QByteArray blue = "2C 00 00 00 00 01 00 01 00 00 02 02 4C 01 00"_octets;
    return screen + delay + red + delay + blue + "3B"_octets;
}

} // namespace

TEST(RenderPicture, IsFittedByTheFitOfItsRegion)
{
    for (const FitRow &row : fitRows) {
        SCOPED_TRACE(std::string(row.fit) + ' ' + testing::PrintToString(row.picture));
        const OneObject made(SMIL_MEDIA_IMAGE, redAndBlue(row.picture), {20, 30, 40, 40}, row.fit);
        const QImage page = pageOf(made.picture());
        expectNear(boundsOfColor(page, Red), row.red);
        expectNear(boundsOfColor(page, Blue), row.blue);
        EXPECT_EQ(boundsOfDrawing(page), row.red | row.blue);
    }
}

TEST(RenderPicture, IsCroppedAtTheEdgeOfThePage)
{
    const OneObject made(SMIL_MEDIA_IMAGE, redAndBlue({80, 80}), {80, 130, 80, 80}, "fill");
    const QImage page = pageOf(made.picture());
    EXPECT_EQ(boundsOfDrawing(page), QRect(80, 130, 40, 30));
    expectNear(boundsOfColor(page, Red), QRect(80, 130, 40, 30));
    EXPECT_TRUE(boundsOfColor(page, Blue).isEmpty());
}

TEST(RenderPicture, ThinPictureFillsAWideRegionThatCropsIt)
{
    const OneObject made(SMIL_MEDIA_IMAGE, redAndBlue({2, 30000}), {20, 30, 40, 40}, "slice");
    EXPECT_EQ(boundsOfDrawing(pageOf(made.picture())), QRect(20, 30, 40, 40));
}

TEST(RenderPicture, IsShownWholeAndCenteredOnTheHandsetsPage)
{
    const struct
    {
        QSize picture;
        QRect drawn;
    } rows[] = {{{480, 240}, {0, 50, 120, 60}}, {{60, 40}, {30, 60, 60, 40}}};
    for (const auto &row : rows) {
        OneObject made(SMIL_MEDIA_IMAGE, redAndBlue(row.picture));
        made.object->setRegionId(QStringLiteral("none"));
        EXPECT_EQ(boundsOfDrawing(pageOf(made.picture())), row.drawn);
    }
}

TEST(RenderPicture, HasTheResolutionOfTheScale)
{
    const OneObject made(SMIL_MEDIA_IMAGE, redAndBlue({40, 40}));
    for (int scale = 1; scale <= LargestScale; ++scale)
        expectNear(boundsOfColor(made.picture(scale), Red),
                   QRect(20 * scale, 30 * scale, 20 * scale, 40 * scale), scale);
}

TEST(RenderPicture, FirstOfAnAnimationIsShown)
{
    const OneObject made(SMIL_MEDIA_IMAGE, animation(), {20, 30, 40, 40}, "fill");
    EXPECT_EQ(boundsOfColor(made.picture(), Red), QRect(20, 30, 40, 40));
}

TEST(RenderPicture, UnboundedRegionIsCroppedToThePage)
{
    for (const char *fit : {"hidden", "meet", "slice", "fill", "scroll"}) {
        SCOPED_TRACE(fit);
        const OneObject made(SMIL_MEDIA_IMAGE, redAndBlue({40, 40}), {0, 0, 3e38, 3e38}, fit);
        EXPECT_EQ(boundsOfColor(made.picture(), Red).topLeft(), QPoint(0, 0));
        const OneObject thin(SMIL_MEDIA_IMAGE, redAndBlue({40, 40}), {0, 0, 1e-38, 3e38}, fit);
        EXPECT_FALSE(thin.picture().isNull());
    }
}

TEST(RenderPicture, IsRotatedByItsOrientation)
{
    const QImage image = QImage::fromData(redAndBlue({32, 16}));
    const OneObject made(SMIL_MEDIA_IMAGE, heldUpright(image));
    const QImage page = pageOf(made.picture());
    EXPECT_EQ(boundsOfDrawing(page), QRect(20, 30, 16, 32));
    EXPECT_TRUE(isNear(page.pixel(28, 33), Red));
    EXPECT_TRUE(isNear(page.pixel(28, 58), Blue));
}
