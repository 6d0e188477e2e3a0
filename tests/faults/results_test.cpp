/*
 * The result of each operation without memory: the documented one, whichever allocation fails.
 */
#include "message/message.h"
#include "message/multipart_parser.h"
#include "multipart/multipart_result.h"
#include "multipart/part_facts.h"
#include "platform/msg_header_base.h"
#include "presentation/presentation.h"
#include "readable/readable_pdu.h"
#include "scan/charset_text.h"
#include "scan/header_scanner.h"
#include "scan/part_scanner.h"
#include "support/allocations.h"
#include "wire/header_decoder.h"
#include "wire/header_encoder.h"
#include "wire/header_record.h"
#include "wire/multipart_codec.h"
#include "wire/wire_result.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using Parser = MMS_COMP_SMILMultipartParser;
using Object = MMS_COMP_SMILMediaObject;

thread_local long counted = 0;
thread_local long failing = 0; ///< the number of the allocation that fails
thread_local long lasting = 1; ///< how many fail, if a test lets several fail

bool shouldFail()
{
    return ++counted == failing;
}

/// The inputs of the operations, created before anything fails.
struct Material
{
    Material()
    {
        appendParts(message, {{.format = "image/jpeg", .location = "a", .data = "A"}});
        record.setTransactionId("T1");
        record.addFieldsPresent(0x00800000);
        slide.appendObject(new Object(&message)); // a list allocates memory for the second item
    }

    QByteArray pdu = "98 61 00 84 A3"_octets;
    // With a field of MMS 1.2.
    QByteArray laterPdu = "8C 84 8D 92 96 61 62 63 00 BA 80 84 A3 01 02 00 01 9E"_octets;
    QByteArray mixedPdu = "84 A3 01 02 00 01 9E"_octets;
    QByteArray partType =
        "1B 83"_octets + QByteArray("charset\0us-ascii", 17) + "85 6E 61 6D 65 00 8A 73 00"_octets;
    QByteArray partHeaders =
        "AE 81 8E 78 00"_octets + QByteArray("Content-Transfer-Encoding\0base64", 33);
    QvlMessage whole;
    // Without data, for which a lack of memory is OutOfData.
    QByteArray body = "01 02 00 01 9E"_octets;
    QString name = "a";
    Multipart message;
    Multipart target;
    MMS_UA_UAMsg record;
    Part part;
    std::unique_ptr<Part> spare = std::make_unique<Part>();
    QString length = " 12PX ";
    MMS_COMP_SMILData slides{&message};
    MMS_COMP_SMILTimingContainer slide{&message};
    std::unique_ptr<Object> object = std::make_unique<Object>(&message);
};

int decodeHeader(Material &material)
{
    MMS_UA_Decoder decoder;
    unsigned int length = unsigned(material.pdu.size());
    auto *octets = reinterpret_cast<unsigned char *>(material.pdu.data());
    return decoder.decodeHeader(octets, length, &material.record);
}

int encodeHeader(Material &material)
{
    MMS_UA_Encoder encoder;
    unsigned char *out = nullptr;
    int length = 0;
    const int result = encoder.encodeHeader(&material.record, &out, &length);
    const std::unique_ptr<unsigned char[]> owner(out);
    return result;
}

int decodeHeaderOfArray(Material &material)
{
    return MMS_UA_Decoder().decodeHeader(material.pdu, &material.record);
}

int encodeHeaderIntoArray(Material &material)
{
    QByteArray octets;
    return MMS_UA_Encoder().encodeHeader(&material.record, &octets);
}

int decodeHeaderOfReadablePdu(Material &material)
{
    return QvlReadablePdu(material.laterPdu).decodeHeader(&material.record);
}

int readablePdu(Material &material)
{
    return !QvlReadablePdu(material.laterPdu).pdu().isNull();
}

int decodeScannedText(Material &material)
{
    QvlHeaderScanner scanner(material.pdu);
    QvlScannedField field;
    return scanner.next(&field) && field.decoded().isReadable;
}

int decodeScannedContentType(Material &material)
{
    QvlHeaderScanner scanner(material.mixedPdu);
    QvlScannedField field;
    return scanner.next(&field) && field.decoded().isReadable;
}

int decodeUtf8(Material &material)
{
    return !qvlDecodeText(material.pdu, 106).isNull();
}

int decodeUtf16(Material &)
{
    return !qvlDecodeText(QByteArrayView("\x04\x3F", 2), 1015).isNull();
}

int decodeUtf32(Material &)
{
    return !qvlDecodeText(QByteArrayView("\0\0\x04\x3F", 4), 1017).isNull();
}

int readContentType(Material &material)
{
    return qvlReadContentType(material.partType).has_value();
}

// The texts of a part, all of which fail in the same way.
int lookUp(const Material &material, QString (QvlScannedPart::*text)() const)
{
    QvlScannedPart part;
    part.contentTypeOctets = material.partType;
    part.headers = material.partHeaders;
    return !(part.*text)().isNull();
}

int scannedDisposition(Material &material)
{
    return lookUp(material, &QvlScannedPart::disposition);
}

int scannedFileName(Material &material)
{
    return lookUp(material, &QvlScannedPart::fileName);
}

int scannedEncoding(Material &material)
{
    return lookUp(material, &QvlScannedPart::transferEncoding);
}

int scannedLocation(Material &material)
{
    return lookUp(material, &QvlScannedPart::location);
}

int scannedCharset(Material &material)
{
    QvlScannedPart part;
    part.contentTypeOctets = material.partType;
    return part.charset() != 0;
}

int receive(Material &material)
{
    return material.whole.receive(material.mixedPdu).isOk();
}

int encode(Material &material)
{
    material.whole.parts().appendBodypart(material.spare.release());
    QByteArray octets;
    return material.whole.encode(&octets).isOk();
}

int decodeMultipart(Material &material)
{
    const auto *octets = reinterpret_cast<const unsigned char *>(material.body.constData());
    return MMS_UA_MultiPart_CODEC::decodeMultipart(true, octets, unsigned(material.body.size()),
                                                   &material.target);
}

int encodeMultipart(Material &material)
{
    unsigned char *out = nullptr;
    unsigned int length = 0;
    const int result =
        MMS_UA_MultiPart_CODEC::encodeMultipart(true, &material.message, &out, &length);
    const std::unique_ptr<unsigned char[]> owner(out);
    return result;
}

int parse(Material &material)
{
    return Parser::parse(material.body, &material.record, &material.target);
}

int assembleBody(Material &material)
{
    return int(Parser::assembleBody(&material.message, &material.record).size());
}

int insertBodypart(Material &material)
{
    return material.message.insertBodypart(material.spare.release(), 0);
}

int setBodyData(Material &material)
{
    return material.part.setBodyData("octets", 6);
}

int createUniqueLocation(Material &material)
{
    return material.message.createUniqueLocation(material.name).isNull();
}

int createUniqueAttachmentLocation(Material &material)
{
    return material.message.createUniqueAttchmentLocation(material.name).isNull();
}

int setRootLayout(Material &material)
{
    return material.slides.setRootLayout(material.length, material.length, QString()) != nullptr;
}

int appendRegion(Material &material)
{
    return material.slides.appendRegion(material.length, material.length, material.length,
                                        material.length, material.name, material.name)
        != nullptr;
}

int insertObject(Material &material)
{
    Object *object = material.object.get();
    const bool inserted = material.slide.insert(0, object);
    if (inserted)
        std::ignore = material.object.release(); // the slide's
    return inserted;
}

struct Row
{
    const char *name;
    int (*operation)(Material &);
    int success;
    int failure;
};

const Row rows[] = {
    {"decodeHeader", decodeHeader, WireResult::Read, WireResult::BadArgument},
    {"encodeHeader", encodeHeader, WireResult::Written, WireResult::BadArgument},
    {"decodeHeader of an array", decodeHeaderOfArray, WireResult::Read, WireResult::BadArgument},
    {"encodeHeader into an array", encodeHeaderIntoArray, WireResult::Written,
     WireResult::BadArgument},
    {"decodeMultipart", decodeMultipart, WireResult::Read, WireResult::BadArgument},
    {"encodeMultipart", encodeMultipart, WireResult::Written, WireResult::CannotWrite},
    {"decodeHeader of a readable PDU", decodeHeaderOfReadablePdu, WireResult::Read,
     WireResult::BadArgument},
    {"readable PDU", readablePdu, true, false},
    {"decoded text", decodeScannedText, true, false},
    {"decoded content type", decodeScannedContentType, true, false},
    {"text in UTF-8", decodeUtf8, true, false},
    {"text in UTF-16", decodeUtf16, true, false},
    {"text in UTF-32", decodeUtf32, true, false},
    {"qvlReadContentType", readContentType, true, false},
    {"charset of a scanned part", scannedCharset, true, false},
    {"disposition of a scanned part", scannedDisposition, true, false},
    {"fileName of a scanned part", scannedFileName, true, false},
    {"transferEncoding of a scanned part", scannedEncoding, true, false},
    {"location of a scanned part", scannedLocation, true, false},
    {"receive", receive, true, false},
    {"encode", encode, true, false},
    {"parse", parse, MultipartResult::Ok, MultipartResult::OutOfMemory},
    {"assembleBody", assembleBody, 12, 0},
    {"insertBodypart", insertBodypart, MultipartResult::Ok, MultipartResult::InsertionRefused},
    {"setBodyData", setBodyData, MultipartResult::Ok, MultipartResult::OutOfMemory},
    {"createUniqueLocation", createUniqueLocation, false, true},
    {"createUniqueAttchmentLocation", createUniqueAttachmentLocation, false, true},
    {"setRootLayout", setRootLayout, true, false},
    {"appendRegion", appendRegion, true, false},
    {"insert", insertObject, true, false},
};

} // namespace

TEST(NoMemory, IsReportedByEveryOperation)
{
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        for (long n = 0;; ++n) { // nothing fails at first
            SCOPED_TRACE(n);
            Material material;
            counted = 0;
            failing = n;
            int result = 0;
            {
                const CountedAllocations allocations(shouldFail);
                result = row.operation(material);
            }
            const bool failed = n > 0 && counted >= n;
            EXPECT_EQ(result, failed ? row.failure : row.success);
            if (n > 0 && !failed) {
                EXPECT_GT(n, 1);
                break;
            }
        }
    }
}

// Qt swallows a lack of memory for a converter, however many allocations fail.
TEST(NoMemory, IsReportedForAConverter)
{
    const QByteArrayView octets("\xD0\xD2", 2);
    const QString text = qvlDecodeText(octets, 2084); // loads the converter's table
    for (lasting = 1; lasting <= 5; ++lasting) {
        long n = 0;
        do {
            SCOPED_TRACE(testing::Message() << lasting << " from allocation " << n);
            counted = 0;
            failing = ++n;
            QString decoded;
            {
                const CountedAllocations allocations(
                    [] { return ++counted >= failing && counted < failing + lasting; });
                decoded = qvlDecodeText(octets, 2084);
            }
            EXPECT_TRUE(decoded.isNull() || decoded == text) << decoded.toStdString();
            EXPECT_TRUE(counted >= n || decoded == text) << "nothing failed";
        } while (counted >= n);
        EXPECT_GT(n, 2);
    }
}
