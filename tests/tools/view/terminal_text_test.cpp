/*
 * Text for a terminal: control characters are visible, and columns are aligned.
 */
#include "view/terminal_text.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace TerminalText;

namespace {

struct VisibleRow
{
    const char16_t *text;
    const char *visible;
};

const VisibleRow visibleRows[] = {
    {u"plain text", "plain text"},
    {u"Grüße 港口 ⚓ \U0001F600", "Grüße 港口 ⚓ \U0001F600"},
    {u"\x1B[2J", "\\u{1b}[2J"},
    {u"a\nb\tc\rd", "a\\u{a}b\\u{9}c\\u{d}d"},
    {u"\x7F\x9B", "\\u{7f}\\u{9b}"},
    {u"\u202Egpj.exe", "\\u{202e}gpj.exe"},
    {u"\u2028\u2029\uFEFF", "\\u{2028}\\u{2029}\\u{feff}"},
    {u"\uE000\U000E0001", "\\u{e000}\\u{e0001}"},
};

} // namespace

TEST(TerminalTextVisible, WritesInvisibleCharactersAsNumbers)
{
    for (const VisibleRow &row : visibleRows)
        EXPECT_EQ(visible(QString::fromUtf16(row.text)).toStdString(), row.visible);
}

TEST(TerminalTextVisible, WritesALoneSurrogateAsTheReplacementCharacter)
{
    EXPECT_EQ(visible(QString(QChar(0xD800))), QString(QChar(0xFFFD)));
}

TEST(TerminalTextWidth, CountsColumnsNotCharacters)
{
    EXPECT_EQ(width(QStringLiteral("abc")), 3);
    EXPECT_EQ(width(QStringLiteral("港口")), 4);
    EXPECT_EQ(width(QStringLiteral("e\u0301")), 1);
    EXPECT_EQ(width(QStringLiteral("\U0001F600")), 2);
    EXPECT_EQ(width(QString()), 0);
}

TEST(TerminalTextTable, LinesUpInAnyScript)
{
    const QStringList lines = table({{QStringLiteral("Name")}, {QStringLiteral("N"), true}},
                                    {{QStringLiteral("港口"), QStringLiteral("7")},
                                     {QStringLiteral("ab"), QStringLiteral("12")}},
                                    QStringLiteral(" "));
    const QStringList expected{QStringLiteral(" Name   N"), QStringLiteral(" 港口   7"),
                               QStringLiteral(" ab    12")};
    EXPECT_EQ(lines, expected);
}

TEST(TerminalTextTable, TruncatesLongCellsWithAnEllipsis)
{
    const QString cell(41, QChar(0x6E2F));
    const QStringList lines = table({{QStringLiteral("T")}}, {{cell}}, QString());
    EXPECT_EQ(lines[1], QString(19, QChar(0x6E2F)) + QChar(0x2026));
}

TEST(TerminalTextTable, DoesNotTruncateCellsOfTheFullWidth)
{
    const QString cell(40, QLatin1Char('x'));
    EXPECT_EQ(table({{QStringLiteral("T")}}, {{cell}}, QString())[1], cell);
}

TEST(TerminalTextEnd, IsTheWholeTextIfThatFits)
{
    EXPECT_EQ(endOf(u"/a/b"_s, 4), u"/a/b"_s);
}

TEST(TerminalTextEnd, FollowsAnEllipsis)
{
    EXPECT_EQ(endOf(u"/a/bc"_s, 4), u"…/bc"_s);
    EXPECT_EQ(endOf(u"abc"_s, 1), u"…"_s);
}

TEST(TerminalTextEnd, CountsTheColumnsOfWideCharacters)
{
    EXPECT_EQ(endOf(u"港口港"_s, 4), u"…港"_s);
    EXPECT_EQ(endOf(u"\U0001F600\U0001F600"_s, 3), u"…\U0001F600"_s);
}
