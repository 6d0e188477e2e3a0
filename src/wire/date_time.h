/*
 * Dates on the wire: conversions between local date-times and 32-bit counts of seconds. They follow
 * a change of TZ at once, and one of the system's time zone within a second.
 */
#pragma once

#include <QDateTime>

namespace DateTime {

/// This moment in local time.
QDateTime now();

/// The local date-time of @p seconds since 1970, taken as unsigned: dates up to 2106 can be read.
QDateTime fromSeconds(int seconds);

/// Seconds since 1970 of @p value taken as local time, wrapped to 32 bits.
int toSeconds(const QDateTime &value);

/**
 * The seconds from day 0 of the Julian day count to the local date and time of @p seconds since
 * 1970, wrapped to 32 bits. Expiry is stored so: it was meant to count from 1970, but from a
 * reference date that does not exist, and stored messages hold what came of that.
 */
int sinceJulianDayZero(int seconds);

} // namespace DateTime
