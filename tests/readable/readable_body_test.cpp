/*
 * The step before the multipart codec: what it changes and how, what it leaves alone, and what the
 * codec then reads.
 */
#include "readable/readable_body.h"

#include "multipart/part_facts.h"
#include "wire/codec_calls.h"
#include "wire/multipart_codec.h"
#include "wire/multipart_octets.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr qsizetype Offset = 100; // of the bodies in their PDUs

const char *nameOf(QvlChange::Place place)
{
    constexpr const char *names[]{"field",     "header-end", "count", "header",
                                  "parameter", "type",       "body",  "parts"};
    return names[place];
}

/// "-header(11)@5+3 of 0": kind, place, code, offset in the body, size, part.
std::string described(const QvlChange &change)
{
    std::string text = change.kind == QvlChange::LeftOut ? "-" : "~";
    text += nameOf(change.place);
    if (change.code != QvlScannedField::NoCode)
        text += "(" + std::to_string(change.code) + ")";
    text +=
        "@" + std::to_string(change.offset - Offset) + "+" + std::to_string(change.octets.size());
    return change.part < 0 ? text : text + " of " + std::to_string(change.part);
}

std::string described(const ReadableBody &readable)
{
    std::string text;
    for (const QvlChange &change : readable.changes)
        text += (text.empty() ? "" : "; ") + described(change);
    return text;
}

void expectChangesInPlace(const QByteArray &body, const ReadableBody &readable)
{
    for (const QvlChange &change : readable.changes) {
        EXPECT_EQ(change.octets.data(), body.constData() + (change.offset - Offset));
        EXPECT_GT(QByteArrayView(change.reason).size(), 0);
    }
    EXPECT_EQ(readable.body.has_value(), !readable.changes.empty());
}

// The step is done once: nothing in its result has to change.
void expectUnchanged(const QByteArray &body)
{
    const ReadableBody readable = readableBody(body, Offset);
    EXPECT_FALSE(readable.body) << readable.body->toHex(' ').toStdString();
    EXPECT_EQ(described(readable), "");
}

struct Row
{
    QByteArray headers; // of the only part, with its content type
    QByteArray readable;
    const char *changes; // of offsets in a body whose headers begin at 3
};

void expectChanges(const std::vector<Row> &rows)
{
    for (const Row &row : rows) {
        SCOPED_TRACE(row.headers.toHex(' ').toStdString());
        const QByteArray body = octet(1) + entryOf(row.headers, "2A"_octets);
        const ReadableBody readable = readableBody(body, Offset);
        ASSERT_TRUE(readable.body);
        EXPECT_EQ(*readable.body, octet(1) + entryOf(row.readable, "2A"_octets));
        EXPECT_EQ(described(readable), row.changes);
        expectChangesInPlace(body, readable);
        expectUnchanged(*readable.body);
    }
}

TEST(ReadableBody, LeavesAloneWhatTheCodecReads)
{
    for (const QByteArray &headers :
         {"9E"_octets,
          "FF"_octets,
          "61 2F 62 00"_octets,
          "7F 61 2F 62 00"_octets,
          "01 9E"_octets,
          "1F 01 9E"_octets,
          "03 83 81 EA"_octets,
          "05 83 81 02 03 E8"_octets,
          "03 83 81 80"_octets,
          "04 9E 85 61 00"_octets,
          "05 9E 85 7F FC 00"_octets,
          "05 9E 85 C3 BC 00"_octets,
          "03 9E 85 00"_octets,
          "06 61 2F 62 00 81 EA"_octets,
          "06 61 2F 3B 78 3D 00"_octets,
          "9E 8E 61 00"_octets,
          "9E 8E C3 BC 00"_octets,
          "9E 8E 7F C3 8E 00"_octets,
          "9E 8E 00"_octets,
          "9E C0 22 3C 61 3E 00"_octets,
          "9E C0 C0 8E 00"_octets,
          "9E AE 02 81 80"_octets,
          "9E 58 00 59 00"_octets,
          "9E 05 8B 80 7F 06 8B 80"_octets,
          "9E 02"_octets + text("Content-ID") + text("<a>"),
          "9E"_octets + text("Content-ID") + text("<a>"),
          "9E"_octets + text("Content-Location") + text("a"),
          "05 9E 97 22 61 00"_octets,
          "08 9E"_octets + text("name") + text("a"),
          "11 83"_octets + text("charset") + text("utf-8") + "A0 80"_octets,
          "0D 83"_octets + text("charset") + text("xyz")}) {
        SCOPED_TRACE(headers.toHex(' ').toStdString());
        expectUnchanged(octet(1) + entryOf(headers, "8E C0 81 85"_octets));
    }
    expectUnchanged("00"_octets);
    expectUnchanged(""_octets);
}

TEST(ReadableBody, LeavesOutUnknownHeadersThatLookLikeKnownOnes)
{
    expectChanges({
        {"9E 8D 02 8E 00 8B 80"_octets, "9E 8B 80"_octets, "-header(13)@4+4 of 0"},
        {"9E 8D 02 01 C0 8B 80"_octets, "9E 8B 80"_octets, "-header(13)@4+4 of 0"},
        {"9E AE 06 81 86 C3 8E 78 00 8E 61 00"_octets, "9E 8E 61 00"_octets,
         "-header(46)@4+8 of 0"},
        {"9E 58 00 C3 C0 00"_octets, "9E"_octets, "-header@4+5 of 0"},
        {"9E 58 C0 00 61 00"_octets, "9E"_octets, "-header@4+5 of 0"},
        {"9E C8 8E C9 80"_octets, "9E C9 80"_octets, "-header(72)@4+2 of 0"},
        {"03 83 81 EA 8F C0"_octets, "03 83 81 EA"_octets, "-header(15)@7+2 of 0"},
        {"9E 8B 8E 8C C0"_octets, "9E"_octets, "-header(11)@4+2 of 0; -header(12)@6+2 of 0"},
    });
}

TEST(ReadableBody, LeavesOutHeadersOfOtherPagesThatLookLikeKnownOnes)
{
    expectChanges({
        {"9E 02 8E 61 00 8F 80"_octets, "9E 02 8F 80"_octets, "-header(14)@5+3 of 0"},
        {"9E 7F 8E 8B 80 01 8B 81"_octets, "9E 01 8B 81"_octets,
         "-header@4+2 of 0; -header(11)@6+2 of 0"},
        {"9E 7F C0 05 8B 80"_octets, "9E 7F 05 8B 80"_octets, "~header@4+3 of 0"},
        {"9E 8B 80 7F C0"_octets, "9E 8B 80 7F 01"_octets, "~header@6+2 of 0"},
        {"9E 7F C0 8E 61 00 58 00 59 00"_octets, "9E 58 00 59 00"_octets,
         "-header@4+2 of 0; -header(14)@6+3 of 0"},
    });
}

TEST(ReadableBody, LeavesOutUnknownParametersThatLookLikeKnownOnes)
{
    expectChanges({
        {"05 9E A0 02 81 01"_octets, "01 9E"_octets, "-parameter(32)@5+4 of 0"},
        {"06 9E 61 81 00 61 00"_octets, "01 9E"_octets, "-parameter@5+5 of 0"},
        {"06 9E 91 85 85 61 00"_octets, "04 9E 85 61 00"_octets, "-parameter(17)@5+2 of 0"},
        {"08 83 78 00 61 81 00 81 EA"_octets, "03 83 81 EA"_octets, "-parameter@5+5 of 0"},
        {"1F 04 9E 86 81 00"_octets, "01 9E"_octets, "-parameter(6)@6+3 of 0"},
        {"04 9E 86 61 00 8D 01 8E"_octets, "04 9E 86 61 00"_octets, "-header(13)@8+3 of 0"},
    });
}

TEST(ReadableBody, WritesCharsetsAsNumbers)
{
    expectChanges({
        {"08 83 81"_octets + text("utf-8"), "03 83 81 EA"_octets, "~parameter(1)@5+7 of 0"},
        {"0A 83"_octets + text("charset") + "85"_octets, "03 83 81 85"_octets,
         "~parameter@5+9 of 0"},
        {"06 83 81"_octets + text("xyz"), "01 83"_octets, "-parameter(1)@5+5 of 0"},
        {"08 83 81 05 01 00 00 03 E8"_octets, "01 83"_octets, "-parameter(1)@5+7 of 0"},
    });
}

TEST(ReadableBody, WritesNamesSoThatTheCodecReadsThem)
{
    expectChanges({
        {"06 9E 85 03 EA 61 00"_octets, "04 9E 85 61 00"_octets, "~parameter(5)@5+5 of 0"},
        {"07 9E 85 04 EA C3 BC 00"_octets, "05 9E 85 7F FC 00"_octets, "~parameter(5)@5+6 of 0"},
        {"05 9E 97 C3 85 00"_octets, "05 9E 85 7F C5 00"_octets, "~parameter(23)@5+4 of 0"},
        {"0A 9E"_octets + text("name") + "7F C3 85 00"_octets, "05 9E 85 7F C5 00"_octets,
         "~parameter@5+9 of 0"},
        {"04 9E 85 01 81"_octets, "03 9E 85 00"_octets, "~parameter(5)@5+3 of 0"},
        {"05 9E 85 02 1E 61"_octets, "01 9E"_octets, "-parameter(5)@5+4 of 0"},
        {"9E 8E 03 EA 61 00"_octets, "9E 8E 61 00"_octets, "~header(14)@4+5 of 0"},
        {"9E 8E 04 EA C3 BC 00"_octets, "9E 8E 7F C3 BC 00"_octets, "~header(14)@4+6 of 0"},
        {"9E"_octets + text("Content-Location") + "C5 8E 00"_octets, "9E 8E 7F C5 8E 00"_octets,
         "~header@4+20 of 0"},
        {"9E 8E 05 EA 7F 7F 61 00"_octets, "9E 8E 7F 7F 61 00"_octets, "~header(14)@4+7 of 0"},
        {"9E 8E 02 1E 61"_octets, "9E"_octets, "-header(14)@4+4 of 0"},
        {"9E C0 03 EA 61 00"_octets, "9E C0 22 61 00"_octets, "~header(64)@4+5 of 0"},
        {"9E"_octets + text("content-id") + "C5 8E 00"_octets, "9E C0 22 7F C5 8E 00"_octets,
         "~header@4+14 of 0"},
        {"9E C0 02 1E 61"_octets, "9E"_octets, "-header(64)@4+4 of 0"},
    });
}

TEST(ReadableBody, LeavesOutLocationsThatAreTooLong)
{
    const QByteArray longest(1024, 'a');
    expectUnchanged(octet(1) + entryOf("9E 8E"_octets + zeroEnded(longest)));
    expectUnchanged(octet(1) + entryOf("9E 8E 7F"_octets + zeroEnded(longest)));
    expectChanges({
        {"9E 8E"_octets + zeroEnded(longest + 'a'), "9E"_octets, "-header(14)@5+1027 of 0"},
    });
}

TEST(ReadableBody, WritesMediaTypesThatAreLongIntegers)
{
    expectChanges({
        {"02 01 03"_octets, "01 83"_octets, "~type@4+2 of 0"},
        {"04 01 03 81 EA"_octets, "03 83 81 EA"_octets, "~type@4+2 of 0"},
        {"03 02 03 05"_octets, "19"_octets + text("application/octet-stream"), "~type@4+3 of 0"},
    });
}

QByteArray plainParts(int count)
{
    return entryOf("9E"_octets, "41"_octets).repeated(count);
}

struct CountRow
{
    QByteArray count;
    int parts;
    QByteArray readable;
    int kept;
    const char *changes;
};

TEST(ReadableBody, WritesTheCountInOneOctet)
{
    const std::vector<CountRow> rows{
        {"80 03"_octets, 3, "03"_octets, 3, "~count@0+2"},
        {"80 80 00"_octets, 0, "00"_octets, 0, "~count@0+3"},
        {"81 00"_octets, 128, "80"_octets, 128, "~count@0+2"},
        {"81 7F"_octets, 255, "FF"_octets, 255, "~count@0+2"},
        {"82 00"_octets, 256, "FF"_octets, 255, "~count@0+2; -parts@1022+4 of 255"},
        {"82 2C"_octets, 300, "FF"_octets, 255, "~count@0+2; -parts@1022+180 of 255"},
    };
    for (const CountRow &row : rows) {
        SCOPED_TRACE(row.count.toHex().toStdString());
        const QByteArray body = row.count + plainParts(row.parts);
        const ReadableBody readable = readableBody(body, Offset);
        ASSERT_TRUE(readable.body);
        EXPECT_EQ(*readable.body, row.readable + plainParts(row.kept));
        EXPECT_EQ(described(readable), row.changes);
        expectChangesInPlace(body, readable);
        expectUnchanged(*readable.body);
    }
    expectUnchanged("FF"_octets + plainParts(255));
}

TEST(ReadableBody, LeavesEverythingAloneFromAMalformedPartOn)
{
    const QByteArray changed = entryOf("9E 8B 8E"_octets, "2A"_octets);
    for (const QByteArray &malformed :
         {entryOf(""_octets), entryOf("00"_octets), entryOf("04 9E 85 61"_octets),
          entryOf("05 9E 85 61 62 63"_octets), entryOf("9E 8E 61"_octets), entryOf("9E 00"_octets),
          entryOf("9E 41 00"_octets), entryOf("9E 7F"_octets), "01 09 9E"_octets, "81"_octets}) {
        SCOPED_TRACE(malformed.toHex(' ').toStdString());
        const QByteArray body = octet(3) + changed + malformed + changed;
        const ReadableBody readable = readableBody(body, Offset);
        ASSERT_TRUE(readable.body);
        EXPECT_EQ(*readable.body, "03 01 01 9E 2A"_octets + malformed + changed);
        EXPECT_EQ(described(readable), "-header(11)@4+2 of 0");
    }
}

TEST(ReadableBody, CopiesTheOtherPartsAsTheyAre)
{
    const QByteArray other = "80 02 81 00 01 9E"_octets + octet(0x8E, 128);
    const QByteArray changed = entryOf("9E 8B 8E"_octets, "2A"_octets);
    const QByteArray body = octet(4) + other + changed + other + changed + "07"_octets;
    const ReadableBody readable = readableBody(body, Offset);
    const QByteArray clean = entryOf("9E"_octets, "2A"_octets);
    ASSERT_TRUE(readable.body);
    EXPECT_EQ(*readable.body, octet(4) + other + clean + other + clean + "07"_octets);
    EXPECT_EQ(described(readable), "-header(11)@138+2 of 1; -header(11)@278+2 of 3");
}

Multipart decoded(const QByteArray &body)
{
    Multipart multipart;
    EXPECT_EQ(MMS_UA_MultiPart_CODEC::decodeMultipart(
                  false, reinterpret_cast<const unsigned char *>(body.constData()),
                  unsigned(body.size()), &multipart),
              WireResult::Read);
    return multipart;
}

TEST(ReadableBody, LetsTheCodecReadWhatTheSenderWrote)
{
    const QByteArray body = octet(2)
        + entryOf("0F 83 81"_octets + text("utf-8") + "97"_octets + text("a.txt"),
                  "68 69 00"_octets)
        + entryOf("06 9E A0 03 85 78 00 AE 05 81 86 C0 8E 00 8E"_octets + text("b.jpg")
                      + "C0"_octets + text("\"<b>"),
                  "FF D8"_octets);
    const ReadableBody readable = readableBody(body, Offset);
    ASSERT_TRUE(readable.body);
    const Multipart multipart = decoded(*readable.body);
    ASSERT_EQ(multipart.getPartCount(), 2);
    const Part &text = *multipart.getBodypartByIndex(0);
    EXPECT_EQ(text.getMimeFormat(), "text/plain");
    EXPECT_EQ(text.getCharset(), "UTF8");
    EXPECT_EQ(text.getBodyData(), "hi");
    const Part &picture = *multipart.getBodypartByIndex(1);
    EXPECT_EQ(picture.getMimeFormat(), "image/jpeg");
    EXPECT_EQ(picture.getContentLocation(), "b.jpg");
    EXPECT_EQ(picture.getContentID(), "<b>");
    EXPECT_EQ(picture.getBodyData(), "FF D8"_octets);
}

// What is left out of a truncated body is a beginning of what is left out of the whole one.
TEST(ReadableBody, ChangesTruncatedBodiesAlike)
{
    const QByteArray body = "80 03"_octets + entryOf("9E 8B 8E C0 22 61 00"_octets, "2A"_octets)
        + entryOf("06 83 81 78 79 7A 00 8F C0"_octets) + entryOf("9E 8B C0"_octets);
    const ReadableBody whole = readableBody(body, Offset);
    EXPECT_EQ(described(whole),
              "~count@0+2; -header(11)@5+2 of 0; -parameter(1)@16+5 of 1; -header(15)@21+2 of 1; "
              "-header(11)@26+2 of 2");
    for (qsizetype size = 0; size < body.size(); ++size) {
        SCOPED_TRACE(size);
        const QByteArray truncated = body.first(size);
        const ReadableBody readable = readableBody(truncated, Offset);
        EXPECT_TRUE(described(whole).starts_with(described(readable)));
        EXPECT_LT(readable.changes.size(), whole.changes.size());
        expectChangesInPlace(truncated, readable);
        if (readable.body)
            expectUnchanged(*readable.body);
    }
}

} // namespace
