/*
 * Texts as they go onto the wire.
 */
#pragma once

#include <QByteArray>
#include <QString>

namespace WireText {

/// First octet of a text whose first character would otherwise be taken for something else.
inline constexpr unsigned char Quote = 127;

/**
 * @p text in UTF-8, up to its first U+0000: a text ends at its first zero when it is written, so
 * everything that is sized or counted goes by this.
 */
QByteArray utf8(const QString &text);

/// True when the written form of @p octets begins with a Quote.
inline bool needsQuote(const QByteArray &octets)
{
    return !octets.isEmpty() && static_cast<unsigned char>(octets.front()) >= 0x80;
}

} // namespace WireText
