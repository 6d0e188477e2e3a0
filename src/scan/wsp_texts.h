/*
 * Texts of values that senders write in more than one form.
 */
#pragma once

#include <QByteArrayView>
#include <QString>

namespace WspTexts {

/// The text of @p value: a text, whose first octet may be 80 and above although it needs a quote
/// then, or value-length, charset and text. Null when it is neither.
QString decode(QByteArrayView value);

/// The same for a value that may begin with a double quote, which is dropped. So is a second one at
/// the end: senders that close the quotation are as common as those that follow the standard.
QString decodeQuoted(QByteArrayView value);

} // namespace WspTexts
