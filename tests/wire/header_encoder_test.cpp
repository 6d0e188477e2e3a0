/*
 * The header encoder: the order of the fields of every message type, which fields are written, and
 * an array of exactly their size.
 */
#include "wire/header_encoder.h"

#include "wire/codec_calls.h"
#include "wire/content_type.h"
#include "wire/field_codecs.h"
#include "wire/header_decoder.h"
#include "wire/header_pdus.h"
#include "wire/time_zone.h"

#include <gtest/gtest.h>

namespace {

using HeaderPdus::header;

static_assert(std::has_virtual_destructor_v<MMS_UA_Encoder>);

constexpr unsigned int everyField = 0x00FFFFFF;

Writing encode(MMS_UA_UAMsg &msg)
{
    unsigned char *out = nullptr;
    int length = -1;
    MMS_UA_Encoder encoder;
    const unsigned char result = encoder.encodeHeader(&msg, &out, &length);
    const std::unique_ptr<unsigned char[]> owner(out);
    EXPECT_NE(out, nullptr);
    EXPECT_EQ(length, MMS_UA_Encoder().sizeOfEncodedHeader(&msg));
    return {result, QByteArray(reinterpret_cast<const char *>(out), length)};
}

// A record with the fields of HeaderPdus::allFields(), written in UTC.
void fill(MMS_UA_UAMsg &msg, int type)
{
    const QDateTime epoch(QDate(1970, 1, 1), QTime(0, 0));
    msg.setMessageType(static_cast<unsigned char>(type));
    msg.setFieldsPresent(everyField);
    msg.addBccRecipient({"", 0, "bcc@x"});
    msg.addCcRecipient({"", 1, "+2"});
    msg.setContentLocation("http://x/1");
    msg.setContentType("application");
    msg.setContentSubType("vnd.wap.multipart.related");
    msg.setContentTypeParams("type=application/smil;start=<ab>");
    msg.setDate(epoch);
    msg.setDeliveryReport(true);
    msg.setDeliveryTime(epoch);
    msg.setExpiry(86400);
    msg.setFrom({"", 1, "+9"});
    msg.setMessageClass(QvlMessageClass::Advertisement);
    msg.setMessageId("id1");
    msg.setMMSVersion(0x10);
    msg.setMessageSize(4096);
    msg.setPriority(QvlPriority::High);
    msg.setReadReply(true);
    msg.setReportAllowed(true);
    msg.setResponseStatus(QvlResponseStatus::ErrorMessageNotFound);
    msg.setResponseText("abc");
    msg.setSenderVisibility(true);
    msg.setStatus(QvlStatus::Deferred);
    msg.setSubject("Hi");
    msg.addToRecipient({"Ann", 0, "a@b"});
    msg.addToRecipient({"", 1, "+1"});
    msg.setTransactionId("T1");
}

struct TypeRow
{
    int type;
    std::vector<int> order;
    QByteArray always; // written for a record without any field
};

const std::vector<TypeRow> &typeRows()
{
    static const std::vector<TypeRow> rows{
        {128,
         {12, 24, 13, 5, 9, 23, 2, 1, 22, 10, 8, 7, 15, 20, 6, 16, 4},
         "8D 80 89 01 81"_octets},
        {129, {12, 24, 13, 18, 19, 11}, "8D 80"_octets},
        {130, {12, 24, 13, 9, 22, 10, 14, 8, 3}, "8D 80 89 01 81"_octets},
        {131, {12, 24, 13, 21, 17}, "8D 80"_octets},
        {132, {12, 24, 13, 11, 5, 9, 23, 2, 1, 22, 10, 15, 6, 16, 4}, "8D 80 89 01 81"_octets},
        {133, {12, 24, 13, 17}, "8D 80"_octets},
        {134, {12, 13, 24, 23, 5, 21}, "8D 80"_octets},
    };
    return rows;
}

class HeaderEncoder : public testing::Test
{
    TimeZone m_utc{TimeZone::Utc};
};

TEST_F(HeaderEncoder, WritesTheFieldsOfEachTypeInOrder)
{
    for (const TypeRow &row : typeRows()) {
        SCOPED_TRACE(row.type);
        MMS_UA_UAMsg msg;
        fill(msg, row.type);
        const Writing writing = encode(msg);
        EXPECT_EQ(writing.result, WireResult::Written);
        EXPECT_EQ(writing.octets, header(row.type, row.order));
    }
}

TEST_F(HeaderEncoder, AlwaysWritesVersionAndFrom)
{
    for (const TypeRow &row : typeRows()) {
        SCOPED_TRACE(row.type);
        MMS_UA_UAMsg msg;
        msg.setMessageType(static_cast<unsigned char>(row.type));
        const Writing writing = encode(msg);
        EXPECT_EQ(writing.result, WireResult::Written);
        EXPECT_EQ(writing.octets, row.always);
    }
}

TEST_F(HeaderEncoder, LeavesOutEveryOtherFieldThatIsNotPresent)
{
    for (const TypeRow &row : typeRows()) {
        for (int absent = 1; absent <= 24; ++absent) {
            SCOPED_TRACE(testing::Message() << row.type << " without " << absent);
            MMS_UA_UAMsg msg;
            fill(msg, row.type);
            msg.setFieldsPresent(everyField & ~(1u << (absent - 1)));
            std::vector<int> order = row.order;
            if (absent != 13 && absent != 9)
                std::erase(order, absent);
            EXPECT_EQ(encode(msg).octets, header(row.type, order));
        }
    }
}

TEST_F(HeaderEncoder, WritesANewRecordAsFiveOctets)
{
    MMS_UA_UAMsg msg;
    EXPECT_EQ(encode(msg).octets, "8D 80 89 01 81"_octets);
}

TEST_F(HeaderEncoder, ReturnsAnEmptyArrayForAnUnknownType)
{
    for (int type : {0, 1, 127, 135, 255}) {
        SCOPED_TRACE(type);
        MMS_UA_UAMsg msg;
        fill(msg, type);
        const Writing writing = encode(msg);
        EXPECT_EQ(writing.result, WireResult::Written);
        EXPECT_EQ(writing.octets, ""_octets);
    }
}

TEST_F(HeaderEncoder, WritesWhatTheDecoderReads)
{
    // Without the fields that change: Date, Delivery-Time, Expiry and Sender-Visibility.
    for (const TypeRow &row : typeRows()) {
        SCOPED_TRACE(row.type);
        std::vector<int> order = row.order;
        std::erase_if(order,
                      [](int code) { return code == 5 || code == 7 || code == 8 || code == 20; });
        const HeapBlock pdu(header(row.type, order));
        auto length = static_cast<unsigned int>(pdu.size());
        MMS_UA_UAMsg msg;
        ASSERT_EQ(MMS_UA_Decoder().decodeHeader(pdu.data(), length, &msg), WireResult::Read);
        EXPECT_EQ(encode(msg).octets, header(row.type, order));
    }
}

TEST_F(HeaderEncoder, ContinuesAfterAFieldThatCannotBeWritten)
{
    MMS_UA_UAMsg msg;
    msg.setMessageType(QvlMessageType::DeliveryInd);
    msg.setFieldsPresent(0x00D00000); // Status, To, Transaction-Id
    msg.addToRecipient({"", 2, "a"});
    msg.setTransactionId("T1");
    const Writing writing = encode(msg);
    EXPECT_EQ(writing.result, WireResult::Written);
    EXPECT_EQ(writing.octets, "8D 80 98 54 31 00 97 95 80"_octets);
}

TEST_F(HeaderEncoder, ReturnsWrittenEvenIfFieldsCannotBeWritten)
{
    constexpr unsigned int alone[] = {0, 1u << 0, 1u << 1, 1u << 8, 1u << 22, everyField};
    for (const TypeRow &row : typeRows()) {
        for (const unsigned int present : alone) {
            SCOPED_TRACE(testing::Message() << row.type << " with " << present);
            MMS_UA_UAMsg msg;
            fill(msg, row.type);
            msg.setFieldsPresent(present);
            const MMS_UTIL_Entry unknownKind("", 2, "a");
            msg.setFrom(unknownKind);
            msg.addToRecipient(unknownKind);
            msg.addCcRecipient(unknownKind);
            msg.addBccRecipient(unknownKind);
            EXPECT_EQ(encode(msg).result, WireResult::Written);
        }
    }
}

TEST_F(HeaderEncoder, LosesTheLastOctetForAVersionWithTheHighBit)
{
    MMS_UA_UAMsg msg;
    msg.setMessageType(QvlMessageType::AcknowledgeInd);
    msg.setMMSVersion(0x90);
    msg.setReportAllowed(true);
    msg.setFieldsPresent((1u << 11) | (1u << 16)); // Message-Type and Report-Allowed
    const Writing writing = encode(msg);
    EXPECT_EQ(writing.result, WireResult::Written);
    EXPECT_EQ(writing.octets, "8C 85 8D 01 90 91"_octets); // and no 80
}

TEST_F(HeaderEncoder, WritesOneFieldPerRecipient)
{
    MMS_UA_UAMsg msg;
    msg.setMessageType(QvlMessageType::DeliveryInd);
    msg.setFieldsPresent(0x00400000);
    EXPECT_EQ(encode(msg).octets, "8D 80"_octets);
    for (const char *address : {"a", "b", "c"})
        msg.addToRecipient({"", 0, address});
    EXPECT_EQ(encode(msg).octets, "8D 80 97 61 00 97 62 00 97 63 00"_octets);
}

TEST_F(HeaderEncoder, RefusesMissingArguments)
{
    MMS_UA_UAMsg msg;
    unsigned char *out = nullptr;
    int length = 77;
    MMS_UA_Encoder encoder;
    EXPECT_EQ(encoder.encodeHeader(nullptr, &out, &length), WireResult::BadArgument);
    EXPECT_EQ(encoder.encodeHeader(&msg, nullptr, &length), WireResult::BadArgument);
    EXPECT_EQ(encoder.encodeHeader(&msg, &out, nullptr), WireResult::BadArgument);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(length, 77);
    EXPECT_EQ(encoder.sizeOfEncodedHeader(nullptr), 0);
}

TEST_F(HeaderEncoder, ReturnsTheSizeOfEachField)
{
    MMS_UA_UAMsg msg;
    fill(msg, 128);
    MMS_UA_Encoder encoder;
    encoder.sizeOfEncodedHeader(&msg);
    for (const HeaderPdus::Field &field : HeaderPdus::allFields())
        EXPECT_EQ(encoder.sizeOfField(field.code), field.octets.size()) << field.code;
}

TEST_F(HeaderEncoder, ReturnsNoSizeForSkippedOrUnknownFields)
{
    MMS_UA_UAMsg msg;
    MMS_UA_Encoder encoder;
    encoder.sizeOfEncodedHeader(&msg);
    for (int code = -1; code <= 300; ++code) {
        const int expected = code == 13 ? 2 : code == 9 ? 3 : 0;
        EXPECT_EQ(encoder.sizeOfField(code), expected) << code;
    }
}

TEST_F(HeaderEncoder, HasNoFieldsWithoutARecord)
{
    MMS_UA_Encoder encoder;
    for (int code = 1; code <= 24; ++code) {
        EXPECT_EQ(encoder.sizeOfField(code), 0) << code;
        const bool isAlwaysWritten = code == 13 || code == 9;
        EXPECT_EQ(encoder.encodeField(code),
                  isAlwaysWritten ? WireResult::BadArgument : WireResult::Written)
            << code;
    }
}

TEST_F(HeaderEncoder, ReturnsWrittenForASkippedFieldAndCannotWriteForAnUnknownOne)
{
    MMS_UA_UAMsg msg;
    MMS_UA_Encoder encoder;
    encoder.sizeOfEncodedHeader(&msg);
    for (int code = -1; code <= 300; ++code) {
        if (code == 13 || code == 9)
            continue;
        const bool known = code >= 1 && code <= 24;
        EXPECT_EQ(encoder.encodeField(code), known ? WireResult::Written : WireResult::CannotWrite)
            << code;
    }
}

TEST_F(HeaderEncoder, WritesNoFieldWithoutAnArray)
{
    MMS_UA_UAMsg msg;
    MMS_UA_Encoder encoder;
    EXPECT_EQ(encoder.encodeField(13), WireResult::BadArgument);
    encoder.sizeOfEncodedHeader(&msg);
    EXPECT_EQ(encoder.encodeField(13), WireResult::BadArgument);
    EXPECT_EQ(encoder.encodeByType(135), WireResult::Written);
}

TEST_F(HeaderEncoder, WritesNoFieldAfterAHeader)
{
    MMS_UA_UAMsg msg;
    fill(msg, QvlMessageType::SendReq);
    MMS_UA_Encoder encoder;
    unsigned char *out = nullptr;
    int length = 0;
    ASSERT_EQ(encoder.encodeHeader(&msg, &out, &length), WireResult::Written);
    const std::unique_ptr<unsigned char[]> owner(out);
    const QByteArray written(reinterpret_cast<const char *>(out), length);
    for (const HeaderPdus::Field &field : HeaderPdus::allFields())
        EXPECT_EQ(encoder.encodeField(field.code), WireResult::BadArgument) << field.code;
    EXPECT_EQ(QByteArray(reinterpret_cast<const char *>(out), length), written);
}

TEST_F(HeaderEncoder, CanEncodeSeveralRecords)
{
    MMS_UA_Encoder encoder;
    for (const TypeRow &row : typeRows()) {
        SCOPED_TRACE(row.type);
        MMS_UA_UAMsg msg;
        fill(msg, row.type);
        unsigned char *out = nullptr;
        int length = 0;
        EXPECT_EQ(encoder.encodeHeader(&msg, &out, &length), WireResult::Written);
        const std::unique_ptr<unsigned char[]> owner(out);
        EXPECT_EQ(QByteArray(reinterpret_cast<const char *>(out), length),
                  header(row.type, row.order));
    }
}

TEST_F(HeaderEncoder, SelectsAWriterOnlyForFieldCodes)
{
    MMS_UA_Encoder encoder;
    for (int code = -1; code <= 300; ++code) {
        const std::unique_ptr<FieldBase> writer(encoder.selectWriter(code));
        EXPECT_EQ(writer != nullptr, code >= 1 && code <= 24) << code;
    }
    const std::unique_ptr<FieldBase> contentType(encoder.selectWriter(4));
    EXPECT_NE(dynamic_cast<ContentTypeField *>(contentType.get()), nullptr);
    const std::unique_ptr<FieldBase> from(encoder.selectWriter(9));
    EXPECT_NE(dynamic_cast<FromField *>(from.get()), nullptr);
}

} // namespace
