/*
 * Values that the scanners of headers, content types and parts share.
 */
#pragma once

#include "wire/linear_buffer.h"

#include <QByteArrayView>
#include <QString>

namespace WspValues {

/// integer ::= octet >= 80 | length octet *
/// Only a length of 1 to 30 octets, and a number that fits.
[[nodiscard]] bool readInteger(LinearBuffer *buffer, qint64 *number);

/// Skips a value whose first octet says how long it is. False when the data ends before it does.
[[nodiscard]] bool skip(LinearBuffer *buffer);

/// The media type with the well-known @p code; null when it is not assigned.
QString mediaType(qint64 code);

} // namespace WspValues
