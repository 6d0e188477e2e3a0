/*
 * Sizes as the user writes them.
 */
#include "input/sizes.h"

#include <gtest/gtest.h>

namespace {

struct SizeRow
{
    const char *text;
    std::optional<qint64> octets;
};

const SizeRow sizeRows[] = {
    {"1", 1},
    {"1000", 1000},
    {"1k", 1024},
    {"300k", 307200},
    {"64M", 67108864},
    {"1G", 1073741824},
    {"1024M", 1073741824},
    {"1073741824", 1073741824},
    {"0064M", 67108864},
    {"1073741825", {}},
    {"1025M", {}},
    {"2G", {}},
    {"9999999999G", {}},
    {"99999999999999999999", {}},
    {"", {}},
    {"0", {}},
    {"0k", {}},
    {"k", {}},
    {"-1", {}},
    {"+1", {}},
    {"1.5M", {}},
    {"1K", {}},
    {"1m", {}},
    {"1 M", {}},
    {"1MB", {}},
    {"1M\n", {}},
};

} // namespace

TEST(SizeFrom, ReadsOctetsAndUnits)
{
    for (const SizeRow &row : sizeRows)
        EXPECT_EQ(sizeFrom(QString::fromLatin1(row.text)), row.octets) << row.text;
}

TEST(SizeText, UsesTheLargestUnitThatFits)
{
    EXPECT_EQ(sizeText(1), "1");
    EXPECT_EQ(sizeText(1025), "1025");
    EXPECT_EQ(sizeText(1536), "1536");
    EXPECT_EQ(sizeText(2048), "2k");
    EXPECT_EQ(sizeText(67108864), "64M");
    EXPECT_EQ(sizeText(1073741824), "1G");
}
