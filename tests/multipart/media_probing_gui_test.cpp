/*
 * The media probe of pictures in a program with a GUI, which decodes them as such programs do. This
 * is a separate program, because an application can be created only once.
 */
#include "multipart/pictures.h"
#include "support/fake_player_engine.h"

#include <QPixmap>

#include <gtest/gtest.h>

TEST(MediaProbingWithGui, PixmapsCanBeCreated)
{
    QPixmap pixmap;
    EXPECT_TRUE(pixmap.loadFromData(Pictures[0].octets));
}

TEST(MediaProbingWithGui, PictureIsSupportedWhenItDecodes)
{
    FakePlayerEngine::reset();
    expectPicturesProbed();
    EXPECT_EQ(FakePlayerEngine::record.created, 0);
}

TEST(MediaProbingWithGui, PictureIsProbedAnewWhenItsOctetsChange)
{
    Part part = partWith({.format = "image/x", .data = "no picture"});
    EXPECT_FALSE(part.isMediaObjectSupported());
    part.setBodyData(Pictures[0].octets);
    EXPECT_TRUE(part.isMediaObjectSupported());
}
