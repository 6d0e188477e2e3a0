/*
 * Appends for writers that drop what does not fit and continue. The array was sized beforehand, and
 * callers that limit its size check afterwards whether it is full. The result of a single append
 * therefore says nothing, and only this file ignores it.
 */
#pragma once

#include "wire/linear_buffer.h"

#include <tuple>

namespace WireAppend {

inline void octet(LinearBuffer *buffer, unsigned char octet)
{
    std::ignore = buffer->appendByte(octet);
}

/// Appends all of @p octets, or nothing when they do not fit.
inline void octets(LinearBuffer *buffer, QByteArrayView octets)
{
    const auto *data = reinterpret_cast<const unsigned char *>(octets.data());
    std::ignore = buffer->appendData(data, int(octets.size()));
}

/// Appends @p value with @p Codec, one of the primitive values. They always return
/// WireResult::Written.
template <typename Codec, typename Value>
void value(LinearBuffer *buffer, const Value &value)
{
    std::ignore = Codec::writeTo(buffer, value);
}

} // namespace WireAppend
