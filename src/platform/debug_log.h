/** @file
 * Debug output of raw octets.
 */
#pragma once

#include "../base/export.h"

/// Debug tool of the messaging system.
class QVL_EXPORT MMS_UTIL_Tool
{
public:
    /**
     * Writes @p length octets at @p data to the platform's debug log; does nothing when @p data is
     * null or @p length is below 1. The host dumps sixteen octets per message in the logging
     * category "qvl.platform.octets", which is off by default.
     */
    static void logOut(const char *data, int length);
};
