/*
 * Local time in tests: a zone that applies in one scope. Zones have the POSIX form, which needs no
 * zone files.
 */
#pragma once

#include <QByteArray>

#include <cstdlib>
#include <ctime>

class TimeZone
{
public:
    static constexpr const char *Utc = "UTC0";
    static constexpr const char *Shanghai = "CST-8";
    static constexpr const char *NewYork = "EST5EDT,M3.2.0,M11.1.0";

    explicit TimeZone(const char *zone)
        : m_wasSet(qEnvironmentVariableIsSet("TZ")), m_before(qgetenv("TZ"))
    {
        qputenv("TZ", zone);
        tzset();
    }

    ~TimeZone()
    {
        if (m_wasSet)
            qputenv("TZ", m_before);
        else
            qunsetenv("TZ");
        tzset();
    }

    TimeZone(const TimeZone &) = delete;
    TimeZone &operator=(const TimeZone &) = delete;

private:
    bool m_wasSet;
    QByteArray m_before;
};
