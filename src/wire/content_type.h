/** @file
 * The Content-Type header field, the last one of a PDU, and its value.
 */
#pragma once

#include "field_base.h"

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
     * Reads a content type value.
     *
     * @param buffer positioned at the value
     * @param contentType gets the value; empty texts for an unassigned media code
     * @retval WireResult::Read the value was read
     * @retval WireResult::OutOfData data ran out; if it did so within the parameters, type and
     * subtype are set
     * @retval WireResult::UnsupportedContentType the general form of any other media type
     */
    static unsigned char readFrom(LinearBuffer *buffer, MMS_CONTENT_TYPE_T *contentType);

    /// Appends the field code and the value; returns WireResult::Written. A media type without a
    /// well-known code is written as the octet 0x7F.
    static unsigned char writeTo(LinearBuffer *buffer, const MMS_CONTENT_TYPE_T &contentType);

    /// Octets of the value alone; writeTo() also appends the field code.
    static int sizeOf(const MMS_CONTENT_TYPE_T &contentType);

    /// The text after the first "type=" in @p parameters, up to the next ";"; "" when there is
    /// none.
    static QString mprtOf(const QString &parameters);

    /// The text after the first "start=" in @p parameters, up to the next ";"; "" when there is
    /// none.
    static QString startOf(const QString &parameters);

    unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) override;
    int fieldSize(MMS_UA_UAMsg *msg) override;
};
