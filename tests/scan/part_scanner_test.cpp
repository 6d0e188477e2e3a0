/*
 * The scanners of bodies and part headers: where everything is, which count holds, how a scan ends,
 * and what holds for truncated bodies.
 */
#include "scan/part_scanner.h"

#include "wire/codec_calls.h"
#include "wire/multipart_octets.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace {

using BodyResult = QvlPartScanner::Result;
using HeaderResult = QvlPartHeaderScanner::Result;

struct BodyScan
{
    explicit BodyScan(const QByteArray &octets)
        : block(octets), scanner(QByteArrayView(block.data(), block.size()))
    {
        QvlScannedPart part;
        while (scanner.next(&part))
            parts.push_back(part);
    }

    HeapBlock block;
    QvlPartScanner scanner;
    std::vector<QvlScannedPart> parts;
};

// The parts lie one after the other, from the count up to position().
void expectTiling(const BodyScan &scan)
{
    qsizetype end = scan.scanner.countSize();
    const auto *begin = reinterpret_cast<const char *>(scan.block.data());
    for (const QvlScannedPart &part : scan.parts) {
        EXPECT_EQ(part.offset, end);
        EXPECT_EQ(part.octets.data(), begin + end);
        end += part.octets.size();
        EXPECT_EQ(part.data.data() + part.data.size(), begin + end);
        EXPECT_EQ(part.headers.data() + part.headers.size(), part.data.data());
        EXPECT_EQ(part.contentTypeOctets.data() + part.contentTypeOctets.size(),
                  part.headers.data());
    }
    EXPECT_EQ(scan.scanner.position(), end);
    EXPECT_LE(end, scan.block.size());
}

// A body of three parts: a coded type without headers; parameters and headers; a text type.
QByteArray threeParts()
{
    return "03 01 02 9E FF D8"_octets // 1
        + "18 01 08 83 81 EA 85 61 62 63 00"_octets // 6
        + "AE 01 81 8E 78 00 C0 22 3C 69 3E 00 41 00 00 2A"_octets // 17
        + "04 81 00 61 2F 62 00"_octets + octet(0x55, 128); // 33
}

TEST(PartScanner, FindsEveryPartWhereItIs)
{
    const BodyScan scan(threeParts());
    expectTiling(scan);
    EXPECT_EQ(scan.scanner.result(), BodyResult::PartsRead);
    EXPECT_EQ(scan.scanner.count(), 3);
    EXPECT_EQ(scan.scanner.countSize(), 1);
    EXPECT_EQ(scan.scanner.position(), scan.block.size());
    ASSERT_EQ(scan.parts.size(), 3u);
    EXPECT_EQ(scan.parts[0].contentTypeOctets, "9E"_octets);
    EXPECT_EQ(scan.parts[0].headers, ""_octets);
    EXPECT_EQ(scan.parts[0].data, "FF D8"_octets);
    EXPECT_EQ(scan.parts[1].index, 1);
    EXPECT_EQ(scan.parts[1].offset, 6);
    EXPECT_EQ(scan.parts[1].contentTypeOctets, "08 83 81 EA 85 61 62 63 00"_octets);
    EXPECT_EQ(scan.parts[1].headers, "AE 01 81 8E 78 00 C0 22 3C 69 3E 00 41 00 00"_octets);
    EXPECT_EQ(scan.parts[1].data, "2A"_octets);
    EXPECT_EQ(scan.parts[2].offset, 33);
    EXPECT_EQ(scan.parts[2].contentTypeOctets, "61 2F 62 00"_octets);
    EXPECT_EQ(scan.parts[2].data, octet(0x55, 128));
}

TEST(PartScanner, KeepsOctetsWithoutAnEndAsContentType)
{
    for (const QByteArray &type : {""_octets, "61"_octets, "05 9E"_octets, "1F 81"_octets}) {
        const BodyScan scan(octet(1) + entryOf(type, "2A"_octets));
        ASSERT_EQ(scan.parts.size(), 1u);
        EXPECT_EQ(scan.parts[0].contentTypeOctets, type);
        EXPECT_EQ(scan.parts[0].headers, ""_octets);
        EXPECT_EQ(scan.parts[0].data, "2A"_octets);
        expectTiling(scan);
    }
}

QByteArray plainParts(int count)
{
    return entryOf("9E"_octets, "41"_octets).repeated(count);
}

struct CountRow
{
    const char *name;
    QByteArray body;
    int count;
    int countSize;
    std::size_t parts;
};

TEST(PartScanner, DecidesWhichCountHolds)
{
    const std::vector<CountRow> rows{
        {"none", "00"_octets, 0, 1, 0},
        {"127", "7F"_octets + plainParts(127), 127, 1, 127},
        {"3 in two octets", "80 03"_octets + plainParts(3), 3, 2, 3},
        {"0 in two octets", "80 00"_octets, 0, 2, 0},
        {"128 as a uintvar", "81 00"_octets + plainParts(128), 128, 2, 128},
        {"128 in one octet", "80"_octets + plainParts(128), 128, 1, 128},
        {"255 in one octet", "FF"_octets + plainParts(255), 255, 1, 255},
        {"256 as a uintvar", "82 00"_octets + plainParts(256), 256, 2, 256},
        {"129 as a uintvar, truncated", "81 01"_octets + plainParts(4), 129, 2, 4},
        {"129 in one octet, truncated", "81"_octets + plainParts(4), 129, 1, 4},
        {"neither", "81 05"_octets, 133, 2, 0},
        {"a uintvar without an end", "83"_octets, 131, 1, 0},
        {"a uintvar past the largest int", "FF FF FF FF FF FF 7F"_octets, 2147483647, 7, 0},
    };
    for (const CountRow &row : rows) {
        SCOPED_TRACE(row.name);
        const BodyScan scan(row.body);
        EXPECT_EQ(scan.scanner.count(), row.count);
        EXPECT_EQ(scan.scanner.countSize(), row.countSize);
        EXPECT_EQ(scan.parts.size(), row.parts);
        expectTiling(scan);
    }
}

struct EndRow
{
    const char *name;
    QByteArray octets; // after a count and a whole part
    BodyResult result;
};

const std::vector<EndRow> &ends()
{
    static const std::vector<EndRow> rows{
        {"nothing", ""_octets, BodyResult::PartMissing},
        {"one length", "01"_octets, BodyResult::LengthWithoutEnd},
        {"half a length", "81"_octets, BodyResult::LengthWithoutEnd},
        {"half a second length", "01 81"_octets, BodyResult::LengthWithoutEnd},
        {"headers of one too many", "02 00 9E"_octets, BodyResult::HeadersTooLong},
        {"headers of 2^31", "88 80 80 80 00 00 9E"_octets, BodyResult::HeadersTooLong},
        {"headers of 2^32 + 1", "90 80 80 80 01 00 9E"_octets, BodyResult::HeadersTooLong},
        {"data of one too many", "01 02 9E 41"_octets, BodyResult::DataTooLong},
        {"data of 2^31 - 1", "01 87 FF FF FF 7F 9E"_octets, BodyResult::DataTooLong},
        {"a part", "01 00 9E"_octets, BodyResult::PartsRead},
        {"more parts", "01 00 9E 01 00 9E"_octets, BodyResult::PartsRead},
    };
    return rows;
}

TEST(PartScanner, EndsWithAResultAPositionAndAReason)
{
    for (const EndRow &row : ends()) {
        SCOPED_TRACE(row.name);
        const BodyScan scan("02 01 00 9E"_octets + row.octets);
        const bool isWhole = row.result == BodyResult::PartsRead;
        EXPECT_EQ(scan.scanner.result(), row.result);
        EXPECT_EQ(scan.parts.size(), isWhole ? 2u : 1u);
        EXPECT_EQ(scan.scanner.position(), isWhole ? 7 : 4);
        expectTiling(scan);
    }
}

TEST(PartScanner, HasAMeaningOfItsOwnForEachResult)
{
    std::set<std::string> meanings{QvlPartScanner("00"_octets).meaning(),
                                   BodyScan(""_octets).scanner.meaning()};
    std::set<BodyResult> results{BodyResult::Scanning, BodyResult::NoCount};
    for (const EndRow &row : ends()) {
        const BodyScan scan("02 01 00 9E"_octets + row.octets);
        const bool isNew = results.insert(row.result).second;
        EXPECT_EQ(meanings.insert(scan.scanner.meaning()).second, isNew) << row.name;
    }
    EXPECT_EQ(results.size(), std::size_t(BodyResult::DataTooLong) + 1);
    EXPECT_EQ(meanings.size(), results.size());
    EXPECT_FALSE(meanings.contains("unknown result"));
}

TEST(PartScanner, LeavesThePartAloneAfterItsEnd)
{
    const QByteArray body = "01 01 00 9E"_octets;
    QvlPartScanner scanner(body);
    QvlScannedPart part;
    ASSERT_TRUE(scanner.next(&part));
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(scanner.next(&part));
        EXPECT_EQ(part.offset, 1);
        EXPECT_EQ(scanner.result(), BodyResult::PartsRead);
    }
}

TEST(PartScanner, FindsNothingInAnEmptyBody)
{
    const BodyScan scan(""_octets);
    EXPECT_EQ(scan.scanner.result(), BodyResult::NoCount);
    EXPECT_EQ(scan.scanner.count(), 0);
    EXPECT_EQ(scan.scanner.countSize(), 0);
}

TEST(PartScanner, FindsTheSamePartsInATruncatedBody)
{
    const QByteArray whole = threeParts();
    const BodyScan all(whole);
    for (qsizetype size = 0; size < whole.size(); ++size) {
        SCOPED_TRACE(size);
        const BodyScan scan(whole.first(size));
        expectTiling(scan);
        ASSERT_LT(scan.parts.size(), all.parts.size());
        for (std::size_t i = 0; i < scan.parts.size(); ++i)
            EXPECT_EQ(scan.parts[i].octets, all.parts[i].octets);
        const qsizetype end = size == 0 ? 0 : all.parts[scan.parts.size()].offset;
        EXPECT_EQ(scan.scanner.position(), end);
        EXPECT_NE(scan.scanner.result(), BodyResult::PartsRead);
    }
}

TEST(ScannedPart, LooksUpWhatItsHeadersSay)
{
    const BodyScan scan(threeParts());
    ASSERT_EQ(scan.parts.size(), 3u);
    const QvlScannedPart &part = scan.parts[1];
    ASSERT_TRUE(part.contentType());
    EXPECT_EQ(part.contentType()->mediaType, "text/plain");
    EXPECT_EQ(part.charset(), 106);
    EXPECT_TRUE(part.transferEncoding().isNull());
    EXPECT_EQ(part.disposition(), "attachment");
    EXPECT_EQ(part.fileName(), "abc");
    EXPECT_EQ(part.location(), "x");
    EXPECT_EQ(part.id(), "<i>");
    EXPECT_EQ(scan.parts[0].charset(), 0);
    EXPECT_TRUE(scan.parts[0].disposition().isNull());
    EXPECT_TRUE(scan.parts[0].fileName().isNull());
    EXPECT_TRUE(scan.parts[0].location().isNull());
    EXPECT_TRUE(scan.parts[0].id().isNull());
}

QvlScannedPart partWith(const QByteArray &headers)
{
    QvlScannedPart part;
    part.headers = headers;
    return part;
}

struct LookupRow
{
    QByteArray headers;
    const char *text;
};

void expectLookups(QString (QvlScannedPart::*lookup)() const, const std::vector<LookupRow> &rows)
{
    for (const LookupRow &row : rows)
        EXPECT_EQ((partWith(row.headers).*lookup)(), QString::fromUtf8(row.text))
            << row.headers.toHex(' ').toStdString();
}

TEST(ScannedPart, ReadsEachFormOfDisposition)
{
    expectLookups(&QvlScannedPart::disposition,
                  {
                      {"AE 01 80"_octets, "form-data"},
                      {"AE 81"_octets, "attachment"},
                      {"C5 01 82"_octets, "inline"},
                      {"AE 01 83"_octets, ""},
                      {"AE 04"_octets + text("abc"), "abc"},
                      {"AE"_octets + text("Attachment"), "attachment"},
                      {text("content-disposition") + text("Inline; filename=a"), "inline"},
                      {"AE 81 AE 82"_octets, "inline"},
                  });
}

TEST(ScannedPart, ReadsEachFormOfFileName)
{
    expectLookups(
        &QvlScannedPart::fileName,
        {
            {"AE 06 81 86 61 2E 62 00"_octets, "a.b"},
            {"C5 06 81 98 22 61 62 00"_octets, "ab"},
            {"AE 0C 81"_octets + text("filename") + text("a"), "a"},
            {text("Content-Disposition") + text("attachment; filename=\"a b.c\"; size=1"), "a b.c"},
        });
    const QByteArray headers = "AE 81"_octets;
    QvlScannedPart part = partWith(headers);
    const QByteArray type = "04 9E 97 6E 00"_octets;
    part.contentTypeOctets = type;
    EXPECT_EQ(part.fileName(), "n");
}

TEST(ScannedPart, ReadsEachFormOfLocationAndId)
{
    expectLookups(&QvlScannedPart::location,
                  {
                      {"8E"_octets + text("a.jpg"), "a.jpg"},
                      {"8E 7F C3 BC 00"_octets, "\xC3\xBC"},
                      {"8E C3 BC 00"_octets, "\xC3\xBC"},
                      {"8E 03 EA 61 00"_octets, "a"},
                      {"8E 61 00 8E 62 00"_octets, "b"},
                      {text("content-location") + text("a"), "a"},
                      {"02 8E 61 00"_octets, ""},
                  });
    expectLookups(&QvlScannedPart::id,
                  {
                      {"C0"_octets + text("\"<a>"), "<a>"},
                      {"C0"_octets + text("\"<a>\""), "<a>"},
                      {"C0"_octets + text("<a>"), "<a>"},
                      {"C0 03 EA 61 00"_octets, "a"},
                      {text("Content-ID") + text("<a>"), "<a>"},
                  });
    expectLookups(&QvlScannedPart::transferEncoding,
                  {
                      {text("Content-Transfer-Encoding") + text("BASE64"), "base64"},
                      {text("content-transfer-encoding") + text(" 7bit"), "7bit"},
                  });
}

struct HeaderScan
{
    explicit HeaderScan(const QByteArray &octets)
        : block(octets), scanner(QByteArrayView(block.data(), block.size()))
    {
        QvlScannedHeader header;
        while (scanner.next(&header))
            headers.push_back(header);
    }

    HeapBlock block;
    QvlPartHeaderScanner scanner;
    std::vector<QvlScannedHeader> headers;
};

void expectPlaces(const HeaderScan &scan)
{
    qsizetype end = 0;
    const auto *begin = reinterpret_cast<const char *>(scan.block.data());
    for (const QvlScannedHeader &header : scan.headers) {
        EXPECT_GE(header.offset, end);
        EXPECT_EQ(header.octets.data(), begin + header.offset);
        end = header.offset + header.octets.size();
        EXPECT_EQ(header.value.data() + header.value.size(), begin + end);
        EXPECT_GT(header.value.size(), 0);
        EXPECT_EQ(header.letters.isEmpty(), header.code != QvlScannedField::NoCode);
    }
    EXPECT_GE(scan.scanner.position(), end);
    EXPECT_LE(scan.scanner.position(), scan.block.size());
}

/// "2@3 Accept(0) 5": page and offset, name, code and number or text.
std::string described(const QvlScannedHeader &header)
{
    std::string text = std::to_string(header.page) + "@" + std::to_string(header.offset) + " ";
    text += header.name ? header.name : header.letters.toByteArray().toStdString();
    if (header.code != QvlScannedField::NoCode)
        text += "(" + std::to_string(header.code) + ")";
    if (header.number() >= 0)
        text += " " + std::to_string(header.number());
    if (!header.text().isNull())
        text += " \"" + header.text().toStdString() + "\"";
    return text;
}

QByteArray manyHeaders()
{
    return "8B 80 8D 02 01 00"_octets // 0, 2
        + "8E 61 00 AE 02 81 80"_octets // 6, 9
        + "58 00 C3 BC 00 FF 1F 02 01 02"_octets // 13, 18
        + "C0 22 3C 61 3E 00 C7 00"_octets // 23, 29
        + "04 8E 80 7F C8 7F 01 8E C3 00"_octets; // 32, 38
}

TEST(PartHeaderScanner, FindsEveryHeaderWhereItIs)
{
    const HeaderScan scan(manyHeaders());
    std::vector<std::string> headers;
    for (const QvlScannedHeader &header : scan.headers)
        headers.push_back(described(header));
    EXPECT_EQ(headers,
              (std::vector<std::string>{"1@0 Content-Encoding(11) 0", "1@2 Content-Length(13) 256",
                                        "1@6 Content-Location(14) \"a\"",
                                        "1@9 Content-Disposition(46) 33152", "1@13 X \"\xC3\xBC\"",
                                        "1@18 (127)", "1@23 Content-ID(64) \"<a>\"",
                                        "1@29 Cache-Control(71) \"\"", "4@32 (14) 0",
                                        "1@38 Content-Location(14) \"\xC3\x83\""}));
    EXPECT_EQ(scan.scanner.result(), HeaderResult::HeadersRead);
    EXPECT_EQ(scan.scanner.position(), scan.block.size());
    expectPlaces(scan);
}

TEST(PartHeaderScanner, NamesTheAssignedCodes)
{
    const std::vector<std::pair<int, const char *>> rows{
        {0x00, "Accept"},
        {0x0A, "Content-Base"},
        {0x0B, "Content-Encoding"},
        {0x0C, "Content-Language"},
        {0x0D, "Content-Length"},
        {0x0E, "Content-Location"},
        {0x0F, "Content-MD5"},
        {0x10, "Content-Range"},
        {0x11, "Content-Type"},
        {0x12, "Date"},
        {0x20, "Proxy-Authenticate"},
        {0x2E, "Content-Disposition"},
        {0x30, "X-Wap-Content-URI"},
        {0x38, "Expect"},
        {0x40, "Content-ID"},
        {0x43, "Encoding-Version"},
        {0x45, "Content-Disposition"},
        {0x47, "Cache-Control"},
    };
    for (const auto &[code, name] : rows) {
        const HeaderScan scan(octet(0x80 | code) + "61 00"_octets);
        ASSERT_EQ(scan.headers.size(), 1u);
        EXPECT_STREQ(scan.headers[0].name, name);
    }
    EXPECT_EQ(HeaderScan("C8 80"_octets).headers.at(0).name, nullptr);
}

struct HeaderEndRow
{
    QByteArray octets; // after a whole header of two octets
    HeaderResult result;
    int position;
};

const std::vector<HeaderEndRow> &headerEnds()
{
    static const std::vector<HeaderEndRow> rows{
        {""_octets, HeaderResult::HeadersRead, 2},
        {"05"_octets, HeaderResult::HeadersRead, 3},
        {"7F 05 1F"_octets, HeaderResult::HeadersRead, 5},
        {"00"_octets, HeaderResult::NoHeader, 2},
        {"02 00"_octets, HeaderResult::NoHeader, 3},
        {"7F"_octets, HeaderResult::NoPage, 2},
        {"8B"_octets, HeaderResult::NoValue, 2},
        {"41 00"_octets, HeaderResult::NoValue, 2},
        {"41"_octets, HeaderResult::NameWithoutEnd, 2},
        {"8E 61"_octets, HeaderResult::ValueWithoutEnd, 2},
        {"8E C3"_octets, HeaderResult::ValueWithoutEnd, 2},
        {"41 00 C3"_octets, HeaderResult::ValueWithoutEnd, 2},
        {"8B 02 01"_octets, HeaderResult::ValueWithoutEnd, 2},
        {"8B 1F 81"_octets, HeaderResult::ValueWithoutEnd, 2},
        {"8B 1F 87 FF FF FF 7F 00"_octets, HeaderResult::ValueWithoutEnd, 2},
    };
    return rows;
}

TEST(PartHeaderScanner, EndsWithAResultAPositionAndAReason)
{
    std::set<std::string> meanings{QvlPartHeaderScanner({}).meaning()};
    std::set<HeaderResult> results{HeaderResult::Scanning};
    for (const HeaderEndRow &row : headerEnds()) {
        SCOPED_TRACE(row.octets.toHex(' ').toStdString());
        const HeaderScan scan("8B 80"_octets + row.octets);
        EXPECT_EQ(scan.headers.size(), 1u);
        EXPECT_EQ(scan.scanner.result(), row.result);
        EXPECT_EQ(scan.scanner.position(), row.position);
        const bool isNew = results.insert(row.result).second;
        EXPECT_EQ(meanings.insert(scan.scanner.meaning()).second, isNew);
        expectPlaces(scan);
    }
    EXPECT_EQ(results.size(), std::size_t(HeaderResult::ValueWithoutEnd) + 1);
    EXPECT_FALSE(meanings.contains("unknown result"));
}

TEST(PartHeaderScanner, FindsTheSameHeadersInTruncatedOnes)
{
    const QByteArray whole = manyHeaders();
    const HeaderScan all(whole);
    for (qsizetype size = 0; size < whole.size(); ++size) {
        SCOPED_TRACE(size);
        const HeaderScan scan(whole.first(size));
        expectPlaces(scan);
        ASSERT_LT(scan.headers.size(), all.headers.size());
        qsizetype end = 0;
        for (std::size_t i = 0; i < scan.headers.size(); ++i) {
            EXPECT_EQ(scan.headers[i].octets, all.headers[i].octets);
            end = scan.headers[i].offset + scan.headers[i].octets.size();
        }
        const QvlScannedHeader &next = all.headers[scan.headers.size()];
        EXPECT_LT(size, next.offset + next.octets.size());
        EXPECT_GE(scan.scanner.position(), end);
    }
}

} // namespace
