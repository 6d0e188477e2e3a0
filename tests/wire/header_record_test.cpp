/*
 * The header record: its defaults, and the three checks that a received header has to pass.
 */
#include "wire/header_record.h"

#include "wire/codec_calls.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

static_assert(std::is_base_of_v<MMS_UTIL_MsgHeaderBase, MMS_UA_UAMsg>);
static_assert(std::has_virtual_destructor_v<MMS_UA_UAMsg>);

TEST(HeaderRecord, StartsWithThePublishedDefaults)
{
    const MMS_UA_UAMsg msg;
    EXPECT_EQ(msg.getFieldsPresent(), 0u);
    EXPECT_EQ(msg.getMessageType(), QvlMessageType::SendReq);
    EXPECT_EQ(msg.getMMSVersion(), 0);
    EXPECT_EQ(msg.getMessageClass(), 128);
    EXPECT_EQ(msg.getStatus(), 128);
    EXPECT_FALSE(msg.getReportAllowed());
    EXPECT_EQ(msg.getResponseStatus(), 128);
    for (const QString &text : {msg.getTransactionId(), msg.getContentLocation(),
                                msg.getMessageId(), msg.getResponseText()})
        EXPECT_EQ(text, "");
    EXPECT_EQ(msg.getBody(), nullptr);
    EXPECT_EQ(msg.getBodyLength(), 0);
    for (int code = 0; code < 256; ++code)
        EXPECT_EQ(msg.getFieldPosition(static_cast<unsigned char>(code)), 0) << code;
}

TEST(HeaderRecord, StartsWithTheSharedDefaults)
{
    const MMS_UA_UAMsg msg;
    EXPECT_TRUE(msg.getFrom().isEmpty());
    EXPECT_TRUE(msg.getToRecipients().isEmpty());
    EXPECT_TRUE(msg.getCcRecipients().isEmpty());
    EXPECT_TRUE(msg.getBccRecipients().isEmpty());
    EXPECT_EQ(msg.getPriority(), 129);
    EXPECT_FALSE(msg.getReadReply() || msg.getDeliveryReport() || msg.getSenderVisibility());
    EXPECT_EQ(msg.getExpiry(), 0);
    EXPECT_EQ(msg.getMessageSize(), 0);
    EXPECT_TRUE(msg.getDate().isNull() && msg.getDeliveryTime().isNull());
}

TEST(HeaderRecord, FieldsArePresentWhenEveryBitOfTheMaskIs)
{
    struct
    {
        unsigned int present, mask;
        bool result;
    } const rows[] = {
        {0, 0, true},
        {0, 1, false},
        {0x00821800, 0x00821800, true},
        {0x00821000, 0x00821800, false},
        {0xFFFFFFFF, 0, true},
        {0xFFFFFFFF, 0xFFFFFFFF, true},
        {0x7FFFFFFF, 0x80000000, false},
        {6, 3, false},
        {7, 3, true},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(testing::Message() << std::hex << row.present << " for " << row.mask);
        MMS_UA_UAMsg msg;
        msg.setFieldsPresent(row.present);
        EXPECT_EQ(msg.fieldsPresent(row.mask), row.result);
    }
}

TEST(HeaderRecord, AddingFieldsKeepsThoseThatArePresent)
{
    MMS_UA_UAMsg msg;
    msg.setFieldsPresent(0x12);
    msg.addFieldsPresent(0x03);
    EXPECT_EQ(msg.getFieldsPresent(), 0x13u);
    msg.setFieldsPresent(0x04);
    EXPECT_EQ(msg.getFieldsPresent(), 0x04u);
}

TEST(HeaderRecord, ChecksMajorAndMinorVersionSeparately)
{
    struct
    {
        int version;
        bool major, minor;
    } const rows[] = {
        {0x10, true, true},   {0x11, true, false}, {0x1F, true, false}, {0x20, false, true},
        {0x21, false, false}, {0x00, false, true}, {0x30, false, true}, {0x90, true, true},
        {0x91, true, false},  {0xA0, false, true},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(testing::Message() << std::hex << row.version);
        MMS_UA_UAMsg msg;
        msg.setMMSVersion(static_cast<unsigned char>(row.version));
        EXPECT_EQ(msg.isMMSVersionCorrect(), row.major);
        EXPECT_EQ(msg.isMMSMinorVersionCorrect(), row.minor);
    }
}

TEST(HeaderRecord, StoresPositionsFromOneToTwentyFourOnly)
{
    MMS_UA_UAMsg msg;
    msg.setFieldPosition(12, 7);
    for (int position = 0; position < 256; ++position) {
        const unsigned char before = msg.getFieldPosition(12);
        msg.setFieldPosition(12, static_cast<unsigned char>(position));
        const bool stored = position >= 1 && position <= 24;
        EXPECT_EQ(msg.getFieldPosition(12), stored ? position : before) << position;
    }
}

TEST(HeaderRecord, StoresPositionsOfCodesUpToTwentyFiveOnly)
{
    for (int code = 0; code < 256; ++code) {
        MMS_UA_UAMsg msg;
        msg.setFieldPosition(static_cast<unsigned char>(code), 3);
        for (int other = 0; other < 256; ++other) {
            const int expected = other == code && code <= 25 ? 3 : 0;
            ASSERT_EQ(msg.getFieldPosition(static_cast<unsigned char>(other)), expected)
                << code << ' ' << other;
        }
    }
}

TEST(MandatoryFields, AreThoseOfTheMessageType)
{
    struct
    {
        int type;
        unsigned int mask;
        std::vector<int> codes;
    } const rows[] = {
        {129, 0x00821800, {12, 13, 18, 24}},
        {130, 0x00803A84, {3, 8, 10, 12, 13, 14, 24}},
        {132, 0x00001818, {4, 5, 12, 13}},
        {134, 0x00501C10, {5, 11, 12, 13, 21, 23}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.type);
        MMS_UA_UAMsg msg;
        msg.setMessageType(static_cast<unsigned char>(row.type));
        msg.setFieldsPresent(row.mask);
        EXPECT_TRUE(msg.mandatoryFldsPresentInPDU());
        for (int code : row.codes) {
            msg.setFieldsPresent(0x00FFFFFF & ~presenceBit(code));
            EXPECT_FALSE(msg.mandatoryFldsPresentInPDU()) << code;
        }
    }
}

TEST(MandatoryFields, AreNoneForEveryOtherType)
{
    for (int type = 0; type < 256; ++type) {
        if (type == 129 || type == 130 || type == 132 || type == 134)
            continue;
        MMS_UA_UAMsg msg;
        msg.setMessageType(static_cast<unsigned char>(type));
        EXPECT_TRUE(msg.mandatoryFldsPresentInPDU()) << type;
    }
}

struct OrderRow
{
    const char *name;
    std::vector<int> order; // codes of the fields in the order of the header
    bool passes;
    std::vector<int> absent = {}; // codes among them without their presence bit
};

const std::vector<OrderRow> &orderRows()
{
    static const std::vector<OrderRow> rows{
        {"nothing", {}, true},
        {"the three", {12, 24, 13}, true},
        {"the three and more", {12, 24, 13, 9, 23, 4}, true},
        {"no Content-Type", {12, 24, 13, 9, 23}, true},
        {"no Transaction-Id", {12, 13, 9, 4}, true},
        {"no Message-Type", {24, 13, 4}, true},
        {"version alone", {13}, true},
        {"Content-Type alone", {4}, true},
        {"none of the three", {9, 23, 4}, true},
        {"Transaction-Id before Message-Type", {24, 12, 13}, false},
        {"version before Transaction-Id", {12, 13, 24}, false},
        {"another field first", {9, 12, 24, 13}, false},
        {"a field between", {12, 24, 9, 13}, false},
        {"no Transaction-Id and a field between", {12, 9, 13}, false},
        {"version alone but second", {9, 13}, false},
        {"Content-Type before another field", {12, 24, 13, 4, 9}, false},
        {"Content-Type first", {4, 12}, false},
        {"Transaction-Id met but empty", {12, 24, 13}, false, {24}},
        {"Content-Type met but not present", {12, 24, 13, 4, 9}, true, {4}},
        {"another field met but not present still counts", {12, 24, 13, 22, 4}, true, {22}},
        {"To, Cc, To and Content-Type", {12, 24, 13, 23, 2, 23, 4}, false},
    };
    return rows;
}

TEST(PduOrder, HasTheThreeLeadingFieldsFirstAndContentTypeLast)
{
    for (const OrderRow &row : orderRows()) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        unsigned char position = 0;
        for (int code : row.order) {
            msg.setFieldPosition(static_cast<unsigned char>(code), ++position);
            msg.addFieldsPresent(presenceBit(code));
        }
        for (int code : row.absent)
            msg.setFieldsPresent(msg.getFieldsPresent() & ~presenceBit(code));
        EXPECT_EQ(msg.pduOrderCheck(), row.passes);
    }
}

TEST(PduOrder, FailsForAPresentFieldWithoutAPosition)
{
    for (int code : {12, 24, 13}) {
        MMS_UA_UAMsg msg;
        msg.setFieldsPresent(presenceBit(code));
        EXPECT_FALSE(msg.pduOrderCheck()) << code;
    }
}

TEST(PduOrder, IgnoresSlotsThatAreNotFields)
{
    MMS_UA_UAMsg msg;
    msg.setFieldPosition(4, 1);
    msg.setFieldPosition(0, 9);
    msg.setFieldPosition(25, 9);
    msg.setFieldsPresent(presenceBit(4));
    EXPECT_TRUE(msg.pduOrderCheck());
}

} // namespace
