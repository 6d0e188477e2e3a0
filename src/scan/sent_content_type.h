/** @file
 * Content-Type of a message as its sender wrote it.
 */
#pragma once

#include "content_type_value.h"

/// Content-Type in the header of @p pdu; nothing when the header has none, is malformed before it,
/// or has one that cannot be read. The octets of @p pdu have to outlive the parameters. Linear in
/// the octets of the header.
QVL_EXPORT std::optional<QvlContentType> qvlSentContentType(QByteArrayView pdu);
