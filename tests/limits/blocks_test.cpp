/*
 * Blocks of memory that small messages take. A header takes one for each text and each entry; the
 * other blocks of a message do not depend on the number of its parts.
 */
#include "message/multipart_parser.h"
#include "multipart/multipart.h"
#include "multipart/multipart_result.h"
#include "readable/readable_body.h"
#include "readable/readable_pdu.h"
#include "scan/header_scanner.h"
#include "scan/part_scanner.h"
#include "scan/sent_times.h"
#include "support/allocations.h"
#include "support/octets.h"
#include "wire/header_decoder.h"
#include "wire/header_record.h"
#include "wire/time_zone.h"
#include "wire/wire_result.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using Multipart = MMS_COMP_SMILMultipart;
using Parser = MMS_COMP_SMILMultipartParser;
using Part = MMS_COMP_SMILMultipartBodypart;

// With 32-bit pointers, Qt keeps each date in a separate block.
constexpr long DateBlocks = sizeof(void *) < 8 ? 1 : 0;

const QByteArray type = "8C 82"_octets;
const QByteArray version = "8D 90"_octets;
const QByteArray transactionId = "98 54 31 00"_octets;
const QByteArray messageId = "8B 69 64 00"_octets;
const QByteArray from = "89 05 80 2B 34 39 00"_octets;
const QByteArray to = "97 2B 34 39 2F 54 59 50 45 3D 50 4C 4D 4E 00"_octets;
const QByteArray subject = "96 61 00"_octets;
const QByteArray contentLocation = "83 61 00"_octets;
const QByteArray size = "8E 02 78 00"_octets;
const QByteArray date = "85 04 3B 9A CA 00"_octets;
const QByteArray deliveryTime = "87 06 80 04 3B 9A CA 00"_octets;
const QByteArray expiry = "88 05 81 03 09 3A 80"_octets;
const QByteArray status = "95 81"_octets;

long blocksOfHeader(QByteArray pdu)
{
    MMS_UA_UAMsg header;
    MMS_UA_Decoder decoder;
    const CountedAllocations allocations;
    EXPECT_EQ(decoder.decodeHeader(pdu, &header), WireResult::Read);
    return allocations.count();
}

constexpr int PictureCount = 8;

// A presentation without a location, and pictures.
QByteArray bodyOf(bool named)
{
    Multipart message;
    for (int i = 0; i <= PictureCount; ++i) {
        auto part = std::make_unique<Part>();
        part->setContentType(i == 0 ? QStringLiteral("application") : QStringLiteral("image"));
        part->setContentSubType(i == 0 ? QStringLiteral("smil") : QStringLiteral("jpeg"));
        const QString name = QStringLiteral("picture%1.jpg").arg(i);
        if (named && i > 0)
            part->setContentLocation(name);
        if (named)
            part->setContentID(QLatin1Char('<') + name + QLatin1Char('>'));
        part->setBodyData(QByteArray(3000, 'x'));
        message.appendBodypart(part.release());
    }
    MMS_UA_UAMsg header;
    return Parser::assembleBody(&message, &header);
}

long blocksOfBody(const QByteArray &body, int parts)
{
    MMS_UA_UAMsg header;
    Multipart message;
    const CountedAllocations allocations;
    EXPECT_EQ(Parser::parse(body, &header, &message), MultipartResult::Ok);
    EXPECT_EQ(message.getPartCount(), parts);
    return allocations.count();
}

} // namespace

TEST(Blocks, AreTakenForEachTextAndEntryOfAHeader)
{
    const struct
    {
        const char *name;
        QByteArray pdu;
        long blocks;
    } rows[] = {
        {"no text", type + version + size + status, 0},
        {"text", transactionId, 1},
        {"sender", from, 1},
        {"recipient", to, 2},
        {"recipients", to + to, 5}, // the list takes a block for more than one
        {"date", date, DateBlocks},
        {"delivery time", deliveryTime, DateBlocks},
        {"expiry", expiry, 0},
        {"delivery report", type + version + messageId + to + date + status, 3 + DateBlocks},
        {"notification",
         type + transactionId + version + from + subject + size + expiry + contentLocation, 4},
    };
    // In the system's zone, the C library stores the zone's name for every date.
    const TimeZone zone(TimeZone::Utc);
    for (const auto &[name, pdu, blocks] : rows) {
        SCOPED_TRACE(name);
        blocksOfHeader(pdu); // from here on, what is created only once exists
        EXPECT_EQ(blocksOfHeader(pdu), blocks);
    }
}

TEST(Blocks, AreNotTakenForScannedFields)
{
    const QByteArray pdu = type + transactionId + version + date + from + subject + expiry
        + deliveryTime + "58 00 61 00 8E 1F 8F FF FF FF 7F"_octets;
    const CountedAllocations allocations;
    QvlHeaderScanner scanner(pdu);
    QvlScannedField field;
    int count = 0;
    while (scanner.next(&field))
        ++count;
    EXPECT_TRUE(qvlSentTimes(pdu).expiry.has_value());
    EXPECT_EQ(allocations.count(), 0);
    EXPECT_EQ(count, 9);
    EXPECT_EQ(scanner.result(), QvlHeaderScanner::LengthTooLarge);
}

TEST(Blocks, AreTakenForOneCopyOfAHeaderThatChanges)
{
    QByteArray fields;
    for (int i = 0; i < 1000; ++i)
        fields += "8F 80"_octets; // Priority, whose codec takes no memory
    const QByteArray same = type + fields + "84 83 61"_octets;
    const QByteArray changed = type + fields + "9B 80 84 83 61"_octets;
    const auto octetsFor = [](const QByteArray &pdu) {
        const CountedAllocations allocations;
        const QvlReadablePdu readable(pdu);
        EXPECT_TRUE(readable.body().endsWith("a"));
        return allocations.octets();
    };
    octetsFor(changed); // from here on, what is created only once exists
    EXPECT_EQ(octetsFor(same), 0);
    constexpr long most = 400; // the list of changes, and the texts of the content type
    EXPECT_LE(octetsFor(changed), changed.size() + most);
    EXPECT_GE(octetsFor(changed), same.size() - 1);
}

TEST(Blocks, AreNotTakenForScannedParts)
{
    const QByteArray body = bodyOf(true);
    const CountedAllocations allocations;
    QvlPartScanner scanner(body);
    QvlScannedPart part;
    QvlScannedHeader header;
    int count = 0;
    while (scanner.next(&part)) {
        QvlPartHeaderScanner headers(part.headers);
        while (headers.next(&header))
            ++count;
    }
    EXPECT_EQ(allocations.count(), 0);
    EXPECT_EQ(count,
              2 * PictureCount + 1); // location and Content-ID; the presentation has no location
    EXPECT_EQ(scanner.result(), QvlPartScanner::PartsRead);
}

TEST(Blocks, AreNotTakenForABodyThatIsReadable)
{
    const QByteArray data(1000000, 'x');
    const QByteArray headers = "9E 8B 80 8E 61 00"_octets;
    const QByteArray body = "01 06 BD 84 40"_octets + headers + data;
    readableBody(body, 0); // from here on, what is created only once exists
    const CountedAllocations allocations;
    EXPECT_FALSE(readableBody(body, 0).body);
    EXPECT_LT(allocations.octets(), 1000);
}

// The media type grows from three octets to 25 in each part.
TEST(Blocks, AreTakenOnceForABodyThatIsMadeReadable)
{
    const QByteArray part = "04 8D 20 03 02 03 05"_octets + octet('x', 1696);
    const QByteArray body = octet(100) + part.repeated(100);
    readableBody(body, 0); // from here on, what is created only once exists
    const CountedAllocations allocations;
    const ReadableBody readable = readableBody(body, 0);
    ASSERT_TRUE(readable.body);
    EXPECT_EQ(readable.changes.size(), 100u);
    EXPECT_LT(allocations.peak(), body.size() * 12 / 10);
}

TEST(Blocks, AreTakenForEachPartAndTextOfASmallBody)
{
    constexpr int parts = PictureCount + 1;
    constexpr long most = 45; // beyond the bodies
    for (const bool named : {true, false}) {
        SCOPED_TRACE(named);
        const QByteArray body = bodyOf(named);
        blocksOfBody(body, parts);
        EXPECT_LE(blocksOfBody(body, parts), parts + most);
    }
}

TEST(Blocks, AreNotTakenForALocationThatRepeatsTheName)
{
    const QByteArray name = "05 9E 85 61 62 00"_octets;
    const auto bodyWith = [&name](const QByteArray &location) {
        return "01 0A 01"_octets + name + location + "78"_octets;
    };
    const QByteArray same = bodyWith("8E 61 62 00"_octets);
    const QByteArray other = bodyWith("8E 61 63 00"_octets);
    blocksOfBody(same, 1);
    EXPECT_EQ(blocksOfBody(same, 1) + 1, blocksOfBody(other, 1));
}
