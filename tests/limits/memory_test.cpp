/*
 * Memory and work for very large and very small messages: bodies are copied at most once and never
 * scanned, and nothing else grows with them.
 */
#include "limits/steps.h"
#include "message/multipart_parser.h"
#include "multipart/multipart_result.h"
#include "presentation/presentation.h"
#include "presentation/smil_result.h"
#include "smil/smil_parser.h"
#include "support/allocations.h"
#include "wire/header_decoder.h"
#include "wire/header_fields.h"
#include "wire/header_record.h"
#include "wire/wire_result.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>

namespace {

using Header = MMS_UA_UAMsg;
using Multipart = MMS_COMP_SMILMultipart;
using Parser = MMS_COMP_SMILMultipartParser;
using Part = MMS_COMP_SMILMultipartBodypart;

constexpr int Bodies = 50 << 20;
constexpr double MostOfBodies = 1.1;
constexpr double Constant = 256 << 10;

struct Cost
{
    long peak = 0;
    long steps = 0;
};

Cost costOf(const std::function<void()> &work)
{
    const CountedAllocations allocations;
    Steps::reset();
    work();
    return {allocations.peak(), Steps::count()};
}

QString nameOf(int part)
{
    return QStringLiteral("%1.txt").arg(part);
}

std::unique_ptr<Multipart> multipartOf(int parts, int octets)
{
    auto multipart = std::make_unique<Multipart>();
    const QByteArray body(octets, 'x');
    for (int i = 0; i < parts; ++i) {
        auto part = std::make_unique<Part>();
        part->setContentType(QStringLiteral("text"));
        part->setContentSubType(QStringLiteral("plain"));
        part->setContentLocation(nameOf(i));
        part->setBodyData(body);
        multipart->appendBodypart(part.release());
    }
    return multipart;
}

// The body of a PDU with as many parts as the count octet allows, each image/jpeg with a location.
QByteArray bodyOf(int parts, int octets)
{
    QByteArray body(1, char(parts));
    for (int i = 0; i < parts; ++i) {
        const QByteArray head = "\x9E\x8E" + nameOf(i).toLatin1() + '\0';
        body += char(head.size());
        for (int shift : {21, 14, 7}) // the length as a uintvar, with leading zeros
            body += char(0x80 | (octets >> shift & 0x7F));
        body += char(octets & 0x7F);
        body += head + QByteArray(octets, 'x');
    }
    return body;
}

Cost assembling(int parts, int octets)
{
    const auto multipart = multipartOf(parts, octets);
    Header header;
    QByteArray body;
    const Cost cost = costOf([&] { body = Parser::assembleBody(multipart.get(), &header); });
    EXPECT_GT(body.size(), qint64(parts) * octets);
    return cost;
}

Cost parsing(int parts, int octets)
{
    const QByteArray body = bodyOf(parts, octets);
    Header header;
    Multipart multipart;
    const Cost cost =
        costOf([&] { EXPECT_EQ(Parser::parse(body, &header, &multipart), MultipartResult::Ok); });
    EXPECT_EQ(multipart.getPartCount(), parts);
    EXPECT_EQ(multipart.getBodypartByIndex(parts - 1)->getBodyDataLen(), octets);
    return cost;
}

} // namespace

class LargeBodies : public testing::TestWithParam<int>
{
protected:
    static constexpr int Small = 1000;

    int parts() const { return GetParam(); }
    int octets() const { return Bodies / parts(); }
    // The lengths themselves take some octets more.
    long stepsAllowed(const Cost &small) const { return small.steps + 100L * parts(); }
};

TEST_P(LargeBodies, AreParsedWithoutASecondCopy)
{
    parsing(parts(), Small); // from here on, what is created only once exists
    const Cost cost = parsing(parts(), octets());
    EXPECT_LE(double(cost.peak), MostOfBodies * Bodies + Constant);
    EXPECT_LE(cost.steps, stepsAllowed(parsing(parts(), Small)));
}

TEST_P(LargeBodies, AreNotCopiedForSlides)
{
    const auto multipart = multipartOf(parts(), octets());
    MMS_COMP_SMILData slides(multipart.get());
    const Cost cost = costOf([&] {
        EXPECT_EQ(MMS_COMP_SMILParser::makeSmilForMixed(multipart.get(), &slides, true), 1);
    });
    EXPECT_EQ(slides.getTotalSlidesNum(), unsigned(parts()));
    EXPECT_LE(double(cost.peak), 4 * Constant);
}

TEST_P(LargeBodies, AreNotCopiedWithTheContainer)
{
    const auto multipart = multipartOf(parts(), octets());
    EXPECT_LE(double(costOf([&] { const Multipart copy(*multipart); }).peak), Constant);
}

INSTANTIATE_TEST_SUITE_P(Parts, LargeBodies, testing::Values(1, 2, 255));

class LargeBodiesToSend : public LargeBodies
{
};

TEST_P(LargeBodiesToSend, AreAssembledWithoutASecondCopy)
{
    assembling(parts(), Small);
    const Cost cost = assembling(parts(), octets());
    EXPECT_LE(double(cost.peak), MostOfBodies * Bodies + Constant);
    EXPECT_LE(cost.steps, stepsAllowed(assembling(parts(), Small)));
}

// As many parts as fit: 4,096 octets for everything except the bodies.
INSTANTIATE_TEST_SUITE_P(Parts, LargeBodiesToSend, testing::Values(1, 2, 100));

TEST(LargeBody, IsNotCopiedByTheHeaderDecoder)
{
    // message type m-retrieve-conf, content type application/vnd.wap.multipart.mixed
    QByteArray pdu("\x8C\x84\x84\xA3", 4);
    pdu.append(QByteArray(Bodies, 'x'));
    Header header;
    const Cost cost =
        costOf([&] { EXPECT_EQ(MMS_UA_Decoder().decodeHeader(pdu, &header), WireResult::Read); });
    EXPECT_EQ(header.getBodyLength(), Bodies);
    EXPECT_LE(double(cost.peak), Constant);
    EXPECT_LE(cost.steps, 10'000);
}

namespace {

bool beginsWithALength(int code)
{
    constexpr unsigned char codes[] = {HeaderFieldCode::ContentType, HeaderFieldCode::DeliveryTime,
                                       HeaderFieldCode::Expiry, HeaderFieldCode::From};
    return std::count(std::begin(codes), std::end(codes), code) > 0;
}

// Octets after the only one are read as zero: a value of zero or an empty text, but not a length.
unsigned char resultOfHeader(int octet)
{
    if (octet >= 0x02 && octet <= 0x7F) // the length of a field code
        return WireResult::OutOfData;
    if (!headerFieldInfo(octet & 0x7F) || octet < 0x80)
        return WireResult::UnknownField;
    return beginsWithALength(octet & 0x7F) ? WireResult::OutOfData : WireResult::Read;
}

} // namespace

TEST(OneOctet, IsAHeaderWhenItNamesAFieldThatTakesZeros)
{
    for (int octet = 0; octet < 256; ++octet) {
        QByteArray pdu(1, char(octet));
        Header header;
        const auto result = MMS_UA_Decoder().decodeHeader(pdu, &header);
        EXPECT_EQ(result, resultOfHeader(octet)) << octet;
        for (const HeaderFieldInfo &field : headerFields()) {
            const bool isThere = result == WireResult::Read && octet == (field.code | 0x80);
            EXPECT_EQ(header.getFieldPosition(field.code), isThere ? 1 : 0) << octet;
        }
        EXPECT_EQ(header.getBodyLength(), 0) << octet;
    }
}

TEST(OneOctet, IsABodyOnlyWhenItCountsNoParts)
{
    for (int octet = 0; octet < 256; ++octet) {
        Header header;
        Multipart multipart;
        const int result = Parser::parse(QByteArray(1, char(octet)), &header, &multipart);
        EXPECT_EQ(result == MultipartResult::Ok, octet == 0) << octet;
        EXPECT_EQ(multipart.getPartCount(), 0) << octet;
    }
}

TEST(OneOctet, IsNotADocument)
{
    for (int octet = 0; octet < 256; ++octet) {
        MMS_COMP_SMILData slides(nullptr);
        EXPECT_EQ(MMS_COMP_SMILParser().parse(QByteArray(1, char(octet)), nullptr, &slides),
                  SmilResult::NotWellFormed)
            << octet;
        EXPECT_TRUE(slides.isEmpty()) << octet;
    }
}
