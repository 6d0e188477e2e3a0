/** @file
 * The one setting that the library reads.
 */
#pragma once

#include "../base/export.h"

/// Settings of the handset's messaging application.
class QVL_EXPORT MMS_UTIL_Setting
{
public:
    /// Largest outgoing message in kilobytes (units of 1,024 octets). The host starts at 300.
    static int getMaxiumMOMMSSize();

    /// Changes the limit for the whole process. Only the host platform has this operation.
    static void setMaxiumMOMMSSize(int kilobytes);
};
