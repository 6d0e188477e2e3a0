/** @file
 * The codes of the header fields of an MMS PDU (OMA-MMS-ENC, 7.3).
 */
#pragma once

/// Codes of the header fields: the octet on the wire without its high bit.
namespace HeaderFieldCode {
/// The codes, without gaps.
enum : unsigned char {
    Bcc = 1, ///< recipient hidden from the others
    Cc = 2, ///< recipient of a copy
    ContentLocation = 3, ///< where to fetch the message of a notification
    ContentType = 4, ///< content type of the body; ends the header
    Date = 5, ///< when the message was sent or delivered
    DeliveryReport = 6, ///< whether a delivery report is wanted
    DeliveryTime = 7, ///< when the message may be delivered
    Expiry = 8, ///< when the message expires
    From = 9, ///< sender
    MessageClass = 10, ///< personal, advertisement, informational or auto
    MessageId = 11, ///< id assigned by the relay
    MessageType = 12, ///< kind of PDU, see message_types.h
    MmsVersion = 13, ///< version of the PDU's encoding
    MessageSize = 14, ///< octets of the message of a notification
    Priority = 15, ///< low, normal or high
    ReadReply = 16, ///< whether a read report is wanted
    ReportAllowed = 17, ///< whether the recipient allows a delivery report
    ResponseStatus = 18, ///< the relay's verdict on a sent message
    ResponseText = 19, ///< the verdict in words
    SenderVisibility = 20, ///< whether recipients see the sender
    Status = 21, ///< fate of a message, in a delivery report or the answer to a notification
    Subject = 22, ///< subject
    To = 23, ///< recipient
    TransactionId = 24, ///< id shared by a request and its answer
};
} // namespace HeaderFieldCode

/// The presence bit of the header field @p code, which is 1..24.
constexpr unsigned int headerFieldMask(unsigned char code)
{
    return 1u << (code - 1);
}
