/*
 * The table of all header fields, written down here a second time (OMA-MMS-ENC, 7.3 and 7.4).
 */
#include "wire/known_fields.h"

#include "wire/header_fields.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

namespace {

struct FieldRow
{
    int octet; // on the wire
    const char *name;
    int version;
};

const std::vector<FieldRow> &laterFields()
{
    static const std::vector<FieldRow> rows{
        {0x99, "Retrieve-Status", 0x11},
        {0x9A, "Retrieve-Text", 0x11},
        {0x9B, "Read-Status", 0x11},
        {0x9C, "Reply-Charging", 0x11},
        {0x9D, "Reply-Charging-Deadline", 0x11},
        {0x9E, "Reply-Charging-ID", 0x11},
        {0x9F, "Reply-Charging-Size", 0x11},
        {0xA0, "Previously-Sent-By", 0x11},
        {0xA1, "Previously-Sent-Date", 0x11},
        {0xA2, "Store", 0x12},
        {0xA3, "MM-State", 0x12},
        {0xA4, "MM-Flags", 0x12},
        {0xA5, "Store-Status", 0x12},
        {0xA6, "Store-Status-Text", 0x12},
        {0xA7, "Stored", 0x12},
        {0xA8, "Attributes", 0x12},
        {0xA9, "Totals", 0x12},
        {0xAA, "Mbox-Totals", 0x12},
        {0xAB, "Quotas", 0x12},
        {0xAC, "Mbox-Quotas", 0x12},
        {0xAD, "Message-Count", 0x12},
        {0xAE, "Content", 0x12},
        {0xAF, "Start", 0x12},
        {0xB0, "Additional-Headers", 0x12},
        {0xB1, "Distribution-Indicator", 0x12},
        {0xB2, "Element-Descriptor", 0x12},
        {0xB3, "Limit", 0x12},
        {0xB4, "Recommended-Retrieval-Mode", 0x12},
        {0xB5, "Recommended-Retrieval-Mode-Text", 0x12},
        {0xB6, "Status-Text", 0x12},
        {0xB7, "Applic-ID", 0x13},
        {0xB8, "Reply-Applic-ID", 0x13},
        {0xB9, "Aux-Applic-Info", 0x13},
        {0xBA, "Content-Class", 0x13},
        {0xBB, "DRM-Content", 0x13},
        {0xBC, "Adaptation-Allowed", 0x13},
        {0xBD, "Replace-ID", 0x13},
        {0xBE, "Cancel-ID", 0x13},
        {0xBF, "Cancel-Status", 0x13},
    };
    return rows;
}

struct TokensRow
{
    int octet; // of the field
    const char *tokens;
};

std::string named(std::span<const QvlFieldValue> tokens)
{
    std::string text;
    for (const QvlFieldValue &token : tokens)
        text += std::to_string(token.value) + " " + token.name + "\n";
    return text;
}

TEST(KnownFields, HasEveryFieldOfTheLaterVersions)
{
    for (const FieldRow &row : laterFields()) {
        SCOPED_TRACE(row.name);
        const QvlKnownField *field = qvlKnownField(row.octet - 0x80);
        ASSERT_NE(field, nullptr);
        EXPECT_EQ(field->code, row.octet - 0x80);
        EXPECT_STREQ(field->name, row.name);
        EXPECT_EQ(field->version, row.version);
    }
    EXPECT_EQ(qvlKnownFields().size(), headerFields().size() + laterFields().size());
}

TEST(KnownFields, HasTheFieldsOfMms10UnderTheNamesOfTheDecoder)
{
    for (const HeaderFieldInfo &info : headerFields()) {
        const QvlKnownField *field = qvlKnownField(info.code);
        ASSERT_NE(field, nullptr) << info.name;
        EXPECT_EQ(field->code, info.code);
        EXPECT_STREQ(field->name, info.name);
        EXPECT_EQ(field->version, 0x10);
    }
}

TEST(KnownFields, HoldsNoOtherCode)
{
    for (const int code : {INT_MIN, -1, 0, 64, 127, 191, 255, INT_MAX})
        EXPECT_EQ(qvlKnownField(code), nullptr) << code;
}

TEST(KnownFields, HoldsItsRowsInTheOrderOfTheCodes)
{
    int code = 0;
    for (const QvlKnownField &field : qvlKnownFields()) {
        EXPECT_EQ(field.code, ++code);
        EXPECT_EQ(qvlKnownField(code), &field);
        EXPECT_TRUE(std::ranges::is_sorted(field.tokens, {}, &QvlFieldValue::value)) << field.name;
    }
}

TEST(KnownFields, NamesTheTokens)
{
    const char *yesNo = "128 yes\n129 no\n";
    const std::vector<TokensRow> rows{
        {0x86, yesNo},
        {0x87, "128 absolute\n129 relative\n"},
        {0x88, "128 absolute\n129 relative\n"},
        {0x89, "128 address-present\n129 insert-address\n"},
        {0x8A, "128 personal\n129 advertisement\n130 informational\n131 auto\n"},
        {0x8F, "128 low\n129 normal\n130 high\n"},
        {0x90, yesNo},
        {0x91, yesNo},
        {0x94, "128 hide\n129 show\n"},
        {0x99,
         "128 ok\n192 error-transient-failure\n193 error-transient-message-not-found\n"
         "194 error-transient-network-problem\n224 error-permanent-failure\n"
         "225 error-permanent-service-denied\n226 error-permanent-message-not-found\n"
         "227 error-permanent-content-unsupported\n"},
        {0x9B, "128 read\n129 deleted-without-being-read\n"},
        {0x9C, "128 requested\n129 requested-text-only\n130 accepted\n131 accepted-text-only\n"},
        {0x9D, "128 absolute\n129 relative\n"},
        {0xA2, yesNo},
        {0xA3, "128 draft\n129 sent\n130 new\n131 retrieved\n132 forwarded\n"},
        {0xA4, "128 add\n129 remove\n130 filter\n"},
        {0xA5,
         "128 success\n192 error-transient-failure\n193 error-transient-network-problem\n"
         "224 error-permanent-failure\n225 error-permanent-service-denied\n"
         "226 error-permanent-message-format-corrupt\n"
         "227 error-permanent-message-not-found\n228 error-permanent-mmbox-full\n"},
        {0xA7, yesNo},
        {0xA9, yesNo},
        {0xAA, "128 messages\n129 octets\n"},
        {0xAB, yesNo},
        {0xAC, "128 messages\n129 octets\n"},
        {0xB1, yesNo},
        {0xB4, "128 manual\n"},
        {0xBA,
         "128 text\n129 image-basic\n130 image-rich\n131 video-basic\n132 video-rich\n"
         "133 megapixel\n134 content-basic\n135 content-rich\n"},
        {0xBB, yesNo},
        {0xBC, yesNo},
        {0xBF, "128 cancel-request-successfully-received\n129 cancel-request-corrupted\n"},
    };
    for (const TokensRow &row : rows)
        EXPECT_EQ(named(qvlKnownField(row.octet - 0x80)->tokens), row.tokens) << row.octet;
    EXPECT_EQ(qvlKnownField(HeaderFieldCode::MessageType)->tokens.data(),
              QvlMessageType::values().data());
    EXPECT_EQ(qvlKnownField(HeaderFieldCode::ResponseStatus)->tokens.data(),
              QvlResponseStatus::values().data());
    EXPECT_EQ(qvlKnownField(HeaderFieldCode::Status)->tokens.data(), QvlStatus::values().data());
}

} // namespace
