#include "presentation/handset.h"

#include "presentation/presentation.h"

#include <gtest/gtest.h>

TEST(Handset, HasThePublishedScreenSize)
{
    EXPECT_EQ(QvlHandset::ScreenWidth, 120);
    EXPECT_EQ(QvlHandset::ScreenHeight, 160);
}

TEST(Handset, HasARegionForTextsAboveOneForImages)
{
    EXPECT_EQ(QvlHandset::textRegion().id, "text");
    EXPECT_EQ(QvlHandset::textRegion().top, 0);
    EXPECT_EQ(QvlHandset::imageRegion().id, "image");
    EXPECT_EQ(QvlHandset::imageRegion().top, 160);
}

TEST(Handset, SetsTheRegionIdsOfAPresentation)
{
    const MMS_COMP_SMILData data(nullptr);
    EXPECT_EQ(data.getTextRegionId(), "text");
    EXPECT_EQ(data.getImgRegionId(), "image");
}
