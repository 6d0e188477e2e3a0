/** @file
 * The codecs of 23 header fields; Content-Type, the 24th, has a file of its own. Codes stand in
 * header_fields.h.
 */
#pragma once

#include "../base/export.h"
#include "field_base.h"

/// Bcc: one field per recipient. readField() adds a recipient, and one with a truncated address,
/// too, because the address reader never fails. writeField() goes on after an entry that cannot be
/// written, and the last entry's result counts.
class QVL_EXPORT BccField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// Cc: one field per recipient, as BccField.
class QVL_EXPORT CcField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};

/// To: one field per recipient, as BccField.
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

/// Message-Class. Classes given as text are not understood.
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

/// Sender-Visibility: Yes sets the flag, and a set flag is written as No. Kept: the composer holds
/// the flag in the sense of the writer.
class QVL_EXPORT SenderVisibilityField : public FieldBase
{
public:
    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
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
