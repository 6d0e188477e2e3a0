/*
 * Damaged bodies: every prefix of valid bodies, and every octet replaced by octets with another
 * meaning. Each is decoded from a block of exactly its size, so that a sanitizer detects overreads.
 * Parts that end before the damage must be complete.
 */
#include "message/multipart_parser.h"
#include "multipart/multipart_result.h"
#include "multipart/part_facts.h"
#include "platform/msg_header_base.h"
#include "wire/multipart_codec.h"
#include "wire/multipart_octets.h"
#include "wire/wire_result.h"

#include <gtest/gtest.h>

namespace {

struct Body
{
    const char *name;
    QList<QByteArray> entries;

    QByteArray octets() const { return octet(int(entries.size())) + entries.join(); }

    int entriesWithin(qsizetype size) const
    {
        int count = 0;
        for (qsizetype end = 1; count < entries.size(); ++count) {
            end += entries[count].size();
            if (end > size)
                break;
        }
        return count;
    }
};

const Body Bodies[] = {
    {"one picture", {entryOf("9E"_octets, "data")}},
    {"entries without data", {entryOf("9E"_octets), entryOf("9E 8E 61 00"_octets)}},
    {"presentation, picture, text",
     {entryOf("11"_octets + zeroEnded("application/smil") + "C0 22"_octets + zeroEnded("<smil>")
                  + octet(0x8E) + zeroEnded("pres.smil"),
              "<smil/>"),
      entryOf("08 9E 85"_octets + zeroEnded("a.jpg") + octet(0x8E) + zeroEnded("a.jpg"),
              "FF D8 FF E0 00 10"_octets),
      entryOf("08 83 85 61 2E 74 00 81 EA C0 61 00"_octets, zeroEnded("text"))}},
    {"UCS-2 with byte-order mark, then UTF-8",
     {entryOf("05 83 81 02 03 E8"_octets, "FF FE 41 00 3D D8 00 DE"_octets),
      entryOf("03 83 81 EA"_octets, "C3 A9 00"_octets)}},
    {"bare texts and unknown headers",
     {entryOf(zeroEnded("text/plain;charset=utf-8"), "text"),
      entryOf("7F"_octets + zeroEnded("a/b") + "AE 81 AF 61 00 8E 7F C3 A9 00"_octets, "x"),
      entryOf("1F 07 61 2F 62 00 89 81 83"_octets, "y")}},
    {"long lengths",
     {entryOf("1F 81 05 9E 85"_octets + zeroEnded(QByteArray(130, 'n')) + octet(0x8E)
                  + zeroEnded(QByteArray(130, 'n')),
              QByteArray(200, 'd')),
      entryOf("9D"_octets, "data")}},
};

struct Decoded
{
    explicit Decoded(const QByteArray &octets)
    {
        const HeapBlock block(octets);
        result = MMS_UA_MultiPart_CODEC::decodeMultipart(true, block.data(), unsigned(block.size()),
                                                         &multipart);
    }

    QList<PartFacts> firstParts(int count) const { return factsOf(multipart).mid(0, count); }

    Multipart multipart;
    unsigned char result;
};

// The parser sets the locations, so only the number of parts is compared.
struct Parsed
{
    explicit Parsed(const QByteArray &octets)
    {
        const HeapBlock block(octets);
        const auto body =
            QByteArray::fromRawData(reinterpret_cast<const char *>(block.data()), block.size());
        MMS_UTIL_MsgHeaderBase header;
        result = MMS_COMP_SMILMultipartParser::parse(body, &header, &multipart);
    }

    Multipart multipart;
    int result;
};

void expectDamaged(const QByteArray &octets, const QList<PartFacts> &unharmed)
{
    const Decoded decoded(octets);
    EXPECT_TRUE(decoded.result == WireResult::Read || decoded.result == WireResult::OutOfData);
    EXPECT_EQ(decoded.firstParts(int(unharmed.size())), unharmed);
    const Parsed parsed(octets);
    EXPECT_EQ(parsed.result,
              decoded.result == WireResult::Read ? MultipartResult::Ok
                                                 : MultipartResult::CannotDecode);
    EXPECT_EQ(parsed.multipart.getPartCount(), decoded.multipart.getPartCount());
}

} // namespace

TEST(DamagedMultipart, RowsAreValidBodies)
{
    for (const Body &body : Bodies) {
        SCOPED_TRACE(body.name);
        const Decoded decoded(body.octets());
        EXPECT_EQ(decoded.result, WireResult::Read);
        EXPECT_EQ(decoded.multipart.getPartCount(), body.entries.size());
    }
}

TEST(DamagedMultipart, PrefixKeepsItsCompleteEntries)
{
    for (const Body &body : Bodies) {
        const QByteArray octets = body.octets();
        const Decoded whole(octets);
        for (qsizetype size = 0; size < octets.size(); ++size) {
            SCOPED_TRACE(testing::Message() << body.name << ", first " << size);
            const int entries = body.entriesWithin(size);
            expectDamaged(octets.first(size), whole.firstParts(entries));
            const Decoded prefix(octets.first(size));
            EXPECT_EQ(prefix.result, WireResult::OutOfData);
            EXPECT_EQ(prefix.multipart.getPartCount(), entries);
        }
    }
}

TEST(DamagedMultipart, ReplacedOctetChangesNoEntryBeforeIt)
{
    for (const Body &body : Bodies) {
        const Decoded whole(body.octets());
        for (qsizetype at = 1; at < body.octets().size(); ++at) {
            for (const int value : {0x00, 0x1F, 0x7F, 0x80, 0xFF}) {
                SCOPED_TRACE(testing::Message() << body.name << ", " << value << " at " << at);
                QByteArray octets = body.octets();
                octets[at] = static_cast<char>(value);
                expectDamaged(octets, whole.firstParts(body.entriesWithin(at)));
            }
        }
    }
}

TEST(DamagedMultipart, ReplacedCountIsTheNumberOfEntriesRead)
{
    for (const Body &body : Bodies) {
        const Decoded whole(body.octets());
        for (const int value : {0x00, 0x1F, 0x7F, 0x80, 0xFF}) {
            SCOPED_TRACE(testing::Message() << body.name << ", " << value);
            QByteArray octets = body.octets();
            octets[0] = static_cast<char>(value);
            const Decoded decoded(octets);
            EXPECT_EQ(decoded.result, value == 0 ? WireResult::Read : WireResult::OutOfData);
            EXPECT_EQ(factsOf(decoded.multipart),
                      value == 0 ? QList<PartFacts>() : factsOf(whole.multipart));
        }
    }
}
