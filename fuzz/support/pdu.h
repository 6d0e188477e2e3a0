/*
 * PDUs in the fuzzers: decoding and encoding with the checks that hold for every message.
 */
#pragma once

#include "support/invariant.h"

#include <qvlsmilparser.h>

#include <QByteArray>

#include <cstdint>
#include <memory>

/// Decodes the header of @p pdu, which has to outlive @p header's body.
inline unsigned char decodeHeader(QByteArray &pdu, MMS_UA_UAMsg *header)
{
    auto *octets = reinterpret_cast<unsigned char *>(pdu.data());
    auto length = static_cast<unsigned int>(pdu.size());
    const unsigned char result = MMS_UA_Decoder().decodeHeader(octets, length, header);
    require(length == static_cast<unsigned int>(pdu.size()), "the decoder only reads the length");
    if (result == WireResult::Read) {
        require(header->getBodyLength() >= 0 && header->getBodyLength() <= pdu.size(),
                "the body is not longer than the PDU");
        require(header->getBody() + header->getBodyLength() == octets + pdu.size(),
                "the body is the end of the PDU");
    }
    return result;
}

/// The header of @p header in octets, as many as the encoder announces.
inline QByteArray encodeHeader(MMS_UA_UAMsg *header)
{
    unsigned char *octets = nullptr;
    int length = 0;
    const int size = MMS_UA_Encoder().sizeOfEncodedHeader(header);
    const unsigned char result = MMS_UA_Encoder().encodeHeader(header, &octets, &length);
    const std::unique_ptr<unsigned char[]> owner(octets);
    if (result == WireResult::BadArgument)
        return {};
    require(length == size, "an encoded header has the size that was announced");
    return QByteArray(reinterpret_cast<const char *>(octets), length);
}

inline QByteArray bodyOf(const MMS_UA_UAMsg &header)
{
    return QByteArray::fromRawData(reinterpret_cast<const char *>(header.getBody()),
                                   header.getBodyLength());
}
