/*
 * The header decoder: which octets are field codes, where the body starts, how fields are numbered,
 * what a failure leaves in the record, and that the caller's array is never overread.
 */
#include "wire/header_decoder.h"

#include "wire/codec_calls.h"
#include "wire/content_type.h"
#include "wire/field_codecs.h"
#include "wire/header_pdus.h"

#include <gtest/gtest.h>

#include <climits>
#include <typeinfo>

namespace {

static_assert(std::has_virtual_destructor_v<MMS_UA_Decoder>);

// A record decoded from a block of exactly the PDU's size. Keeps the block, which holds the body.
struct Decoding
{
    explicit Decoding(const QByteArray &pdu) : block(pdu)
    {
        auto length = static_cast<unsigned int>(block.size());
        result = decoder.decodeHeader(block.data(), length, &msg);
        lengthAfter = length;
    }

    // The body as an index into the PDU; -1 without a body.
    int bodyStart() const
    {
        return msg.getBody() ? static_cast<int>(msg.getBody() - block.data()) : -1;
    }

    HeapBlock block;
    MMS_UA_Decoder decoder;
    MMS_UA_UAMsg msg;
    unsigned char result;
    unsigned int lengthAfter;
};

TEST(HeaderDecoder, DecodesEveryValidPdu)
{
    for (const HeaderPdus::Pdu &pdu : HeaderPdus::validPdus()) {
        SCOPED_TRACE(pdu.name);
        const Decoding decoding(pdu.octets);
        EXPECT_EQ(decoding.result, WireResult::Read);
        EXPECT_EQ(decoding.lengthAfter, static_cast<unsigned int>(pdu.octets.size()));
        EXPECT_EQ(decoding.bodyStart() + decoding.msg.getBodyLength(), pdu.octets.size());
        EXPECT_TRUE(decoding.msg.isMMSVersionCorrect());
        EXPECT_TRUE(decoding.msg.isMMSMinorVersionCorrect());
        EXPECT_TRUE(decoding.msg.mandatoryFldsPresentInPDU());
    }
}

TEST(HeaderDecoder, LeavesPositionsThatPassTheOrderCheck)
{
    for (const HeaderPdus::Pdu &pdu : HeaderPdus::validPdus())
        EXPECT_TRUE(Decoding(pdu.octets).msg.pduOrderCheck()) << pdu.name;
}

TEST(HeaderDecoder, ReadsTheHeaderOfARetrievedMessage)
{
    const Decoding decoding(HeaderPdus::validPdus()[4].octets);
    const MMS_UA_UAMsg &msg = decoding.msg;
    EXPECT_EQ(msg.getMessageType(), QvlMessageType::RetrieveConf);
    EXPECT_EQ(msg.getTransactionId(), "T1");
    EXPECT_EQ(msg.getMMSVersion(), 0x10);
    EXPECT_EQ(msg.getMessageId(), "id1");
    EXPECT_EQ(msg.getFrom().getAddress(), "+9");
    EXPECT_EQ(msg.getToRecipients().count(), 2);
    EXPECT_EQ(msg.getCcRecipients().count(), 1);
    EXPECT_EQ(msg.getSubject(), "Hi");
    EXPECT_EQ(msg.getMessageClass(), 129);
    EXPECT_EQ(msg.getPriority(), 130);
    EXPECT_TRUE(msg.getDeliveryReport() && msg.getReadReply());
    EXPECT_EQ(msg.getContentTypeParams(), "type=application/smil;start=<ab>");
}

TEST(HeaderDecoder, SetsEveryPresenceBitAndPosition)
{
    const Decoding decoding(HeaderPdus::validPdus().back().octets);
    EXPECT_EQ(decoding.msg.getFieldsPresent(), 0x00FFFFFFu);
    const int order[] = {12, 24, 13, 1,  2,  3,  5,  6,  7,  8,  9,  10,
                         11, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 4};
    int position = 0;
    for (int code : order)
        EXPECT_EQ(decoding.msg.getFieldPosition(static_cast<unsigned char>(code)), ++position)
            << code;
}

TEST(HeaderDecoder, StartsTheBodyAfterContentType)
{
    struct
    {
        const char *name;
        QByteArray pdu;
        int bodyStart, bodyLength;
    } const rows[] = {
        {"one octet", "8C 84 84 A3 01 02 03"_octets, 4, 3},
        {"general form", "84 04 B3 8A 61 00 8C 84"_octets, 6, 2},
        {"fields after it are body", "84 A3 8C 84"_octets, 2, 2},
        {"no body", "8C 84 84 A3"_octets, 4, 0},
        {"no Content-Type", "8C 80 98 31 00"_octets, 5, 0},
        {"nothing", ""_octets, 0, 0},
        {"octet in the slack", "8C"_octets, 1, 0},
        {"text without its terminator", "98 31"_octets, 2, 0},
        {"start text without its terminator", "84 04 B3 8A 61"_octets, 5, 0},
        {"parameter in the slack", "84 02 B3 8A"_octets, 4, 0},
        {"recipient without its terminator", "97 61"_octets, 2, 0},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        const Decoding decoding(row.pdu);
        EXPECT_EQ(decoding.result, WireResult::Read);
        EXPECT_EQ(decoding.bodyStart(), row.bodyStart);
        EXPECT_EQ(decoding.msg.getBodyLength(), row.bodyLength);
    }
}

struct ResultRow
{
    const char *name;
    QByteArray pdu;
    unsigned char result;
};

void expectResults(const std::vector<ResultRow> &rows)
{
    for (const ResultRow &row : rows) {
        SCOPED_TRACE(row.name);
        const Decoding decoding("8C 82"_octets + row.pdu);
        EXPECT_EQ(decoding.result, row.result);
        EXPECT_EQ(decoding.msg.getMessageType(), QvlMessageType::NotificationInd);
        EXPECT_EQ(decoding.msg.getFieldPosition(12), 1);
        EXPECT_EQ(decoding.msg.getBody() == nullptr, row.result != WireResult::Read);
        EXPECT_EQ(decoding.msg.getBodyLength(), 0);
    }
}

TEST(HeaderDecoder, EndsWithUnknownFieldAtACodeOutsideTheTable)
{
    constexpr unsigned char unknown = WireResult::UnknownField;
    expectResults({
        {"0", "80 00"_octets, unknown},
        {"25", "99 00"_octets, unknown},
        {"127", "FF 00"_octets, unknown},
        {"zero length", "00 00"_octets, unknown},
        {"25 as a long integer", "01 19 00"_octets, unknown},
        {"128 as a long integer", "01 80 00"_octets, unknown},
        {"268, whose low octet is 12", "02 01 0C 80"_octets, unknown},
        {"negative", "04 FF FF FF F4 80"_octets, unknown},
        {"a length in the last octet", "01"_octets, unknown},
    });
}

TEST(HeaderDecoder, ReadsATextFieldNameAsALength)
{
    const QByteArray name = text("X-Extra"); // 'X' is 88 octets of an integer
    expectResults({
        {"enough octets follow", name + octet(1, 100), WireResult::UnknownField},
        {"not enough octets follow", name + octet(1, 70), WireResult::OutOfData},
        {"name alone", name, WireResult::OutOfData},
        {"the last octets are a field code", name + octet(0, 80) + "0C 82"_octets,
         WireResult::Read},
    });
}

TEST(HeaderDecoder, ReadsCodesThatAreLongIntegers)
{
    const Decoding decoding("01 0C 82 04 00 00 00 18 31 00"_octets);
    EXPECT_EQ(decoding.result, WireResult::Read);
    EXPECT_EQ(decoding.msg.getMessageType(), QvlMessageType::NotificationInd);
    EXPECT_EQ(decoding.msg.getTransactionId(), "1");
    EXPECT_EQ(decoding.msg.getFieldPosition(24), 2);
}

TEST(HeaderDecoder, EndsWithTheResultOfTheFirstFieldThatFails)
{
    expectResults({
        {"code truncated", "02"_octets, WireResult::OutOfData},
        {"text missing", "98"_octets, WireResult::Read},
        {"encoded text truncated", "96 05 EA 61"_octets, WireResult::OutOfData},
        {"From truncated", "89"_octets, WireResult::OutOfData},
        {"Date truncated", "85 04 01"_octets, WireResult::OutOfData},
        {"Expiry truncated", "88"_octets, WireResult::OutOfData},
        {"Delivery-Time truncated", "87"_octets, WireResult::OutOfData},
        {"Message-Size truncated", "8E 03 01"_octets, WireResult::OutOfData},
        {"Content-Type truncated", "84"_octets, WireResult::OutOfData},
        {"Content-Type not supported", "84 03 83 81 EA"_octets, WireResult::UnsupportedContentType},
        {"recipient truncated, then what follows", "97 05 EA 61"_octets, WireResult::OutOfData},
    });
}

TEST(HeaderDecoder, KeepsTheValueOfAFailedFieldWithoutAPosition)
{
    const Decoding decoding("8C 84 85 04 01"_octets);
    EXPECT_EQ(decoding.result, WireResult::OutOfData);
    EXPECT_EQ(decoding.msg.getFieldsPresent(), 0x00000810u);
    EXPECT_EQ(decoding.msg.getFieldPosition(12), 1);
    EXPECT_EQ(decoding.msg.getFieldPosition(5), 0);
}

TEST(HeaderDecoder, ContinuesInsideATruncatedRecipient)
{
    // Length and charset are consumed; the next octet is a field code.
    const Decoding decoding("97 1E EA 8C 82"_octets);
    EXPECT_EQ(decoding.result, WireResult::Read);
    EXPECT_EQ(decoding.msg.getMessageType(), QvlMessageType::NotificationInd);
    EXPECT_EQ(decoding.msg.getToRecipients().count(), 1);
    EXPECT_TRUE(decoding.msg.fieldsPresent(0x00400800));
}

struct PositionRow
{
    const char *name;
    QByteArray pdu;
    std::vector<std::pair<int, int>> positions; // code and position
};

TEST(HeaderDecoder, NumbersFieldsInTheOrderOfTheHeader)
{
    const std::vector<PositionRow> rows{
        {"each one position", "8C 80 98 31 00 8D 90"_octets, {{12, 1}, {24, 2}, {13, 3}, {4, 0}}},
        {"repeated fields share one",
         "8C 80 97 61 00 97 62 00 97 63 00 8D 90"_octets,
         {{12, 1}, {23, 2}, {13, 3}}},
        {"a field that comes back has the later one",
         "97 61 00 82 61 00 97 62 00"_octets,
         {{23, 3}, {2, 2}}},
        {"an empty text has one without being present",
         "8C 80 98 00 8D 90"_octets,
         {{12, 1}, {24, 2}, {13, 3}}},
        {"Content-Type too", "8C 84 84 A3"_octets, {{12, 1}, {4, 2}}},
        {"the first field's code is not a repetition", "81 61 00"_octets, {{1, 1}}},
    };
    for (const PositionRow &row : rows) {
        SCOPED_TRACE(row.name);
        const Decoding decoding(row.pdu);
        EXPECT_EQ(decoding.result, WireResult::Read);
        for (const auto &[code, position] : row.positions)
            EXPECT_EQ(decoding.msg.getFieldPosition(static_cast<unsigned char>(code)), position)
                << code;
    }
}

TEST(HeaderDecoder, IgnoresPositionsBeyondTwentyFour)
{
    for (int pairs : {12, 13, 100, 128, 129, 140, 200}) {
        SCOPED_TRACE(pairs);
        const Decoding decoding("97 61 00 82 61 00"_octets.repeated(pairs));
        EXPECT_EQ(decoding.result, WireResult::Read);
        EXPECT_EQ(decoding.msg.getToRecipients().count(), pairs);
        EXPECT_EQ(decoding.msg.getFieldPosition(23), 23);
        EXPECT_EQ(decoding.msg.getFieldPosition(2), 24);
    }
}

TEST(HeaderDecoder, FailsTheOrderCheckForRepeatedOrEmptyFields)
{
    struct
    {
        const char *name;
        QByteArray pdu;
        bool passes;
    } const rows[] = {
        {"To, To, Content-Type", "8C 80 98 31 00 8D 90 97 61 00 97 62 00 84 A3"_octets, true},
        {"To, Cc, To, Content-Type", "8C 80 98 31 00 8D 90 97 61 00 82 61 00 97 62 00 84 A3"_octets,
         false},
        {"empty Transaction-Id", "8C 80 98 00 8D 90 84 A3"_octets, false},
        {"no Transaction-Id", "8C 80 8D 90 84 A3"_octets, true},
        {"Transaction-Id first", "98 31 00 8C 80 8D 90"_octets, false},
    };
    for (const auto &row : rows) {
        const Decoding decoding(row.pdu);
        EXPECT_EQ(decoding.result, WireResult::Read) << row.name;
        EXPECT_EQ(decoding.msg.pduOrderCheck(), row.passes) << row.name;
    }
}

TEST(HeaderDecoder, RunsNoChecks)
{
    const Decoding decoding("8D A1 8C 84"_octets);
    EXPECT_EQ(decoding.result, WireResult::Read);
    EXPECT_FALSE(decoding.msg.isMMSVersionCorrect());
    EXPECT_FALSE(decoding.msg.isMMSMinorVersionCorrect());
    EXPECT_FALSE(decoding.msg.mandatoryFldsPresentInPDU());
    EXPECT_FALSE(decoding.msg.pduOrderCheck());
}

TEST(HeaderDecoder, RefusesMissingArguments)
{
    const HeapBlock block("8C 80"_octets);
    unsigned int length = 2;
    MMS_UA_UAMsg msg;
    MMS_UA_Decoder decoder;
    EXPECT_EQ(decoder.decodeHeader(block.data(), length, nullptr), WireResult::BadArgument);
    EXPECT_EQ(decoder.decodeHeader(nullptr, length, &msg), WireResult::BadArgument);
    EXPECT_EQ(decoder.decodeHeader(nullptr, length, nullptr), WireResult::BadArgument);
    EXPECT_EQ(length, 2u);
    EXPECT_EQ(msg.getFieldsPresent(), 0u);
}

TEST(HeaderDecoder, RunsOutOfDataAtALengthBeyondInt)
{
    const HeapBlock block("8C 80"_octets);
    for (unsigned int length : {unsigned(INT_MAX) + 1, UINT_MAX}) {
        MMS_UA_UAMsg msg;
        EXPECT_EQ(MMS_UA_Decoder().decodeHeader(block.data(), length, &msg), WireResult::OutOfData);
        EXPECT_EQ(msg.getBody(), nullptr);
    }
}

TEST(HeaderDecoder, AcceptsTheLargestInt)
{
    const HeapBlock block("84 A3"_octets); // ends the header, so nothing after it is read
    unsigned int length = INT_MAX;
    MMS_UA_UAMsg msg;
    EXPECT_EQ(MMS_UA_Decoder().decodeHeader(block.data(), length, &msg), WireResult::Read);
    EXPECT_EQ(msg.getBodyLength(), INT_MAX - 2);
}

TEST(HeaderDecoder, CanDecodeSeveralHeaders)
{
    MMS_UA_Decoder decoder;
    for (const auto &[pdu, result] :
         std::vector<std::pair<QByteArray, int>>{{"84 A3 01"_octets, 0},
                                                 {"8C"_octets, 0},
                                                 {"99 00"_octets, 3},
                                                 {"84 A3"_octets, 0},
                                                 {"84 01 A3"_octets, 7},
                                                 {"8C 80 84 A3"_octets, 0}}) {
        SCOPED_TRACE(testing::PrintToString(pdu));
        const HeapBlock block(pdu);
        auto length = static_cast<unsigned int>(block.size());
        MMS_UA_UAMsg msg;
        EXPECT_EQ(decoder.decodeHeader(block.data(), length, &msg), result);
    }
}

TEST(HeaderDecoder, DecodesAfterAContentTypeWasSelectedOrFailed)
{
    MMS_UA_Decoder decoder;
    const HeapBlock failing("84 01 A3"_octets);
    auto failingLength = static_cast<unsigned int>(failing.size());
    const HeapBlock block("8C 80 84 A3"_octets);
    for (const bool select : {true, false}) {
        SCOPED_TRACE(select);
        MMS_UA_UAMsg refused;
        MMS_UA_UAMsg msg;
        if (select) {
            const std::unique_ptr<FieldBase> contentType(decoder.selectReader(4));
        } else {
            EXPECT_EQ(decoder.decodeHeader(failing.data(), failingLength, &refused),
                      WireResult::UnsupportedContentType);
        }
        auto length = static_cast<unsigned int>(block.size());
        EXPECT_EQ(decoder.decodeHeader(block.data(), length, &msg), WireResult::Read);
        EXPECT_EQ(msg.getMessageType(), QvlMessageType::SendReq);
        EXPECT_EQ(msg.getBody(), block.data() + 4);
    }
}

TEST(HeaderDecoder, DoesNotChangeTheCallersArray)
{
    const QByteArray pdu = HeaderPdus::validPdus().front().octets;
    const Decoding decoding(pdu);
    EXPECT_EQ(QByteArray(reinterpret_cast<const char *>(decoding.block.data()), pdu.size()), pdu);
}

TEST(HeaderDecoder, SelectsAReaderOnlyForFieldCodes)
{
    MMS_UA_Decoder decoder;
    for (int code = -1; code <= 300; ++code) {
        const std::unique_ptr<FieldBase> reader(decoder.selectReader(code));
        EXPECT_EQ(reader != nullptr, code >= 1 && code <= 24) << code;
    }
    const std::unique_ptr<FieldBase> contentType(decoder.selectReader(4));
    EXPECT_NE(dynamic_cast<ContentTypeField *>(contentType.get()), nullptr);
    const std::unique_ptr<FieldBase> to(decoder.selectReader(23));
    EXPECT_NE(dynamic_cast<ToField *>(to.get()), nullptr);
}

} // namespace
