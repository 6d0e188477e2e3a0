/*
 * Decoder of MMS PDU headers.
 */
#pragma once

#include "platform/export.h"
#include "wire/linear_buffer.h"

#include <optional>

class FieldBase;
class MMS_UA_UAMsg;

/// Turns the binary header of a PDU into a header record. One object can decode any number of PDUs.
class QVL_EXPORT MMS_UA_Decoder
{
public:
    MMS_UA_Decoder();
    MMS_UA_Decoder(const MMS_UA_Decoder &) = delete;
    MMS_UA_Decoder &operator=(const MMS_UA_Decoder &) = delete;
    virtual ~MMS_UA_Decoder();

    /**
     * Decodes the header of the @p length octets at @p pdu into @p msg, up to and with
     * Content-Type.
     *
     * Returns WireResult::Read, and then msg's body describes what follows the header within the
     * caller's array, which has to outlive that use. Otherwise the code of the first failure:
     * WireResult::BadArgument for a null @p pdu or @p msg and when there is no memory,
     * WireResult::UnknownField for a field that is not well-known, WireResult::OutOfData,
     * WireResult::UnsupportedContentType. Fields decoded before a failure stay in @p msg. No field
     * is checked against another: that is for the checks of the record. @p length is only read.
     * Nothing is read outside the array.
     */
    [[nodiscard]] unsigned char decodeHeader(unsigned char *pdu, unsigned int &length,
                                             MMS_UA_UAMsg *msg);

    /**
     * A new codec for the header field @p code, owned by the caller, or null for a code outside
     * 1..24. Asking for Content-Type tells the decoder that the header ends with it.
     */
    FieldBase *selectReader(int code);

private:
    unsigned char readFields();
    unsigned char readField(int code);

    std::optional<LinearBuffer> m_buffer; ///< while a header is decoded
    MMS_UA_UAMsg *m_message = nullptr;
    bool m_headerEnded = false;
};
