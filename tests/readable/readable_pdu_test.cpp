/*
 * PDUs that the decoder refuses, what becomes of their headers, and what is reported. The octets
 * are written by hand.
 */
#include "readable/readable_pdu.h"

#include "support/octets.h"
#include "wire/header_decoder.h"
#include "wire/header_field_codes.h"
#include "wire/header_record.h"
#include "wire/wire_result.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace HeaderFieldCode;
using Change = QvlChange;

constexpr auto LeftOut = Change::LeftOut;
constexpr auto Rewritten = Change::Rewritten;

struct Expected
{
    Change::Kind kind;
    int code;
    qsizetype offset;
    qsizetype size;
};

struct Row
{
    const char *name;
    QByteArray before;
    QByteArray after;
    std::vector<Expected> changes;
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.name;
}

std::string nameOf(const testing::TestParamInfo<Row> &info)
{
    return info.param.name;
}

// m-send-conf, version 1.0: a type without a body.
const QByteArray Conf = "8C 81 8D 90"_octets;
// m-retrieve-conf, version 1.0: a type with a body.
const QByteArray Retrieve = "8C 84 8D 90"_octets;
const QByteArray Related = "84 18 B3 8A 3C 73 3E 00 89"_octets + "application/smil" + '\0';

// A later field before, so that the decoder refuses the message, and one of MMS 1.0 after it.
Row conf(const char *name, const QByteArray &field, const QByteArray &readable, Expected change)
{
    change.offset += 6;
    return {name,
            Conf + "9B 80"_octets + field + "92 80"_octets,
            Conf + readable + "92 80"_octets,
            {{LeftOut, 0x1B, 4, 2}, change}};
}

Row leftOut(const char *name, const QByteArray &field, int code)
{
    return conf(name, field, {}, {LeftOut, code, 0, field.size()});
}

Row rewritten(const char *name, const QByteArray &field, const QByteArray &readable)
{
    const int code = static_cast<unsigned char>(field.front()) & 0x7F;
    return conf(name, field, readable, {Rewritten, code, 0, field.size()});
}

Row contentType(const char *name, const QByteArray &value, const QByteArray &readable)
{
    return {name,
            Retrieve + "9B 80 84"_octets + value,
            Retrieve + readable,
            {{LeftOut, 0x1B, 4, 2}, {Rewritten, ContentType, 6, value.size() + 1}}};
}

// Length 41: media octet, 6 and 4 octets of Start, 5 and 17 of Type, and 8 of a later parameter.
const QByteArray RelatedInLetters = "1F 29 B3"_octets + "type" + '\0' + "application/smil" + '\0'
    + "start" + '\0' + "<s>" + '\0' + "x" + '\0' + "12345" + '\0';

const std::vector<Row> rows{
    leftOut("LaterToken", "99 C2"_octets, 0x19),
    leftOut("LaterTextWithCharset", "9A 04 EA 6E 6F 00"_octets, 0x1A),
    leftOut("LaterFieldWithCount", "A0 05 81 61 62 63 00"_octets, 0x20),
    leftOut("LaterText", "BD 61 62 00"_octets, 0x3D),
    leftOut("UnassignedCode", "C0 80"_octets, 0x40),
    leftOut("NameInLetters", "58 2D 41 00 6F 6E 00"_octets, -1),
    rewritten("ClassInLetters", "8A 61 75 74 6F 00"_octets, "8A 83"_octets),
    leftOut("ClassOfAnApplication", "8A 78 00"_octets, MessageClass),
    rewritten("TokenInLetters", "8F 48 69 67 68 00"_octets, "8F 82"_octets),
    rewritten("TokenWithLength", "8F 01 82"_octets, "8F 82"_octets),
    rewritten("VersionInLetters", "8D 31 2E 32 00"_octets, "8D 92"_octets),
    leftOut("VersionWithoutMinorNumber", "8D 31 2E 78 00"_octets, MmsVersion),
    leftOut("VersionOutOfRange", "8D 39 2E 32 00"_octets, MmsVersion),
    leftOut("DateWithLongLength", "85 1F 04 01 02 03 04"_octets, Date),
    rewritten("TimeWithMoreOctets", "88 04 81 01 3C 00"_octets, "88 06 81 04 00 00 00 3C"_octets),
    leftOut("TimeWithoutToken", "88 02 01 3C"_octets, Expiry),
    rewritten("SenderWithoutToken", "89 61 40 62 00"_octets, "89 07 80 05 EA 61 40 62 00"_octets),
    rewritten("AbsentSenderWithMoreOctets", "89 02 81 00"_octets, "89 01 81"_octets),
    leftOut("SenderWhoseAddressIsLongerThanTheField", "89 04 80 0F 01 00"_octets, From),
    rewritten("TextWithLengthAndWithoutCharset", "96 03 41 61 00"_octets,
              "96 04 EA 41 61 00"_octets),
    leftOut("TextWhoseCharsetIsLongerThanTheField", "96 02 04 EA"_octets, Subject),
    rewritten("IdThatBeginsWithAControlCharacter", "8B 02 EA 1B"_octets, "8B 7F 1B 00"_octets),
    rewritten("IdWithCharset", "8B 02 EA 61"_octets, "8B 61 00"_octets),
    leftOut("TextThatIsANumber", "96 85"_octets, Subject),
    leftOut("IdThatIsANumber", "8B 85"_octets, MessageId),
    contentType("MixedWithParameter", "03 A3 81 EA"_octets, "84 A3"_octets),
    contentType("AlternativeWithParameter", "03 A6 81 EA"_octets, "84 A6"_octets),
    contentType("MixedInLetters", QByteArray("application/vnd.wap.multipart.mixed") + '\0',
                "84 A3"_octets),
    contentType("MixedOfEmail", QByteArray("multipart/mixed") + '\0', "84 A3"_octets),
    contentType("MultipartThatHasNoCode", QByteArray("multipart/x-new") + '\0', "84 A3"_octets),
    contentType("RelatedInLetters",
                QByteArray("Multipart/Related; type=\"application/smil\"; start=\"<s>\"") + '\0',
                Related),
    contentType("RelatedWithParametersInLetters", RelatedInLetters, Related),
    contentType("RelatedInLettersWithoutParameters",
                QByteArray("application/vnd.wap.multipart.related") + '\0', "84 B3"_octets),
    {"MultipartOfEmailInOneOctet",
     Retrieve + "9B 80 84 8C"_octets,
     Retrieve + "84 8C"_octets,
     {{LeftOut, 0x1B, 4, 2}}},
    contentType("TextWithCharset", "03 83 81 EA"_octets, "84 83"_octets),
    contentType("PictureInLetters", QByteArray("image/jpeg") + '\0', "84 9E"_octets),
    contentType("PictureThatHasNoCode", QByteArray("image/x-new") + '\0', "84 9C"_octets),
    contentType("MediaThatHasNoCode", QByteArray("model/x-new") + '\0', "84 90"_octets),
    contentType("NoMediaType", "01 00"_octets, "84 90"_octets),
    {"SeveralFields",
     Retrieve + "99 80 85 01 05 B4 80 84 03 A3 81 EA"_octets,
     Retrieve + "85 01 05 84 A3"_octets,
     {{LeftOut, 0x19, 4, 2}, {LeftOut, 0x34, 9, 2}, {Rewritten, ContentType, 11, 5}}},
    {"OctetsAfterTheLastField", Conf + "00 01 02"_octets, Conf, {{LeftOut, -1, 4, 3}}},
    {"DeleteAfterTheLastField", Conf + "7F"_octets, Conf, {{LeftOut, -1, 4, 1}}},
    {"TruncatedLastField", Conf + "96 05 EA 61"_octets, Conf, {{LeftOut, -1, 4, 4}}},
};

} // namespace

class ReadableHeaders : public testing::TestWithParam<Row>
{
};

TEST_P(ReadableHeaders, AreReadAndReported)
{
    const Row &row = GetParam();
    MMS_UA_UAMsg refused;
    ASSERT_NE(MMS_UA_Decoder().decodeHeader(row.before, &refused), WireResult::Read);

    const QvlReadablePdu readable(row.before);
    EXPECT_EQ(readable.header().toByteArray(), row.after);
    ASSERT_EQ(readable.changes().size(), row.changes.size());
    for (std::size_t i = 0; i < row.changes.size(); ++i) {
        const Change &change = readable.changes()[i];
        EXPECT_EQ(change.kind, row.changes[i].kind);
        EXPECT_EQ(change.code, row.changes[i].code);
        EXPECT_EQ(change.offset, row.changes[i].offset);
        EXPECT_EQ(change.octets,
                  QByteArrayView(row.before).sliced(change.offset, row.changes[i].size));
        EXPECT_STRNE(change.reason, "");
        EXPECT_EQ(change.part, -1);
    }
    MMS_UA_UAMsg header;
    EXPECT_EQ(readable.decodeHeader(&header), WireResult::Read);
}

INSTANTIATE_TEST_SUITE_P(Header, ReadableHeaders, testing::ValuesIn(rows), nameOf);

TEST(ReadablePdu, SharesOctetsThatTheDecoderReads)
{
    const QByteArray pdu = Retrieve + "84 A3 01 02 01 83 85 41"_octets;
    const QvlReadablePdu readable(pdu);
    EXPECT_TRUE(readable.changes().empty());
    EXPECT_EQ(readable.pdu().constData(), pdu.constData());
    EXPECT_EQ(readable.header().data(), pdu.constData());
    EXPECT_EQ(readable.header().size(), 6);
    EXPECT_EQ(readable.body().data(), pdu.constData() + 6);
}

TEST(ReadablePdu, SharesTheBodyWhenOnlyTheHeaderChanges)
{
    const QByteArray pdu = Retrieve + "99 80 84 A3 01 02 01 83 85 41"_octets;
    const QvlReadablePdu readable(pdu);
    EXPECT_EQ(readable.header().toByteArray(), Retrieve + "84 A3"_octets);
    EXPECT_EQ(readable.bodyOffset(), 8);
    EXPECT_EQ(readable.body().data(), pdu.constData() + 8);
    EXPECT_EQ(readable.pdu(), Retrieve + "84 A3 01 02 01 83 85 41"_octets);
    MMS_UA_UAMsg header;
    ASSERT_EQ(readable.decodeHeader(&header), WireResult::Read);
    EXPECT_EQ(header.getBodyOctets(), "01 02 01 83 85 41"_octets);
}

TEST(ReadablePdu, HasTheBodyThatTheDecoderFindsInAMalformedHeader)
{
    // For the scanner the octet 00 begins no field. The decoder takes 01 04 for Content-Type.
    const QByteArray pdu = Retrieve + "9B 80 01 04 A3 00"_octets;
    const QvlReadablePdu readable(pdu);
    EXPECT_EQ(readable.header().toByteArray(), Retrieve + "01 04 A3"_octets);
    EXPECT_EQ(readable.bodyOffset(), 9);
    EXPECT_EQ(readable.body().toByteArray(), "00"_octets);
}

TEST(ReadablePdu, KeepsMoreThan16OctetsThatAreNoField)
{
    const QByteArray pdu = Conf + QByteArray(17, '\0');
    const QvlReadablePdu readable(pdu);
    EXPECT_TRUE(readable.changes().empty());
    EXPECT_EQ(readable.header().toByteArray(), pdu);
    EXPECT_EQ(QvlReadablePdu(pdu.chopped(1)).header().toByteArray(), Conf);
}

TEST(ReadablePdu, KeepsOctetsThatAreNoFieldInATypeWithABody)
{
    const QByteArray pdu = Retrieve + "99 80 00 01 02"_octets;
    const QvlReadablePdu readable(pdu);
    EXPECT_EQ(readable.header().toByteArray(), Retrieve + "00 01 02"_octets);
    MMS_UA_UAMsg header;
    EXPECT_NE(readable.decodeHeader(&header), WireResult::Read);
    EXPECT_EQ(header.getMessageType(), 132);
    EXPECT_EQ(header.getBodyLength(), 0);
}

TEST(ReadablePdu, OfNothingIsNothing)
{
    const QvlReadablePdu readable((QByteArray()));
    EXPECT_TRUE(readable.pdu().isEmpty());
    EXPECT_TRUE(readable.changes().empty());
}
