/*
 * Texts of header fields in their charset. charset_text.cpp implements this, too.
 */
#pragma once

#include <QByteArrayView>
#include <QString>

namespace FieldText {

/// Like qvlDecodeText(), but the text may begin with the quote 7F and ends at its first zero.
QString decode(QByteArrayView octets, int charset);

} // namespace FieldText
