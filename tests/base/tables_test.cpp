#include "base/tables.h"

#include <array>
#include <string_view>

#include <gtest/gtest.h>

namespace {

struct Row
{
    int number;
    std::string_view word;
};

constexpr std::array Rows{Row{1, "one"}, Row{2, "two"}, Row{2, "second two"}};
constexpr std::array Words{std::string_view("a"), std::string_view("b")};

} // namespace

TEST(Tables, ReturnTheIndexOfAWord)
{
    EXPECT_EQ(placeOf(Words, "a"), 0);
    EXPECT_EQ(placeOf(Words, "b"), 1);
}

TEST(Tables, ReturnTheRowCountForAnUnknownWord)
{
    EXPECT_EQ(placeOf(Words, "B"), 2);
    EXPECT_EQ(placeOf(Rows, "three", &Row::word), 3);
}

TEST(Tables, ReturnTheFirstRowWithAKey)
{
    EXPECT_EQ(rowOf(Rows, "one", &Row::word), &Rows[0]);
    EXPECT_EQ(rowOf(Rows, 2, &Row::number), &Rows[1]);
    EXPECT_EQ(rowOf(Words, "b"), &Words[1]);
}

TEST(Tables, ReturnNoRowForAnUnknownKey)
{
    EXPECT_EQ(rowOf(Rows, 3, &Row::number), nullptr);
    EXPECT_EQ(rowOf(Words, ""), nullptr);
}
