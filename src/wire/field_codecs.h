/** @file
 * The codecs of 23 header fields. Content-Type, the 24th, has a file of its own. header_fields.h
 * lists the codes.
 */
#pragma once

#include "../base/export.h"
#include "field_base.h"

/// Bcc: one field per recipient. readField() adds a recipient even if its address is truncated,
/// because the address reader never fails. writeField() continues after an entry that cannot be
/// written and returns the result of the last entry.
class QVL_EXPORT BccField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Cc: one field per recipient, like BccField.
class QVL_EXPORT CcField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// To: one field per recipient, like BccField.
class QVL_EXPORT ToField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Content-Location: where a notification's message can be fetched.
class QVL_EXPORT ContentLocationField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Message-ID.
class QVL_EXPORT MsgIDField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Transaction-Id.
class QVL_EXPORT TIDField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Subject.
class QVL_EXPORT SubjectField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Response-Text.
class QVL_EXPORT ResponseTextField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Message-Size in octets; a size of 0 counts as absent.
class QVL_EXPORT MsgSizeField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Delivery-Time.
class QVL_EXPORT DeliveryTimeField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Message-Type.
class QVL_EXPORT MsgTypeField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Message-Class. Classes given as text are not supported.
class QVL_EXPORT MsgClassField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Status.
class QVL_EXPORT MsgStatusField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Response-Status.
class QVL_EXPORT ResponseStatusField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Priority.
class QVL_EXPORT PriorityField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Delivery-Report.
class QVL_EXPORT DeliveryReportField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Read-Reply.
class QVL_EXPORT ReadReplyField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Report-Allowed.
class QVL_EXPORT ReportAllowedField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Sender-Visibility. Reading Yes (hide) sets the flag; writing a set flag emits No (show). Kept:
/// the composer stores the flag with the writer's meaning.
class QVL_EXPORT SenderVisibilityField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// MMS-Version: a short integer, stored without its high bit.
class QVL_EXPORT VersionField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// From: an address, or the token that asks the relay to insert one. If no address was read, the
/// record holds a placeholder of type MMS_UTIL_Entry::Absent with the name "NoBody".
class QVL_EXPORT FromField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Date: seconds since 1970. Reading ignores them, even unreadable ones, and stores the moment of
/// decoding. Kept: the message lists sort by arrival.
class QVL_EXPORT MsgDateField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Expiry. Reading stores the local seconds since 1970 plus 413405696, wrapped to 32 bits: they
/// count from a reference date that does not exist. If the value cannot be read, reading keeps the
/// old value but sets the presence bit. Writing emits the stored number as a relative time. Kept:
/// stored messages depend on it. See QvlExpiry.
class QVL_EXPORT ExpiryField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};
