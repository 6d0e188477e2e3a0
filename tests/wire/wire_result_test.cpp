/*
 * Result codes: their published numbers, their meanings in words, and a call that returns each.
 */
#include "wire/wire_result.h"

#include "support/octets.h"
#include "wire/address.h"
#include "wire/header_decoder.h"
#include "wire/header_record.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

namespace {

unsigned char decode(const QByteArray &pdu)
{
    const HeapBlock block(pdu);
    auto length = static_cast<unsigned int>(block.size());
    MMS_UA_UAMsg msg;
    return MMS_UA_Decoder().decodeHeader(block.data(), length, &msg);
}

unsigned char decodeNothing()
{
    unsigned int length = 0;
    MMS_UA_UAMsg msg;
    return MMS_UA_Decoder().decodeHeader(nullptr, length, &msg);
}

unsigned char writeAddress(unsigned char type)
{
    Output output;
    return AddressBinary::writeTo(output, MMS_UTIL_Entry("", type, "a"));
}

struct ResultRow
{
    const char *name;
    unsigned char code;
    int number;
    std::function<unsigned char()> provoke;
};

const std::vector<ResultRow> &resultRows()
{
    static const std::vector<ResultRow> rows{
        {"Read", WireResult::Read, 0, [] { return decode("8C 80"_octets); }},
        {"BadArgument", WireResult::BadArgument, 2, decodeNothing},
        {"UnknownField", WireResult::UnknownField, 3, [] { return decode("99 80"_octets); }},
        {"UnsupportedContentType", WireResult::UnsupportedContentType, 7,
         [] { return decode("84 03 83 81 EA"_octets); }},
        {"OutOfData", WireResult::OutOfData, 9, [] { return decode("02"_octets); }},
        {"Written", WireResult::Written, 10, [] { return writeAddress(0); }},
        {"CannotWrite", WireResult::CannotWrite, 16, [] { return writeAddress(2); }},
    };
    return rows;
}

TEST(WireResult, HasThePublishedNumbersAndCanBeProvoked)
{
    for (const ResultRow &row : resultRows()) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.code, row.number);
        EXPECT_EQ(row.provoke(), row.number);
    }
}

TEST(WireResult, HasAMeaningOfItsOwnForEachCode)
{
    const std::string unknown = WireResult::meaning(255);
    EXPECT_FALSE(unknown.empty());
    std::set<std::string> meanings{unknown};
    for (const ResultRow &row : resultRows()) {
        SCOPED_TRACE(row.name);
        const std::string meaning = WireResult::meaning(row.code);
        EXPECT_FALSE(meaning.empty());
        EXPECT_NE(meaning.back(), '.');
        EXPECT_TRUE(meanings.insert(meaning).second) << meaning;
    }
}

TEST(WireResult, HasTheSameMeaningForEveryUnassignedCode)
{
    const std::set<int> assigned{0, 2, 3, 7, 9, 10, 16};
    for (int code = 0; code < 256; ++code) {
        const char *meaning = WireResult::meaning(static_cast<unsigned char>(code));
        ASSERT_NE(meaning, nullptr) << code;
        const bool unknown = std::string(meaning) == WireResult::meaning(255);
        EXPECT_NE(unknown, assigned.contains(code)) << code;
    }
}

} // namespace
