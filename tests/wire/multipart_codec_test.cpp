/*
 * The codec of a whole multipart body: count, order of the entries, and the limits of its output.
 * The tests of the entry cover its content.
 */
#include "wire/multipart_codec.h"

#include "multipart/part_facts.h"
#include "platform/setting.h"
#include "wire/multipart_octets.h"
#include "wire/wire_result.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr unsigned int Untouched = 0xA5A5A5A5;

const PartFacts Jpeg = {.format = "image/jpeg", .data = "A"};
const PartFacts Text = {.format = "text/plain", .charset = "UTF8", .data = "B"};

unsigned char decode(const QByteArray &body, Multipart *multipart, bool related = true)
{
    const HeapBlock block(body);
    return MMS_UA_MultiPart_CODEC::decodeMultipart(related, block.data(), unsigned(block.size()),
                                                   multipart);
}

struct Encoded
{
    explicit Encoded(Multipart &multipart, bool related = true)
    {
        unsigned char *out = nullptr;
        result = MMS_UA_MultiPart_CODEC::encodeMultipart(related, &multipart, &out, &length);
        array.reset(out);
    }

    QByteArray octets() const
    {
        return QByteArray(reinterpret_cast<const char *>(array.get()), qsizetype(length));
    }

    unsigned char result;
    unsigned int length = Untouched;
    std::unique_ptr<unsigned char[]> array;
};

class MultipartEncoder : public testing::Test
{
protected:
    MultipartEncoder() { MMS_UTIL_Setting::setMaxiumMOMMSSize(0); }
    ~MultipartEncoder() override { MMS_UTIL_Setting::setMaxiumMOMMSSize(m_before); }

    // Parts without data whose names take 1,029 octets each.
    void appendNamedParts(int count)
    {
        for (int i = 0; i < count; ++i)
            appendParts(multipart, {{.format = "image/jpeg", .location = QString(509, 'a')}});
    }

    Multipart multipart;

private:
    const int m_before = MMS_UTIL_Setting::getMaxiumMOMMSSize();
};

} // namespace

TEST(MultipartCodec, BodyIsACountAndEntries)
{
    struct Row
    {
        const char *name;
        QList<PartFacts> parts;
        QByteArray octets;
    };
    const Row rows[] = {
        {"none", {}, "00"_octets},
        {"one", {Jpeg}, "01 02 01 01 9E 41"_octets},
        {"two in order", {Text, Jpeg}, "02 04 01 03 83 81 83 42 02 01 01 9E 41"_octets},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        Multipart decoded;
        EXPECT_EQ(decode(row.octets, &decoded), WireResult::Read);
        EXPECT_EQ(factsOf(decoded), row.parts);
        Multipart multipart;
        appendParts(multipart, row.parts);
        const Encoded body(multipart);
        EXPECT_EQ(body.result, WireResult::Written);
        EXPECT_EQ(body.octets(), row.octets);
    }
}

TEST(MultipartCodec, FlagMakesNoDifference)
{
    const QByteArray octets = "01 02 01 01 9E 41"_octets;
    for (const bool related : {false, true}) {
        Multipart multipart;
        EXPECT_EQ(decode(octets, &multipart, related), WireResult::Read);
        EXPECT_EQ(factsOf(multipart), QList<PartFacts>{Jpeg});
        EXPECT_EQ(Encoded(multipart, related).octets(), octets);
    }
}

TEST(MultipartDecoder, KeepsTheEntriesBeforeAFailure)
{
    struct Row
    {
        const char *name;
        QByteArray octets;
        unsigned char result;
        QList<PartFacts> parts;
    };
    const QByteArray jpeg = "02 01 01 9E 41"_octets;
    const Row rows[] = {
        {"no octets", ""_octets, WireResult::OutOfData, {}},
        {"count 0 with octets after it", "00"_octets + jpeg, WireResult::Read, {}},
        {"count without entries", "01"_octets, WireResult::OutOfData, {}},
        {"count larger than the entries", "03"_octets + jpeg, WireResult::OutOfData, {Jpeg}},
        {"count smaller than the entries", "01"_octets + jpeg + jpeg, WireResult::Read, {Jpeg}},
        {"second entry truncated",
         "02"_octets + jpeg + jpeg.chopped(1),
         WireResult::OutOfData,
         {Jpeg}},
        {"second entry longer than the rest, not than the body",
         "02"_octets + jpeg + "01 02 9E 42"_octets,
         WireResult::OutOfData,
         {Jpeg}},
        {"second entry longer than the body",
         "02"_octets + jpeg + "01 0B 9E 42"_octets,
         WireResult::OutOfData,
         {Jpeg}},
        {"count is not a uintvar", "82 00"_octets + jpeg, WireResult::OutOfData, {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        Multipart multipart;
        EXPECT_EQ(decode(row.octets, &multipart), row.result);
        EXPECT_EQ(factsOf(multipart), row.parts);
    }
}

TEST(MultipartDecoder, AppendsToExistingParts)
{
    Multipart multipart;
    appendParts(multipart, {Text});
    EXPECT_EQ(decode("01 02 01 01 9E 41"_octets, &multipart), WireResult::Read);
    EXPECT_EQ(factsOf(multipart), (QList<PartFacts>{Text, Jpeg}));
}

TEST(MultipartDecoder, KeepsTheContentTypeOfTheMessage)
{
    Multipart multipart;
    multipart.setMimeType("text");
    multipart.setSubType("x");
    multipart.setStart("s");
    EXPECT_EQ(decode("01 02 01 01 9E 41"_octets, &multipart), WireResult::Read);
    EXPECT_EQ(multipart.getMimeType(), "text");
    EXPECT_EQ(multipart.getSubType(), "x");
    EXPECT_EQ(multipart.getStart(), "s");
    EXPECT_EQ(multipart.getExtType(), "application/smil");
}

TEST(MultipartDecoder, RefusesNullAndImpossibleArguments)
{
    const unsigned char zero = 0;
    Multipart multipart;
    EXPECT_EQ(MMS_UA_MultiPart_CODEC::decodeMultipart(true, &zero, 1, nullptr),
              WireResult::BadArgument);
    EXPECT_EQ(MMS_UA_MultiPart_CODEC::decodeMultipart(true, nullptr, 1, &multipart),
              WireResult::OutOfData);
    EXPECT_EQ(MMS_UA_MultiPart_CODEC::decodeMultipart(true, &zero, 0, &multipart),
              WireResult::OutOfData);
    EXPECT_EQ(MMS_UA_MultiPart_CODEC::decodeMultipart(true, &zero, 0x80000000, &multipart),
              WireResult::OutOfData);
}

TEST(MultipartDecoder, AcceptsTheLargestInt)
{
    const unsigned char zero = 0; // no entries, so nothing after it is read
    Multipart multipart;
    EXPECT_EQ(MMS_UA_MultiPart_CODEC::decodeMultipart(true, &zero, 0x7FFFFFFF, &multipart),
              WireResult::Read);
}

TEST(MultipartEncoderArguments, NullIsRefused)
{
    Multipart multipart;
    unsigned char *out = nullptr;
    unsigned int length = Untouched;
    using Codec = MMS_UA_MultiPart_CODEC;
    EXPECT_EQ(Codec::encodeMultipart(true, nullptr, &out, &length), WireResult::BadArgument);
    EXPECT_EQ(Codec::encodeMultipart(true, &multipart, nullptr, &length), WireResult::BadArgument);
    EXPECT_EQ(Codec::encodeMultipart(true, &multipart, &out, nullptr), WireResult::BadArgument);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(length, Untouched);
}

TEST_F(MultipartEncoder, CountIsOneOctetModulo256)
{
    const std::pair<int, int> rows[] = {{255, 0xFF}, {256, 0x00}, {257, 0x01}};
    for (const auto &[parts, count] : rows) {
        SCOPED_TRACE(parts);
        Multipart many;
        for (int i = 0; i < parts; ++i)
            appendParts(many, {{.format = "image/jpeg"}});
        const QByteArray octets = octet(count) + "02 00 01 9E"_octets.repeated(parts);
        EXPECT_EQ(Encoded(many).octets(), octets);
        Multipart decoded;
        EXPECT_EQ(decode(octets, &decoded), WireResult::Read);
        EXPECT_EQ(decoded.getPartCount(), count);
    }
}

// Without a limit in the settings, a body has 4,096 octets in addition to its data. Three named
// parts and the count take 3,088 of them, which leaves 1,008.
TEST_F(MultipartEncoder, BodyMustStayBelowItsCapacity)
{
    struct Row
    {
        const char *name;
        PartFacts last;
        unsigned char result;
        unsigned int length;
    };
    const Row rows[] = {
        {"one below",
         {.format = "image/jpeg", .location = QString(498, 'a')},
         WireResult::Written,
         4095},
        {"full", {.format = "a/b", .location = QString(497, 'a')}, WireResult::CannotWrite, 4096},
        {"dropped headers do not show",
         {.format = "a/b", .location = QString(498, 'a')},
         WireResult::Written,
         3094},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        multipart.clear();
        appendNamedParts(3);
        appendParts(multipart, {row.last});
        const Encoded body(multipart);
        EXPECT_EQ(body.result, row.result);
        EXPECT_EQ(body.length, row.length);
        EXPECT_NE(body.array, nullptr);
    }
}

TEST_F(MultipartEncoder, DataAddsToTheCapacity)
{
    appendNamedParts(3);
    appendParts(multipart, {{.format = "image/jpeg", .location = QString(498, 'a'), .data = "A"}});
    const Encoded below(multipart);
    EXPECT_EQ(below.result, WireResult::Written);
    EXPECT_EQ(below.length, 4096u);
}

TEST_F(MultipartEncoder, LimitOfTheSettingsOnlyRaisesTheCapacity)
{
    const std::pair<int, unsigned char> rows[] = {{0, WireResult::CannotWrite},
                                                  {1, WireResult::CannotWrite},
                                                  {4, WireResult::CannotWrite},
                                                  {5, WireResult::Written},
                                                  {300, WireResult::Written}};
    appendNamedParts(3);
    appendParts(multipart, {{.format = "a/b", .location = QString(497, 'a')}}); // 4,096 in all
    for (const auto &[kilobytes, result] : rows) {
        SCOPED_TRACE(kilobytes);
        MMS_UTIL_Setting::setMaxiumMOMMSSize(kilobytes);
        EXPECT_EQ(Encoded(multipart).result, result);
    }
}

TEST_F(MultipartEncoder, BodyLargerThanTheLimitIsWritten)
{
    MMS_UTIL_Setting::setMaxiumMOMMSSize(1);
    const QByteArray data(5000, 'd');
    appendParts(multipart, {{.format = "image/jpeg", .data = data}});
    const Encoded body(multipart);
    EXPECT_EQ(body.result, WireResult::Written);
    EXPECT_EQ(body.octets(), "01 02 A7 08 01 9E"_octets + data);
}

TEST_F(MultipartEncoder, DataThatDoesNotFitEndsTheEncodingWithoutALength)
{
    appendNamedParts(4);
    appendParts(
        multipart,
        {{.format = "image/jpeg", .location = QString(509, 'a'), .data = QByteArray(100, 'd')},
         {.format = "image/jpeg"}});
    const Encoded body(multipart);
    EXPECT_EQ(body.result, WireResult::CannotWrite);
    EXPECT_EQ(body.length, Untouched);
    EXPECT_NE(body.array, nullptr);
}

// The parts share their octets, so that many of them take little memory. The second sum, truncated
// to 32 bits, would be a small size.
TEST_F(MultipartEncoder, BodyLargerThanIntHasNoArray)
{
    const QByteArray data(32 * 1024 * 1024, 'd');
    for (const int count : {64, 128}) {
        SCOPED_TRACE(count);
        Multipart large;
        appendParts(large, QList<PartFacts>(count, {.format = "image/jpeg", .data = data}));
        const Encoded body(large);
        EXPECT_EQ(body.result, WireResult::CannotWrite);
        EXPECT_EQ(body.length, Untouched);
        EXPECT_EQ(body.array, nullptr);
    }
}
