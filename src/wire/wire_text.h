/*
 * Texts as they go onto the wire.
 */
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QVarLengthArray>

#include <algorithm>
#include <optional>

class LinearBuffer;

namespace WireText {

/// First octet of a text whose first character would otherwise be taken for something else.
inline constexpr unsigned char Quote = 127;

/// The next plain text in place, without its Quote; nothing when the data ran out.
[[nodiscard]] std::optional<QByteArrayView> read(LinearBuffer *buffer);
/// The same for a caller that has read the first octet.
QByteArrayView readRest(LinearBuffer *buffer, unsigned char firstOctet);

/// Octets of a text; those of most texts stand on the stack.
using Octets = QVarLengthArray<char, 256>;

/**
 * @p text in UTF-8, up to its first U+0000: a text ends at its first zero when it is written, so
 * everything that is sized or counted goes by this.
 */
Octets utf8(const QString &text);

inline bool isAscii(QByteArrayView octets)
{
    return std::all_of(octets.begin(), octets.end(),
                       [](char octet) { return static_cast<unsigned char>(octet) < 0x80; });
}

/// True for a text without U+0000 that takes one octet a character in UTF-8.
bool isPlain(QStringView text);

/// Appends a plain text of these octets: a Quote where one is needed, the octets, a zero.
void append(LinearBuffer *buffer, QByteArrayView octets);
/// Octets that append() appends.
int sizeOf(QByteArrayView octets);
/// Octets that append() appends of utf8(@p text).
int sizeOf(const QString &text);

} // namespace WireText
