/*
 * One entry of a multipart body, read and written. Rows for reading contain content type and
 * headers; entryOf() adds the lengths, unless the test is about the lengths.
 */
#include "wire/multipart_entry.h"

#include "multipart/part_facts.h"
#include "wire/multipart_octets.h"
#include "wire/wire_result.h"

#include <QLoggingCategory>
#include <QStringList>

#include <gtest/gtest.h>

#include <tuple>

namespace {

struct ReadRow
{
    const char *name;
    QByteArray octets;
    PartFacts facts = {};
    unsigned char result = WireResult::Read;
};

struct ReadEntry
{
    explicit ReadEntry(const QByteArray &octets)
        : input(octets), result(Multipart_Entry::readFrom(input, &part))
    {
    }

    Input input;
    Part part;
    unsigned char result;
};

void expectEntries(std::initializer_list<ReadRow> rows)
{
    for (const ReadRow &row : rows) {
        SCOPED_TRACE(row.name);
        const ReadEntry entry(row.octets);
        EXPECT_EQ(entry.result, row.result);
        EXPECT_EQ(factsOf(entry.part), row.facts);
    }
}

void expectHeaders(std::initializer_list<ReadRow> rows)
{
    for (const ReadRow &row : rows)
        expectEntries({{row.name, entryOf(row.octets), row.facts, row.result}});
}

void expectData(const QByteArray &headers, const PartFacts &common,
                std::initializer_list<std::pair<QByteArray, QByteArray>> rows)
{
    for (const auto &[octets, stored] : rows) {
        SCOPED_TRACE(octets.toHex(' ').constData());
        PartFacts facts = common;
        facts.data = stored;
        expectEntries({{"data", entryOf(headers, octets), facts}});
    }
}

} // namespace

TEST(MultipartEntryRead, ContentTypeOfOneOctetIsAWellKnownCode)
{
    expectHeaders({
        {"lowest", "80"_octets, {.format = "*/*"}},
        {"text/plain", "83"_octets, {.format = "text/plain"}},
        {"image/jpeg", "9E"_octets, {.format = "image/jpeg"}},
        {"written as text, read as code", "C5"_octets, {.format = "application/vnd.wap.xhtml+xml"}},
        {"not assigned", "FF"_octets, {.format = "/"}},
    });
}

TEST(MultipartEntryRead, ContentTypeMayBeABareText)
{
    expectHeaders({
        {"plain", zeroEnded("image/png"), {.format = "image/png"}},
        {"lowest first octet", "20 61 2F 62 00"_octets, {.format = " a/b"}},
        {"quoted", "7F 61 2F 62 00"_octets, {.format = "a/b"}},
        {"quoted and empty", "7F 00"_octets, {.format = "/"}},
        {"parameters are truncated",
         zeroEnded("text/plain;charset=utf-8"),
         {.format = "text/plain"}},
        {"truncated at the first", zeroEnded("a/b;c/d;e/f"), {.format = "a/b"}},
        {"nothing before the semicolon", zeroEnded(";a/b"), {.format = "/"}},
        {"without slash", zeroEnded("jpeg"), {.format = "/"}},
        {"two slashes", zeroEnded("a/b/c"), {.format = "a/c"}},
        {"case stays", zeroEnded("Image/PNG"), {.format = "Image/PNG"}},
        {"Latin-1", "61 2F E9 00"_octets, {.format = QString::fromLatin1("a/\xE9")}},
        {"a code after it is not a parameter", "61 2F 62 00 81 EA"_octets, {.format = "a/b"}},
    });
}

TEST(MultipartEntryRead, OldNameOfTheMelodyFormatBecomesAudio)
{
    expectHeaders({
        {"lower case", zeroEnded("text/x-imelody"), {.format = "audio/imelody"}},
        {"as written", zeroEnded("text/x-iMelody"), {.format = "audio/imelody"}},
        {"upper case, parameters", zeroEnded("TEXT/X-IMELODY;a=b"), {.format = "audio/imelody"}},
        {"other text", zeroEnded("text/x-imelody "), {.format = "text/x-imelody "}},
    });
}

// The header C0 78 00 follows each content type: after a wrong length, its first octet is read as a
// parameter and the Content-ID is lost.
TEST(MultipartEntryRead, ContentTypeMayHaveTheGeneralForm)
{
    expectHeaders({
        {"code", "01 9E C0 78 00"_octets, {.format = "image/jpeg", .id = "x"}},
        {"length 0", "00 9E C0 78 00"_octets, {.format = "image/jpeg", .id = "x"}},
        {"long form of the length",
         "1F 01 9E C0 78 00"_octets,
         {.format = "image/jpeg", .id = "x"}},
        {"code not assigned", "01 FF C0 78 00"_octets, {.format = "/", .id = "x"}},
        {"text", "04 61 2F 62 00 C0 78 00"_octets, {.format = "a/b", .id = "x"}},
        {"empty text", "01 00 C0 78 00"_octets, {.format = "/", .id = "x"}},
        {"empty text, parameter",
         "03 00 81 EA C0 78 00"_octets,
         {.format = "/", .charset = "UTF8", .id = "x"}},
        {"quoted text", "05 7F 61 2F 62 00 C0 78 00"_octets, {.format = "a/b", .id = "x"}},
        {"quoted text, parameter",
         "07 7F 61 2F 62 00 81 EA C0 78 00"_octets,
         {.format = "a/b", .charset = "UTF8", .id = "x"}},
        {"text with parameter",
         "06 61 2F 62 00 81 EA C0 78 00"_octets,
         {.format = "a/b", .charset = "UTF8", .id = "x"}},
        {"truncated text counts whole",
         "08 61 2F 62 3B 63 00 81 EA C0 78 00"_octets,
         {.format = "a/b", .charset = "UTF8", .id = "x"}},
        {"renamed text counts as it was",
         "11"_octets + zeroEnded("text/x-imelody") + "81 EA C0 78 00"_octets,
         {.format = "audio/imelody", .charset = "UTF8", .id = "x"}},
        {"length shorter than the text",
         "02 61 2F 62 00 C0 78 00"_octets,
         {.format = "a/b", .id = "x"}},
    });
}

TEST(MultipartEntryRead, LongestShortAndShortestLongValueLength)
{
    const PartFacts jpeg = {.format = "image/jpeg", .id = "x"};
    const QByteArray id = "C0 78 00"_octets;
    expectHeaders({
        {"30", "1E 9E"_octets + octet(0x20, 29) + id, jpeg},
        {"31", "1F 1F 9E"_octets + octet(0x20, 30) + id, jpeg},
        {"128", "1F 81 00 9E"_octets + octet(0x20, 127) + id, jpeg},
    });
}

TEST(MultipartEntryRead, CharsetParameterIsRead)
{
    expectHeaders({
        {"UTF-8",
         "03 83 81 EA C0 78 00"_octets,
         {.format = "text/plain", .charset = "UTF8", .id = "x"}},
        {"UTF-8 as long integer",
         "05 83 81 02 00 6A C0 78 00"_octets,
         {.format = "text/plain", .charset = "UTF8", .id = "x"}},
        {"US-ASCII is called UTF8 too",
         "03 83 81 83 C0 78 00"_octets,
         {.format = "text/plain", .charset = "UTF8", .id = "x"}},
        {"integer of no octets",
         "03 83 81 00 C0 78 00"_octets,
         {.format = "text/plain", .charset = "UTF8", .id = "x"}},
        {"UCS-2",
         "05 83 81 02 03 E8 C0 78 00"_octets,
         {.format = "text/plain", .charset = "UCS2", .id = "x"}},
        {"of a picture",
         "03 9E 81 EA C0 78 00"_octets,
         {.format = "image/jpeg", .charset = "UTF8", .id = "x"}},
        {"the last one counts",
         "07 83 81 02 03 E8 81 EA C0 78 00"_octets,
         {.format = "text/plain", .charset = "UTF8", .id = "x"}},
    });
}

TEST(MultipartEntryRead, NameParameterIsTheLocation)
{
    expectHeaders({
        {"plain",
         "04 9E 85 6E 00 C0 78 00"_octets,
         {.format = "image/jpeg", .location = "n", .id = "x"}},
        {"quoted",
         "05 9E 85 7F 6E 00 C0 78 00"_octets,
         {.format = "image/jpeg", .location = "n", .id = "x"}},
        {"empty", "03 9E 85 00 C0 78 00"_octets, {.format = "image/jpeg", .id = "x"}},
        {"Latin-1 though written as UTF-8",
         "06 9E 85 7F C3 A9 00 C0 78 00"_octets,
         {.format = "image/jpeg", .location = QString::fromLatin1("\xC3\xA9"), .id = "x"}},
        {"goes on past the value-length",
         "02 9E 85 6E 6F 00 C0 78 00"_octets,
         {.format = "image/jpeg", .location = "no", .id = "x"}},
        {"after a charset",
         "06 83 81 EA 85 6E 00 C0 78 00"_octets,
         {.format = "text/plain", .charset = "UTF8", .location = "n", .id = "x"}},
        {"before a charset",
         "06 83 85 6E 00 81 EA C0 78 00"_octets,
         {.format = "text/plain", .charset = "UTF8", .location = "n", .id = "x"}},
        {"no limit of 1,024 octets",
         "1F 8F 53 9E 85"_octets + QByteArray(2000, 'a') + "00 C0 78 00"_octets,
         {.format = "image/jpeg", .location = QString(2000, 'a'), .id = "x"}},
    });
}

TEST(MultipartEntryRead, NameWithAStrayBeginningLosesItsFirstAndLastCharacter)
{
    const std::pair<QByteArray, QString> rows[] = {
        {")&&locStr.endsWith(", "&&locStr.endsWith"},
        {")&&locStr.endsWith(abc)", "&&locStr.endsWith(abc"},
        {")&&locStr.endsWith", ")&&locStr.endsWith"},
        {")&&locstr.endsWith(a", ")&&locstr.endsWith(a"},
        {"a)&&locStr.endsWith(", "a)&&locStr.endsWith("},
    };
    for (const auto &[name, location] : rows) {
        SCOPED_TRACE(name.constData());
        const auto length = octet(int(name.size()) + 3); // media octet, parameter, terminator
        const ReadEntry entry(entryOf(length + "9E 85"_octets + zeroEnded(name)));
        EXPECT_EQ(entry.result, WireResult::Read);
        EXPECT_EQ(entry.part.getContentLocation(), location);
    }
}

TEST(MultipartEntryRead, StrayBeginningStaysInTheContentLocationHeader)
{
    expectHeaders({{"header",
                    "9E 8E"_octets + zeroEnded(")&&locStr.endsWith(a)"),
                    {.format = "image/jpeg", .location = ")&&locStr.endsWith(a)"}}});
}

TEST(MultipartEntryRead, UnknownParametersAreSkippedOctetByOctet)
{
    expectHeaders({
        {"values are parameters again",
         "04 9E 89 61 62 C0 78 00"_octets,
         {.format = "image/jpeg", .id = "x"}},
        {"a value may look like a name",
         "05 9E 89 85 6E 00 C0 78 00"_octets,
         {.format = "image/jpeg", .location = "n", .id = "x"}},
        {"a value may look like a charset",
         "04 9E 89 81 EA C0 78 00"_octets,
         {.format = "image/jpeg", .charset = "UTF8", .id = "x"}},
        {"headers are not parameters",
         "04 9E C0 78 00 C0 79 00"_octets,
         {.format = "image/jpeg", .id = "y"}},
    });
}

TEST(MultipartEntryRead, ContentLocationHeaderIsUtf8AndReplacesTheName)
{
    expectHeaders({
        {"plain", "9E 8E 61 2E 62 00"_octets, {.format = "image/jpeg", .location = "a.b"}},
        {"quoted",
         "9E 8E 7F C3 A9 00"_octets,
         {.format = "image/jpeg", .location = QString::fromLatin1("\xE9")}},
        {"not quoted",
         "9E 8E C3 A9 00"_octets,
         {.format = "image/jpeg", .location = QString::fromLatin1("\xE9")}},
        {"a second 127 is a character",
         "9E 8E 7F 7F 61 00"_octets,
         {.format = "image/jpeg",
          .location = QString::fromLatin1("\x7F"
                                          "a")}},
        {"replaces the name",
         "04 9E 85 6E 00 8E 61 00"_octets,
         {.format = "image/jpeg", .location = "a"}},
        {"replaces it with nothing", "04 9E 85 6E 00 8E 00"_octets, {.format = "image/jpeg"}},
        {"nothing after a quote", "04 9E 85 6E 00 8E 7F 00"_octets, {.format = "image/jpeg"}},
        {"an empty one ends at once",
         "9E 8E 00 C0 78 00"_octets,
         {.format = "image/jpeg", .id = "x"}},
        {"the last one counts",
         "9E 8E 61 00 8E 62 00"_octets,
         {.format = "image/jpeg", .location = "b"}},
        {"quote and terminator are counted",
         "9E 8E 7F 61 00 C0 78 00"_octets,
         {.format = "image/jpeg", .location = "a", .id = "x"}},
    });
}

TEST(MultipartEntryRead, ContentLocationTakes1024Octets)
{
    const PartFacts jpeg = {.format = "image/jpeg"};
    const PartFacts longest = {.format = "image/jpeg", .location = QString(1024, 'a')};
    const PartFacts accents = {.format = "image/jpeg", .location = QString(512, QChar(0xE9))};
    const QByteArray e = "C3 A9"_octets;
    expectHeaders({
        {"1024", "9E 8E"_octets + zeroEnded(QByteArray(1024, 'a')), longest},
        {"1024 quoted", "9E 8E 7F"_octets + zeroEnded(QByteArray(1024, 'a')), longest},
        {"512 of two octets", "9E 8E"_octets + zeroEnded(e.repeated(512)), accents},
        {"1025", "9E 8E"_octets + zeroEnded(QByteArray(1025, 'a')), jpeg, WireResult::OutOfData},
        {"1025 quoted", "9E 8E 7F"_octets + zeroEnded(QByteArray(1025, 'a')), jpeg,
         WireResult::OutOfData},
        {"513 of two octets", "9E 8E"_octets + zeroEnded(e.repeated(513)), jpeg,
         WireResult::OutOfData},
    });
}

TEST(MultipartEntryRead, ContentIdHeaderWithAndWithoutQuote)
{
    expectHeaders({
        {"quote", "9E C0 22 3C 61 3E 00"_octets, {.format = "image/jpeg", .id = "<a>"}},
        {"no quote", "9E C0 3C 61 3E 00"_octets, {.format = "image/jpeg", .id = "<a>"}},
        {"only one quote is dropped",
         "9E C0 22 22 61 00"_octets,
         {.format = "image/jpeg", .id = "\"a"}},
        {"closing quote stays", "9E C0 22 61 22 00"_octets, {.format = "image/jpeg", .id = "a\""}},
        {"text quote",
         "9E C0 7F E9 00"_octets,
         {.format = "image/jpeg", .id = QString::fromLatin1("\xE9")}},
        {"both quotes",
         "9E C0 22 7F E9 00"_octets,
         {.format = "image/jpeg", .id = QString::fromLatin1("\xE9")}},
        {"Latin-1",
         "9E C0 C3 A9 00"_octets,
         {.format = "image/jpeg", .id = QString::fromLatin1("\xC3\xA9")}},
        {"empty", "9E C0 00 8E 61 00"_octets, {.format = "image/jpeg", .location = "a"}},
        {"empty after the quote",
         "9E C0 22 00 8E 61 00"_octets,
         {.format = "image/jpeg", .location = "a"}},
        {"before a location",
         "9E C0 22 78 00 8E 61 00"_octets,
         {.format = "image/jpeg", .location = "a", .id = "x"}},
        {"the last one counts", "9E C0 78 00 C0 79 00"_octets, {.format = "image/jpeg", .id = "y"}},
    });
}

TEST(MultipartEntryRead, UnknownHeadersAreSkippedOctetByOctet)
{
    expectHeaders({
        {"short value", "9E AE 81 C0 78 00"_octets, {.format = "image/jpeg", .id = "x"}},
        {"text value", "9E AE 61 62 00 C0 78 00"_octets, {.format = "image/jpeg", .id = "x"}},
        {"a value may look like a location",
         "9E AE 8E 62 00"_octets,
         {.format = "image/jpeg", .location = "b"}},
        {"parameters are not headers", "9E 85 6E 00 81 EA"_octets, {.format = "image/jpeg"}},
    });
}

TEST(MultipartEntryRead, DataStartsWhereTheHeadersEnd)
{
    expectEntries({
        {"as it should be", "01 02 9E 41 42"_octets, {.format = "image/jpeg", .data = "AB"}},
        {"data like a header",
         "01 03 9E 8E 61 00"_octets,
         {.format = "image/jpeg", .data = "8E 61 00"_octets}},
        {"no data", "01 00 9E"_octets, {.format = "image/jpeg"}},
        {"octets after the data", "01 01 9E 41 42"_octets, {.format = "image/jpeg", .data = "A"}},
        {"HeadersLen eats an octet",
         "02 01 9E 41 42"_octets,
         {.format = "image/jpeg", .data = "B"}},
        {"HeadersLen 0", "00 01 9E 41"_octets, {.format = "image/jpeg", .data = "A"}},
        {"HeadersLen smaller than the content type",
         "02 01 03 83 81 EA 41"_octets,
         {.format = "text/plain", .charset = "UTF8", .data = "A"}},
        {"HeadersLen ends inside a header",
         "02 01 9E 8E 61 62 00 41"_octets,
         {.format = "image/jpeg", .location = "ab", .data = "A"}},
    });
}

TEST(MultipartEntryRead, CursorStopsAfterTheData)
{
    const ReadEntry entry("01 02 9E 41 42 43 44"_octets);
    EXPECT_EQ(entry.input.position(), 5);
}

// After a refused length, the part does not even have a content type.
TEST(MultipartEntryRead, LengthsAreComparedWithTheSizeOfTheWholeBuffer)
{
    const PartFacts nothing;
    const PartFacts jpeg = {.format = "image/jpeg"};
    const auto failed = WireResult::OutOfData;
    expectEntries({
        {"HeadersLen one more", "05 01 9E 41"_octets, nothing, failed},
        {"HeadersLen as large", "04 01 9E 41"_octets, jpeg, failed},
        {"DataLen one more", "01 05 9E 41"_octets, nothing, failed},
        {"DataLen as large", "01 04 9E 41"_octets, jpeg, failed},
        {"DataLen more than the rest", "01 02 9E 41"_octets, jpeg, failed},
        {"HeadersLen negative", "8F FF FF FF 7F 01 9E 41"_octets, nothing, failed},
        {"HeadersLen most negative", "88 80 80 80 00 01 9E 41"_octets, nothing, failed},
        {"DataLen negative", "01 8F FF FF FF 7F 9E 41"_octets, nothing, failed},
        {"largest positive", "87 FF FF FF 7F 01 9E 41"_octets, nothing, failed},
    });
}

TEST(MultipartEntryRead, LengthsWrapAt32Bits)
{
    expectEntries({{"2^32 + 1 in both",
                    "90 80 80 80 01 90 80 80 80 01 9E 41"_octets,
                    {.format = "image/jpeg", .data = "A"}}});
}

TEST(MultipartEntryRead, NegativeValueLengthIsOutOfData)
{
    EXPECT_EQ(ReadEntry(entryOf("1F 88 80 80 80 00 9E"_octets)).result, WireResult::OutOfData);
    EXPECT_EQ(ReadEntry(entryOf("1F 8F FF FF FF 7F 61 2F 62 00"_octets)).result,
              WireResult::OutOfData);
}

TEST(MultipartEntryRead, ReturnsNineWhereverTheDataRunsOut)
{
    const QByteArray rows[] = {
        ""_octets, // HeadersLen
        "01"_octets, // DataLen
        "00 00"_octets, // content type: the slack octet is a value-length without media
        "02 00 01"_octets, // media octet
        "03 00 03 83 81"_octets, // charset
        "04 00 04 83 81 04 00"_octets, // inside the charset's number
        "03 00 03 9E 85"_octets, // name
        "04 00 61 2F 62"_octets, // media text without terminator
        "03 00 9E 8E 61"_octets, // location without terminator
        "02 00 9E C0"_octets, // Content-ID
        "03 00 9E C0 61"_octets, // Content-ID without terminator
        "03 00 9E AE"_octets, // headers
        "01 01 9E"_octets, // data
    };
    for (const QByteArray &row : rows) {
        SCOPED_TRACE(row.toHex(' ').constData());
        EXPECT_EQ(ReadEntry(row).result, WireResult::OutOfData);
    }
}

// The published buffer returns the octet past its end: here the last octet of each row. The value
// that should follow it would replace a value read before.
TEST(MultipartEntryRead, ValueAfterTheSlackOctetReplacesNothing)
{
    const PartFacts located = {.format = "image/jpeg", .location = "a"};
    const PartFacts identified = {.format = "image/jpeg", .id = "a"};
    const std::tuple<const char *, QByteArray, PartFacts> rows[] = {
        {"name", "06 00 05 9E 85 61 00 85"_octets, located},
        {"location", "05 00 9E 8E 61 00 8E"_octets, located},
        {"quote of a location", "06 00 9E 8E 61 00 8E 7F"_octets, located},
        {"text of a location", "07 00 9E 8E 61 00 8E 62 63"_octets, located},
        {"Content-ID", "05 00 9E C0 61 00 C0"_octets, identified},
        {"quote of a Content-ID", "06 00 9E C0 61 00 C0 22"_octets, identified},
    };
    for (const auto &[name, octets, facts] : rows) {
        SCOPED_TRACE(name);
        const HeapBlock block(octets);
        LinearBuffer buffer(block.data(), block.size() - 1);
        Part part;
        EXPECT_EQ(Multipart_Entry::readFrom(&buffer, &part), WireResult::OutOfData);
        EXPECT_EQ(factsOf(part), facts);
    }
}

TEST(MultipartEntryRead, FinalZeroOfATextWithTheWellKnownCodeIsDropped)
{
    expectData("83"_octets, {.format = "text/plain"},
               {{"41 00"_octets, "A"},
                {"41 00 00"_octets, "41 00"_octets},
                {"00 00"_octets, "00"_octets},
                {"00"_octets, "00"_octets},
                {"41"_octets, "A"},
                {""_octets, ""}});
    expectData("03 83 81 EA"_octets, {.format = "text/plain", .charset = "UTF8"},
               {{"41 00"_octets, "A"}});
}

TEST(MultipartEntryRead, FinalZeroOfEverythingElseStays)
{
    const std::pair<QByteArray, QString> rows[] = {
        {zeroEnded("text/plain"), "text/plain"},
        {"0B"_octets + zeroEnded("text/plain"), "text/plain"},
        {"82"_octets, "text/html"},
        {"9E"_octets, "image/jpeg"},
    };
    for (const auto &[headers, format] : rows)
        expectData(headers, {.format = format}, {{"41 00"_octets, "41 00"_octets}});
}

TEST(MultipartEntryRead, Ucs2IsStoredAsUtf8UnderItsName)
{
    expectData("05 83 81 02 03 E8"_octets, {.format = "text/plain", .charset = "UCS2"},
               {
                   {"41 00 42 00"_octets, "AB"},
                   {"E9 00"_octets, "C3 A9"_octets},
                   {"AC 20"_octets, "E2 82 AC"_octets},
                   {"3D D8 00 DE"_octets, "F0 9F 98 80"_octets}, // a pair of surrogates
                   {"FF FE 41 00"_octets, "A"}, // byte-order mark
                   {"FF FE"_octets, ""},
                   {"FF FE FF FE"_octets, "EF BB BF"_octets}, // only one mark is skipped
                   {"FE FF 00 41"_octets,
                    "EF BF BE E4 84 80"_octets}, // the other byte order is not a mark
                   {"41 00 FF FE"_octets, "41 EF BB BF"_octets},
                   {"41 00 42"_octets, "A"}, // half a character
                   {"FF FE 41 00 42"_octets, "A"},
                   {"FF FE 41"_octets, ""},
                   {"FF"_octets, ""},
                   {"41"_octets, ""},
                   {""_octets, ""},
                   {"41 00 00 00"_octets, "41 00"_octets}, // final zeros stay
                   {"41 00 00 00 42 00"_octets, "41 00 42"_octets}, // and others, too
                   {"00 00 41 00"_octets, "00 41"_octets},
               });
}

TEST(MultipartEntryRead, LoneSurrogatesBecomeQuestionMarks)
{
    expectData("05 83 81 02 03 E8"_octets, {.format = "text/plain", .charset = "UCS2"},
               {{"3D D8 41 00"_octets, "?A"},
                {"00 DE 41 00"_octets, "?A"},
                {"41 00 3D D8"_octets, "A?"},
                {"00 DE 3D D8"_octets, "??"}});
}

TEST(MultipartEntryRead, Ucs2AppliesToEveryMediaType)
{
    expectData("05 9E 81 02 03 E8"_octets, {.format = "image/jpeg", .charset = "UCS2"},
               {{"41 00"_octets, "A"}});
}

TEST(MultipartEntryRead, ReplacedCharsetDoesNotChangeTheOctets)
{
    expectData("07 9E 81 02 03 E8 81 EA"_octets, {.format = "image/jpeg", .charset = "UTF8"},
               {{"41 00"_octets, "41 00"_octets}});
}

namespace {

QStringList loggedDumps;

void keepDump(QtMsgType, const QMessageLogContext &context, const QString &message)
{
    if (context.category == QByteArray("qvl.platform.octets"))
        loggedDumps += message;
}

QStringList dumpsOfReading(const QByteArray &octets)
{
    loggedDumps.clear();
    QLoggingCategory::setFilterRules("qvl.platform.octets.debug=true");
    const QtMessageHandler before = qInstallMessageHandler(keepDump);
    const ReadEntry entry(octets);
    qInstallMessageHandler(before);
    QLoggingCategory::setFilterRules(QString());
    return loggedDumps;
}

} // namespace

TEST(MultipartEntryRead, Ucs2IsLoggedAsReceivedAndAsStored)
{
    const QStringList dumps =
        dumpsOfReading(entryOf("05 83 81 02 03 E8"_octets, "FF FE E9 00"_octets));
    ASSERT_EQ(dumps.size(), 2);
    EXPECT_TRUE(dumps[0].contains("ff fe e9 00"));
    EXPECT_TRUE(dumps[1].contains("c3 a9"));
}

TEST(MultipartEntryRead, OtherTextIsNotLogged)
{
    EXPECT_EQ(dumpsOfReading(entryOf("03 83 81 EA"_octets, "41 42"_octets)), QStringList());
}

TEST(MultipartEntryRead, BodyPartKeepsItsOwnCopyOfTheData)
{
    HeapBlock block("01 01 9E 41"_octets);
    LinearBuffer buffer = LinearBuffer::forReading(block.data(), block.size());
    Part part;
    EXPECT_EQ(Multipart_Entry::readFrom(&buffer, &part), WireResult::Read);
    block.data()[3] = 'B';
    EXPECT_EQ(part.getBodyData(), "A");
}

namespace {

struct WriteRow
{
    const char *name;
    PartFacts facts;
    QByteArray octets;
};

void expectWritten(const WriteRow &row)
{
    Output output(8192);
    EXPECT_EQ(Multipart_Entry::writeTo(output, partWith(row.facts)), WireResult::Written);
    EXPECT_EQ(output.octets(), row.octets);
}

} // namespace

TEST(MultipartEntry, ReadsBackWhatItWrites)
{
    const WriteRow rows[] = {
        {"media code", {.format = "image/jpeg", .data = "A"}, "02 01 01 9E 41"_octets},
        {"no data", {.format = "image/gif"}, "02 00 01 9D"_octets},
        {"highest code written as code",
         {.format = "application/vnd.wap.mms-message", .data = "A"},
         "02 01 01 BE 41"_octets},
        {"lowest code written as text",
         {.format = "application/vnd.wap.rollover-certificate", .data = "A"},
         "2B 01 1F 29"_octets + zeroEnded("application/vnd.wap.rollover-certificate") + "A"},
        {"media text",
         {.format = "application/smil", .data = "A"},
         "12 01 11"_octets + zeroEnded("application/smil") + "A"},
        {"melody",
         {.format = "audio/imelody", .data = "A"},
         "10 01 0F"_octets + zeroEnded("text/x-iMelody") + "A"},
        {"no type at all", {.data = "A"}, "03 01 02 2F 00 41"_octets},
        {"location as name and header",
         {.format = "image/jpeg", .location = "a.jpg", .data = "A"},
         "10 01 08 9E 85 61 2E 6A 70 67 00 8E 61 2E 6A 70 67 00 41"_octets},
        {"quoted location",
         {.format = "image/jpeg", .location = QString::fromLatin1("\xE9.jpg"), .data = "A"},
         "14 01 0A 9E 85 7F C3 A9 2E 6A 70 67 00 8E 7F C3 A9 2E 6A 70 67 00 41"_octets},
        {"Content-ID with bracket",
         {.format = "image/jpeg", .id = "<a>", .data = "A"},
         "08 01 01 9E C0 22 3C 61 3E 00 41"_octets},
        {"Content-ID without bracket",
         {.format = "image/jpeg", .id = "a", .data = "A"},
         "05 01 01 9E C0 61 00 41"_octets},
        {"named text",
         {.format = "text/plain", .charset = "UTF8", .location = "n", .id = "<a>", .data = "A"},
         "10 01 06 83 85 6E 00 81 83 C0 22 3C 61 3E 00 8E 6E 00 41"_octets},
        {"charset of wireless XHTML",
         {.format = "application/vnd.wap.xhtml+xml", .charset = "UTF8", .data = "A"},
         "22 01 1F 20"_octets + zeroEnded("application/vnd.wap.xhtml+xml") + "81 83 41"_octets},
    };
    for (const WriteRow &row : rows) {
        SCOPED_TRACE(row.name);
        expectWritten(row);
        expectEntries({{row.name, row.octets, row.facts}});
    }
}

TEST(MultipartEntry, ReadsBackSomeValuesDifferently)
{
    const WriteRow rows[] = {
        {"text without charset is UTF-8",
         {.format = "text/plain", .data = "A"},
         "04 01 03 83 81 EA 41"_octets},
        {"any named charset is US-ASCII",
         {.format = "text/plain", .charset = "iso-8859-1", .data = "A"},
         "04 01 03 83 81 83 41"_octets},
        {"other texts have no charset",
         {.format = "text/html", .charset = "UTF8", .data = "A"},
         "02 01 01 82 41"_octets},
        {"media code in any case", {.format = "IMAGE/Jpeg", .data = "A"}, "02 01 01 9E 41"_octets},
        {"melody in any case",
         {.format = "Audio/IMELODY", .data = "A"},
         "10 01 0F"_octets + zeroEnded("text/x-iMelody") + "A"},
        {"old name of the melody stays",
         {.format = "text/x-imelody", .data = "A"},
         "10 01 0F"_octets + zeroEnded("text/x-imelody") + "A"},
        {"other texts keep their case",
         {.format = "Application/Smil", .data = "A"},
         "12 01 11"_octets + zeroEnded("Application/Smil") + "A"},
        {"quoted Content-ID",
         {.format = "image/jpeg", .id = QString::fromLatin1("\xE9"), .data = "A"},
         "07 01 01 9E C0 7F C3 A9 00 41"_octets},
        {"bracket and other octets",
         {.format = "image/jpeg", .id = QString::fromLatin1("<\xE9"), .data = "A"},
         "08 01 01 9E C0 22 3C C3 A9 00 41"_octets},
        {"texts end at a zero",
         {.format = "image/jpeg", .location = QString::fromLatin1("a\0b", 3), .data = "A"},
         "08 01 04 9E 85 61 00 8E 61 00 41"_octets},
        {"display name is not written",
         {.format = "image/jpeg", .name = "n", .data = "A"},
         "02 01 01 9E 41"_octets},
    };
    for (const WriteRow &row : rows) {
        SCOPED_TRACE(row.name);
        expectWritten(row);
    }
}

TEST(MultipartEntryWrite, LengthsGrowWithTheLocation)
{
    const auto names = [](int count) {
        return "9E 85"_octets + zeroEnded(QByteArray(count, 'a')) + octet(0x8E)
            + zeroEnded(QByteArray(count, 'a'));
    };
    const auto named = [](int count) {
        return PartFacts{.format = "image/jpeg", .location = QString(count, 'a')};
    };
    // The content type takes three octets more than the location, the headers two more.
    const WriteRow rows[] = {
        {"content type of 30", named(27), "3C 00 1E"_octets + names(27)},
        {"content type of 31", named(28), "3F 00 1F 1F"_octets + names(28)},
        {"HeadersLen of 127", named(60), "7F 00 1F 3F"_octets + names(60)},
        {"HeadersLen of 129", named(61), "81 01 00 1F 40"_octets + names(61)},
        {"content type of 128", named(125), "82 02 00 1F 81 00"_octets + names(125)},
    };
    for (const WriteRow &row : rows) {
        SCOPED_TRACE(row.name);
        expectWritten(row);
        expectEntries({{row.name, row.octets, row.facts}});
    }
}

TEST(MultipartEntryWrite, DataLengthIsAUintvar)
{
    const std::pair<int, QByteArray> rows[] = {
        {127, "7F"_octets}, {128, "81 00"_octets}, {300, "82 2C"_octets}, {7000, "B6 58"_octets}};
    for (const auto &[size, length] : rows) {
        const QByteArray data(size, 'd');
        const PartFacts facts = {.format = "image/jpeg", .data = data};
        const QByteArray octets = octet(2) + length + "01 9E"_octets + data;
        expectWritten({"data", facts, octets});
        expectEntries({{"data", octets, facts}});
    }
}

// The array for content type and headers has 1,024 octets. A text is one append, and so is each of
// the octets around it: an append that does not fit is dropped, and the next one may fit again.
TEST(MultipartEntryWrite, HeadersThatDoNotFitAreDroppedAppendByAppend)
{
    struct Row
    {
        int location;
        QByteArray lengths;
        QByteArray octets;
    };
    const auto text = [](int count) { return QByteArray(count, 'a'); };
    const Row rows[] = {
        {509, "88 02 00 1F 84 00"_octets,
         "9E 85"_octets + text(509) + "00 8E"_octets + text(509) + octet(0)},
        {510, "88 03 00 1F 84 01"_octets, // the last terminator
         "9E 85"_octets + text(510) + "00 8E"_octets + text(510)},
        {511, "84 07 00 1F 84 02"_octets, // the second text
         "9E 85"_octets + text(511) + "00 8E 00"_octets},
        {1020, "88 03 00 1F 87 7F"_octets, // the second text and its terminator
         "9E 85"_octets + text(1020) + "00 8E"_octets},
        {1021, "88 03 00 1F 88 00"_octets, "9E 85"_octets + text(1021) + octet(0)},
        {1022, "88 03 00 1F 88 00"_octets, "9E 85"_octets + text(1022)},
        {1023, "06 00 03"_octets, "9E 85 00 8E 00"_octets}, // both texts
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.location);
        expectWritten({"names",
                       {.format = "image/jpeg", .location = QString(row.location, 'a')},
                       row.lengths + row.octets});
    }
}

TEST(MultipartEntryWrite, QuoteStaysWhenItsTextIsDropped)
{
    const QString location(600, QChar(0xE9));
    expectWritten({"quoted",
                   {.format = "image/jpeg", .location = location},
                   "08 00 04 9E 85 7F 00 8E 7F 00"_octets});
}

TEST(MultipartEntryWrite, CharsetIsDroppedWhenOnlyItsParameterFits)
{
    const QByteArray name = QByteArray(1020, 'a');
    expectWritten({"charset",
                   {.format = "text/plain", .location = QString::fromLatin1(name)},
                   "88 03 00 1F 88 00 83 85"_octets + name + "00 81"_octets});
}

TEST(MultipartEntryWrite, MediaTextThatDoesNotFitKeepsItsTerminator)
{
    expectWritten({"media",
                   {.format = "a/" + QString(2000, 'b'), .id = "x", .data = "A"},
                   "05 01 01 00 C0 78 00 41"_octets});
}

TEST(MultipartEntryWrite, ResultDependsOnlyOnWhetherTheDataFits)
{
    struct Row
    {
        const char *name;
        int capacity;
        PartFacts facts;
        QByteArray octets;
        unsigned char result;
    };
    const PartFacts plain = {.format = "image/jpeg", .data = "A"};
    const PartFacts named = {.format = "image/jpeg", .location = "a.jpg", .data = "A"};
    const Row rows[] = {
        {"exact", 5, plain, "02 01 01 9E 41"_octets, WireResult::Written},
        {"one less", 4, plain, "02 01 01 9E"_octets, WireResult::CannotWrite},
        {"nothing fits", 0, plain, ""_octets, WireResult::CannotWrite},
        {"nothing fits, no data", 0, {.format = "image/jpeg"}, ""_octets, WireResult::Written},
        {"headers dropped, data not", 4, named, "10 01 08 41"_octets, WireResult::Written},
        {"both dropped", 3, named, "10 01 08"_octets, WireResult::CannotWrite},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        Output output(row.capacity);
        EXPECT_EQ(Multipart_Entry::writeTo(output, partWith(row.facts)), row.result);
        EXPECT_EQ(output.octets(), row.octets);
    }
}

TEST(MultipartEntry, SizeIsNotUsed)
{
    EXPECT_EQ(Multipart_Entry::sizeOf(partWith({.format = "image/jpeg", .data = "A"})), 0);
}
