/*
 * How often the time fields read the time zone through the C library. This program counts these
 * calls of the library and of Qt, and sets the clock itself.
 */
#include "wire/codec_calls.h"
#include "wire/field_codecs.h"
#include "wire/time_zone.h"

#include <gtest/gtest.h>

#include <tuple>

#include <dlfcn.h>

namespace {

int zoneReads = 0;
std::time_t clockSeconds = 1'000'000;

template <typename Function>
Function *next(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {
Q_DECL_EXPORT void tzset() noexcept
{
    ++zoneReads;
    next<void()>("tzset")();
}

Q_DECL_EXPORT std::tm *localtime(const std::time_t *time) noexcept
{
    ++zoneReads;
    return next<std::tm *(const std::time_t *)>("localtime")(time);
}

Q_DECL_EXPORT std::time_t mktime(std::tm *parts) noexcept
{
    ++zoneReads;
    return next<std::time_t(std::tm *)>("mktime")(parts);
}

// Stops every clock.
Q_DECL_EXPORT int clock_gettime(clockid_t, timespec *time) noexcept
{
    *time = {clockSeconds, 0};
    return 0;
}
}

namespace {

constexpr int EpochExpiry = 413405696; // in UTC
constexpr int HoursOfShanghai = 8 * 60 * 60;

int expiryOfEpoch()
{
    MMS_UA_UAMsg msg;
    EXPECT_EQ(readField(makeField<ExpiryField>, "02 80 80"_octets, msg).result, WireResult::Read);
    return msg.getExpiry();
}

int zoneReadsOf(MakeField make, const QByteArray &octets)
{
    const int before = zoneReads;
    MMS_UA_UAMsg msg;
    EXPECT_EQ(readField(make, octets, msg).result, WireResult::Read);
    return zoneReads - before;
}

int zoneReadsOfExpiry()
{
    return zoneReadsOf(makeField<ExpiryField>, "02 80 80"_octets);
}

int zoneReadsOfDate()
{
    return zoneReadsOf(makeField<MsgDateField>, "04 3B 9A CA 00"_octets);
}

int zoneReadsOfDeliveryTime()
{
    return zoneReadsOf(makeField<DeliveryTimeField>, "06 80 04 3B 9A CA 00"_octets);
}

} // namespace

class WithoutZone : public testing::Test
{
protected:
    // For its first date, Qt determines the range of the C library's time.
    static void SetUpTestSuite() { std::ignore = zoneReadsOfDate(); }

    WithoutZone()
    {
        qunsetenv("TZ");
        ++clockSeconds; // so that tests do not depend on one another
    }

    ~WithoutZone() override
    {
        if (m_wasSet)
            qputenv("TZ", m_before);
    }

    static void setZone() { qputenv("TZ", TimeZone::Shanghai); }
    static void unsetZone() { qunsetenv("TZ"); }

private:
    bool m_wasSet = qEnvironmentVariableIsSet("TZ");
    QByteArray m_before = qgetenv("TZ");
};

TEST_F(WithoutZone, ExpiryReadsTheZoneOnceASecond)
{
    EXPECT_EQ(zoneReadsOfExpiry(), 1);
    EXPECT_EQ(zoneReadsOfExpiry(), 0);
    EXPECT_EQ(zoneReadsOfExpiry(), 0);
    ++clockSeconds;
    EXPECT_EQ(zoneReadsOfExpiry(), 1);
    EXPECT_EQ(zoneReadsOfExpiry(), 0);
}

TEST_F(WithoutZone, DateReadsTheZoneOnce)
{
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(zoneReadsOfDate(), 1);
        EXPECT_EQ(zoneReadsOfDeliveryTime(), 1);
    }
}

TEST_F(WithoutZone, ExpiryAfterADateDoesNotReadTheZone)
{
    EXPECT_EQ(zoneReadsOfExpiry(), 1);
    EXPECT_EQ(zoneReadsOfDate(), 1);
    EXPECT_EQ(zoneReadsOfExpiry(), 0);
}

TEST_F(WithoutZone, WritingADateReadsTheZoneOnce)
{
    MMS_UA_UAMsg msg;
    msg.setDate(QDateTime(QDate(2001, 9, 9), QTime(1, 46, 40)));
    std::ignore = zoneReadsOfExpiry();
    const int before = zoneReads;
    EXPECT_GT(makeField<MsgDateField>()->fieldSize(&msg), 0);
    EXPECT_EQ(zoneReads - before, 1);
}

TEST_F(WithoutZone, ZoneOfTheEnvironmentIsReadEveryTime)
{
    setZone();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(zoneReadsOfExpiry(), 1);
        EXPECT_EQ(zoneReadsOfDate(), 1);
        EXPECT_EQ(zoneReadsOfDeliveryTime(), 1);
    }
}

TEST_F(WithoutZone, ChangeTakesEffectWithTheNextField)
{
    const int without = expiryOfEpoch();
    setZone();
    EXPECT_EQ(expiryOfEpoch(), EpochExpiry + HoursOfShanghai);
    unsetZone();
    EXPECT_EQ(zoneReadsOfExpiry(), 1);
    EXPECT_EQ(expiryOfEpoch(), without);
    setZone();
    EXPECT_EQ(expiryOfEpoch(), EpochExpiry + HoursOfShanghai);
    qputenv("TZ", TimeZone::Utc);
    EXPECT_EQ(expiryOfEpoch(), EpochExpiry);
}

// Then Qt has left the other zone in the C library.
TEST_F(WithoutZone, ChangeByTheProgramTakesEffect)
{
    const int without = expiryOfEpoch();
    setZone();
    tzset();
    qunsetenv("TZ");
    EXPECT_EQ(expiryOfEpoch(), without);
}

TEST_F(WithoutZone, ChangeThatOnlyADateSawTakesEffect)
{
    for (const auto zoneReadsOfTime : {zoneReadsOfDate, zoneReadsOfDeliveryTime}) {
        const int without = expiryOfEpoch();
        setZone();
        EXPECT_EQ(zoneReadsOfTime(), 1);
        unsetZone();
        EXPECT_EQ(expiryOfEpoch(), without);
    }
}
