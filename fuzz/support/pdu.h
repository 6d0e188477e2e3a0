/*
 * Decodes and encodes PDUs with the checks that hold for every message.
 */
#pragma once

#include "support/invariant.h"

#include <qvlsmilparser.h>

#include <QByteArray>

#include <cstdint>

/// Decodes the header of @p pdu, which must outlive @p header's body.
inline unsigned char decodeHeader(const QByteArray &pdu, MMS_UA_UAMsg *header)
{
    const unsigned char result = MMS_UA_Decoder().decodeHeader(pdu, header);
    if (result == WireResult::Read) {
        const QByteArray body = header->getBodyOctets();
        require(body.size() <= pdu.size(), "the body is not longer than the PDU");
        require(body.constData() + body.size() == pdu.constData() + pdu.size(),
                "the body is the end of the PDU");
    }
    return result;
}

/// The octets of @p header, as many as the encoder announces.
inline QByteArray encodeHeader(MMS_UA_UAMsg *header)
{
    QByteArray octets;
    const int size = MMS_UA_Encoder().sizeOfEncodedHeader(header);
    if (MMS_UA_Encoder().encodeHeader(header, &octets) == WireResult::BadArgument)
        return {};
    require(octets.size() == size, "an encoded header has the announced size");
    return octets;
}
