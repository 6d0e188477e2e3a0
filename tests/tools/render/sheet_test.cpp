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
    const QImage slide = picture({100, 120}, White);
    const auto sizeOf = [&](int count) { return contactSheet(QList<QImage>(count, slide)).size(); };
    EXPECT_EQ(sizeOf(4).width() - sizeOf(3).width(), sizeOf(2).width() - sizeOf(1).width());
    EXPECT_EQ(sizeOf(4).height(), sizeOf(1).height());
    EXPECT_EQ(sizeOf(5).width(), sizeOf(4).width());
    EXPECT_EQ(sizeOf(9).height() - sizeOf(5).height(), sizeOf(5).height() - sizeOf(4).height());
}

TEST(ContactSheet, ShowsEverySlideWhole)
{
    QList<QImage> slides(6, picture({100, 120}, White));
    slides[1] = picture({100, 120}, Red);
    slides[5] = picture({80, 90}, Blue);
    const QImage sheet = contactSheet(slides);
    const QRect second = boundsOfColor(sheet, Red);
    const QRect sixth = boundsOfColor(sheet, Blue);
    EXPECT_EQ(second.size(), QSize(100, 120));
    EXPECT_EQ(sixth.size(), QSize(80, 90));
    EXPECT_EQ(sixth.left(), second.left());
    EXPECT_GT(sixth.top(), second.bottom());
}

TEST(Thumbnail, IsTheSlideUnlessItIsTooLarge)
{
    EXPECT_EQ(thumbnail(picture({240, 352}, Red)).size(), QSize(240, 352));
    EXPECT_EQ(thumbnail(picture({100, 120}, Red)).size(), QSize(100, 120));
    EXPECT_EQ(thumbnail(picture({480, 480}, Red)).size(), QSize(240, 240));
    EXPECT_EQ(thumbnail(picture({100, 720}, Red)).size(), QSize(50, 360));
    EXPECT_EQ(thumbnail(picture({4096, 1}, Red)).size(), QSize(240, 1));
}
