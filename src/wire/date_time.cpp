#include "wire/date_time.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <utility>

namespace {

constexpr quint32 Never = 0;

// The second of the last tzset() without TZ in the environment, and the zone that it set.
std::atomic<quint32> secondOfLastCall = Never;
std::atomic<quint32> zoneOfLastCall = 0;

// The C library's zone as a number. It changes when another caller runs tzset() with TZ set.
// Another thread may run tzset() meanwhile, so the texts of the names are not read. The C library
// keeps each of them at one address.
quint32 currentZone()
{
    const auto valueOf = [](auto &variable) {
        return std::atomic_ref(variable).load(std::memory_order_relaxed);
    };
    quint32 zone = quint32(valueOf(timezone)) * 2 + quint32(valueOf(daylight));
    for (char *&name : tzname)
        zone = zone * 31 + quint32(reinterpret_cast<std::uintptr_t>(valueOf(name)));
    return zone;
}

quint32 currentSecond()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return quint32(now.tv_sec) + 1;
}

bool isZoneInEnvironment()
{
    return std::getenv("TZ") != nullptr;
}

// Qt calls tzset() for every date. With TZ set that changes the C library's zone, so the cached
// second is no longer valid. getenv() costs as much as creating a text, so it is called only if
// there is a cached second.
void prepareForOthers()
{
    if (secondOfLastCall != Never && isZoneInEnvironment())
        secondOfLastCall = Never;
}

// Calls tzset(), because a handset travels. Without TZ, tzset() checks a file, which takes longer
// than decoding most headers, so it is called once a second.
void updateTimeZone()
{
    if (isZoneInEnvironment()) {
        secondOfLastCall = Never;
        tzset();
        return;
    }
    const quint32 second = currentSecond();
    if (secondOfLastCall == second && zoneOfLastCall == currentZone())
        return;
    tzset();
    zoneOfLastCall = currentZone();
    secondOfLastCall = second;
}

qint64 offsetFromUtc(quint32 seconds)
{
    if (!std::in_range<std::time_t>(seconds)) // 32-bit time_t, from 2038 on
        return QDateTime::fromSecsSinceEpoch(seconds).offsetFromUtc();
    updateTimeZone();
    const auto time = static_cast<std::time_t>(seconds);
    std::tm parts{};
    localtime_r(&time, &parts);
    return parts.tm_gmtoff;
}

} // namespace

QDateTime DateTime::now()
{
    prepareForOthers();
    return QDateTime::currentDateTime();
}

QDateTime DateTime::fromSeconds(int seconds)
{
    prepareForOthers();
    return QDateTime::fromSecsSinceEpoch(quint32(seconds));
}

int DateTime::toSeconds(const QDateTime &value)
{
    updateTimeZone();
    const QDate date = value.date();
    const QTime time = value.time();
    std::tm parts{};
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
        if (seconds == -1) // 32-bit time_t, from 2038 on; Qt counts further
            return static_cast<int>(QDateTime(date, time).toSecsSinceEpoch());
    }
    return static_cast<int>(seconds);
}

int DateTime::sinceJulianDayZero(int seconds)
{
    const auto unsignedSeconds = quint32(seconds);
    return static_cast<int>(JulianSecondsUntil1970 + unsignedSeconds
                            + offsetFromUtc(unsignedSeconds));
}
