#include "wire/expiry.h"

#include "wire/date_time.h"

#include <QTimeZone>

quint32 QvlExpiry::toSeconds(int stored)
{
    constexpr auto storedAt1970 = quint32(DateTime::JulianSecondsUntil1970); // in UTC
    constexpr qint64 range = qint64(1) << 32;
    constexpr qint64 day = 24 * 60 * 60;
    qint64 localSeconds = quint32(stored) - storedAt1970;
    // West of Greenwich the first hours of 1970 are in 1969 by local time.
    if (localSeconds >= range - day)
        localSeconds -= range;
    const QDateTime wall = QDateTime::fromSecsSinceEpoch(localSeconds, QTimeZone::utc());
    return quint32(QDateTime(wall.date(), wall.time()).toSecsSinceEpoch());
}

int QvlExpiry::fromSeconds(quint32 seconds)
{
    return DateTime::sinceJulianDayZero(int(seconds));
}

bool QvlExpiry::isRelative(quint32 seconds)
{
    constexpr quint32 tenYears = 10 * 365 * 24 * 60 * 60;
    return seconds < tenYears;
}
