/*
 * The table of header fields: every code with its wire octet, name, presence bit and class,
 * compared with a second list here, and no codes outside of 1..24.
 */
#include "wire/header_fields.h"

#include "support/octets.h"
#include "wire/content_type.h"
#include "wire/field_codecs.h"
#include "wire/header_record.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <typeinfo>

namespace {

struct FieldRow
{
    int code;
    int wireOctet;
    const char *name;
    unsigned int presenceBit;
    const std::type_info &fieldClass;
};

const std::vector<FieldRow> &fieldRows()
{
    static const std::vector<FieldRow> rows{
        {1, 0x81, "Bcc", 0x00000001, typeid(BccField)},
        {2, 0x82, "Cc", 0x00000002, typeid(CcField)},
        {3, 0x83, "Content-Location", 0x00000004, typeid(ContentLocationField)},
        {4, 0x84, "Content-Type", 0x00000008, typeid(ContentTypeField)},
        {5, 0x85, "Date", 0x00000010, typeid(MsgDateField)},
        {6, 0x86, "Delivery-Report", 0x00000020, typeid(DeliveryReportField)},
        {7, 0x87, "Delivery-Time", 0x00000040, typeid(DeliveryTimeField)},
        {8, 0x88, "Expiry", 0x00000080, typeid(ExpiryField)},
        {9, 0x89, "From", 0x00000100, typeid(FromField)},
        {10, 0x8A, "Message-Class", 0x00000200, typeid(MsgClassField)},
        {11, 0x8B, "Message-ID", 0x00000400, typeid(MsgIDField)},
        {12, 0x8C, "Message-Type", 0x00000800, typeid(MsgTypeField)},
        {13, 0x8D, "MMS-Version", 0x00001000, typeid(VersionField)},
        {14, 0x8E, "Message-Size", 0x00002000, typeid(MsgSizeField)},
        {15, 0x8F, "Priority", 0x00004000, typeid(PriorityField)},
        {16, 0x90, "Read-Reply", 0x00008000, typeid(ReadReplyField)},
        {17, 0x91, "Report-Allowed", 0x00010000, typeid(ReportAllowedField)},
        {18, 0x92, "Response-Status", 0x00020000, typeid(ResponseStatusField)},
        {19, 0x93, "Response-Text", 0x00040000, typeid(ResponseTextField)},
        {20, 0x94, "Sender-Visibility", 0x00080000, typeid(SenderVisibilityField)},
        {21, 0x95, "Status", 0x00100000, typeid(MsgStatusField)},
        {22, 0x96, "Subject", 0x00200000, typeid(SubjectField)},
        {23, 0x97, "To", 0x00400000, typeid(ToField)},
        {24, 0x98, "Transaction-Id", 0x00800000, typeid(TIDField)},
    };
    return rows;
}

TEST(HeaderFields, HoldsEveryFieldInTheOrderOfTheCodes)
{
    ASSERT_EQ(headerFields().size(), fieldRows().size());
    for (size_t i = 0; i < fieldRows().size(); ++i) {
        const FieldRow &row = fieldRows()[i];
        SCOPED_TRACE(row.name);
        const HeaderFieldInfo &field = headerFields()[i];
        EXPECT_EQ(field.code, row.code);
        EXPECT_STREQ(field.name, row.name);
        EXPECT_EQ(headerFieldInfo(row.code), &field);
    }
}

TEST(HeaderFields, HasThePublishedPresenceBits)
{
    for (const FieldRow &row : fieldRows())
        EXPECT_EQ(headerFieldMask(static_cast<unsigned char>(row.code)), row.presenceBit)
            << row.name;
}

TEST(HeaderFields, CreatesACodecOfTheFieldsClass)
{
    for (const FieldRow &row : fieldRows()) {
        SCOPED_TRACE(row.name);
        const std::unique_ptr<FieldBase> first(headerFieldInfo(row.code)->createCodec());
        const std::unique_ptr<FieldBase> second(headerFieldInfo(row.code)->createCodec());
        EXPECT_NE(first, second);
        const FieldBase &codec = *first;
        EXPECT_EQ(typeid(codec), row.fieldClass);
    }
}

TEST(HeaderFields, WritesTheFieldsWireOctetFirst)
{
    MMS_UA_UAMsg msg;
    for (auto add : {&MMS_UA_UAMsg::addToRecipient, &MMS_UA_UAMsg::addCcRecipient,
                     &MMS_UA_UAMsg::addBccRecipient})
        (msg.*add)(MMS_UTIL_Entry("", 0, "a"));
    for (const FieldRow &row : fieldRows()) {
        SCOPED_TRACE(row.name);
        Output output;
        const std::unique_ptr<FieldBase> codec(headerFieldInfo(row.code)->createCodec());
        codec->writeField(output, &msg);
        EXPECT_EQ(output.octets().left(1), octet(row.wireOctet));
    }
}

TEST(HeaderFields, HoldsNoOtherCode)
{
    for (int code : {INT_MIN, -1, 0, 25, 26, 128, 129, 140, 256 + 12, INT_MAX})
        EXPECT_EQ(headerFieldInfo(code), nullptr) << code;
}

} // namespace
