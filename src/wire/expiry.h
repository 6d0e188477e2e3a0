/** @file
 * The meaning of the Expiry in a decoded header.
 */
#pragma once

#include "../base/export.h"

#include <QtGlobal>

/**
 * Conversions between the Expiry of a decoded header and the seconds on the wire.
 *
 * The decoder takes the seconds on the wire as seconds since 1970, converts them to a local date
 * and stores the seconds to that date from day 0 of the Julian day count, modulo 2^32. Kept: stored
 * messages contain such numbers. An application that sets an Expiry sets the seconds themselves.
 *
 * Both operations use the time zone of the process. When clocks are set back, an hour repeats; for
 * one of the two, toSeconds() is an hour off. East of Greenwich, toSeconds() does not give the last
 * hours before 2^32 back.
 */
namespace QvlExpiry {

/// The seconds on the wire that decode to the Expiry @p stored: since 1970, or since the message
/// was sent.
QVL_EXPORT quint32 toSeconds(int stored);
/// The Expiry that decoding a header with @p seconds on the wire gives.
QVL_EXPORT int fromSeconds(quint32 seconds);
/// True when @p seconds count from the sending of the message: less than ten years are taken as
/// relative.
QVL_EXPORT bool isRelative(quint32 seconds);

} // namespace QvlExpiry
