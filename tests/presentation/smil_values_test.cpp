/*
 * Durations, times and colors: all forms of texts that phones send, mainly unreadable ones, with
 * the resulting record.
 */
#include "base/durations.h"
#include "smil/smil_parser.h"

#include "presentation/color.h"
#include "presentation/smil_time.h"
#include "support/octets.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace {

constexpr int Int32Min = std::numeric_limits<int>::min();

struct DurationRow
{
    QString text;
    std::optional<int> milliseconds; // none for an unreadable text
};

// Texts that are values for a duration and for a time alike.
const DurationRow valueRows[] = {
    // number and unit
    {"5s", 5000},
    {"0s", 0},
    {"1.5s", 1500},
    {"250ms", 250},
    {"0ms", 0},
    {"1ms", 1},
    {"2min", 120000},
    {"0.5min", 30000},
    {"1h", 3600000},
    {"0.5h", 1800000},
    {"0h", 0},
    {"0min", 0},
    {"10s", 10000},
    {"007s", 7000},
    {"0.0s", 0},
    {"12.25s", 12250},
    {"1.5ms", 1},
    {"1.999ms", 1},
    {"0.9ms", 0},
    {"100h", 360000000},
    {"596h", 2145600000},
    // no unit, another unit, another case
    {"5000", {}},
    {"0", {}},
    {"-1", {}},
    {"s", {}},
    {"ms", {}},
    {"min", {}},
    {"h", {}},
    {"5S", {}},
    {"5Ms", {}},
    {"5mS", {}},
    {"5MIN", {}},
    {"5Min", {}},
    {"1H", {}},
    {"5m", {}},
    {"5sec", {}},
    {"5secs", {}},
    {"5mins", {}},
    {"5hs", {}},
    {"5mss", {}},
    {"5ss", {}},
    {"5minmin", {}},
    {"5h30min", {}},
    {"5d", {}},
    {"s5", {}},
    {"5s5", {}},
    {"fast", {}},
    {"5,s", {}},
    {"5s,", {}},
    // signs
    {"+5s", 5000},
    {"-5s", -5000},
    {"-1ms", -1},
    {"-2ms", -2},
    {"-1.9ms", -1},
    {"-0.9ms", 0},
    {"-0s", 0},
    {"+0s", 0},
    {"-2min", -120000},
    {"-1h", -3600000},
    {"++5s", {}},
    {"--5s", {}},
    {"+-5s", {}},
    {"- 5s", {}},
    {"+s", {}},
    {"-s", {}},
    {"5-s", {}},
    {"5+s", {}},
    // white space
    {"7 s", 7000},
    {" 7s", 7000},
    {" 7 s", 7000},
    {"\t7s", 7000},
    {"\n7\ts", 7000},
    {"7  min", 420000},
    {"7 ms", 7},
    {"7 h", 25200000},
    {"7s ", {}},
    {"7s\n", {}},
    {"7ms ", {}},
    {"7m s", {}},
    {"7m in", {}},
    {"7 0s", {}},
    {"1. 5s", {}},
    {" ", {}},
    {"   ", {}},
    {" s", {}},
    {"\n", {}},
    // forms of a number
    {".5s", 500},
    {"2.s", 2000},
    {"1e3s", 1000000},
    {"1E3s", 1000000},
    {"1e+3ms", 1000},
    {"5e-1s", 500},
    {"1e0s", 1000},
    {".5e1s", 5000},
    {"-.5s", -500},
    {".s", {}},
    {"-.s", {}},
    {"1..5s", {}},
    {"1.2.3s", {}},
    {"1,5s", {}},
    {"1,000s", {}},
    {"1.000,5s", {}},
    {"1_000s", {}},
    {"1'000s", {}},
    {"e3s", {}},
    {"1es", {}},
    {"1e+s", {}},
    {"1e3.5s", {}},
    {"0x10s", {}},
    {"0b1s", {}},
    {"1fs", {}},
    {"1/2s", {}},
    {"5%s", {}},
    {"nans", {}},
    {"nanms", {}},
    {"nanmin", {}},
    {"nanh", {}},
    {"NaNs", {}},
    {"-nans", {}},
    {"nan", {}},
    {"infs", {}},
    {"infms", {}},
    {"infmin", {}},
    {"infh", {}},
    {"-infs", {}},
    {"+infs", {}},
    {"inf", {}},
    {"infinitys", {}},
    {QString::fromUtf8("٥s"), {}}, // Arabic-Indic
    {QString::fromUtf8("५s"), {}}, // Devanagari
    {QString::fromUtf8("５s"), {}}, // full width
    {QString::fromUtf8("１:０２.５"), {}},
    {QString::fromUtf8("5½s"), {}},
    {QString::fromUtf8("5ｓ"), {}},
    {QString::fromLatin1("5\0s", 3), {}},
    {QString::fromLatin1("5s\0", 3), {}},
    // single precision, one multiplication after the other
    {"0.01min", 599},
    {"0.251s", 250},
    {"0.07h", 251999},
    {"0.1s", 100},
    {"0.1min", 6000},
    {"0.001s", 1},
    {"1.1s", 1100},
    {"0.25h", 900000},
    {"16777215ms", 16777215},
    {"16777216ms", 16777216},
    {"16777217ms", 16777216},
    {"16777218ms", 16777218},
    {"16777219ms", 16777220},
    {"-16777217ms", -16777216},
    {"16777.217s", 16777216},
    // the range of an int
    {"2147483520ms", 2147483520},
    {"2147483646ms", {}},
    {"2147483647ms", {}},
    {"2147483648ms", {}},
    {"-2147483520ms", -2147483520},
    {"-2147483647ms", Int32Min},
    {"-2147483648ms", Int32Min},
    {"-2147484000ms", {}},
    {"2147483s", 2147483008},
    {"2147484s", {}},
    {"-2147484s", {}},
    {"35791min", 2147459968},
    {"35792min", {}},
    {"597h", {}},
    {"-597h", {}},
    {"4294967296ms", {}},
    {"99999999999999999999s", {}},
    {"1e10s", {}},
    {"1e38s", {}},
    {"1e38h", {}},
    {"-1e38h", {}},
    {"1e39ms", {}},
    {"1e400s", {}},
    // clock values
    {"01:02.5", 62005},
    {"01:02.50", 62050},
    {"01:02.500", 62500},
    {"01:02.05", 62005},
    {"01:02.005", 62005},
    {"00:00.0", 0},
    {"0:5.0", 5000},
    {"1:0.0", 60000},
    {"00:05.999", 5999},
    {"00:05.9999", 5999},
    {"00:05.123456", 5123},
    {"99:99.999", 6039999},
    {"00:75.0", 75000},
    {"100:00.000", 6000000},
    {"00:05", {}},
    {"00:05.", {}},
    {"00:.5", {}},
    {":05.5", {}},
    {"00:", {}},
    {":", {}},
    {".:", {}},
    {"1.5:02", {}},
    {"0.5:02.5", {}},
    {"00.5", {}},
    {"00:05.5s", {}},
    {"00:05.50s", {}},
    {"00:05.500s", 5500}, // only three characters of the fraction are looked at
    {"00:05.500 anything", 5500},
    {"00:5s", {}},
    {"00:05.1.2", {}},
    {"00:05.123.4", 5123},
    {"00:05..5", {}},
    {"00:05,5", {}},
    {"a:05.5", {}},
    {"00:b.5", {}},
    {"00:05.c", {}},
    {"00:05.12c", {}},
    {"00:0x5.5", {}},
    {"00:1e1.5", {}},
    {" 1:02.5", 62005},
    {"1 :02.5", 62005},
    {"1: 02.5", 62005},
    {"1:02 .5", 62005},
    {"1:02. 5", 62005},
    {"1:02.5 ", 62005},
    {"1:0 2.5", {}},
    {"1: .5", {}},
    {" :02.5", {}},
    {"1:02. ", {}},
    {"+1:+2.+5", 62005},
    {"-1:02.5", -57995},
    {"1:-2.5", 58005},
    {"1:02.-5", 61995},
    {"0:-5.0", -5000},
    {"1:02.--5", {}},
    {"35791:23.647", 2147483647},
    {"35791:23.648", {}},
    {"35792:00.0", {}},
    {"-35791:-23.-64", -2147483064},
    {"-35791:-24.352", Int32Min},
    {"-35791:-24.351", {}},
    {"2147483647:00.0", {}},
    {"0:2147483647.0", {}},
    {"2147483648:00.0", {}},
    {"0:99999999999.0", {}},
    {"-2147483648:-2147483648.-99", {}},
    // two and more colons
    {"1:00:00.000", {}},
    {"0:0:0.0", {}},
    {"00:01:02.5", {}},
    {":00:05.5", {}},
    {"::", {}},
    {":::", {}},
    {"0:0:0:0.0", {}},
    {"1:2:3:4:5.6", {}},
};

struct TimeRow
{
    QString text;
    MMS_COMP_SMIL_TIME_TYPE type;
    QString eventId;
    int value;
};

constexpr int Untouched = 77;

MMS_COMP_SMIL_TIME timeOf(const QString &text)
{
    MMS_COMP_SMIL_TIME time{.timeType = SMIL_TIME_NONE, .eventId = "old", .timeValue = Untouched};
    MMS_COMP_SMILParser::parseTime(text, &time);
    return time;
}

const TimeRow eventRows[] = {
    {"id(img1)(begin)", SMIL_TIME_EVENT, "img1", 0},
    {"id(img1)(end)", SMIL_TIME_EVENT, "img1", -1},
    {"id(img1)(3s)", SMIL_TIME_EVENT, "img1", 3000},
    {"id(img1)(x)", SMIL_TIME_INVALID, "img1", Untouched},
    // the words count everywhere
    {"id(a)(beginning)", SMIL_TIME_EVENT, "a", 0},
    {"id(a)(ending)", SMIL_TIME_EVENT, "a", -1},
    {"id(a)(weekend)", SMIL_TIME_EVENT, "a", -1},
    {"id(a)begin", SMIL_TIME_EVENT, "a", 0},
    {"id(a)end", SMIL_TIME_EVENT, "a", -1},
    {"id(a)(end, begin)", SMIL_TIME_EVENT, "a", 0},
    {"id(a)(3s)end", SMIL_TIME_EVENT, "a", -1},
    {"id(a)(b)(begin)", SMIL_TIME_EVENT, "a", 0},
    {"id(a)(Begin)", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)(END)", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)(b egin)", SMIL_TIME_INVALID, "a", Untouched},
    {"id(begin)(2s)", SMIL_TIME_EVENT, "begin", 2000},
    {"id(end)(2s)", SMIL_TIME_EVENT, "end", 2000},
    {"id(end)", SMIL_TIME_INVALID, "end", Untouched},
    // ids are not trimmed
    {"id()(begin)", SMIL_TIME_EVENT, "", 0},
    {"id( a )(begin)", SMIL_TIME_EVENT, " a ", 0},
    {"id(a(b)(end)", SMIL_TIME_EVENT, "a(b", -1},
    {"id(id(a)(end)", SMIL_TIME_EVENT, "id(a", -1},
    {QString::fromUtf8("id(é)(1s)"), SMIL_TIME_EVENT, QString::fromUtf8("é"), 1000},
    // offsets between any two characters
    {"id(a)(250ms)", SMIL_TIME_EVENT, "a", 250},
    {"id(a)(1:02.5)", SMIL_TIME_EVENT, "a", 62005},
    {"id(a)(-1ms)", SMIL_TIME_EVENT, "a", -1},
    {"id(a)(-5s)", SMIL_TIME_EVENT, "a", -5000},
    {"id(a)(+2s)", SMIL_TIME_EVENT, "a", 2000},
    {"id(a)( 2s)", SMIL_TIME_EVENT, "a", 2000},
    {"id(a)[2s]", SMIL_TIME_EVENT, "a", 2000},
    {"id(a)x2sx", SMIL_TIME_EVENT, "a", 2000},
    {"id(a)22s2", SMIL_TIME_EVENT, "a", 2000},
    {"id(a)(2s", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)(20ss", SMIL_TIME_EVENT, "a", 20000},
    {"id(a)2s", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)2s)", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)((2s))", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a) (2s)", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)(2s) ", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)(2s )", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)(2)", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)(nans)", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)(1:2:3.4)", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)(597h)", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)(id(b)(2s))", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)(indefinite)", SMIL_TIME_INVALID, "a", Untouched},
    // nothing left between the parentheses
    {"id(a)", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)x", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)()", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)(", SMIL_TIME_INVALID, "a", Untouched},
    {"id(a)( )", SMIL_TIME_INVALID, "a", Untouched},
    {"id()", SMIL_TIME_INVALID, "", Untouched},
    // no event: these are read as offsets
    {"ID(a)(begin)", SMIL_TIME_INVALID, "", Untouched},
    {" id(a)(begin)", SMIL_TIME_INVALID, "", Untouched},
    {"id (a)(begin)", SMIL_TIME_INVALID, "", Untouched},
    {"id", SMIL_TIME_INVALID, "", Untouched},
    {"idx(a)(2s)", SMIL_TIME_INVALID, "", Untouched},
    {"begin", SMIL_TIME_INVALID, "", Untouched},
    {"end", SMIL_TIME_INVALID, "", Untouched},
    {"a.begin+2s", SMIL_TIME_INVALID, "", Untouched},
    {"indefinite", SMIL_TIME_INVALID, "", Untouched},
    {"10", SMIL_TIME_INVALID, "", Untouched},
};

struct ColorRow
{
    QString text;
    int kind;
    QString name; // of a record that had the name "old"
    QColor color; // of a record that had the color 1, 2, 3
};

const QColor OldColor(1, 2, 3);

const ColorRow colorRows[] = {
    // the sixteen names
    {"aqua", SMIL_COLOR_NAMED, "aqua", QColor(0, 255, 255)},
    {"black", SMIL_COLOR_NAMED, "black", QColor(0, 0, 0)},
    {"blue", SMIL_COLOR_NAMED, "blue", QColor(0, 0, 255)},
    {"fuchsia", SMIL_COLOR_NAMED, "fuchsia", QColor(255, 0, 255)},
    {"gray", SMIL_COLOR_NAMED, "gray", QColor(128, 128, 128)},
    {"green", SMIL_COLOR_NAMED, "green", QColor(0, 128, 0)},
    {"lime", SMIL_COLOR_NAMED, "lime", QColor(0, 255, 0)},
    {"maroon", SMIL_COLOR_NAMED, "maroon", QColor(128, 0, 0)},
    {"navy", SMIL_COLOR_NAMED, "navy", QColor(0, 0, 128)},
    {"olive", SMIL_COLOR_NAMED, "olive", QColor(128, 128, 0)},
    {"purple", SMIL_COLOR_NAMED, "purple", QColor(128, 0, 128)},
    {"red", SMIL_COLOR_NAMED, "red", QColor(255, 0, 0)},
    {"silver", SMIL_COLOR_NAMED, "silver", QColor(192, 192, 192)},
    {"teal", SMIL_COLOR_NAMED, "teal", QColor(0, 128, 128)},
    {"white", SMIL_COLOR_NAMED, "white", QColor(255, 255, 255)},
    {"yellow", SMIL_COLOR_NAMED, "yellow", QColor(255, 255, 0)},
    {"  red ", SMIL_COLOR_NAMED, "red", QColor(255, 0, 0)},
    {"\tblue\n", SMIL_COLOR_NAMED, "blue", QColor(0, 0, 255)},
    // nothing given: only the kind changes
    {"", SMIL_COLOR_NONE, "old", OldColor},
    {QString(), SMIL_COLOR_NONE, "old", OldColor},
    {"   ", SMIL_COLOR_NONE, "old", OldColor},
    {"\t\n", SMIL_COLOR_NONE, "old", OldColor},
    // no color: name and color stay
    {"Red", SMIL_COLOR_INVALID, "old", OldColor},
    {"RED", SMIL_COLOR_INVALID, "old", OldColor},
    {"redd", SMIL_COLOR_INVALID, "old", OldColor},
    {"re", SMIL_COLOR_INVALID, "old", OldColor},
    {"r ed", SMIL_COLOR_INVALID, "old", OldColor},
    {"grey", SMIL_COLOR_INVALID, "old", OldColor},
    {"orange", SMIL_COLOR_INVALID, "old", OldColor},
    {"cyan", SMIL_COLOR_INVALID, "old", OldColor},
    {"magenta", SMIL_COLOR_INVALID, "old", OldColor},
    {"transparent", SMIL_COLOR_INVALID, "old", OldColor},
    {"ff0000", SMIL_COLOR_INVALID, "old", OldColor},
    {"0xff0000", SMIL_COLOR_INVALID, "old", OldColor},
    {"255,0,0", SMIL_COLOR_INVALID, "old", OldColor},
    {"red;", SMIL_COLOR_INVALID, "old", OldColor},
    {"red blue", SMIL_COLOR_INVALID, "old", OldColor},
    {QString::fromLatin1("red\0", 4), SMIL_COLOR_INVALID, "old", OldColor},
    // pairs of digits
    {"#ff0000", SMIL_COLOR_RGB, "", QColor(255, 0, 0)},
    {"#FF8000", SMIL_COLOR_RGB, "", QColor(255, 128, 0)},
    {"#aBcDeF", SMIL_COLOR_RGB, "", QColor(171, 205, 239)},
    {"#000000", SMIL_COLOR_RGB, "", QColor(0, 0, 0)},
    {"#ffffff", SMIL_COLOR_RGB, "", QColor(255, 255, 255)},
    {"#010203", SMIL_COLOR_RGB, "", QColor(1, 2, 3)},
    {" #0080ff\n", SMIL_COLOR_RGB, "", QColor(0, 128, 255)},
    {"#gg0000", SMIL_COLOR_INVALID, "", OldColor},
    {"#00gg00", SMIL_COLOR_INVALID, "", OldColor},
    {"#0000gg", SMIL_COLOR_INVALID, "", OldColor},
    {"#ff00 0", SMIL_COLOR_RGB, "", QColor(255, 0, 0)},
    {"# 1 2 3", SMIL_COLOR_RGB, "", QColor(1, 2, 3)},
    {"#1 2 03", SMIL_COLOR_RGB, "", QColor(1, 2, 3)},
    {"#    03", SMIL_COLOR_INVALID, "", OldColor},
    {"#0x0x0x", SMIL_COLOR_INVALID, "", OldColor},
    {"#0.0.0.", SMIL_COLOR_INVALID, "", OldColor},
    {"######3", SMIL_COLOR_INVALID, "", OldColor},
    {QString::fromUtf8("#٠٠٠٠٠٠"), SMIL_COLOR_INVALID, "", OldColor},
    // signs are part of a number
    {"#+1+2+f", SMIL_COLOR_RGB, "", QColor(1, 2, 15)},
    {"#-0-0-0", SMIL_COLOR_RGB, "", QColor(0, 0, 0)},
    {"#-1-2-3", SMIL_COLOR_INVALID, "", OldColor},
    {"#+1+2-1", SMIL_COLOR_INVALID, "", OldColor},
    {"#++++++", SMIL_COLOR_INVALID, "", OldColor},
    // single digits are not doubled
    {"#f00", SMIL_COLOR_RGB, "", QColor(15, 0, 0)},
    {"#fff", SMIL_COLOR_RGB, "", QColor(15, 15, 15)},
    {"#FFF", SMIL_COLOR_RGB, "", QColor(15, 15, 15)},
    {"#123", SMIL_COLOR_RGB, "", QColor(1, 2, 3)},
    {"#abc", SMIL_COLOR_RGB, "", QColor(10, 11, 12)},
    {"#000", SMIL_COLOR_RGB, "", QColor(0, 0, 0)},
    {"#g00", SMIL_COLOR_INVALID, "", OldColor},
    {"#0g0", SMIL_COLOR_INVALID, "", OldColor},
    {"#00g", SMIL_COLOR_INVALID, "", OldColor},
    {"#0-1", SMIL_COLOR_INVALID, "", OldColor},
    {"#1 3", SMIL_COLOR_INVALID, "", OldColor},
    {"#red", SMIL_COLOR_INVALID, "", OldColor},
    // other lengths: the name stays
    {"#", SMIL_COLOR_INVALID, "old", OldColor},
    {"#f", SMIL_COLOR_INVALID, "old", OldColor},
    {"#ff", SMIL_COLOR_INVALID, "old", OldColor},
    {"#ff00", SMIL_COLOR_INVALID, "old", OldColor},
    {"#ff000", SMIL_COLOR_INVALID, "old", OldColor},
    {"#ff00000", SMIL_COLOR_INVALID, "old", OldColor},
    {"#ffff0000", SMIL_COLOR_INVALID, "old", OldColor},
    {"#ffffff000000", SMIL_COLOR_INVALID, "old", OldColor},
    {"# ff", SMIL_COLOR_INVALID, "", OldColor}, // three characters, one of them not a digit
    {"##ff0000", SMIL_COLOR_INVALID, "old", OldColor},
    // the function never gives a color, but clears the name
    {"rgb(255,0,0)", SMIL_COLOR_INVALID, "", OldColor},
    {"rgb(255,0,0,)", SMIL_COLOR_INVALID, "", OldColor},
    {"rgb(1,2,3", SMIL_COLOR_INVALID, "", OldColor},
    {"rgb(1,2,", SMIL_COLOR_INVALID, "", OldColor},
    {"rgb(1,", SMIL_COLOR_INVALID, "", OldColor},
    {"rgb(,,,", SMIL_COLOR_INVALID, "", OldColor},
    {"rgb(1 2 3)", SMIL_COLOR_INVALID, "", OldColor},
    {"rgb(0,0,0,0)", SMIL_COLOR_INVALID, "", OldColor},
    {"rgb()", SMIL_COLOR_INVALID, "", OldColor},
    {"rgb(", SMIL_COLOR_INVALID, "", OldColor},
    {" rgb(1,2,3) ", SMIL_COLOR_INVALID, "", OldColor},
    {"rgb(999,0,0)", SMIL_COLOR_INVALID, "", OldColor},
    {"rgb(-1,0,0)", SMIL_COLOR_INVALID, "", OldColor},
    {"rgb(100%,0%,0%)", SMIL_COLOR_INVALID, "old", OldColor},
    {"rgb(1,2,3)%", SMIL_COLOR_INVALID, "old", OldColor},
    {"rgb(%", SMIL_COLOR_INVALID, "old", OldColor},
    {"rgb", SMIL_COLOR_INVALID, "old", OldColor},
    {"rgb (1,2,3)", SMIL_COLOR_INVALID, "old", OldColor},
    {"RGB(1,2,3)", SMIL_COLOR_INVALID, "old", OldColor},
    {"rgba(1,2,3,4)", SMIL_COLOR_INVALID, "old", OldColor},
};

} // namespace

TEST(SmilDuration, IsReadFromValues)
{
    for (const DurationRow &row : valueRows) {
        SCOPED_TRACE('"' + row.text.toStdString() + '"');
        EXPECT_EQ(MMS_COMP_SMILParser::parseDur(row.text),
                  row.milliseconds.value_or(QvlDuration::Default));
    }
}

TEST(SmilDuration, IsReadFromWordsAndEmptyTexts)
{
    const DurationRow rows[] = {
        {"", QvlDuration::NotGiven},
        {QString(), QvlDuration::NotGiven},
        {"indefinite", QvlDuration::Indefinite},
        {"Indefinite", QvlDuration::Default},
        {"INDEFINITE", QvlDuration::Default},
        {" indefinite", QvlDuration::Default},
        {"indefinite ", QvlDuration::Default},
        {"indefinites", QvlDuration::Default},
        {"id(a)(2s)", QvlDuration::Default},
        {"id(a)(begin)", QvlDuration::Default},
        {"media", QvlDuration::Default},
    };
    for (const DurationRow &row : rows) {
        SCOPED_TRACE('"' + row.text.toStdString() + '"');
        EXPECT_EQ(MMS_COMP_SMILParser::parseDur(row.text), row.milliseconds);
    }
}

TEST(SmilTime, ValueIsAnOffsetWithoutEvent)
{
    for (const DurationRow &row : valueRows) {
        SCOPED_TRACE('"' + row.text.toStdString() + '"');
        const MMS_COMP_SMIL_TIME time = timeOf(row.text);
        EXPECT_EQ(time.timeType, row.milliseconds ? SMIL_TIME_OFFSET : SMIL_TIME_INVALID);
        EXPECT_EQ(time.timeValue, row.milliseconds.value_or(Untouched));
        EXPECT_EQ(time.eventId, "");
    }
}

TEST(SmilTime, EmptyTextSetsTheTypeOnly)
{
    for (const QString &text : {QString(), QString("")}) {
        MMS_COMP_SMIL_TIME time{SMIL_TIME_EVENT, "old", Untouched};
        MMS_COMP_SMILParser::parseTime(text, &time);
        EXPECT_EQ(time.timeType, SMIL_TIME_NONE);
        EXPECT_EQ(time.eventId, "old");
        EXPECT_EQ(time.timeValue, Untouched);
    }
}

TEST(SmilTime, EventsAreRead)
{
    for (const TimeRow &row : eventRows) {
        SCOPED_TRACE('"' + row.text.toStdString() + '"');
        const MMS_COMP_SMIL_TIME time = timeOf(row.text);
        EXPECT_EQ(time.timeType, row.type);
        EXPECT_EQ(time.eventId, row.eventId);
        EXPECT_EQ(time.timeValue, row.value);
    }
}

TEST(SmilTime, EventWhoseIdIsNotClosedIsInvalid)
{
    for (const char *text : {"id(", "id(a", "id(a(2s", "id(img1"}) {
        SCOPED_TRACE(text);
        const MMS_COMP_SMIL_TIME time = timeOf(text);
        EXPECT_EQ(time.timeType, SMIL_TIME_INVALID);
        EXPECT_EQ(time.timeValue, Untouched);
    }
}

TEST(SmilTime, KindsHaveTheirNumbers)
{
    EXPECT_EQ(SMIL_TIME_OFFSET, 0);
    EXPECT_EQ(SMIL_TIME_EVENT, 1);
    EXPECT_EQ(SMIL_TIME_NONE, 2);
    EXPECT_EQ(SMIL_TIME_INVALID, 3);
}

TEST(SmilColor, IsReadFromTexts)
{
    for (const ColorRow &row : colorRows) {
        SCOPED_TRACE('"' + row.text.toStdString() + '"');
        MMS_COMP_COLOR color{SMIL_COLOR_NONE, "old", OldColor};
        MMS_COMP_SMILParser::parseColor(row.text, color);
        EXPECT_EQ(color.kind, row.kind);
        EXPECT_EQ(color.name, row.name);
        EXPECT_EQ(color.color.name(), row.color.name());
    }
}

TEST(SmilColor, InvalidTextSetsNoColor)
{
    for (const char *text : {"Red", "#gg0000", "#ff00", "rgb(255,0,0)", ""}) {
        SCOPED_TRACE(text);
        MMS_COMP_COLOR color;
        MMS_COMP_SMILParser::parseColor(text, color);
        EXPECT_FALSE(color.color.isValid());
        EXPECT_FALSE(color.isUsable());
    }
}

TEST(SmilColor, KindsHaveTheirNumbersAndTwoAreUsable)
{
    const std::pair<int, bool> rows[] = {{0, false}, {1, true}, {2, true}, {3, false}};
    for (const auto &[kind, usable] : rows)
        EXPECT_EQ((MMS_COMP_COLOR{kind, {}, {}}.isUsable()), usable) << kind;
    EXPECT_EQ(SMIL_COLOR_NONE, 0);
    EXPECT_EQ(SMIL_COLOR_NAMED, 1);
    EXPECT_EQ(SMIL_COLOR_RGB, 2);
    EXPECT_EQ(SMIL_COLOR_INVALID, 3);
}
