/*
 * Suggestions for mistyped words.
 */
#include "commands/nearest.h"

#include <gtest/gtest.h>

namespace {

struct NearestRow
{
    const char *word;
    const char *nearest;
};

const NearestRow nearestRows[] = {
    {"show", "show"},
    {"shew", "show"},
    {"shwo", "show"},
    {"sho", "show"},
    {"shows", "show"},
    {"extrakt", "extract"},
    {"smill", "smil"},
    {"sm", ""},
    {"swo", ""},
    {"rendr", "render"},
    {"rewrit", "rewrite"},
    {"ls", ""},
    {"s", ""},
    {"", ""},
    {"display", ""},
    {"extraction", ""},
    {"--jsno", "--json"},
};

} // namespace

TEST(Nearest, FindsTheClosestWord)
{
    const QStringList words{"show", "extract", "smil", "render", "rewrite", "--json"};
    for (const NearestRow &row : nearestRows)
        EXPECT_EQ(nearest(row.word, words).toStdString(), row.nearest) << row.word;
}

TEST(Nearest, PrefersTheFirstOfEquallyCloseWords)
{
    EXPECT_EQ(nearest("--text-file", {"--text-fine", "--text-fire"}), "--text-fine");
}
