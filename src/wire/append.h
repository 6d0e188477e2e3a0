/*
 * Appending for writers, which drop what does not fit and go on. The array was sized before, and a
 * caller that limits its size checks afterwards whether it is full. So the result of a single
 * append says nothing, and this is the one place that drops it.
 */
#pragma once

#include "wire/linear_buffer.h"

#include <tuple>

namespace WireAppend {

inline void octet(LinearBuffer *buffer, unsigned char octet)
{
    std::ignore = buffer->appendByte(octet);
}

/// Appends all of @p octets or nothing.
inline void octets(LinearBuffer *buffer, QByteArrayView octets)
{
    const auto *data = reinterpret_cast<const unsigned char *>(octets.data());
    std::ignore = buffer->appendData(data, int(octets.size()));
}

/// Appends @p value as @p Codec, one of the primitive values, writes it: always with
/// WireResult::Written.
template <typename Codec, typename Value>
void value(LinearBuffer *buffer, const Value &value)
{
    std::ignore = Codec::writeTo(buffer, value);
}

} // namespace WireAppend
