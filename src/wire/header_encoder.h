/*
 * Encoder of MMS PDU headers.
 */
#pragma once

#include "platform/export.h"
#include "wire/linear_buffer.h"

#include <optional>

class FieldBase;
class MMS_UA_UAMsg;

/// Turns a header record into the binary header of its message type. One object can encode any
/// number of records.
class QVL_EXPORT MMS_UA_Encoder
{
public:
    MMS_UA_Encoder();
    MMS_UA_Encoder(const MMS_UA_Encoder &) = delete;
    MMS_UA_Encoder &operator=(const MMS_UA_Encoder &) = delete;
    virtual ~MMS_UA_Encoder();

    /**
     * Encodes @p msg into a new array of exactly @p outLength octets, which the caller frees with
     * array-delete. Which fields are written, and in which order, goes by the message type: those
     * that are present, and always MMS-Version and From.
     *
     * Returns the result of the last field: WireResult::Written, or WireResult::CannotWrite for an
     * address of an unknown kind. A message type outside 128..134 gives an empty array and
     * WireResult::Written. WireResult::BadArgument, and nothing else changed, for a null argument
     * or when there is no memory.
     */
    [[nodiscard]] unsigned char encodeHeader(MMS_UA_UAMsg *msg, unsigned char **out,
                                             int *outLength);

    /// Octets that encodeHeader() writes for @p msg; 0 for null and for unknown message types.
    int sizeOfEncodedHeader(MMS_UA_UAMsg *msg);

    /**
     * Writes the fields of message type @p type, all of them even after a failure; the result is
     * that of the last one. For use from within encodeHeader(): without an output array every field
     * that is to be written gives WireResult::BadArgument.
     */
    unsigned char encodeByType(unsigned char type);

    /**
     * Writes one field. WireResult::Written for a field that is absent, WireResult::CannotWrite for
     * a code outside 1..24.
     */
    unsigned char encodeField(int code);

    /// Octets that encodeField() writes for the record of the last sizeOfEncodedHeader().
    int sizeOfField(int code);

    /// A new codec for the header field @p code, owned by the caller, or null outside 1..24.
    FieldBase *selectWriter(int code);

private:
    bool isWritten(int code) const;

    unsigned int m_fieldsPresent = 0;
    MMS_UA_UAMsg *m_message = nullptr;
    std::optional<LinearBuffer> m_buffer; ///< while a header is encoded
};
