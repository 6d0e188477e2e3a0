/** @file
 * Decoder of MMS PDU headers.
 */
#pragma once

#include "../base/export.h"

#include <QByteArray>

class FieldBase;
class LinearBuffer;
class MMS_UA_UAMsg;

/// Turns the binary header of a PDU into a header record. One object can decode any number of PDUs
/// and keeps nothing of them.
class QVL_EXPORT MMS_UA_Decoder
{
public:
    /// A decoder for any header.
    MMS_UA_Decoder();
    MMS_UA_Decoder(const MMS_UA_Decoder &) = delete;
    MMS_UA_Decoder &operator=(const MMS_UA_Decoder &) = delete;
    /// Frees nothing of what was decoded.
    virtual ~MMS_UA_Decoder();

    /**
     * Decodes the header of a PDU up to and with Content-Type. Fields decoded before a failure stay
     * in the record. No field is checked against another: that is for the checks of the record.
     * Nothing is read outside the array. Linear in the octets of the header.
     *
     * @param pdu the octets, which stay the caller's. The body of @p msg points at those behind the
     * header, so they have to outlive its use
     * @param length count of octets; only read
     * @param msg gets the fields; use a new one for every PDU, because what it has stays
     * @retval WireResult::Read decoded; only then @p msg has a body, which may be empty
     * @retval WireResult::BadArgument @p pdu or @p msg is null, or there is no memory
     * @retval WireResult::UnknownField a field is not among the well-known ones
     * @retval WireResult::OutOfData the header is cut, or a length cannot be right
     * @retval WireResult::UnsupportedContentType the content type has no known shape
     */
    [[nodiscard]] unsigned char decodeHeader(unsigned char *pdu, unsigned int &length,
                                             MMS_UA_UAMsg *msg);

    /// The same for the octets of @p pdu, which is never detached: the body of @p msg points into
    /// them and must not be written to.
    [[nodiscard]] unsigned char decodeHeader(const QByteArray &pdu, MMS_UA_UAMsg *msg);
    /// A temporary would be gone before its body is read.
    unsigned char decodeHeader(const QByteArray &&pdu, MMS_UA_UAMsg *msg) = delete;

    /**
     * A new codec for the header field @p code, owned by the caller, or null for a code outside
     * 1..24. Only for reading single fields: decodeHeader() needs none.
     */
    FieldBase *selectReader(int code);

private:
    [[nodiscard]] unsigned char readFields(LinearBuffer *buffer, MMS_UA_UAMsg *msg);
};
