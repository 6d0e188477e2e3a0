/*
 * Texts as octets on the wire.
 */
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QVarLengthArray>

#include <algorithm>
#include <optional>

class LinearBuffer;

namespace WireText {

/// Precedes a text whose first octet would otherwise mean something else.
inline constexpr unsigned char Quote = 127;

/// The next plain text in place, without its Quote; nothing when the data ran out.
[[nodiscard]] std::optional<QByteArrayView> read(LinearBuffer *buffer);
/// The same for a caller that has already read the first octet.
QByteArrayView readRest(LinearBuffer *buffer, unsigned char firstOctet);

/// Octets of a text. Most texts fit on the stack.
using Octets = QVarLengthArray<char, 256>;

/**
 * @p text in UTF-8, up to its first U+0000. A written text ends at its first zero, so use this for
 * everything that sizes or counts texts.
 */
Octets utf8(const QString &text);

inline bool isAscii(QByteArrayView octets)
{
    return std::all_of(octets.begin(), octets.end(),
                       [](char octet) { return static_cast<unsigned char>(octet) < 0x80; });
}

/// True for a text of ASCII characters without U+0000.
bool isPlain(QStringView text);

/// Appends a plain text: a Quote if needed, @p octets, a zero.
void append(LinearBuffer *buffer, QByteArrayView octets);
/// Octets that append() appends for @p octets.
int sizeOf(QByteArrayView octets);
/// Octets that append() appends for utf8(@p text).
int sizeOf(const QString &text);

} // namespace WireText
