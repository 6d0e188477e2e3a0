/*
 * Result codes of the multipart message: their numbers, which callers store, and their meanings.
 */
#include "multipart/multipart_result.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>

TEST(MultipartResultTest, CodesAreThePublishedNumbers)
{
    EXPECT_EQ(MultipartResult::Ok, 0);
    EXPECT_EQ(MultipartResult::NullArgument, -6);
    EXPECT_EQ(MultipartResult::OutOfMemory, -15);
    EXPECT_EQ(MultipartResult::CannotEncode, -18);
    EXPECT_EQ(MultipartResult::CannotDecode, -19);
    EXPECT_EQ(MultipartResult::UnknownCodecResult, -20);
    EXPECT_EQ(MultipartResult::InsertionRefused, -21);
    EXPECT_EQ(MultipartResult::RemovalRefused, -22);
}

TEST(MultipartResultTest, EveryCodeHasAMeaningOfItsOwn)
{
    std::set<std::string> meanings{MultipartResult::meaning(1)};
    for (const int code : {0, -6, -15, -18, -19, -20, -21, -22}) {
        SCOPED_TRACE(code);
        const std::string meaning = MultipartResult::meaning(code);
        ASSERT_FALSE(meaning.empty());
        EXPECT_NE(meaning.back(), '.');
        EXPECT_TRUE(meanings.insert(meaning).second) << meaning;
    }
}

TEST(MultipartResultTest, OtherNumbersAreUnknown)
{
    for (const int code : {1, 9, -1, -5, -7, -14, -16, -17, -23, std::numeric_limits<int>::min(),
                           std::numeric_limits<int>::max()})
        EXPECT_STREQ(MultipartResult::meaning(code), "unknown result") << code;
}
