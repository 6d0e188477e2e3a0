/*
 * The Content-Type header field, the last one of a PDU, and its value.
 */
#pragma once

#include "wire/field_base.h"

#include <QString>

/// A content type as three texts.
struct MMS_CONTENT_TYPE_T
{
    QString type; ///< main type, such as "application"
    QString subtype; ///< subtype, such as "vnd.wap.multipart.related"
    QString parameters; ///< "type=...;start=..." for a related body, else empty
};

/**
 * Codec of the Content-Type field and of its value.
 *
 * Two shapes are supported: one octet with a well-known media code, and the general form of
 * application/vnd.wap.multipart.related with its Type and Start parameters.
 */
class QVL_EXPORT ContentTypeField : public FieldBase
{
public:
    /**
     * Reads a content type value. Returns WireResult::Read, WireResult::OutOfData, or
     * WireResult::UnsupportedContentType for a general form of any other media type. When the data
     * runs out inside the parameters, type and subtype are already set.
     */
    static unsigned char readFrom(LinearBuffer *buffer, MMS_CONTENT_TYPE_T *contentType);

    /// Appends the field code and the value; returns WireResult::Written.
    static unsigned char writeTo(LinearBuffer *buffer, const MMS_CONTENT_TYPE_T &contentType);

    /// Octets of the value alone, without the field code that writeTo() appends too.
    static int sizeOf(const MMS_CONTENT_TYPE_T &contentType);

    /// The text behind the first "type=" in @p parameters, up to the next ";"; "" without one.
    static QString mprtOf(const QString &parameters);

    /// The text behind the first "start=" in @p parameters, up to the next ";"; "" without one.
    static QString startOf(const QString &parameters);

    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};
