/** @file
 * Texts in the charset that the sender declared, and the names of charsets.
 *
 * A charset is its MIBenum, the number that IANA assigned; 0 means that none was declared.
 */
#pragma once

#include "../base/export.h"

#include <QByteArrayView>
#include <QString>

/**
 * The text of @p octets in @p charset, without a byte-order mark and without one final zero. Zeros
 * inside stay. @p octets may be null or empty.
 *
 * Qt's converters decode the charsets that qvlCharsetName() knows; those other than Unicode and
 * ISO-8859-1 need a Qt with ICU, which has none for ISO-8859-16. In UTF-16, UCS-2 and UTF-32 a
 * byte-order mark decides on the order of the octets, whatever @p charset says; without a mark the
 * higher octet comes first, except in UTF-16LE and UTF-32LE. An unpaired surrogate of UTF-16 stays.
 *
 * Octets that do not fit their charset, or whose charset has no converter or is not declared, are
 * read as UTF-8, or as ISO-8859-1 if they are not valid UTF-8. The octets 80 to 9F of ISO-8859-1
 * are the control characters U+0080 to U+009F; only declared windows-1252 has letters there.
 *
 * Linear in the octets. Null only when there is no memory, for the text or for a converter. ICU
 * loads its tables with the first converter of a process; if there is no memory for them, the
 * converters count as missing from then on.
 */
QVL_EXPORT QString qvlDecodeText(QByteArrayView octets, int charset);

/// The preferred MIME name of @p charset, such as "UTF-8", or null for an unknown number. The name
/// exists as long as the program.
QVL_EXPORT const char *qvlCharsetName(int charset);

/// The charset with @p name, its preferred MIME name or a common alias such as "latin1"; 0 for an
/// unknown name. Ignores case, hyphens and underscores.
QVL_EXPORT int qvlCharsetOf(QByteArrayView name);
