/** @file
 * Well-known media codes: the one-octet numbers that WSP gives to content types.
 */
#pragma once

#include "../base/export.h"

#include <QString>

/// Translates between WSP well-known media codes and the texts of a content type.
class QVL_EXPORT MMS_UTIL_Common
{
public:
    /// Code that mimeTypeGetValue() gives for a media type without a well-known code.
    static constexpr unsigned char UnknownMimeType = 0xFF;

    /**
     * Puts main type and subtype of @p code, a content-type octet without its high bit, into
     * @p type and @p subtype. Both become empty, not null, when the code is not assigned, which no
     * octet with the high bit is.
     */
    static void mimeTypeGetName(unsigned char code, QString &type, QString &subtype);

    /// The code of type/subtype without regard to case, or UnknownMimeType.
    static unsigned char mimeTypeGetValue(const QString &type, const QString &subtype);
};
