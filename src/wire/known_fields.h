/** @file
 * The header fields of MMS 1.0 to 1.3 (OMA-MMS-ENC, 7.3): their names and how their values look.
 *
 * The decoder reads those of MMS 1.0, see header_fields.h. The scanner finds all of them.
 */
#pragma once

#include "../base/export.h"
#include "header_values.h"

#include <span>

/// Codes of the header fields that MMS 1.1 to 1.3 added to those of HeaderFieldCode.
namespace QvlLaterFieldCode {
/// The codes, without gaps.
enum : unsigned char {
    RetrieveStatus = 25, ///< whether the relay hands over a message
    RetrieveText = 26, ///< the same in words
    ReadStatus = 27, ///< whether a message was read
    ReplyCharging = 28, ///< whether the sender pays for a reply
    ReplyChargingDeadline = 29, ///< until when the sender pays
    ReplyChargingId = 30, ///< Message-ID of the message that is replied to
    ReplyChargingSize = 31, ///< octets that the sender pays for
    PreviouslySentBy = 32, ///< who sent a forwarded message before
    PreviouslySentDate = 33, ///< when it was sent before
    Store = 34, ///< whether the mailbox shall keep the message
    MmState = 35, ///< state of a message in the mailbox
    MmFlags = 36, ///< keyword of a message in the mailbox
    StoreStatus = 37, ///< what the relay says of storing a message
    StoreStatusText = 38, ///< the same in words
    Stored = 39, ///< whether the message is in the mailbox
    Attributes = 40, ///< fields that are asked for
    Totals = 41, ///< whether the totals are asked for
    MboxTotals = 42, ///< what the mailbox holds
    Quotas = 43, ///< whether the quotas are asked for
    MboxQuotas = 44, ///< what the mailbox can hold
    MessageCount = 45, ///< messages that follow
    Content = 46, ///< content of a message in the mailbox
    Start = 47, ///< first message that is asked for
    AdditionalHeaders = 48, ///< further headers of a message in the mailbox
    DistributionIndicator = 49, ///< whether the message may be passed on
    ElementDescriptor = 50, ///< a part of the message that waits at the relay
    Limit = 51, ///< how many messages are asked for
    RecommendedRetrievalMode = 52, ///< how the message should be fetched
    RecommendedRetrievalModeText = 53, ///< why, in words
    StatusText = 54, ///< explains Status
    ApplicId = 55, ///< application that the message is for
    ReplyApplicId = 56, ///< application that a reply is for
    AuxApplicInfo = 57, ///< more for that application
    ContentClass = 58, ///< class of the content
    DrmContent = 59, ///< whether content is protected
    AdaptationAllowed = 60, ///< whether the relay may adapt the content
    ReplaceId = 61, ///< Message-ID of the message that this one replaces
    CancelId = 62, ///< Message-ID of the message to cancel
    CancelStatus = 63, ///< whether it was canceled
};
} // namespace QvlLaterFieldCode

/// Forms of header field values. QvlScannedValue says which members a form fills.
enum class QvlFieldForm : unsigned char {
    Opaque, ///< octets that are not decoded
    Token, ///< one octet
    TokenOrText, ///< one octet or a text
    Version, ///< integer: major version in bits 4 to 6, minor version in bits 0 to 3
    Integer, ///< integer
    Date, ///< integer: seconds since 1970
    Text, ///< text
    EncodedText, ///< text with or without a charset
    Address, ///< encoded text that may end in "/TYPE=PLMN" and the like
    Sender, ///< value-length, token, and an address after 128
    Time, ///< value-length, token and integer: seconds since 1970 after 128, from now after 129
    TokenAndInteger, ///< value-length, token, integer
    TokenAndText, ///< value-length, token, encoded text
    CountAndAddress, ///< value-length, count, address
    CountAndDate, ///< value-length, count, date
    Tokens, ///< one octet each, with or without a value-length
    TextAndMore, ///< value-length, text, and octets that are not decoded
    ContentType, ///< media type: code or text, in the general form with value-length and parameters
};

/// A header field that the standard knows.
struct QvlKnownField
{
    unsigned char code; ///< of HeaderFieldCode or QvlLaterFieldCode, 1..63
    const char *name; ///< as the standard spells it, without "X-Mms-"
    unsigned char version; ///< the QvlMmsVersion that introduced it
    QvlFieldForm form; ///< of its value
    std::span<const QvlFieldValue> tokens; ///< names of the value's token; may be empty
};

/// All header fields in the order of their codes.
QVL_EXPORT std::span<const QvlKnownField> qvlKnownFields();

/// The header field with @p code, a row of the table, or null when there is none.
QVL_EXPORT const QvlKnownField *qvlKnownField(int code);
