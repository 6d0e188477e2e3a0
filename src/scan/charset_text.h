/*
 * Texts in the charset that the sender declared.
 */
#pragma once

#include <QByteArrayView>
#include <QString>

namespace CharsetText {

/**
 * The text of @p octets, which may begin with the quote 7F and ends at its first zero or with them.
 *
 * UTF-16 and ISO-8859-1 are decoded as @p charset declares, by its MIBenum. Every other text, and
 * malformed UTF-16, is read as UTF-8, or as ISO-8859-1 if it is not valid UTF-8.
 */
QString decode(QByteArrayView octets, int charset);

} // namespace CharsetText
