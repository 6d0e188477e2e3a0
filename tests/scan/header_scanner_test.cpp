/*
 * The scanner: where fields and values begin and end, each form of length, how a scan ends, and
 * what holds for headers that break off or lie about their lengths.
 */
#include "scan/header_scanner.h"

#include "scan/scanned_fields.h"
#include "wire/codec_calls.h"
#include "wire/header_decoder.h"
#include "wire/header_pdus.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace {

using Result = QvlHeaderScanner::Result;

struct PlaceRow
{
    const char *name; // of the standard or in letters; null for neither
    int code;
    int offset;
    int valueOffset;
    int valueSize;
};

void expectPlaces(const Scan &scan, const std::vector<PlaceRow> &rows)
{
    ASSERT_EQ(scan.fields.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(i);
        const QvlScannedField &field = scan.fields[i];
        EXPECT_EQ(nameOf(field), rows[i].name);
        EXPECT_EQ(field.code, rows[i].code);
        EXPECT_EQ(field.offset, rows[i].offset);
        EXPECT_EQ(field.valueOffset(), rows[i].valueOffset);
        EXPECT_EQ(field.value.size(), rows[i].valueSize);
    }
    expectTiling(scan);
}

// A header of MMS 1.2 with a field in letters and an unassigned code.
QByteArray laterHeader()
{
    return "8C 84 98 54 31 00 8D 92"_octets // 0, 2, 6
        + "99 80 9A 04 EA 6F 6B 00"_octets // 8, 10
        + "A0 05 81 61 40 62 00 A1 03 81 01 09"_octets // 16, 23
        + "58 2D 41 00 6F 6E 00 C5 02 01 02"_octets // 28, 35
        + "BC 81 84 1F 03 B3 8A 00"_octets // 39, 41
        + "03 01 02"_octets; // 47, the body
}

TEST(HeaderScanner, FindsEveryFieldWhereItIs)
{
    const Scan scan(laterHeader());
    expectPlaces(scan,
                 {{"Message-Type", 12, 0, 1, 1},
                  {"Transaction-Id", 24, 2, 3, 3},
                  {"MMS-Version", 13, 6, 7, 1},
                  {"Retrieve-Status", 25, 8, 9, 1},
                  {"Retrieve-Text", 26, 10, 11, 5},
                  {"Previously-Sent-By", 32, 16, 17, 6},
                  {"Previously-Sent-Date", 33, 23, 24, 4},
                  {"X-A", -1, 28, 32, 3},
                  {"", 69, 35, 36, 3},
                  {"Adaptation-Allowed", 60, 39, 40, 1},
                  {"Content-Type", 4, 41, 42, 5}});
    EXPECT_EQ(scan.scanner.result(), Result::ContentTypeRead);
    EXPECT_TRUE(scan.scanner.isComplete());
    EXPECT_EQ(scan.scanner.position(), 47);
}

struct LengthRow
{
    const char *name;
    QByteArray value;
};

TEST(HeaderScanner, PassesOverEachFormOfValue)
{
    const std::vector<LengthRow> rows{
        {"the least octet", "80"_octets},
        {"the largest octet", "FF"_octets},
        {"no octets", "00"_octets},
        {"one octet", "01 AA"_octets},
        {"30 octets", "1E"_octets + octet(0x99, 30)},
        {"a uintvar of 0", "1F 00"_octets},
        {"a uintvar of 31", "1F 1F"_octets + octet(0x84, 31)},
        {"a uintvar of 128", "1F 81 00"_octets + octet(0, 128)},
        {"a uintvar with zeros in front", "1F 80 80 80 80 80 80 80 01 AA"_octets},
        {"a text", "20 00"_octets},
        {"a text of octets from 80 on", "61 84 99 00"_octets},
        {"a text with a quote", "7F 84 00"_octets},
        {"a quote alone", "7F 00"_octets},
    };
    for (const LengthRow &row : rows) {
        SCOPED_TRACE(row.name);
        const Scan scan("B9"_octets + row.value + "99 80"_octets);
        ASSERT_EQ(scan.fields.size(), 2u);
        EXPECT_EQ(scan.fields[0].value, row.value);
        EXPECT_EQ(scan.fields[1].code, 25);
        EXPECT_EQ(scan.scanner.result(), Result::DataRead);
        expectTiling(scan);
    }
}

TEST(HeaderScanner, TakesTheValueOfAFieldInLettersForAText)
{
    for (const QByteArray &value :
         {"00"_octets, "05 00"_octets, "84 99 00"_octets, "7F 00"_octets}) {
        const Scan scan("7E 41 00"_octets + value + "99 80"_octets);
        ASSERT_EQ(scan.fields.size(), 2u) << value.toHex().toStdString();
        EXPECT_EQ(scan.fields[0].letters, "~A");
        EXPECT_EQ(scan.fields[0].value, value);
    }
}

struct EndRow
{
    const char *name;
    QByteArray octets; // after a whole field of two octets
    Result result;
};

const std::vector<EndRow> &ends()
{
    static const std::vector<EndRow> rows{
        {"nothing", ""_octets, Result::DataRead},
        {"Content-Type", "84 A3"_octets, Result::ContentTypeRead},
        {"a zero", "00 84 A3"_octets, Result::NoField},
        {"the octet 1", "01 84"_octets, Result::NoField},
        {"the octet 31", "1F 84"_octets, Result::NoField},
        {"the octet 127", "7F 41 00 42 00"_octets, Result::NoField},
        {"a code alone", "99"_octets, Result::NoValue},
        {"Content-Type alone", "84"_octets, Result::NoValue},
        {"a name alone", "41 00"_octets, Result::NoValue},
        {"a name without an end", "41"_octets, Result::TextWithoutEnd},
        {"a text without an end", "98 54"_octets, Result::TextWithoutEnd},
        {"a quote", "98 7F"_octets, Result::TextWithoutEnd},
        {"a text in letters without an end", "41 00 42"_octets, Result::TextWithoutEnd},
        {"no uintvar", "98 1F"_octets, Result::LengthWithoutEnd},
        {"half a uintvar", "98 1F 81"_octets, Result::LengthWithoutEnd},
        {"a uintvar that does not end", "98 1F"_octets + octet(0xFF, 100000),
         Result::LengthWithoutEnd},
        {"a length of one too many", "98 02 80"_octets, Result::LengthTooLarge},
        {"a length of 30", "98 1E"_octets, Result::LengthTooLarge},
        {"a uintvar of one too many", "98 1F 02 80"_octets, Result::LengthTooLarge},
        {"2^31 - 1", "98 1F 87 FF FF FF 7F 80"_octets, Result::LengthTooLarge},
        {"2^31", "98 1F 88 80 80 80 00 80"_octets, Result::LengthTooLarge},
        {"2^32 + 1", "98 1F 90 80 80 80 01 80"_octets, Result::LengthTooLarge},
        {"2^64 + 1", "98 1F 82 80 80 80 80 80 80 80 80 01 80"_octets, Result::LengthTooLarge},
        {"a uintvar of 100,001 octets", "98 1F"_octets + octet(0xFF, 100000) + octet(1),
         Result::LengthTooLarge},
    };
    return rows;
}

TEST(HeaderScanner, EndsWithAResultAPositionAndAReason)
{
    for (const EndRow &row : ends()) {
        SCOPED_TRACE(row.name);
        const Scan scan("8C 84"_octets + row.octets);
        EXPECT_EQ(scan.scanner.result(), row.result);
        EXPECT_EQ(scan.scanner.position(), row.result == Result::ContentTypeRead ? 4 : 2);
        EXPECT_EQ(scan.scanner.isComplete(),
                  row.result == Result::ContentTypeRead || row.result == Result::DataRead);
        expectTiling(scan);
    }
}

TEST(HeaderScanner, HasAMeaningOfItsOwnForEachResult)
{
    std::set<std::string> meanings{QvlHeaderScanner({}).meaning()};
    std::set<Result> results{Result::Scanning};
    for (const EndRow &row : ends()) {
        const Scan scan(row.octets);
        const bool isNew = results.insert(row.result).second;
        EXPECT_EQ(meanings.insert(scan.scanner.meaning()).second, isNew) << row.name;
    }
    EXPECT_EQ(results.size(), std::size_t(Result::LengthTooLarge) + 1);
    EXPECT_FALSE(meanings.contains("unknown result"));
}

TEST(HeaderScanner, LeavesTheFieldAloneAfterItsEnd)
{
    const QByteArray header = "84 A3 99 80"_octets;
    QvlHeaderScanner scanner(header);
    QvlScannedField field;
    ASSERT_TRUE(scanner.next(&field));
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(scanner.next(&field));
        EXPECT_EQ(field.code, 4);
        EXPECT_EQ(scanner.result(), Result::ContentTypeRead);
        EXPECT_EQ(scanner.position(), 2);
    }
}

TEST(HeaderScanner, ScansNoOctets)
{
    for (const QByteArrayView octets : {QByteArrayView(), QByteArrayView("")}) {
        QvlHeaderScanner scanner(octets);
        QvlScannedField field;
        EXPECT_FALSE(scanner.next(&field));
        EXPECT_EQ(scanner.result(), Result::DataRead);
        EXPECT_EQ(scanner.position(), 0);
    }
}

TEST(HeaderScanner, FindsTheSameFieldsInATruncatedHeader)
{
    expectSameFieldsWhenTruncated(laterHeader());
}

TEST(HeaderScanner, FindsTheFieldsThatTheDecoderReads)
{
    for (const HeaderPdus::Pdu &pdu : HeaderPdus::validPdus()) {
        SCOPED_TRACE(pdu.name);
        const Scan scan(pdu.octets);
        expectTiling(scan);
        EXPECT_TRUE(scan.scanner.isComplete());

        MMS_UA_UAMsg msg;
        ASSERT_EQ(MMS_UA_Decoder().decodeHeader(pdu.octets, &msg), WireResult::Read);
        EXPECT_EQ(pdu.octets.size() - msg.getBodyLength(), scan.scanner.position());
        unsigned int present = 0;
        for (const QvlScannedField &field : scan.fields)
            present |= presenceBit(field.code);
        EXPECT_EQ(msg.getFieldsPresent(), present);
    }
}

TEST(HeaderScanner, ScansAMillionFields)
{
    const QByteArray header = QByteArray("\x99\x80").repeated(1000000);
    QvlHeaderScanner scanner(header);
    QvlScannedField field;
    int count = 0;
    while (scanner.next(&field))
        ++count;
    EXPECT_EQ(count, 1000000);
    EXPECT_EQ(scanner.position(), 2000000);
}

} // namespace
