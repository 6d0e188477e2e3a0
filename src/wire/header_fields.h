/*
 * The header fields of an MMS PDU (OMA-MMS-ENC, 7.3): one table for decoder, encoder and whoever
 * shows a header.
 */
#pragma once

#include "platform/export.h"

#include <span>

class FieldBase;

/// Codes of the header fields: the octet on the wire without its high bit.
namespace HeaderFieldCode {
enum : unsigned char {
    Bcc = 1,
    Cc = 2,
    ContentLocation = 3,
    ContentType = 4,
    Date = 5,
    DeliveryReport = 6,
    DeliveryTime = 7,
    Expiry = 8,
    From = 9,
    MessageClass = 10,
    MessageId = 11,
    MessageType = 12,
    MmsVersion = 13,
    MessageSize = 14,
    Priority = 15,
    ReadReply = 16,
    ReportAllowed = 17,
    ResponseStatus = 18,
    ResponseText = 19,
    SenderVisibility = 20,
    Status = 21,
    Subject = 22,
    To = 23,
    TransactionId = 24,
};
} // namespace HeaderFieldCode

/// The presence bit of the header field @p code, which is 1..24.
constexpr unsigned int headerFieldMask(unsigned char code)
{
    return 1u << (code - 1);
}

/// One header field.
struct HeaderFieldInfo
{
    unsigned char code; ///< 1..24
    const char *name; ///< as the standard spells it, such as "Message-Class"
    FieldBase *codec; ///< of the field's class, shared by all who use it
    FieldBase *(*createCodec)(); ///< makes a new codec of the field's class, owned by the caller
};

/// All 24 header fields in the order of their codes.
QVL_EXPORT std::span<const HeaderFieldInfo> headerFields();

/// The header field with @p code, or null when there is none.
QVL_EXPORT const HeaderFieldInfo *headerFieldInfo(int code);
