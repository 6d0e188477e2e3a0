/*
 * Truncated and damaged headers: every prefix of every valid PDU, and every PDU with one octet
 * replaced, decoded from a block of exactly its size. The result is always one of the decoder's,
 * and the body is inside the PDU.
 */
#include "wire/header_decoder.h"
#include "wire/header_pdus.h"
#include "wire/header_record.h"
#include "wire/wire_result.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

void expectSoundDecoding(const QByteArray &pdu)
{
    SCOPED_TRACE(testing::PrintToString(pdu));
    const HeapBlock block(pdu);
    auto length = static_cast<unsigned int>(block.size());
    MMS_UA_UAMsg msg;
    const unsigned char result = MMS_UA_Decoder().decodeHeader(block.data(), length, &msg);
    EXPECT_THAT(result,
                testing::AnyOf(WireResult::Read, WireResult::UnknownField,
                               WireResult::UnsupportedContentType, WireResult::OutOfData));
    if (result == WireResult::Read) {
        const auto bodyStart = msg.getBody() - block.data();
        EXPECT_GE(bodyStart, 0);
        EXPECT_GE(msg.getBodyLength(), 0);
        EXPECT_EQ(bodyStart + msg.getBodyLength(), block.size());
    } else {
        EXPECT_EQ(msg.getBody(), nullptr);
    }
}

TEST(DamagedHeaders, AreDecodedSafelyWhereverTheyAreTruncated)
{
    for (const HeaderPdus::Pdu &pdu : HeaderPdus::validPdus()) {
        SCOPED_TRACE(pdu.name);
        for (qsizetype length = 0; length <= pdu.octets.size(); ++length)
            expectSoundDecoding(pdu.octets.left(length));
    }
}

TEST(DamagedHeaders, AreDecodedSafelyWithAnyOctetReplaced)
{
    for (const HeaderPdus::Pdu &pdu : HeaderPdus::validPdus()) {
        SCOPED_TRACE(pdu.name);
        for (qsizetype i = 0; i < pdu.octets.size(); ++i) {
            for (int value : {0x00, 0x1F, 0x7F, 0x80, 0xFF})
                expectSoundDecoding(QByteArray(pdu.octets).replace(i, 1, octet(value)));
        }
    }
}

TEST(DamagedHeaders, AreDecodedSafelyWhenTruncatedAfterAReplacedOctet)
{
    for (const HeaderPdus::Pdu &pdu : HeaderPdus::validPdus()) {
        SCOPED_TRACE(pdu.name);
        for (qsizetype i = 0; i < pdu.octets.size(); ++i) {
            for (int value : {0x00, 0x1F, 0x7F, 0x80, 0xFF})
                expectSoundDecoding(pdu.octets.left(i) + octet(value));
        }
    }
}

} // namespace
