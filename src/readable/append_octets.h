/*
 * Values in their octets, appended to an array.
 */
#pragma once

#include "wire/linear_buffer.h"
#include "wire/octets.h"
#include "wire/wire_text.h"

#include <QByteArray>

#include <tuple>

namespace AppendOctets {

/// Appends @p value with @p Codec, one of the primitive values.
template <typename Codec, typename Value>
void value(QByteArray *octets, const Value &value)
{
    const qsizetype start = octets->size();
    octets->append(Codec::sizeOf(value), '\0');
    LinearBuffer buffer(reinterpret_cast<unsigned char *>(octets->data() + start),
                        int(octets->size() - start));
    std::ignore = Codec::writeTo(&buffer, value); // it fits
}

/// Appends a well-known code of a field, header or parameter.
inline void code(QByteArray *octets, int code)
{
    octets->append(static_cast<char>(WireOctet::HighBit | code));
}

/// Appends @p text with its terminator, after a quote if its first octet has another meaning.
inline void text(QByteArray *octets, QByteArrayView text)
{
    const auto first = static_cast<unsigned char>(text.isEmpty() ? ' ' : text.front());
    if (first <= WireOctet::LengthFollows || first >= WireText::Quote)
        octets->append(static_cast<char>(WireText::Quote));
    octets->append(text);
    octets->append('\0');
}

} // namespace AppendOctets
