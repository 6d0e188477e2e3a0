#include "base/durations.h"

#include <limits>

#include <gtest/gtest.h>

TEST(Durations, HaveTheirPublishedNumbers)
{
    EXPECT_EQ(QvlDuration::NotGiven, -1);
    EXPECT_EQ(QvlDuration::Indefinite, -2);
    EXPECT_EQ(QvlDuration::Default, 5000);
    EXPECT_EQ(QvlDuration::Step, 500);
}

TEST(Durations, AreRoundedUpToAStep)
{
    constexpr qint64 Largest = std::numeric_limits<int>::max(); // 147 past a step
    const struct
    {
        qint64 duration;
        qint64 rounded;
    } rows[] = {{0, 0},
                {1, 500},
                {499, 500},
                {500, 500},
                {501, 1000},
                {-1, -1},
                {-499, -499},
                {-501, -501},
                {4999, 5000},
                {5000, 5000},
                {Largest, Largest + 353}};
    for (const auto &row : rows)
        EXPECT_EQ(QvlDuration::roundedUpToStep(row.duration), row.rounded) << row.duration;
}
