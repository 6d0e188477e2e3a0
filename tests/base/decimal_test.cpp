/*
 * Decimal digits of whole numbers.
 */
#include "base/decimal.h"

#include <gtest/gtest.h>

#include <climits>
#include <utility>

TEST(Decimal, HasSignAndAllDigits)
{
    const std::pair<int, const char *> rows[] = {
        {0, "0"},
        {7, "7"},
        {-1, "-1"},
        {5000, "5000"},
        {INT_MAX, "2147483647"},
        {INT_MIN, "-2147483648"},
    };
    for (const auto &[number, text] : rows)
        EXPECT_EQ(QString(QvlDecimal(number).text()), text);
}
