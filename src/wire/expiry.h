/** @file
 * What the Expiry of a decoded header means.
 */
#pragma once

#include "../base/export.h"

#include <QtGlobal>

/**
 * A decoded header does not hold the seconds of its Expiry, but the local date that they give when
 * they are counted from 1970, in seconds from a day long before and modulo 2^32. Kept: stored
 * messages have such numbers. An application that sets an Expiry sets the seconds themselves.
 *
 * Both operations use the time zone of the process. In the hour that a change of the clocks
 * repeats, the way back is an hour off for one of the two.
 */
namespace QvlExpiry {

/// The seconds on the wire, of a header that was decoded to the Expiry @p stored: since 1970, or
/// since the message was sent.
QVL_EXPORT quint32 toSeconds(int stored);
/// The Expiry that a header with @p seconds on the wire is decoded to.
QVL_EXPORT int fromSeconds(quint32 seconds);
/// True for @p seconds since the message was sent: a date within ten years of 1970 is meant so.
QVL_EXPORT bool isRelative(quint32 seconds);

} // namespace QvlExpiry
