/** @file
 * Well-known media codes: one-octet numbers of content types in WSP.
 */
#pragma once

#include "../base/export.h"

#include <QString>

/// Translates between WSP well-known media codes and the texts of a content type.
class QVL_EXPORT MMS_UTIL_Common
{
public:
    /// Code that mimeTypeGetValue() returns for a media type without a well-known code.
    static constexpr unsigned char UnknownMimeType = 0xFF;

    /**
     * Stores main type and subtype of @p code, a content-type octet without its high bit, in
     * @p type and @p subtype. Both become empty, not null, for an unassigned code. An octet with
     * the high bit is never assigned.
     */
    static void mimeTypeGetName(unsigned char code, QString &type, QString &subtype);

    /// The code of type/subtype, ignoring case, or UnknownMimeType.
    static unsigned char mimeTypeGetValue(const QString &type, const QString &subtype);
};
