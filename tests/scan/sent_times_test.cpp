/*
 * The sender's Date, Expiry and Delivery-Time, absolute and relative.
 */
#include "scan/sent_times.h"

#include "support/octets.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string described(const std::optional<QvlSentTime> &time)
{
    if (!time)
        return "-";
    return (time->isRelative ? "+" : "") + std::to_string(time->seconds);
}

std::string timesOf(const QByteArray &pdu)
{
    const HeapBlock block(pdu);
    const QvlSentTimes times = qvlSentTimes(QByteArrayView(block.data(), block.size()));
    return described(times.date) + " " + described(times.expiry) + " "
        + described(times.deliveryTime);
}

struct TimesRow
{
    const char *name;
    QByteArray pdu;
    const char *times; // Date, Expiry, Delivery-Time
};

TEST(SentTimes, AreThoseOfTheSender)
{
    const std::vector<TimesRow> rows{
        {"none", "8C 84"_octets, "- - -"},
        {"no octets", ""_octets, "- - -"},
        {"a date", "85 04 40 F8 14 80"_octets, "1090000000 - -"},
        {"a date after 2038", "85 04 FF FF FF FF"_octets, "4294967295 - -"},
        {"a relative expiry", "88 05 81 03 09 3A 80"_octets, "- +604800 -"},
        {"an absolute expiry", "88 06 80 04 40 F8 14 80"_octets, "- 1090000000 -"},
        {"a relative delivery time", "87 03 81 01 3C"_octets, "- - +60"},
        {"an absolute delivery time", "87 06 80 04 40 F8 14 80"_octets, "- - 1090000000"},
        {"all, after a later field",
         "99 80 88 05 81 03 09 3A 80 87 03 81 01 3C 85 04 40 F8 14 80"_octets,
         "1090000000 +604800 +60"},
        {"zeros", "85 80 88 02 81 80 87 02 80 80"_octets, "0 +0 0"},
        {"a second date", "85 81 85 82"_octets, "2 - -"},
        {"a second date that cannot be read", "85 81 85 00"_octets, "1 - -"},
        {"an unreadable expiry", "88 02 85 80"_octets, "- - -"},
        {"a malformed field in front", "98 54 85 81"_octets, "- - -"},
        {"a truncated expiry after a date", "85 81 88 05 81 03 09"_octets, "1 - -"},
        {"in the body", "84 A3 85 81"_octets, "- - -"},
    };
    for (const TimesRow &row : rows)
        EXPECT_EQ(timesOf(row.pdu), row.times) << row.name;
}

} // namespace
