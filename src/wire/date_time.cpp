#include "wire/date_time.h"

#include <ctime>

namespace {

qint64 localSecondsSinceJulianDayZero(const QDateTime &value)
{
    constexpr qint64 secondsOfDay = 24 * 60 * 60;
    const qint64 day = value.date().isValid() ? value.date().toJulianDay() : 0;
    const qint64 second = value.time().msecsSinceStartOfDay() / 1000; // 0 for no time
    return day * secondsOfDay + second;
}

} // namespace

QDateTime DateTime::fromSeconds(int seconds)
{
    tzset();
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
    return static_cast<int>(std::mktime(&parts));
}

int DateTime::secondsBetween(const QDateTime &from, const QDateTime &to)
{
    return static_cast<int>(localSecondsSinceJulianDayZero(to)
                            - localSecondsSinceJulianDayZero(from));
}
