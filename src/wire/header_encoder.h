/** @file
 * Encoder of MMS PDU headers.
 */
#pragma once

#include "../base/export.h"
#include "linear_buffer.h"

#include <QByteArray>

#include <optional>

class FieldBase;
class MMS_UA_UAMsg;

/// Converts a header record into the binary header of its message type. One object can encode any
/// number of records.
class QVL_EXPORT MMS_UA_Encoder
{
public:
    /// An encoder that has written nothing yet.
    MMS_UA_Encoder();
    MMS_UA_Encoder(const MMS_UA_Encoder &) = delete;
    MMS_UA_Encoder &operator=(const MMS_UA_Encoder &) = delete;
    /// Frees no array that encodeHeader() returned.
    virtual ~MMS_UA_Encoder();

    /**
     * Encodes a header record. The message type determines which fields are written and in which
     * order: those that are present, and always MMS-Version and From. Linear in the octets.
     *
     * @param msg the record; a message type outside 128..134 gives an empty array
     * @param out gets a new array, which the caller frees with array-delete
     * @param outLength gets the count of its octets
     * @retval WireResult::Written the header was encoded. The result is that of the last field, and
     * no message type ends with a field that can fail: check the types of the addresses beforehand
     * @retval WireResult::BadArgument an argument is null, or there is no memory; nothing changed
     */
    unsigned char encodeHeader(MMS_UA_UAMsg *msg, unsigned char **out, int *outLength);

    /// Replaces the contents of @p out with the encoded header; otherwise the same.
    [[nodiscard]] unsigned char encodeHeader(MMS_UA_UAMsg *msg, QByteArray *out);

    /// Octets that encodeHeader() writes for @p msg; 0 for null and for unknown message types.
    int sizeOfEncodedHeader(MMS_UA_UAMsg *msg);

    /**
     * Writes all fields of message type @p type, even after a failure, and returns the result of
     * the last one; WireResult::Written if there is none. For calls from within encodeHeader():
     * without an output array, every field to be written gives WireResult::BadArgument.
     */
    unsigned char encodeByType(unsigned char type);

    /**
     * Writes the field @p code; like encodeByType(), for calls from within encodeHeader(). Returns
     * WireResult::Written for an absent field, WireResult::CannotWrite for a code outside 1..24,
     * else the result of FieldBase::writeField().
     */
    unsigned char encodeField(int code);

    /// Octets that encodeField() writes for @p code. Uses the record of the last
    /// sizeOfEncodedHeader(), which must still exist; 0 before the first one and for a code outside
    /// 1..24.
    int sizeOfField(int code);

    /// Creates a codec for the header field @p code; null outside 1..24. The caller owns it.
    FieldBase *selectWriter(int code);

private:
    QVL_INTERNAL unsigned char encodeInto(unsigned char *octets, int size, unsigned char type);
    bool isWritten(int code) const;

    unsigned int m_fieldsPresent = 0;
    MMS_UA_UAMsg *m_message = nullptr;
    std::optional<LinearBuffer> m_buffer; ///< set while a header is encoded
};
