/*
 * How often the time fields have the C library look at the time zone. This program counts the calls
 * that do so, the library's and Qt's, and sets the clock itself.
 */
#include "wire/codec_calls.h"
#include "wire/field_codecs.h"
#include "wire/time_zone.h"

#include <gtest/gtest.h>

#include <tuple>

#include <dlfcn.h>

namespace {

int looks = 0;
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
    ++looks;
    next<void()>("tzset")();
}

Q_DECL_EXPORT std::tm *localtime(const std::time_t *time) noexcept
{
    ++looks;
    return next<std::tm *(const std::time_t *)>("localtime")(time);
}

Q_DECL_EXPORT std::time_t mktime(std::tm *parts) noexcept
{
    ++looks;
    return next<std::time_t(std::tm *)>("mktime")(parts);
}

// Every clock stands still.
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

int looksOf(MakeField make, const QByteArray &octets)
{
    const int before = looks;
    MMS_UA_UAMsg msg;
    EXPECT_EQ(readField(make, octets, msg).result, WireResult::Read);
    return looks - before;
}

int looksOfExpiry()
{
    return looksOf(makeField<ExpiryField>, "02 80 80"_octets);
}

int looksOfDate()
{
    return looksOf(makeField<MsgDateField>, "04 3B 9A CA 00"_octets);
}

int looksOfDeliveryTime()
{
    return looksOf(makeField<DeliveryTimeField>, "06 80 04 3B 9A CA 00"_octets);
}

} // namespace

class WithoutZone : public testing::Test
{
protected:
    // With its first date Qt finds out the range of the C library's time.
    static void SetUpTestSuite() { std::ignore = looksOfDate(); }

    WithoutZone()
    {
        qunsetenv("TZ");
        ++clockSeconds; // so that no test depends on the one before it
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

TEST_F(WithoutZone, AnExpiryLooksAtTheZoneOnceASecond)
{
    EXPECT_EQ(looksOfExpiry(), 1);
    EXPECT_EQ(looksOfExpiry(), 0);
    EXPECT_EQ(looksOfExpiry(), 0);
    ++clockSeconds;
    EXPECT_EQ(looksOfExpiry(), 1);
    EXPECT_EQ(looksOfExpiry(), 0);
}

TEST_F(WithoutZone, ADateLooksAtTheZoneOnce)
{
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(looksOfDate(), 1);
        EXPECT_EQ(looksOfDeliveryTime(), 1);
    }
}

TEST_F(WithoutZone, AnExpiryAfterADateLooksNoMore)
{
    EXPECT_EQ(looksOfExpiry(), 1);
    EXPECT_EQ(looksOfDate(), 1);
    EXPECT_EQ(looksOfExpiry(), 0);
}

TEST_F(WithoutZone, AWrittenDateLooksOnceForItsCalendar)
{
    MMS_UA_UAMsg msg;
    msg.setDate(QDateTime(QDate(2001, 9, 9), QTime(1, 46, 40)));
    std::ignore = looksOfExpiry();
    const int before = looks;
    EXPECT_GT(makeField<MsgDateField>()->fieldSize(&msg), 0);
    EXPECT_EQ(looks - before, 1);
}

TEST_F(WithoutZone, AZoneThatIsSetIsLookedAtEveryTime)
{
    setZone();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(looksOfExpiry(), 1);
        EXPECT_EQ(looksOfDate(), 1);
        EXPECT_EQ(looksOfDeliveryTime(), 1);
    }
}

TEST_F(WithoutZone, AChangeTakesEffectWithTheNextField)
{
    const int without = expiryOfEpoch();
    setZone();
    EXPECT_EQ(expiryOfEpoch(), EpochExpiry + HoursOfShanghai);
    unsetZone();
    EXPECT_EQ(looksOfExpiry(), 1);
    EXPECT_EQ(expiryOfEpoch(), without);
    setZone();
    EXPECT_EQ(expiryOfEpoch(), EpochExpiry + HoursOfShanghai);
    qputenv("TZ", TimeZone::Utc);
    EXPECT_EQ(expiryOfEpoch(), EpochExpiry);
}

// Qt then has left the other zone in the C library.
TEST_F(WithoutZone, AChangeThatTheProgramMadeTakesEffectToo)
{
    const int without = expiryOfEpoch();
    setZone();
    tzset();
    qunsetenv("TZ");
    EXPECT_EQ(expiryOfEpoch(), without);
}

TEST_F(WithoutZone, AChangeThatOnlyADateSawTakesEffectToo)
{
    for (const auto looksOfTime : {looksOfDate, looksOfDeliveryTime}) {
        const int without = expiryOfEpoch();
        setZone();
        EXPECT_EQ(looksOfTime(), 1);
        unsetZone();
        EXPECT_EQ(expiryOfEpoch(), without);
    }
}
