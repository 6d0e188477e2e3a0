/*
 * The size limit of outgoing messages.
 */
#include "platform/setting.h"

#include <gtest/gtest.h>

#include <limits>
#include <thread>

namespace {

// The initial value of the host, read before any test has run.
const int initialLimit = MMS_UTIL_Setting::getMaxiumMOMMSSize();

} // namespace

class MMS_UTIL_SettingTest : public testing::Test
{
protected:
    ~MMS_UTIL_SettingTest() override { MMS_UTIL_Setting::setMaxiumMOMMSSize(initialLimit); }
};

TEST_F(MMS_UTIL_SettingTest, StartsAtThreeHundredKilobytes)
{
    EXPECT_EQ(initialLimit, 300);
}

TEST_F(MMS_UTIL_SettingTest, KeepsEveryValueAsGiven)
{
    const int limits[] = {
        0, 1, -1, 100, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
    for (const int limit : limits) {
        MMS_UTIL_Setting::setMaxiumMOMMSSize(limit);
        EXPECT_EQ(MMS_UTIL_Setting::getMaxiumMOMMSSize(), limit);
    }
}

TEST_F(MMS_UTIL_SettingTest, IsSharedByAllThreads)
{
    MMS_UTIL_Setting::setMaxiumMOMMSSize(77);
    int seen = 0;
    std::thread([&] {
        seen = MMS_UTIL_Setting::getMaxiumMOMMSSize();
        MMS_UTIL_Setting::setMaxiumMOMMSSize(78);
    }).join();
    EXPECT_EQ(seen, 77);
    EXPECT_EQ(MMS_UTIL_Setting::getMaxiumMOMMSSize(), 78);
}
