/*
 * Contact sheets: the places and sizes of the slides.
 */
#include "render/sheet.h"

#include "tools/render/slides_to_draw.h"

#include <gtest/gtest.h>

namespace {

QImage picture(const QSize &size, QRgb color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

} // namespace

TEST(ContactSheet, HasFourSlidesInARow)
{
    const SheetCell slide{picture({100, 120}, White), {}};
    const auto sizeOf = [&](int count) {
        return contactSheet(QList<SheetCell>(count, slide), sheetFormat(count, 0)).size();
    };
    EXPECT_EQ(sizeOf(4).width() - sizeOf(3).width(), sizeOf(2).width() - sizeOf(1).width());
    EXPECT_EQ(sizeOf(4).height(), sizeOf(1).height());
    EXPECT_EQ(sizeOf(5).width(), sizeOf(4).width());
    EXPECT_EQ(sizeOf(9).height() - sizeOf(5).height(), sizeOf(5).height() - sizeOf(4).height());
}

TEST(ContactSheet, ShowsEverySlideWhole)
{
    QList<SheetCell> slides(6, {picture({100, 120}, White), {}});
    slides[1].slide = picture({100, 120}, Red);
    slides[5].slide = picture({80, 90}, Blue);
    const QImage sheet = contactSheet(slides, sheetFormat(6, 0));
    const QRect second = boundsOfColor(sheet, Red);
    const QRect sixth = boundsOfColor(sheet, Blue);
    EXPECT_EQ(second.size(), QSize(100, 120));
    EXPECT_EQ(sixth.size(), QSize(80, 90));
    EXPECT_EQ(sixth.left(), second.left());
    EXPECT_GT(sixth.top(), second.bottom());
}

TEST(ContactSheet, ShowsCaptionsBelowTheirSlides)
{
    const SheetCell plain{picture({100, 120}, White), {}};
    const SheetCell explained{picture({100, 120}, Red), picture({100, 70}, Blue)};
    const QImage sheet = contactSheet({plain, explained, plain, plain, plain}, sheetFormat(5, 0));
    const QRect slide = boundsOfColor(sheet, Red);
    const QRect caption = boundsOfColor(sheet, Blue);
    EXPECT_EQ(caption.size(), QSize(100, 70));
    EXPECT_EQ(caption.left(), slide.left());
    EXPECT_EQ(caption.top(), slide.bottom() + 1);
    const QRect slides = boundsOfColor(sheet, White);
    EXPECT_GT(slides.bottom() - 120, caption.bottom());
}

TEST(ContactSheet, IsFullWithAHundredSlidesOrAHeight)
{
    const auto isFull = [](int count, const QSize &size) {
        const QList<SheetCell> cells(count, {picture(size, White), {}});
        return fillsSheet(cells, sheetFormat(count, 0));
    };
    EXPECT_FALSE(isFull(99, {1, 1}));
    EXPECT_TRUE(isFull(100, {1, 1}));
    EXPECT_FALSE(isFull(4, {1, 15'959}));
    EXPECT_TRUE(isFull(1, {1, 15'960}));
}

TEST(SheetFormat, HasFewerColumnsOnANarrowSheet)
{
    EXPECT_EQ(sheetFormat(9, 580).columns, 4);
    EXPECT_EQ(sheetFormat(9, 579).columns, 3);
    EXPECT_EQ(sheetFormat(2, 579).columns, 2);
    EXPECT_EQ(sheetFormat(9, 100).columns, 1);
    EXPECT_EQ(sheetFormat(9, 580).largestSlide, QSize(120, 180));
    EXPECT_EQ(sheetFormat(1, 1000).largestSlide, QSize(960, 1440));
    EXPECT_EQ(sheetFormat(0, 0).columns, 1);
}

TEST(SheetCaption, ShowsTextsBelowOneAnother)
{
    Work work(Million);
    const auto height = [&](const QStringList &texts) {
        return sheetCaption(texts, 200, &work).height();
    };
    EXPECT_GT(height({"a", "b"}), height({"a"}));
    EXPECT_EQ(height({"a", "b", "c"}) - height({"a", "b"}), height({"a", "b"}) - height({"a"}));
    EXPECT_EQ(sheetCaption({"a"}, 200, &work).width(), 200);
}

TEST(SheetCaption, CountsItsCharactersAndPixels)
{
    Work work(Million);
    const QImage caption = sheetCaption({"abcde"}, 200, &work);
    EXPECT_EQ(work.done(), 5 * CharacterWork + 200 * caption.height());
    Work characters(5 * CharacterWork);
    EXPECT_TRUE(sheetCaption({"abcde"}, 200, &characters).isNull());
    Work nothing(5 * CharacterWork - 1);
    EXPECT_TRUE(sheetCaption({"abcde"}, 200, &nothing).isNull());
    EXPECT_EQ(nothing.done(), 0);
}

TEST(Thumbnail, FillsTheColumnOfASheetWithAWidth)
{
    const SheetFormat format = sheetFormat(1, 1000);
    EXPECT_EQ(thumbnail(picture({120, 160}, Red), format).size(), QSize(960, 1280));
    EXPECT_EQ(thumbnail(picture({100, 720}, Red), format).size(), QSize(200, 1440));
}

TEST(Thumbnail, IsTheSlideUnlessItIsTooLarge)
{
    const auto sizeOf = [](const QSize &slide) {
        return thumbnail(picture(slide, Red), sheetFormat(1, 0)).size();
    };
    EXPECT_EQ(sizeOf({240, 352}), QSize(240, 352));
    EXPECT_EQ(sizeOf({100, 120}), QSize(100, 120));
    EXPECT_EQ(sizeOf({480, 480}), QSize(240, 240));
    EXPECT_EQ(sizeOf({100, 720}), QSize(50, 360));
    EXPECT_EQ(sizeOf({4096, 1}), QSize(240, 1));
}
