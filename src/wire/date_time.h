/*
 * Dates on the wire: conversions between local date-times and 32-bit counts of seconds. A change of
 * TZ takes effect at once, a change of the system's time zone within a second.
 */
#pragma once

#include <QDateTime>

namespace DateTime {

/// Seconds from day 0 of the Julian day count to 1970-01-01.
inline constexpr qint64 JulianSecondsUntil1970 = qint64(2'440'588) * 24 * 60 * 60;

/// The current moment in local time.
QDateTime now();

/// The local date-time of @p seconds since 1970, taken as unsigned, so dates up to 2106 work.
QDateTime fromSeconds(int seconds);

/// Seconds since 1970 of @p value, taken as local time and wrapped to 32 bits.
int toSeconds(const QDateTime &value);

/**
 * Seconds from day 0 of the Julian day count to the local date and time of @p seconds since 1970,
 * wrapped to 32 bits. Expiry is stored in this form: it was meant to count from 1970, but the
 * reference date in use does not exist, and stored messages contain the result.
 */
int sinceJulianDayZero(int seconds);

} // namespace DateTime
