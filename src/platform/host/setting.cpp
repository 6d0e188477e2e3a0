/*
 * Settings of the host: one number for the whole process, safe to use from any thread.
 */
#include "platform/setting.h"

#include <atomic>

namespace {

std::atomic<int> maximumMessageKilobytes = 300;

} // namespace

int MMS_UTIL_Setting::getMaxiumMOMMSSize()
{
    return maximumMessageKilobytes;
}

void MMS_UTIL_Setting::setMaxiumMOMMSSize(int kilobytes)
{
    maximumMessageKilobytes = kilobytes;
}
