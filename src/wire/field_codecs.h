/** @file
 * The codecs of 23 header fields; Content-Type, the 24th, has a file of its own. A field that
 * shares its shape with others is a line over that shape. Codes stand in header_fields.h.
 */
#pragma once

#include "wire/field_shapes.h"

/// Bcc: one field per recipient.
class QVL_EXPORT BccField
    : public FieldShapes::Recipients<HeaderFieldCode::Bcc, &MMS_UA_UAMsg::getBccRecipients,
                                     &MMS_UA_UAMsg::addBccRecipient>
{
};

/// Cc: one field per recipient.
class QVL_EXPORT CcField
    : public FieldShapes::Recipients<HeaderFieldCode::Cc, &MMS_UA_UAMsg::getCcRecipients,
                                     &MMS_UA_UAMsg::addCcRecipient>
{
};

/// To: one field per recipient.
class QVL_EXPORT ToField
    : public FieldShapes::Recipients<HeaderFieldCode::To, &MMS_UA_UAMsg::getToRecipients,
                                     &MMS_UA_UAMsg::addToRecipient>
{
};

/// Content-Location: where a notification's message can be fetched.
class QVL_EXPORT ContentLocationField
    : public FieldShapes::Optional<HeaderFieldCode::ContentLocation, PlainTextBinary, QString,
                                   &MMS_UA_UAMsg::getContentLocation,
                                   &MMS_UA_UAMsg::setContentLocation>
{
};

/// Message-ID.
class QVL_EXPORT MsgIDField
    : public FieldShapes::Optional<HeaderFieldCode::MessageId, PlainTextBinary, QString,
                                   &MMS_UA_UAMsg::getMessageId, &MMS_UA_UAMsg::setMessageId>
{
};

/// Transaction-Id.
class QVL_EXPORT TIDField
    : public FieldShapes::Optional<HeaderFieldCode::TransactionId, PlainTextBinary, QString,
                                   &MMS_UA_UAMsg::getTransactionId, &MMS_UA_UAMsg::setTransactionId>
{
};

/// Subject.
class QVL_EXPORT SubjectField
    : public FieldShapes::Optional<HeaderFieldCode::Subject, EncodedStringBinary, QString,
                                   &MMS_UA_UAMsg::getSubject, &MMS_UA_UAMsg::setSubject>
{
};

/// Response-Text.
class QVL_EXPORT ResponseTextField
    : public FieldShapes::Optional<HeaderFieldCode::ResponseText, EncodedStringBinary, QString,
                                   &MMS_UA_UAMsg::getResponseText, &MMS_UA_UAMsg::setResponseText>
{
};

/// Message-Size in octets; a size of 0 counts as absent.
class QVL_EXPORT MsgSizeField
    : public FieldShapes::Optional<HeaderFieldCode::MessageSize, IntegerBinary, int,
                                   &MMS_UA_UAMsg::getMessageSize, &MMS_UA_UAMsg::setMessageSize>
{
};

/// Delivery-Time.
class QVL_EXPORT DeliveryTimeField
    : public FieldShapes::Optional<HeaderFieldCode::DeliveryTime, TimeBinary, QDateTime,
                                   &MMS_UA_UAMsg::getDeliveryTime, &MMS_UA_UAMsg::setDeliveryTime>
{
};

/// Message-Type.
class QVL_EXPORT MsgTypeField
    : public FieldShapes::Octet<HeaderFieldCode::MessageType, &MMS_UA_UAMsg::getMessageType,
                                &MMS_UA_UAMsg::setMessageType>
{
};

/// Message-Class. Classes given as text are not understood.
class QVL_EXPORT MsgClassField
    : public FieldShapes::Octet<HeaderFieldCode::MessageClass, &MMS_UA_UAMsg::getMessageClass,
                                &MMS_UA_UAMsg::setMessageClass>
{
};

/// Status.
class QVL_EXPORT MsgStatusField
    : public FieldShapes::Octet<HeaderFieldCode::Status, &MMS_UA_UAMsg::getStatus,
                                &MMS_UA_UAMsg::setStatus>
{
};

/// Response-Status.
class QVL_EXPORT ResponseStatusField
    : public FieldShapes::Octet<HeaderFieldCode::ResponseStatus, &MMS_UA_UAMsg::getResponseStatus,
                                &MMS_UA_UAMsg::setResponseStatus>
{
};

/// Priority.
class QVL_EXPORT PriorityField
    : public FieldShapes::Octet<HeaderFieldCode::Priority, &MMS_UA_UAMsg::getPriority,
                                &MMS_UA_UAMsg::setPriority>
{
};

/// Delivery-Report.
class QVL_EXPORT DeliveryReportField
    : public FieldShapes::Flag<HeaderFieldCode::DeliveryReport, &MMS_UA_UAMsg::getDeliveryReport,
                               &MMS_UA_UAMsg::setDeliveryReport>
{
};

/// Read-Reply.
class QVL_EXPORT ReadReplyField
    : public FieldShapes::Flag<HeaderFieldCode::ReadReply, &MMS_UA_UAMsg::getReadReply,
                               &MMS_UA_UAMsg::setReadReply>
{
};

/// Report-Allowed.
class QVL_EXPORT ReportAllowedField
    : public FieldShapes::Flag<HeaderFieldCode::ReportAllowed, &MMS_UA_UAMsg::getReportAllowed,
                               &MMS_UA_UAMsg::setReportAllowed>
{
};

/// Sender-Visibility: Yes sets the flag, and a set flag is written as No. Kept: the composer holds
/// the flag in the sense of the writer.
class QVL_EXPORT SenderVisibilityField
    : public FieldShapes::Flag<
          HeaderFieldCode::SenderVisibility, &MMS_UA_UAMsg::getSenderVisibility,
          &MMS_UA_UAMsg::setSenderVisibility, FieldShapes::No, FieldShapes::Yes>
{
};

/// MMS-Version: a short integer, kept without its high bit.
class QVL_EXPORT VersionField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// From: an address, or the token that asks the relay to insert one. While no address was read the
/// record holds a placeholder named "NoBody" of type MMS_UTIL_Entry::Absent.
class QVL_EXPORT FromField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Date: seconds since 1970. Reading stores the moment of decoding instead, even when the seconds
/// could not be read. Kept: the message lists sort by arrival.
class QVL_EXPORT MsgDateField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Expiry. Reading stores the local seconds since 1970 plus 413405696, wrapped to 32 bits: they
/// count from a reference date that does not exist. Writing emits the stored number as a relative
/// time. The presence bit is set, and the old value kept, when the value could not be read. Kept:
/// stored messages depend on it.
class QVL_EXPORT ExpiryField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};
