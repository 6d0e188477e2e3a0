/*
 * The cost of growing messages: twice the recipients, parts, slides, regions or params take at most
 * 2.2 times the steps, allocations and octets of memory.
 */
#include "limits/cost.h"
#include "message/message.h"
#include "message/multipart_parser.h"
#include "multipart/multipart_result.h"
#include "presentation/presentation.h"
#include "presentation/smil_result.h"
#include "readable/readable_body.h"
#include "readable/readable_pdu.h"
#include "scan/header_scanner.h"
#include "scan/part_scanner.h"
#include "smil/smil_parser.h"
#include "support/octets.h"
#include "wire/header_decoder.h"
#include "wire/header_encoder.h"
#include "wire/header_fields.h"
#include "wire/header_record.h"
#include "wire/multipart_octets.h"
#include "wire/wire_result.h"

#include <QBuffer>
#include <QDataStream>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace {

using Header = MMS_UA_UAMsg;
using Multipart = MMS_COMP_SMILMultipart;
using Parser = MMS_COMP_SMILMultipartParser;
using Part = MMS_COMP_SMILMultipartBodypart;
using Slides = MMS_COMP_SMILData;

struct Subject
{
    const char *name;
    int size; ///< the smaller one
    Work (*prepare)(int size);
};

void PrintTo(const Subject &subject, std::ostream *out)
{
    *out << subject.name;
}

Cost costOf(const Subject &subject, int size)
{
    return ::costOf(subject.prepare(size));
}

// Headers

std::shared_ptr<Header> headerTo(int recipients)
{
    auto header = std::make_shared<Header>();
    header->setMessageType(QvlMessageType::SendReq);
    header->addFieldsPresent(headerFieldMask(HeaderFieldCode::MessageType));
    for (int i = 0; i < recipients; ++i)
        header->addToRecipient(MMS_UTIL_Entry(QString(), MMS_UTIL_Entry::Email,
                                              QStringLiteral("reader-%1@mail.example").arg(i)));
    header->addFieldsPresent(headerFieldMask(HeaderFieldCode::To));
    return header;
}

std::shared_ptr<Header> headerAbout(int characters)
{
    auto header = headerTo(1);
    header->setSubject(QString(characters, u'é'));
    header->addFieldsPresent(headerFieldMask(HeaderFieldCode::Subject));
    return header;
}

QByteArray encoded(Header *header)
{
    QByteArray octets;
    EXPECT_EQ(MMS_UA_Encoder().encodeHeader(header, &octets), WireResult::Written);
    return octets;
}

Work decoding(const QByteArray &pdu)
{
    return [pdu] {
        Header header;
        EXPECT_EQ(MMS_UA_Decoder().decodeHeader(pdu, &header), WireResult::Read);
    };
}

Work scanning(const QByteArray &pdu)
{
    return [pdu] {
        QvlHeaderScanner scanner(pdu);
        QvlScannedField field;
        while (scanner.next(&field))
            EXPECT_TRUE(field.decoded().isReadable);
        EXPECT_TRUE(scanner.isComplete());
    };
}

// A part with @p size unknown parameters and as many headers, which the codec would misread.
QByteArray misreadPart(int size)
{
    const QByteArray parameters = "9E"_octets + "A0 02 81 85"_octets.repeated(size);
    const QByteArray length = octet(0x1F) + uintvar(parameters.size());
    return octet(1) + entryOf(length + parameters + "8B 8E"_octets.repeated(size));
}

Work scanningPartHeaders(int size)
{
    return [body = misreadPart(size)] {
        QvlPartScanner scanner(body);
        QvlScannedPart part;
        EXPECT_TRUE(scanner.next(&part));
        EXPECT_TRUE(part.contentType());
        EXPECT_TRUE(part.location().isNull());
    };
}

Work makingReadable(int size)
{
    return [body = misreadPart(size)] { EXPECT_TRUE(readableBody(body, 0).body); };
}

Work scanningTypeInText(int size)
{
    const QByteArray type = "a/b" + QByteArray("; n=\"x;\"").repeated(size) + '\0';
    return [type] { EXPECT_TRUE(qvlReadContentType(type)); };
}

Work scanningRecipients(int size)
{
    return scanning(encoded(headerTo(size).get()));
}

Work scanningSubject(int size)
{
    return scanning(encoded(headerAbout(size).get()));
}

// Every other field is of a later version.
Work preparingHeader(int size)
{
    QByteArray pdu = QByteArray::fromHex("8c808d92");
    for (int i = 0; i < size; ++i)
        pdu += QByteArray::fromHex("9b80970461406200");
    return [pdu] {
        const QvlReadablePdu readable(pdu);
        MMS_UA_UAMsg header;
        EXPECT_EQ(readable.decodeHeader(&header), WireResult::Read);
    };
}

Work decodingRecipients(int size)
{
    return decoding(encoded(headerTo(size).get()));
}

Work encodingRecipients(int size)
{
    return [header = headerTo(size)] { encoded(header.get()); };
}

Work decodingSubject(int size)
{
    return decoding(encoded(headerAbout(size).get()));
}

Work encodingSubject(int size)
{
    return [header = headerAbout(size)] { encoded(header.get()); };
}

// Parts

QByteArray numbered(const char *pattern, int number)
{
    return QByteArray(pattern).replace('#', QByteArray::number(number));
}

std::unique_ptr<Part> picture(const QString &location)
{
    auto part = std::make_unique<Part>();
    part->setContentType(QStringLiteral("image"));
    part->setContentSubType(QStringLiteral("jpeg"));
    part->setContentLocation(location);
    part->setBodyData("body");
    return part;
}

enum class Names { Own, None };

std::shared_ptr<Multipart> pictures(int count, Names names)
{
    auto multipart = std::make_shared<Multipart>();
    for (int i = 0; i < count; ++i)
        multipart->appendBodypart(
            picture(names == Names::Own ? QStringLiteral("%1.jpg").arg(i) : QString()).release());
    return multipart;
}

std::shared_ptr<Multipart> longName(int characters)
{
    auto multipart = std::make_shared<Multipart>();
    multipart->appendBodypart(picture(QString(characters, u'a')).release());
    return multipart;
}

QByteArray assembled(Multipart *multipart)
{
    Header header;
    const QByteArray body = Parser::assembleBody(multipart, &header);
    EXPECT_FALSE(body.isEmpty());
    return body;
}

Work parsing(const QByteArray &body)
{
    return [body] {
        Header header;
        Multipart multipart;
        EXPECT_EQ(Parser::parse(body, &header, &multipart), MultipartResult::Ok);
    };
}

Work parsingNamedParts(int size)
{
    return parsing(assembled(pictures(size, Names::Own).get()));
}

Work parsingNamelessParts(int size)
{
    return parsing(assembled(pictures(size, Names::None).get()));
}

Work parsingLongName(int size)
{
    return parsing(assembled(longName(size).get()));
}

Work assembling(int size)
{
    return [parts = pictures(size, Names::Own)] { assembled(parts.get()); };
}

Work assemblingLongName(int size)
{
    return [parts = longName(size)] { assembled(parts.get()); };
}

Work copyingParts(int size)
{
    return [parts = pictures(size, Names::Own)] { const Multipart copy(*parts); };
}

Work namingAfterLongName(int size)
{
    return [parts = longName(size), name = QString(size, u'a')] {
        EXPECT_FALSE(parts->createUniqueLocation(name).isEmpty());
    };
}

Work lookingUpPart(int size)
{
    return [parts = pictures(size, Names::Own)] {
        EXPECT_FALSE(parts->isPartExist(QStringLiteral("nobody.jpg")));
    };
}

// Presentations

struct Message
{
    Multipart parts;
    Slides slides{&parts};
};

QByteArray repeated(const char *pattern, int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += numbered(pattern, i);
    return text;
}

QByteArray documentOf(const QByteArray &head, const QByteArray &body)
{
    return "<smil><head>" + head + "</head><body>" + body + "</body></smil>";
}

QByteArray slidesDocument(int count)
{
    return documentOf(
        "", repeated("<par dur=\"5s\"><img src=\"#.jpg\"/><text src=\"#.txt\"/></par>", count));
}

QByteArray regionsDocument(int count)
{
    return documentOf(
        "<layout><root-layout/>" + repeated("<region id=\"r#\"/>", count) + "</layout>", "");
}

QByteArray equalRegionsDocument(int count)
{
    return documentOf("<layout><root-layout/>" + repeated("<region/>", count) + "</layout>", "");
}

QByteArray metasDocument(int count)
{
    return documentOf(repeated("<meta name=\"#\" content=\"#\"/>", count), "");
}

QByteArray paramsDocument(int count)
{
    return documentOf("",
                      "<par><img src=\"a\">" + repeated("<param name=\"#\" value=\"#\"/>", count)
                          + "</img></par>");
}

QByteArray oneParDocument(int count)
{
    return documentOf("", "<par>" + repeated("<img src=\"#.jpg\"/>", count) + "</par>");
}

QByteArray audioDocument(int count)
{
    return documentOf(
        "", "<par>" + repeated("<ref src=\"#\"/><audio src=\"#.amr\"/>", count) + "</par>");
}

QByteArray unknownDocument(int count)
{
    return documentOf("", repeated("<a/><!-- > -->", count));
}

QByteArray attributesDocument(int count)
{
    return documentOf("", "<par" + repeated(" a#=\"\"", count) + "/>");
}

QByteArray repairedDocument(int count)
{
    return QByteArray("<region id=\"text\"  height=\"160\"  width=\"120\" left=\"0\" top=\"0\" "
                      "fit=\"hidden\" />")
               .repeated(count)
        + documentOf("", "");
}

QByteArray deepDocument(int levels)
{
    return documentOf(
        "", QByteArray("<a>").repeated(levels - 2) + QByteArray("</a>").repeated(levels - 2));
}

void read(const QByteArray &document, Message *message)
{
    EXPECT_EQ(MMS_COMP_SMILParser().parse(document, &message->parts, &message->slides),
              SmilResult::Ok);
}

template <QByteArray (*Document)(int)>
Work reading(int size)
{
    return [document = Document(size)] {
        Message message;
        read(document, &message);
    };
}

template <QByteArray (*Document)(int)>
std::shared_ptr<Message> messageOf(int size)
{
    auto message = std::make_shared<Message>();
    read(Document(size), message.get());
    return message;
}

template <QByteArray (*Document)(int)>
Work writing(int size)
{
    return [message = messageOf<Document>(size)] {
        EXPECT_FALSE(MMS_COMP_SMILParser::convertToSMILLang(&message->slides).isEmpty());
    };
}

template <QByteArray (*Document)(int)>
Work copying(int size)
{
    return [message = messageOf<Document>(size)] {
        Message copy;
        EXPECT_TRUE(message->slides.copyTo(&copy.slides, &copy.parts));
    };
}

// The slides are deleted after the measurement: deleting them looks up each of their parts among
// all parts.
std::shared_ptr<Message> messageOfPictures(int size)
{
    auto message = std::make_shared<Message>();
    for (int i = 0; i < size; ++i)
        message->parts.appendBodypart(picture(QStringLiteral("%1.jpg").arg(i)).release());
    return message;
}

QByteArray picturesDocument(int count)
{
    return documentOf("", repeated("<par dur=\"5s\"><img src=\"#.jpg\"/></par>", count));
}

Work readingSlidesOfParts(int size)
{
    return [message = messageOfPictures(size), document = picturesDocument(size)] {
        read(document, message.get());
        EXPECT_NE(message->slides.getSlide(0)->getMediaObject(0)->getData(), nullptr);
    };
}

Work copyingSlidesOfParts(int size)
{
    auto message = messageOfPictures(size);
    read(picturesDocument(size), message.get());
    return [message, copy = std::make_shared<Slides>(&message->parts)] {
        EXPECT_TRUE(message->slides.copyTo(copy.get(), &message->parts));
        EXPECT_NE(copy->getSlide(0)->getMediaObject(0)->getData(), nullptr);
    };
}

Work discardingSlidesOfParts(int size)
{
    auto message = std::make_shared<std::optional<QvlMessage>>(std::in_place);
    QvlMessage &pictures = **message;
    for (int i = 0; i < size; ++i)
        pictures.parts().appendBodypart(picture(QStringLiteral("%1.jpg").arg(i)).release());
    EXPECT_EQ(
        MMS_COMP_SMILParser().parse(picturesDocument(size), &pictures.parts(), &pictures.slides()),
        SmilResult::Ok);
    return [message] { message->reset(); };
}

Work makingSlides(int size)
{
    auto message = std::make_shared<Message>();
    for (int i = 0; i < size; ++i) {
        auto text = picture(QStringLiteral("%1.txt").arg(i));
        text->setContentType(QStringLiteral("text"));
        text->setContentSubType(QStringLiteral("plain"));
        message->parts.appendBodypart(text.release());
    }
    return [message] {
        EXPECT_EQ(MMS_COMP_SMILParser::makeSmilForMixed(&message->parts, &message->slides, true),
                  1);
        EXPECT_GT(message->slides.getTotalSlidesNum(), 0U);
    };
}

Work normalizing(int size)
{
    return [message = messageOf<regionsDocument>(size)] {
        MMS_COMP_SMILParser::updateToCorvaneRegion(&message->slides);
    };
}

Work renamingRegionsOfObjects(int size)
{
    return [message = messageOf<slidesDocument>(size)] {
        MMS_COMP_SMILParser::updateObjectRegionId(&message->slides, QString(), QStringLiteral("a"));
    };
}

Work namingSource(int size)
{
    return [message = messageOf<slidesDocument>(size)] {
        EXPECT_FALSE(message->slides.createUniqueSrc(QStringLiteral("1.jpg")).isEmpty());
    };
}

Work lookingUpSource(int size)
{
    return [message = messageOf<slidesDocument>(size)] {
        EXPECT_FALSE(message->slides.isElemNameExist(QStringLiteral("nobody.jpg")));
    };
}

Work preparingToSend(int size)
{
    return [message = messageOf<slidesDocument>(size)] {
        message->slides.removeEmptyTextBeforeSend();
        message->slides.updateParamToSlide();
        message->slides.updateParamFromSlide();
    };
}

Work deletingObject(int size)
{
    return [message = messageOf<slidesDocument>(size)] {
        message->slides.deleteObjectByDataLocation(QStringLiteral("nobody.jpg"));
    };
}

Work storingSlide(int size)
{
    return [message = messageOf<paramsDocument>(size)] {
        QByteArray stored;
        QDataStream out(&stored, QIODevice::WriteOnly);
        EXPECT_TRUE(message->slides.getSlide(0)->writeToStream(out));
        QDataStream in(stored);
        MMS_COMP_SMILTimingContainer copy(nullptr);
        EXPECT_TRUE(copy.readFromStream(in));
    };
}

constexpr Subject subjects[] = {
    {"header with recipients, decoded", 1000, decodingRecipients},
    {"header with recipients, encoded", 1000, encodingRecipients},
    {"header with recipients, scanned", 1000, scanningRecipients},
    {"header with later fields, prepared", 1000, preparingHeader},
    {"header with a long subject, decoded", 32767, decodingSubject},
    {"header with a long subject, encoded", 32767, encodingSubject},
    {"header with a long subject, scanned", 32767, scanningSubject},
    {"part headers, scanned", 1000, scanningPartHeaders},
    {"part headers, made readable", 1000, makingReadable},
    {"parameters in text, scanned", 1000, scanningTypeInText},
    {"named parts, parsed", 127, parsingNamedParts},
    {"nameless parts, parsed", 127, parsingNamelessParts},
    {"part with a long name, parsed", 32767, parsingLongName},
    {"parts, assembled", 127, assembling},
    {"part with a long name, assembled", 32767, assemblingLongName},
    {"parts, copied", 127, copyingParts},
    {"parts, searched", 127, lookingUpPart},
    {"name made of a long one", 32767, namingAfterLongName},
    {"slides, read", 2500, reading<slidesDocument>},
    {"slides with parts of their own, read", 250, readingSlidesOfParts},
    {"regions, read", 5000, reading<regionsDocument>},
    {"equal regions, read", 5000, reading<equalRegionsDocument>},
    {"metas, read", 5000, reading<metasDocument>},
    {"params of one object, read", 5000, reading<paramsDocument>},
    {"pictures of one par, read", 50000, reading<oneParDocument>},
    {"sounds of one par, read", 25000, reading<audioDocument>},
    {"elements that are passed over, read", 5000, reading<unknownDocument>},
    {"attributes, read", 5000, reading<attributesDocument>},
    {"lines that are repaired, read", 1000, reading<repairedDocument>},
    {"levels, read", 128, reading<deepDocument>},
    {"slides, written", 2500, writing<slidesDocument>},
    {"regions, written", 5000, writing<regionsDocument>},
    {"metas, written", 5000, writing<metasDocument>},
    {"params of one object, written", 5000, writing<paramsDocument>},
    {"slides, copied", 2500, copying<slidesDocument>},
    {"slides with parts of their own, copied", 250, copyingSlidesOfParts},
    {"regions, copied", 5000, copying<regionsDocument>},
    {"params of one object, copied", 5000, copying<paramsDocument>},
    {"parts, slides made of them", 127, makingSlides},
    {"regions, normalized", 5000, normalizing},
    {"objects whose region is renamed", 2500, renamingRegionsOfObjects},
    {"slides, a source named for them", 2500, namingSource},
    {"slides with parts of their own, discarded", 250, discardingSlidesOfParts},
    {"slides, searched for a source", 2500, lookingUpSource},
    {"slides, made ready to be sent", 2500, preparingToSend},
    {"slides, searched for an object to delete", 2500, deletingObject},
    {"params of one object, stored", 5000, storingSlide},
};

} // namespace

class Growth : public testing::TestWithParam<Subject>
{
};

TEST_P(Growth, TwiceTheSizeCostsAtMostALittleOverTwiceAsMuch)
{
    constexpr double Most = 2.2;
    const Subject &subject = GetParam();
    costOf(subject, subject.size); // from here on, what is created only once exists
    const Cost once = costOf(subject, subject.size);
    const Cost twice = costOf(subject, 2 * subject.size);
    EXPECT_GT(once.steps, 0);
    EXPECT_LE(double(twice.steps), Most * double(once.steps)) << once.steps;
    EXPECT_LE(double(twice.allocations), Most * double(once.allocations)) << once.allocations;
    EXPECT_LE(double(twice.octets), Most * double(once.octets)) << once.octets;
}

INSTANTIATE_TEST_SUITE_P(Subject, Growth, testing::ValuesIn(subjects));
