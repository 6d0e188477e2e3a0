/*
 * The Expiry of a decoded header. The expected numbers were calculated by hand: the Julian day of
 * the local date times 86,400, plus the seconds of the day, modulo 2^32 and as a signed number.
 */
#include "wire/expiry.h"

#include "wire/codec_calls.h"
#include "wire/field_codecs.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

// The zone of the process during a test.
class Zone
{
public:
    explicit Zone(const char *name) { qputenv("TZ", name); }
    Zone(const Zone &) = delete;
    Zone &operator=(const Zone &) = delete;
    ~Zone() { m_before.isNull() ? qunsetenv("TZ") : qputenv("TZ", m_before); }

private:
    const QByteArray m_before = qgetenv("TZ");
};

struct Row
{
    const char *zone;
    quint32 seconds;
    int stored;
};

constexpr Row rows[] = {
    {"UTC", 0, 413405696}, // day 2,440,588
    {"UTC", 604800, 414010496}, // a week
    {"CET-1", 0, 413409296},
    {"EST5", 0, 413387696}, // on the last day of 1969
    {"EST5", 604800, 413992496},
    {"UTC", 1090000000, 1503405696},
    {"UTC", 1734077951, 2147483647}, // the last positive number
    {"UTC", 1734077952, std::numeric_limits<int>::min()},
    {"UTC", 1767225600, -2114336000}, // 2026-01-01
    {"UTC", 4294967295, 413405695},
};

} // namespace

TEST(Expiry, IsStoredAsTheLocalDate)
{
    for (const Row &row : rows) {
        SCOPED_TRACE(std::string(row.zone) + ' ' + std::to_string(row.seconds));
        const Zone zone(row.zone);
        EXPECT_EQ(QvlExpiry::fromSeconds(row.seconds), row.stored);
    }
}

TEST(Expiry, ConvertsBackToSeconds)
{
    for (const Row &row : rows) {
        if (row.seconds == std::numeric_limits<quint32>::max())
            continue; // see below
        SCOPED_TRACE(std::string(row.zone) + ' ' + std::to_string(row.seconds));
        const Zone zone(row.zone);
        EXPECT_EQ(QvlExpiry::toSeconds(row.stored), row.seconds);
    }
}

TEST(Expiry, OnTheLastDayOf32BitsCountsAsBefore1970)
{
    const Zone zone("UTC");
    EXPECT_EQ(QvlExpiry::toSeconds(413405695), quint32(-1));
}

TEST(Expiry, EqualsTheStoredValueOfTheField)
{
    const Zone zone("CET-1");
    MMS_UA_UAMsg header;
    ASSERT_EQ(readField(makeField<ExpiryField>, "05 81 03 09 3A 80"_octets, header).result,
              WireResult::Read);
    EXPECT_EQ(QvlExpiry::toSeconds(header.getExpiry()), 604800U);
}

TEST(Expiry, WithinTenYearsOf1970IsRelative)
{
    EXPECT_TRUE(QvlExpiry::isRelative(0));
    EXPECT_TRUE(QvlExpiry::isRelative(315359999));
    EXPECT_FALSE(QvlExpiry::isRelative(315360000));
}
