/*
 * Dates on the wire: conversions between local date-times and 32-bit counts of seconds.
 */
#pragma once

#include <QDateTime>

namespace DateTime {

/// The local date-time of @p seconds since 1970, taken as unsigned: dates up to 2106 can be read.
QDateTime fromSeconds(int seconds);

/// Seconds since 1970 of @p value taken as local time, wrapped to 32 bits.
int toSeconds(const QDateTime &value);

/**
 * Seconds from @p from to @p to by their local dates and times of day, wrapped to 32 bits.
 *
 * An invalid date counts as day 0 of the Julian day count. Expiry depends on it: its reference date
 * does not exist, and stored messages hold the number of seconds that came of that.
 */
int secondsBetween(const QDateTime &from, const QDateTime &to);

} // namespace DateTime
