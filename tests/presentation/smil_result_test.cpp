/*
 * Result codes of the SMIL reader: their numbers, which callers store, and their meanings.
 */
#include "presentation/smil_result.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>

TEST(SmilResultTest, CodesAreThePublishedNumbers)
{
    EXPECT_EQ(SmilResult::Ok, 0);
    EXPECT_EQ(SmilResult::NotAMedia, 1);
    EXPECT_EQ(SmilResult::RegionRefused, 2);
    EXPECT_EQ(SmilResult::MetaRefused, 2);
    EXPECT_EQ(SmilResult::NotInMessage, 3);
    EXPECT_EQ(SmilResult::FileUnreadable, -1);
    EXPECT_EQ(SmilResult::NullArgument, -6);
    EXPECT_EQ(SmilResult::RootLayoutRefused, -7);
    EXPECT_EQ(SmilResult::NotWellFormed, -8);
    EXPECT_EQ(SmilResult::NotSmil, -9);
    EXPECT_EQ(SmilResult::HeadAfterBody, -10);
    EXPECT_EQ(SmilResult::SecondBody, -11);
    EXPECT_EQ(SmilResult::SecondHead, -12);
    EXPECT_EQ(SmilResult::OutOfMemory, -15);
    EXPECT_EQ(SmilResult::NestedTooDeep, -16);
}

TEST(SmilResultTest, EveryCodeHasAMeaningOfItsOwn)
{
    std::set<std::string> meanings{SmilResult::meaning(4)};
    for (const int code : {0, 1, 2, 3, -1, -6, -7, -8, -9, -10, -11, -12, -15, -16}) {
        SCOPED_TRACE(code);
        const std::string meaning = SmilResult::meaning(code);
        ASSERT_FALSE(meaning.empty());
        EXPECT_NE(meaning.back(), '.');
        EXPECT_TRUE(meanings.insert(meaning).second) << meaning;
    }
}

TEST(SmilResultTest, OtherNumbersAreUnknown)
{
    for (const int code : {4, 5, -2, -3, -4, -5, -13, -14, -17, -18, -22,
                           std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_STREQ(SmilResult::meaning(code), "unknown result") << code;
}
