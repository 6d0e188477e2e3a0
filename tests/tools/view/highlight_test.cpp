/*
 * Which lines of a shown message are highlighted, and how.
 */
#include "view/highlight.h"

#include <gtest/gtest.h>

namespace {

struct HighlightRow
{
    const char *line;
    const char *highlighted;
};

const HighlightRow highlightRows[] = {
    {"a.mms: m-send-req (128), 7 octets", "\x1B[1ma.mms: m-send-req (128), 7 octets\x1B[0m"},
    {"  To                 1 (phone)", "  To                 1 (phone)"},
    {"  Checks             version ok", "  \x1B[1mChecks\x1B[0m             version ok"},
    {"  Checks             version FAILED, order ok",
     "  \x1B[1;31mChecks             version FAILED, order ok\x1B[0m"},
    {"  Subject            Checks FAILED", "  Subject            Checks FAILED"},
    {"  Subject            REFUSED", "  Subject            REFUSED"},
    {"  Changes            1 left out", "  \x1B[1mChanges\x1B[0m            1 left out"},
    {"  \"REFUSED\"          body", "  \"REFUSED\"          body"},
    {"  Body               none", "  \x1B[1mBody\x1B[0m               none"},
    {"    #  Content type  Octets", "    \x1B[2m#  Content type  Octets\x1B[0m"},
    {"     #  Content type  Octets", "     \x1B[2m#  Content type  Octets\x1B[0m"},
    {"    0  text/plain        12", "    0  text/plain        12"},
    {"  Presentation       1 slide", "  \x1B[1mPresentation\x1B[0m       1 slide"},
    {"    slide 12: 5000 ms", "    \x1B[1mslide 12:\x1B[0m 5000 ms"},
    {"      Media  Source  Region", "      \x1B[2mMedia  Source  Region\x1B[0m"},
    {"  REFUSED            why", "  \x1B[1;31mREFUSED            why\x1B[0m"},
    {"", ""},
};

} // namespace

TEST(Highlighted, HighlightsTitlesAndRefusals)
{
    for (const HighlightRow &row : highlightRows)
        EXPECT_EQ(highlighted(row.line).toStdString(), row.highlighted);
}

TEST(Highlighted, DoesNotChangeTheLines)
{
    EXPECT_EQ(highlighted("  To  1\n\n  Body  none\n").toStdString(),
              "  To  1\n\n  \x1B[1mBody\x1B[0m  none\n");
}
