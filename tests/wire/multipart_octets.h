/*
 * Pieces of a multipart body, for tests that are not about its lengths.
 */
#pragma once

#include "support/octets.h"

/// A text with its terminator.
inline QByteArray zeroEnded(const QByteArray &text)
{
    return text + '\0';
}

/// @p length below 16,384 as a uintvar.
inline QByteArray uintvar(qsizetype length)
{
    const int value = int(length);
    return value < 0x80 ? octet(value) : octet(value >> 7 | 0x80) + octet(value & 0x7F);
}

/// An entry with correct lengths. @p headers begin with the content type.
inline QByteArray entryOf(const QByteArray &headers, const QByteArray &data = {})
{
    return uintvar(headers.size()) + uintvar(data.size()) + headers + data;
}
