/*
 * Reading the values of the options of `qvlmms compose`.
 */
#include "compose/values.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

using namespace ComposeValues;

namespace {

struct AddressRow
{
    const char *text;
    std::optional<int> type;
};

struct TextRow
{
    const char16_t *text;
    bool isLine;
    bool isName;
};

struct NumberRow
{
    const char *text;
    std::optional<int> number;
};

struct DateRow
{
    const char *text;
    std::optional<qint64> seconds;
};

struct ColorRow
{
    const char *text;
    const char *rgb; ///< null for no color
};

struct LocationRow
{
    const char *fileName;
    const char *location;
};

} // namespace

TEST(ComposeValues, AcceptsPhoneNumbersAndMailAddresses)
{
    const AddressRow rows[] = {
        {"+4915112345678", MMS_UTIL_Entry::Plmn},
        {"22000", MMS_UTIL_Entry::Plmn},
        {"anna@example.org", MMS_UTIL_Entry::Email},
        {"ünï@example.org", MMS_UTIL_Entry::Email},
        {"", std::nullopt},
        {"+", std::nullopt},
        {"+49 151", std::nullopt},
        {"49+151", std::nullopt},
        {"22000\n", std::nullopt},
        {"٣٤", std::nullopt},
        {"10.0.0.1", std::nullopt},
        {"anna", std::nullopt},
        {"@example.org", std::nullopt},
        {"anna@", std::nullopt},
        {"a@b@c", std::nullopt},
        {"Anna <anna@example.org>", std::nullopt},
        {"anna@example.org\n", std::nullopt},
    };
    for (const AddressRow &row : rows) {
        SCOPED_TRACE(row.text);
        const auto entry = address(QString::fromUtf8(row.text));
        ASSERT_EQ(entry.has_value(), row.type.has_value());
        if (!entry)
            continue;
        EXPECT_EQ(entry->getType(), *row.type);
        EXPECT_EQ(entry->getAddress(), QString::fromUtf8(row.text));
    }
}

TEST(ComposeValues, ChecksTheCharactersOfLinesAndNames)
{
    const TextRow rows[] = {
        {u"", true, true},
        {u"Grüße 港口 ⚓ 🌊", true, true},
        {u"\u200E\u200F\u061C\u200D\uFEFF", true, true},
        {u"a\nb", false, false},
        {u"a\tb", false, false},
        {u"\u007F", false, false},
        {u"\u0085", false, false},
        {u"\u009F\u00A0", false, false},
        {u"\u00A0", true, true},
        {u"\u2028", false, false},
        {u"\u2029", false, false},
        {u"\uFFFD", false, false},
        {u"\u202A", true, false},
        {u"\u202B", true, false},
        {u"\u202C", true, false},
        {u"\u202D", true, false},
        {u"a\u202Egpj.exe", true, false},
        {u"\u202F", true, true},
        {u"\u2065", true, true},
        {u"\u2066", true, false},
        {u"\u2067", true, false},
        {u"\u2068", true, false},
        {u"\u2069", true, false},
        {u"\u206A", true, true},
    };
    for (const TextRow &row : rows) {
        const QString text = QString::fromUtf16(row.text);
        SCOPED_TRACE(text.toStdString());
        EXPECT_EQ(isLine(text), row.isLine);
        EXPECT_EQ(isName(text), row.isName);
    }
    const QString loneSurrogate(QChar(0xD83C));
    EXPECT_FALSE(isLine(loneSurrogate));
    EXPECT_FALSE(isName(loneSurrogate));
}

TEST(ComposeValues, ConvertsAnExpiryToSeconds)
{
    const NumberRow rows[] = {
        {"7d", 604800},
        {"12h", 43200},
        {"30m", 1800},
        {"3600s", 3600},
        {"90", 90},
        {"1", 1},
        {"2147483647", 2147483647},
        {"2147483648", std::nullopt},
        {"24856d", std::nullopt},
        {"9999999999d", std::nullopt},
        {"99999999999999999999", std::nullopt},
        {"0", std::nullopt},
        {"0d", std::nullopt},
        {"-1", std::nullopt},
        {"1.5h", std::nullopt},
        {"1w", std::nullopt},
        {"d", std::nullopt},
        {"", std::nullopt},
        {"1 d", std::nullopt},
        {"1d\n", std::nullopt},
    };
    for (const NumberRow &row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(seconds(QString::fromUtf8(row.text)), row.number);
    }
}

TEST(ComposeValues, ConvertsADurationToMilliseconds)
{
    const NumberRow rows[] = {
        {"5s", 5000},
        {"2500ms", 2500},
        {"2.5", 2500},
        {"7", 7000},
        {"0.001", 1},
        {"2min", 120000},
        {"1:02.500", 62500},
        {"0", std::nullopt},
        {"0s", std::nullopt},
        {"0.0001", std::nullopt},
        {"-1s", std::nullopt},
        {"-1", std::nullopt},
        {"", std::nullopt},
        {"soon", std::nullopt},
        {"indefinite", std::nullopt},
        {"id(x)(5s)", std::nullopt},
        {"id(x)(begin)", std::nullopt},
        {"inf", std::nullopt},
        {"nan", std::nullopt},
        {"2147483648ms", std::nullopt},
        {"1e300", std::nullopt},
        {"5 apples", std::nullopt},
    };
    for (const NumberRow &row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(milliseconds(QString::fromUtf8(row.text)), row.number);
    }
}

TEST(ComposeValues, ReadsDatesThatTheWireFormatCanRepresent)
{
    setenv("TZ", "UTC-2", 1); // two hours ahead of UTC
    tzset();
    const DateRow rows[] = {
        {"2026-05-01T12:00:00Z", 1777636800},
        {"2026-05-01T12:00:00+02:00", 1777629600},
        {"2026-05-01T12:00:00", 1777629600},
        {"1970-01-01T00:00:00Z", 0},
        {"1969-12-31T23:59:59Z", std::nullopt},
        {"2038-01-19T03:14:07Z", 2147483647},
        {"2038-01-19T03:14:08Z", std::nullopt},
        {"2026-02-30T12:00:00Z", std::nullopt},
        {"today", std::nullopt},
        {"", std::nullopt},
    };
    for (const DateRow &row : rows) {
        SCOPED_TRACE(row.text);
        const auto time = dateTime(QString::fromUtf8(row.text));
        ASSERT_EQ(time.has_value(), row.seconds.has_value());
        if (!time)
            continue;
        EXPECT_EQ(time->toSecsSinceEpoch(), *row.seconds);
        EXPECT_EQ(time->timeSpec(), Qt::LocalTime);
    }
}

TEST(ComposeValues, AcceptsSixteenColorNamesAndSixDigits)
{
    const ColorRow rows[] = {
        {"aqua", "#00ffff"},    {"black", "#000000"},   {"blue", "#0000ff"},
        {"fuchsia", "#ff00ff"}, {"gray", "#808080"},    {"green", "#008000"},
        {"lime", "#00ff00"},    {"maroon", "#800000"},  {"navy", "#000080"},
        {"olive", "#808000"},   {"purple", "#800080"},  {"red", "#ff0000"},
        {"silver", "#c0c0c0"},  {"teal", "#008080"},    {"white", "#ffffff"},
        {"yellow", "#ffff00"},  {"#12aBcD", "#12abcd"}, {"#fff", nullptr},
        {"#+1+2+3", nullptr},   {"123456", nullptr},    {"Navy", nullptr},
        {"beige", nullptr},     {"", nullptr},          {"rgb(1,2,3)", nullptr},
    };
    for (const ColorRow &row : rows) {
        SCOPED_TRACE(row.text);
        const auto found = color(QString::fromUtf8(row.text));
        ASSERT_EQ(found.has_value(), row.rgb != nullptr);
        if (found) {
            EXPECT_EQ(found->color.name(), QLatin1String(row.rgb));
        }
    }
}

TEST(ComposeValues, RemovesMarkupFromLocations)
{
    const LocationRow rows[] = {
        {"/home/anna/beach.jpg", "beach.jpg"}, {"a&b.jpg", "a_b.jpg"},
        {"<\"x\">.jpg", "__x__.jpg"},          {"a&&b.jpg", "a__b.jpg"},
        {" blank .jpg ", "blank .jpg"},        {"ünï港口.jpg", "ünï港口.jpg"},
        {"\xF0\x9F\x8C\x8A.jpg", "_.jpg"},     {"it's 100%.jpg", "it's 100%.jpg"},
        {"\xEF\xBF\xBF.jpg", "_.jpg"},         {".hidden", ".hidden"},
    };
    for (const LocationRow &row : rows) {
        SCOPED_TRACE(row.fileName);
        EXPECT_EQ(locationFor(QString::fromUtf8(row.fileName)), QString::fromUtf8(row.location));
    }
}
