/*
 * Writes PDUs of any version octet by octet, also those that the library's encoders cannot write.
 * It calls none of them, so a test compares the library with the standards (WAP-230-WSP, 8.4;
 * OMA-MMS-ENC, 7). Every function returns octets, and a PDU is their sum.
 */
#pragma once

#include "support/octets.h"

#include <QByteArray>
#include <QList>

namespace PduWriter {

/// A uintvar: 7 bits in each octet, in @p count octets if that is more than it needs.
inline QByteArray uintvar(quint64 number, int count = 1)
{
    QByteArray octets = octet(int(number & 0x7F));
    while ((number >>= 7) != 0)
        octets.prepend(char(0x80 | (number & 0x7F)));
    return octet(0x80, qMax(0, count - int(octets.size()))) + octets;
}

/// A long-integer: its length and @p count octets, the highest first.
inline QByteArray longInteger(quint64 number, int count)
{
    QByteArray octets;
    for (int i = 0; i < count; ++i, number >>= 8)
        octets.prepend(char(number & 0xFF));
    return octet(count) + octets;
}

/// An integer-value in its shortest form.
inline QByteArray integer(quint64 number)
{
    if (number < 0x80)
        return octet(0x80 | int(number));
    int count = 1;
    while (count < 8 && number >> (8 * count) != 0)
        ++count;
    return longInteger(number, count);
}

/// One octet: a token, with its high bit.
inline QByteArray token(int value)
{
    return octet(value);
}

/// @p content after its value-length in the shortest form.
inline QByteArray withLength(const QByteArray &content)
{
    return (content.size() <= 30 ? QByteArray() : octet(31)) + uintvar(quint64(content.size()))
        + content;
}

/// @p content after 1F and its length in a uintvar of at least @p count octets.
inline QByteArray withLongLength(const QByteArray &content, int count = 1)
{
    return octet(31) + uintvar(quint64(content.size()), count) + content;
}

/// @p octets and a zero.
inline QByteArray text(const QByteArray &octets)
{
    return octets + octet(0);
}

/// A text after the quote 7F, which texts need that begin with 80 to FF.
inline QByteArray quotedText(const QByteArray &octets)
{
    return octet(0x7F) + text(octets);
}

/// A text after a double quote, as Content-ID has it.
inline QByteArray quotedString(const QByteArray &octets)
{
    return octet('"') + text(octets);
}

/// A text with its charset; @p octets are in this charset and have their terminator.
inline QByteArray encodedText(int charset, const QByteArray &octets)
{
    return withLength(integer(quint64(charset)) + octets);
}

/// A date: seconds since 1970.
inline QByteArray date(quint64 seconds)
{
    return longInteger(seconds, 4);
}

inline QByteArray absoluteTime(quint64 seconds)
{
    return withLength(token(128) + date(seconds));
}

inline QByteArray relativeTime(quint64 seconds)
{
    return withLength(token(129) + longInteger(seconds, 3));
}

/// The value of From with @p address, a text with or without a charset.
inline QByteArray sender(const QByteArray &address)
{
    return withLength(token(128) + address);
}

/// The value of From that the relay shall replace.
inline QByteArray insertAddress()
{
    return withLength(token(129));
}

/// A header field, a part header or a parameter with a code, here without its high bit.
inline QByteArray field(int code, const QByteArray &value)
{
    return octet(0x80 | code) + value;
}

/// A header field, a part header or a parameter whose name is in letters. The value of a header
/// field is a text.
inline QByteArray fieldInLetters(const QByteArray &name, const QByteArray &value)
{
    return text(name) + value;
}

/// A media type in one octet; text() writes one in letters.
inline QByteArray mediaCode(int code)
{
    return octet(0x80 | code);
}

/// A content type in the general form; @p parameters are fields.
inline QByteArray generalType(const QByteArray &media, const QByteArray &parameters = {})
{
    return withLength(media + parameters);
}

/// An entry of a multipart body; @p headers are fields.
inline QByteArray part(const QByteArray &contentType, const QByteArray &headers,
                       const QByteArray &data)
{
    return uintvar(quint64(contentType.size() + headers.size())) + uintvar(quint64(data.size()))
        + contentType + headers + data;
}

/// A multipart body with its count in at least @p countOctets octets.
inline QByteArray body(const QList<QByteArray> &parts, int countOctets = 1)
{
    return uintvar(quint64(parts.size()), countOctets) + parts.join();
}

} // namespace PduWriter
