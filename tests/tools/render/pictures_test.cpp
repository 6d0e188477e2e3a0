/*
 * The pictures of a message: how often and in which size each is decoded, and the limits.
 */
#include "render/pictures.h"

#include "tools/render/slides_to_draw.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr qint64 Enough = 1'000'000'000;

using Part = MMS_COMP_SMILMultipartBodypart;

QByteArray gray(const QSize &size, QByteArray (*encode)(const QImage &))
{
    QImage image(size, QImage::Format_Grayscale8);
    image.fill(0);
    return encode(image);
}

QByteArray trueColor(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Red);
    return png(image);
}

PlacedObject placeIn(const QSizeF &size, MMS_COMP_SMIL_REGION_FIT fit = SMIL_REGION_FIT_FILL)
{
    return {nullptr, QRectF(QPointF(0, 0), size), fit, false};
}

Picture inItsOwnSize(const QByteArray &octets)
{
    Part part;
    part.setBodyData(octets);
    return Pictures(Enough).find(part, placeIn({10, 10}, SMIL_REGION_FIT_HIDDEN), 1);
}

struct OnePicture
{
    Part part;

    explicit OnePicture(const QByteArray &octets) { part.setBodyData(octets); }
};

} // namespace

TEST(RenderPictures, HugePictureIsDecodedSmaller)
{
    const Picture picture = inItsOwnSize(gray({8000, 4000}, jpeg));
    EXPECT_EQ(picture.size, QSizeF(8000, 4000));
    EXPECT_EQ(picture.image.size(), QSize(2048, 1024));
}

TEST(RenderPictures, ScaledThinPictureKeepsOnePixel)
{
    EXPECT_EQ(inItsOwnSize(gray({1, 30000}, jpeg)).image.size(), QSize(1, 2048));
}

TEST(RenderPictures, PictureOfAnyNumberOfUsesIsDecodedOnce)
{
    const OnePicture made(trueColor({1600, 1200}));
    Pictures pictures(Enough);
    for (int i = 0; i < 1000; ++i)
        EXPECT_FALSE(pictures.find(made.part, placeIn({120, 160}), 2).image.isNull());
    EXPECT_EQ(pictures.decodings(), 1);
    EXPECT_LT(pictures.decodedPixels(), 2'000'000);
}

TEST(RenderPictures, LargePictureIsDecodedWithAtMostTwiceTheDrawnSize)
{
    const OnePicture made(trueColor({1600, 1200}));
    const QImage image = Pictures(Enough).find(made.part, placeIn({120, 90}), 3).image;
    EXPECT_EQ(image.size(), QSize(400, 300));
    EXPECT_EQ(image.pixel(200, 150), Red);
}

TEST(RenderPictures, SmallPictureIsDecodedAsItIs)
{
    const OnePicture made(redAndBlue({640, 480}));
    EXPECT_EQ(Pictures(Enough).find(made.part, placeIn({10, 10}), 1).image.size(), QSize(640, 480));
}

TEST(RenderPictures, PictureOfManySizesIsDecodedForFewOfThem)
{
    const OnePicture made(trueColor({1600, 1200}));
    Pictures pictures(Enough);
    for (int width = 1; width <= 1600; ++width)
        EXPECT_GE(pictures.find(made.part, placeIn({qreal(width), 1}), 1).image.width(), width);
    EXPECT_EQ(pictures.decodings(), 3);
    for (int width = 1600; width > 0; --width)
        pictures.find(made.part, placeIn({qreal(width), 1}), 1);
    EXPECT_EQ(pictures.decodings(), 3);
}

TEST(RenderPictures, PicturesAreDecodedUpToTheLimitOfPixels)
{
    const OnePicture large(trueColor({1000, 1000}));
    const OnePicture small(trueColor({400, 400}));
    Pictures pictures(1'500'000);
    const auto isShown = [&](const Part &part) {
        return !pictures.find(part, placeIn({10, 10}), 1).image.isNull();
    };
    EXPECT_TRUE(isShown(large.part));
    const OnePicture second(trueColor({1000, 1000}));
    EXPECT_FALSE(isShown(second.part));
    EXPECT_TRUE(pictures.isBeyondLimit(second.part));
    EXPECT_TRUE(isShown(small.part)) << "it is within the limit";
    EXPECT_FALSE(pictures.isBeyondLimit(small.part));
    EXPECT_TRUE(isShown(large.part)) << "it is already decoded";
    EXPECT_EQ(pictures.decodings(), 2);
    EXPECT_LE(pictures.decodedPixels(), 1'500'000);
}

TEST(RenderPictures, PictureBeyondTheLimitIsShownAsItWasDecodedBefore)
{
    const OnePicture made(trueColor({1600, 1200}));
    Pictures pictures(3'000'000);
    const QImage small = pictures.find(made.part, placeIn({100, 100}), 1).image;
    EXPECT_EQ(pictures.find(made.part, placeIn({1600, 1200}), 1).image, small);
    EXPECT_TRUE(pictures.isBeyondLimit(made.part));
}

TEST(RenderPictures, PictureThatIsDecodedAsAWholeMayHaveAQuarterOfTheLimit)
{
    const OnePicture fitting(gray({500, 500}, png));
    const OnePicture larger(gray({501, 500}, png));
    Pictures pictures(1'000'000);
    EXPECT_FALSE(pictures.find(fitting.part, placeIn({10, 10}), 1).image.isNull());
    EXPECT_TRUE(pictures.find(larger.part, placeIn({10, 10}), 1).image.isNull());
    EXPECT_TRUE(pictures.isBeyondLimit(larger.part));
}

TEST(RenderPictures, TruncatedPictureIsDecodedOnceAndCounted)
{
    const QByteArray octets = redAndBlue({1000, 1000});
    const OnePicture made(octets.first(octets.size() / 2));
    Pictures pictures(Enough);
    for (int i = 0; i < 100; ++i)
        EXPECT_TRUE(pictures.find(made.part, placeIn({10, 10}), 1).image.isNull());
    EXPECT_EQ(pictures.decodings(), 1);
    EXPECT_GE(pictures.decodedPixels(), 1'000'000);
    EXPECT_FALSE(pictures.isBeyondLimit(made.part));
}

TEST(RenderPictures, MemoryForDecodedPicturesIsLimited)
{
    QList<std::shared_ptr<OnePicture>> made;
    Pictures pictures(Enough);
    for (int i = 0; i < 6; ++i) {
        made += std::make_shared<OnePicture>(trueColor({2000, 1500}));
        pictures.find(made.back()->part, placeIn({2000, 1500}), 1);
    }
    pictures.find(made.back()->part, placeIn({2000, 1500}), 1);
    EXPECT_EQ(pictures.decodings(), 6);
    pictures.find(made.front()->part, placeIn({2000, 1500}), 1);
    EXPECT_EQ(pictures.decodings(), 7) << "six take 72 MB";
}

TEST(Pictures, OrdinaryPictureIsDecodedWithinALowLimit)
{
    MMS_COMP_SMILMultipartBodypart part;
    part.setBodyData(png(QImage(640, 480, QImage::Format_ARGB32)));
    Pictures pictures(1'000'000);
    const PlacedObject place{nullptr, QRectF(0, 0, 640, 480), SMIL_REGION_FIT_FILL, false};
    EXPECT_EQ(pictures.find(part, place, 1).image.size(), QSize(640, 480));
}
