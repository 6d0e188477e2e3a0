#include "wire/date_time.h"

#include <ctime>

namespace {

qint64 offsetFromUtc(quint32 seconds)
{
    if constexpr (sizeof(std::time_t) > sizeof seconds) {
        tzset();
        const std::time_t time = seconds;
        std::tm parts{};
        localtime_r(&time, &parts);
        return parts.tm_gmtoff;
    } else {
        return QDateTime::fromSecsSinceEpoch(seconds).offsetFromUtc();
    }
}

} // namespace

QDateTime DateTime::fromSeconds(int seconds)
{
    return QDateTime::fromSecsSinceEpoch(quint32(seconds));
}

int DateTime::toSeconds(const QDateTime &value)
{
    tzset();
    const QDate date = value.date();
    const QTime time = value.time();
    const time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    parts.tm_sec = time.second();
    parts.tm_min = time.minute();
    parts.tm_hour = time.hour();
    parts.tm_mday = date.day();
    parts.tm_mon = date.month() - 1;
    parts.tm_year = date.year() - 1900;
    parts.tm_wday = -1;
    parts.tm_yday = -1;
    parts.tm_isdst = -1;
    const std::time_t seconds = std::mktime(&parts);
    if constexpr (sizeof seconds <= sizeof(int)) {
        if (seconds == -1) // from 2038 on, where Qt still counts
            return static_cast<int>(QDateTime(date, time).toSecsSinceEpoch());
    }
    return static_cast<int>(seconds);
}

int DateTime::sinceJulianDayZero(int seconds)
{
    constexpr qint64 secondsUntil1970 = qint64(2'440'588) * 24 * 60 * 60;
    const auto unsignedSeconds = quint32(seconds);
    return static_cast<int>(secondsUntil1970 + unsignedSeconds + offsetFromUtc(unsignedSeconds));
}
