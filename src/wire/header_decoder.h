/** @file
 * Decoder of MMS PDU headers.
 */
#pragma once

#include "../base/export.h"

#include <QByteArray>

class FieldBase;
class LinearBuffer;
class MMS_UA_UAMsg;

/// Converts the binary header of a PDU into a header record. It has no state, so one object can
/// decode any number of PDUs.
class QVL_EXPORT MMS_UA_Decoder
{
public:
    /// Has nothing to set up.
    MMS_UA_Decoder();
    MMS_UA_Decoder(const MMS_UA_Decoder &) = delete;
    MMS_UA_Decoder &operator=(const MMS_UA_Decoder &) = delete;
    /// Frees neither the octets nor the record of a decoded PDU.
    virtual ~MMS_UA_Decoder();

    /**
     * Decodes the header of a PDU up to and including Content-Type. Never reads out of bounds.
     * Fields decoded before a failure stay in the record. Decoding does not compare fields with one
     * another; see mandatoryFldsPresentInPDU() and pduOrderCheck() of the record. Linear in the
     * octets of the header.
     *
     * @param pdu the octets; owned by the caller. The body of @p msg points at the octets after the
     * header, so keep them as long as it is used
     * @param length count of octets; not changed
     * @param msg gets the fields; pass a new one for every PDU, because decoding does not reset it
     * @retval WireResult::Read decoded; only then @p msg has a body, which may be empty
     * @retval WireResult::BadArgument @p pdu or @p msg is null, or there is no memory
     * @retval WireResult::UnknownField a field is not well-known
     * @retval WireResult::OutOfData the header is truncated, a length is impossible, or @p length
     * is larger than the largest int
     * @retval WireResult::UnsupportedContentType the content type has no known shape
     */
    unsigned char decodeHeader(unsigned char *pdu, unsigned int &length, MMS_UA_UAMsg *msg);

    /// Decodes the octets of @p pdu without copying or detaching them. The body of @p msg points
    /// into them and must not be modified.
    [[nodiscard]] unsigned char decodeHeader(const QByteArray &pdu, MMS_UA_UAMsg *msg);
    /// Deleted: the body would point into a temporary that is gone.
    unsigned char decodeHeader(const QByteArray &&pdu, MMS_UA_UAMsg *msg) = delete;

    /**
     * Creates a codec for the header field @p code; null for a code outside 1..24. The caller owns
     * it. Useful for reading single fields; decodeHeader() does not need it.
     */
    FieldBase *selectReader(int code);

private:
    [[nodiscard]] unsigned char readFields(LinearBuffer *buffer, MMS_UA_UAMsg *msg);
};
