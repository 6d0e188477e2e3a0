/*
 * Readers that never read the zero after the end, unlike the value codecs: each gives nothing when
 * the data ends before the value does.
 */
#pragma once

#include "wire/linear_buffer.h"
#include "wire/octets.h"

#include <QByteArrayView>

#include <algorithm>
#include <limits>
#include <optional>

namespace WireRead {

/// A cursor over @p octets, or over the first 2 GB of them.
inline LinearBuffer over(QByteArrayView octets)
{
    constexpr qsizetype longest = std::numeric_limits<int>::max() - 1; // a text ends one past it
    return LinearBuffer::forReading(reinterpret_cast<const unsigned char *>(octets.data()),
                                    int(std::min(octets.size(), longest)));
}

/// The next octet.
inline std::optional<unsigned char> octet(LinearBuffer *buffer)
{
    return buffer->hasMore() ? std::optional(buffer->readByte()) : std::nullopt;
}

/// The next octet, without moving the cursor.
inline std::optional<unsigned char> peek(LinearBuffer *buffer)
{
    const auto next = octet(buffer);
    if (next)
        buffer->rewind(1);
    return next;
}

/// A uintvar of any length. Returns the largest int for all larger numbers.
std::optional<int> uintvar(LinearBuffer *buffer);

/// The value-length whose octet @p first was read, which is at most LengthFollows.
inline std::optional<int> lengthFrom(LinearBuffer *buffer, unsigned char first)
{
    return first == WireOctet::LengthFollows ? uintvar(buffer) : first;
}

/// A value-length; nothing, and nothing read, if the next octet begins none.
std::optional<int> valueLength(LinearBuffer *buffer);

/// The octets up to the next zero, which is skipped.
inline std::optional<QByteArrayView> text(LinearBuffer *buffer)
{
    const QByteArrayView octets = buffer->readUntilZero();
    return buffer->getPosition() <= buffer->getSize() ? std::optional(octets) : std::nullopt;
}

/// All octets from the cursor on; moves the cursor to the end.
inline QByteArrayView rest(LinearBuffer *buffer)
{
    return buffer->readView(buffer->getSize() - buffer->getPosition()).value_or(QByteArrayView());
}

} // namespace WireRead
