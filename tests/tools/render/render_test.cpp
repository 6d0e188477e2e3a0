/*
 * Whole slides: page, strip, and unsupported media.
 */
#include "render/render.h"

#include "tools/render/slides_to_draw.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

QImage blankPicture()
{
    Message message;
    message.slides().appendSlide(3000u);
    return renderSlide(message, 0, 1);
}

struct PaperRow
{
    const char *slide;
    const char *root;
    QRgb paper;
};

const PaperRow paperRows[] = {
    {"red", "blue", Red}, {"", "blue", Blue}, {"no color", "#0000ff", Blue},
    {"#ff0000", "", Red}, {"", "", White},    {"no color", "no color", White},
};

} // namespace

TEST(RenderSlide, IsThePageAndTheStripTimesTheScale)
{
    const QSize one = blankPicture().size();
    EXPECT_EQ(one.width(), 120);
    EXPECT_GT(one.height(), 160);
    EXPECT_LT(one.height(), 200);
    Message message;
    message.slides().appendSlide(3000u);
    for (int scale = 2; scale <= LargestScale; ++scale)
        EXPECT_EQ(renderSlide(message, 0, scale).size(), one * scale);
}

TEST(RenderSlide, IsNullWhenThereIsNoSuchSlide)
{
    Message message;
    EXPECT_TRUE(renderSlide(message, 0, 1).isNull());
    message.slides().appendSlide(3000u);
    EXPECT_TRUE(renderSlide(message, 1, 1).isNull());
}

TEST(RenderSlide, HasTheColorOfTheSlideThenOfTheRootLayout)
{
    for (const PaperRow &row : paperRows) {
        SCOPED_TRACE(std::string(row.slide) + '/' + row.root);
        Message message;
        message.slides().appendSlide(3000u)->setPageColor(color(row.slide));
        message.slides().setRootLayout(120, 160)->setBackgroundColor(QString::fromLatin1(row.root));
        const QImage page = pageOf(renderSlide(message, 0, 1));
        EXPECT_EQ(boundsOfColor(page, row.paper), page.rect());
    }
}

TEST(RenderSlide, CanHaveAnySize)
{
    constexpr int most = std::numeric_limits<int>::max();
    const QSize sizes[] = {{1, 1}, {3, 2000}, {2000, 3}, {-1, 0}, {most, 1}, {most, most}};
    for (const QSize &size : sizes) {
        SCOPED_TRACE(testing::PrintToString(size));
        OneObject made(SMIL_MEDIA_TEXT, "text", {0, 0, 100, 100});
        addObject(&made.message, 0, SMIL_MEDIA_VIDEO, QStringLiteral("video"), "a");
        addObject(&made.message, 0, SMIL_MEDIA_REF, QStringLiteral("ref"), "a");
        addObject(&made.message, 0, SMIL_MEDIA_AUDIO, QStringLiteral("audio"), "a");
        made.message.slides().setRootLayout(size.width(), size.height());
        const QImage picture = made.picture(LargestScale);
        ASSERT_FALSE(picture.isNull());
        EXPECT_LE(picture.width(), 4096);
        EXPECT_LE(picture.height(), 4096 * 12 / 10);
    }
}

TEST(RenderSlide, OfALargePageHasASmallerScale)
{
    const struct
    {
        QSize page;
        int scale;
    } rows[] = {
        {{320, 480}, 8}, {{640, 480}, 5}, {{2048, 10}, 2}, {{10, 1500}, 2}, {{2000, 2000}, 1}};
    for (const auto &row : rows) {
        Message message;
        message.slides().appendSlide(3000u);
        message.slides().setRootLayout(row.page.width(), row.page.height());
        EXPECT_EQ(renderSlide(message, 0, LargestScale), renderSlide(message, 0, row.scale));
        EXPECT_EQ(renderSlide(message, 0, LargestScale).width(), row.page.width() * row.scale);
    }
}

TEST(RenderSlide, EmptyTextDrawsNothing)
{
    for (const QByteArray &octets : {QByteArray(), QByteArray("\0a", 2), QByteArray(" \n")})
        EXPECT_EQ(OneObject(SMIL_MEDIA_TEXT, octets).picture(), blankPicture());
}

TEST(RenderSlide, EmptyTextTakesNoSpaceFromThePicture)
{
    OneObject made(SMIL_MEDIA_IMAGE, redAndBlue({120, 160}));
    made.object->setRegionId(QStringLiteral("none"));
    addObject(&made.message, 0, SMIL_MEDIA_TEXT, QStringLiteral("text"), "");
    EXPECT_EQ(boundsOfDrawing(pageOf(made.picture())), QRect(QPoint(0, 0), HandsetPage));
}

TEST(RenderSlide, UnsupportedMediumIsABoxInItsRegion)
{
    const QRect region(10, 20, 100, 60);
    const OneObject noPicture(SMIL_MEDIA_IMAGE, "no picture", region);
    const OneObject reference(SMIL_MEDIA_REF, redAndBlue({20, 20}), region);
    const OneObject unknown(SMIL_MEDIA_UNKNOWN, "text", region);
    OneObject text(SMIL_MEDIA_TEXT, "text", region);
    OneObject video(SMIL_MEDIA_VIDEO, "video", region);
    text.object->setData(nullptr);
    video.object->setData(nullptr);
    const QImage box = noPicture.picture();
    const QRect drawn = boundsOfDrawing(pageOf(box));
    EXPECT_TRUE(region.contains(drawn)) << testing::PrintToString(drawn);
    EXPECT_GT(drawn.width(), region.width() * 8 / 10);
    for (const QImage &picture :
         {reference.picture(), unknown.picture(), text.picture(), video.picture()})
        EXPECT_EQ(picture, box);
}

TEST(RenderSlide, BoxHasTheNameOfTheUnsupportedMedium)
{
    OneObject made(SMIL_MEDIA_IMAGE, "no picture", {10, 20, 100, 60});
    const QImage box = made.picture();
    made.object->setSrc(QStringLiteral("other"));
    EXPECT_NE(made.picture(), box);
}

TEST(RenderSlide, MediaStayInsideRegionsOfAnySize)
{
    for (const auto type : {SMIL_MEDIA_VIDEO, SMIL_MEDIA_REF, SMIL_MEDIA_TEXT, SMIL_MEDIA_IMAGE}) {
        for (const QSize &size : {QSize(1, 1), QSize(5, 5), QSize(30, 10), QSize(2, 100)}) {
            SCOPED_TRACE(testing::PrintToString(int(type)) + ' ' + testing::PrintToString(size));
            const QRect region(QPoint(20, 30), size);
            const QRect drawn =
                boundsOfDrawing(pageOf(OneObject(type, "octets", region).picture()));
            EXPECT_TRUE(drawn.isEmpty() || region.contains(drawn)) << testing::PrintToString(drawn);
        }
    }
}

TEST(RenderSlide, VideoIsAFrameWithAPlaySignAndItsName)
{
    OneObject made(SMIL_MEDIA_VIDEO, "video", {0, 40, 120, 80});
    const QImage page = pageOf(made.picture());
    const QRect drawn = boundsOfDrawing(page);
    EXPECT_TRUE(QRect(0, 40, 120, 80).contains(drawn)) << testing::PrintToString(drawn);
    EXPECT_GT(drawn.width(), 100);
    const QRect middle(40, 55, 40, 40);
    EXPECT_FALSE(boundsOfColor(page.copy(middle), White).isEmpty());
    made.object->setSrc(QStringLiteral("other"));
    EXPECT_NE(pageOf(made.picture()), page);
    EXPECT_EQ(pageOf(made.picture()).copy(middle), page.copy(middle));
}

TEST(RenderSlide, AudioIsNamedOnlyBelowThePage)
{
    OneObject made(SMIL_MEDIA_AUDIO, "no text", {0, 0, 120, 160});
    const QImage picture = made.picture();
    EXPECT_EQ(pageOf(picture), pageOf(blankPicture()));
    EXPECT_NE(stripOf(picture), stripOf(blankPicture()));
    made.object->setSrc(QStringLiteral("other"));
    EXPECT_NE(stripOf(made.picture()), stripOf(picture));
    made.object->setSrc(QStringLiteral(" "));
    EXPECT_NE(stripOf(made.picture()), stripOf(blankPicture())) << "no sign without a name";
}

TEST(RenderSlide, StripShowsNumberAndDuration)
{
    Message message;
    for (int i = 0; i < 2; ++i)
        message.slides().appendSlide(3000u);
    const QImage first = renderSlide(message, 0, 1);
    const QImage second = renderSlide(message, 1, 1);
    const QRect left(0, 160, 20, first.height() - 160);
    const QRect right(60, 160, 60, first.height() - 160);
    EXPECT_NE(second.copy(left), first.copy(left));
    EXPECT_EQ(second.copy(right), first.copy(right));
    QList<QImage> strips{first};
    for (int duration : {2500, -1, -2, std::numeric_limits<int>::max()}) {
        message.slides().getSlide(0)->setDur(duration);
        const QImage picture = renderSlide(message, 0, 1);
        EXPECT_EQ(picture.copy(left), first.copy(left)) << duration;
        EXPECT_FALSE(strips.contains(picture)) << duration;
        strips += picture;
    }
}

TEST(SlideRenderer, CountsThePixelsOfSlidesAndMedia)
{
    Message message;
    message.slides().appendSlide(3000u);
    SlideRenderer blank(message, 4);
    const QImage slide = blank.render(0);
    EXPECT_GE(blank.drawn().done(), qint64(slide.width()) * slide.height());
    Message crowded;
    addOverlapping(&crowded, 100);
    SlideRenderer renderer(crowded, 4);
    renderer.render(0);
    EXPECT_GE(renderer.drawn().done() - blank.drawn().done(), 100 * 480 * 640 / 8);
}

TEST(SlideRenderer, CountsTheCharactersOfTexts)
{
    OneObject brief(SMIL_MEDIA_TEXT, "t", {0, 0, 120, 160});
    OneObject full(SMIL_MEDIA_TEXT, QByteArray(100'000, 't'), {0, 0, 120, 160});
    SlideRenderer first(brief.message, 1);
    SlideRenderer second(full.message, 1);
    first.render(0);
    second.render(0);
    EXPECT_GT(second.drawn().done(), first.drawn().done() + 10'000);
    EXPECT_LT(second.drawn().done(), first.drawn().done() + 1'000'000);
}

TEST(SlideRenderer, ListsTheTextsThatDoNotFit)
{
    OneObject made(SMIL_MEDIA_TEXT, QByteArray(1000, 'w'));
    addObject(&made.message, 0, SMIL_MEDIA_TEXT, QStringLiteral("own"), "w");
    made.message.slides().appendSlide(3000u);
    SlideRenderer renderer(made.message, 1);
    renderer.render(0);
    ASSERT_EQ(renderer.longTexts().size(), 1);
    EXPECT_EQ(renderer.longTexts()[0].name, "name");
    EXPECT_EQ(renderer.longTexts()[0].text, QString(1000, QLatin1Char('w')));
    renderer.render(1);
    EXPECT_TRUE(renderer.longTexts().isEmpty());
}

TEST(SlideRenderer, ListsTheTextWhoseLineIsTallerThanItsRegion)
{
    const OneObject made(SMIL_MEDIA_TEXT, "w", {0, 0, 120, 5});
    SlideRenderer renderer(made.message, 1);
    renderer.render(0);
    EXPECT_EQ(renderer.longTexts().size(), 1);
}

TEST(SlideRenderer, DecodesThePictureOfManySlidesOnce)
{
    OneObject made(SMIL_MEDIA_IMAGE, redAndBlue({400, 300}));
    addUses(&made, 50);
    SlideRenderer renderer(made.message, 1);
    for (unsigned int i = 0; i <= 50; ++i)
        EXPECT_FALSE(renderer.render(i).isNull());
    EXPECT_EQ(renderer.pictures().decodings(), 1);
}

TEST(SlideRenderer, DecodesTheTextOfManySlidesOnce)
{
    OneObject made(SMIL_MEDIA_TEXT, "text");
    addUses(&made, 50);
    SlideRenderer renderer(made.message, 1);
    for (unsigned int i = 0; i <= 50; ++i)
        EXPECT_FALSE(renderer.render(i).isNull());
    EXPECT_EQ(renderer.texts().decodings(), 1);
}
