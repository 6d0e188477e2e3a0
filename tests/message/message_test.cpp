/*
 * A whole message: receiving, presenting, storing and encoding, and the layer of a failure.
 */
#include "message/message.h"

#include "multipart/multipart_result.h"
#include "multipart/part_facts.h"
#include "presentation/smil_result.h"
#include "smil/smil_parser.h"
#include "wire/header_fields.h"
#include "wire/wire_result.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using Layer = QvlMessage::Result::Layer;
using namespace HeaderFieldCode;

static_assert(!std::is_copy_constructible_v<QvlMessage>);

// m-retrieve-conf, version 1.0, and a body of one text "B" with the location "b".
const QByteArray MixedPdu = "8C 84 8D 90 84 A3 01 05 01 04 83 85 62 00 42"_octets;
// The same with a body that is no multipart: image/gif.
const QByteArray PicturePdu = "8C 84 8D 90 84 9D 47 49 46"_octets;

const QByteArray Smil = "<smil><body><par dur=\"2s\"><text src=\"b\"/></par></body></smil>";

// A body of a presentation and the text "b", in a related message that starts with "<s>".
QByteArray relatedPdu(const QByteArray &smil)
{
    QByteArray pdu =
        "8C 84 8D 90 84 18 B3 8A 3C 73 3E 00 89"_octets + "application/smil" + "00 02"_octets;
    pdu += "17"_octets + char(smil.size()) + "application/smil" + "00"_octets
        + "C0 22 3C 73 3E 00"_octets + smil;
    return pdu + "05 01 04 83 85 62 00 42"_octets;
}

void expectResult(const QvlMessage::Result &result, Layer layer, int code)
{
    EXPECT_EQ(result.layer, layer);
    EXPECT_EQ(result.code, code);
    EXPECT_EQ(result.isOk(), code == 0);
}

} // namespace

TEST(Message, StartsEmpty)
{
    QvlMessage message;
    EXPECT_TRUE(message.pdu().isEmpty());
    EXPECT_EQ(message.header().getFieldsPresent(), 0U);
    EXPECT_EQ(message.parts().getPartCount(), 0);
    EXPECT_EQ(message.slides().getMultiPart(), &message.parts());
    EXPECT_FALSE(message.isMultipart());
}

TEST(Message, ReceivesHeaderAndParts)
{
    QvlMessage message;
    expectResult(message.receive(MixedPdu), Layer::Body, MultipartResult::Ok);
    EXPECT_EQ(message.pdu(), MixedPdu);
    EXPECT_EQ(message.header().getMessageType(), QvlMessageType::RetrieveConf);
    EXPECT_TRUE(message.isMultipart());
    ASSERT_EQ(message.parts().getPartCount(), 1);
    EXPECT_EQ(message.parts().getBodypartByIndex(0)->getBodyData(), "B");
    EXPECT_EQ(message.parts().getSubType(), "vnd.wap.multipart.mixed");
}

TEST(Message, KeepsTheOctetsOfTheBodyWhenTheCallersArrayIsGone)
{
    QvlMessage message;
    auto pdu = std::make_unique<QByteArray>(PicturePdu.constData(), PicturePdu.size());
    expectResult(message.receive(*pdu), Layer::Body, MultipartResult::Ok);
    pdu.reset();
    EXPECT_EQ(message.header().getBodyOctets(), "GIF");
}

TEST(Message, TakesABodyThatIsNoMultipartForOnePart)
{
    QvlMessage message;
    expectResult(message.receive(PicturePdu), Layer::Body, MultipartResult::Ok);
    EXPECT_FALSE(message.isMultipart());
    ASSERT_EQ(message.parts().getPartCount(), 1);
    const Part &part = *message.parts().getBodypartByIndex(0);
    EXPECT_EQ(part.getMimeFormat(), "image/gif");
    EXPECT_EQ(part.getBodyData(), "GIF");
    EXPECT_EQ(part.getContentLocation(), "file0.gif");
}

TEST(Message, KeepsCharsetAndNameOfABodyThatIsNoMultipart)
{
    // text/plain, charset ISO-8859-1, name "a.txt", in the general form; then an e with an accent.
    const QByteArray pdu = "8C 84 8D 90 84 0A 83 81 84 85"_octets + "a.txt" + "00 E9"_octets;
    QvlMessage message;
    ASSERT_TRUE(message.receive(pdu).isOk());
    ASSERT_EQ(message.parts().getPartCount(), 1);
    const Part &part = *message.parts().getBodypartByIndex(0);
    EXPECT_EQ(part.getMimeFormat(), "text/plain");
    EXPECT_EQ(part.getContentLocation(), "a.txt");
    EXPECT_EQ(message.charset(part), 4);
    EXPECT_EQ(message.text(part), QString(QChar(0xE9)));
    ASSERT_EQ(message.changes().size(), 1U);
    EXPECT_EQ(message.changes()[0].code, ContentType);
    EXPECT_EQ(message.changes()[0].offset, 4);
}

TEST(Message, ReadsFieldsOfLaterVersions)
{
    QByteArray pdu = MixedPdu;
    pdu.insert(4, "9B 80 A2 81"_octets);
    QvlMessage message;
    ASSERT_TRUE(message.receive(pdu).isOk());
    EXPECT_EQ(message.parts().getPartCount(), 1);
    EXPECT_EQ(message.changes().size(), 2U);
    EXPECT_EQ(message.pdu(), pdu);
    expectResult(message.receive(pdu, QvlMessage::Strict), Layer::Header, WireResult::UnknownField);
    EXPECT_TRUE(message.changes().empty());
}

TEST(Message, StrictlyHasNoPartsInABodyThatIsNoMultipart)
{
    QvlMessage message;
    ASSERT_TRUE(message.receive(PicturePdu, QvlMessage::Strict).isOk());
    EXPECT_EQ(message.parts().getPartCount(), 0);
    QByteArray pdu;
    ASSERT_TRUE(message.encode(&pdu).isOk());
    EXPECT_EQ(pdu, "8C 84 8D 90 89 01 81 84 9D 47 49 46"_octets); // From is always written
}

TEST(Message, KeepsStartAndTypeInLetters)
{
    // Length 33: media octet, "start", "<s>", "type" and "application/smil" with their zeros.
    QByteArray pdu = "8C 84 8D 90 84 1F 21 B3"_octets + "start" + '\0' + "<s>" + '\0' + "type"
        + '\0' + "application/smil" + '\0';
    pdu += relatedPdu(Smil).sliced(30);
    QvlMessage message;
    ASSERT_TRUE(message.receive(pdu).isOk());
    EXPECT_TRUE(message.changes().empty());
    EXPECT_EQ(message.parts().getStart(), "<s>");
    EXPECT_EQ(message.parts().getExtType(), "application/smil");
    EXPECT_EQ(message.parts().getSmilPart(), message.parts().getBodypartByIndex(0));
}

TEST(Message, FindsNamesThatTheCodecPassesOver)
{
    // Four pictures: Name as 97, Content-Location and Content-ID in letters, a file name, nothing.
    const QByteArray pdu = "8C 84 8D 90 84 A3 04"_octets
        + "07 01 06 9E 97 61 2E 61 00 31"_octets // a.a
        + "23 01 9E"_octets + "Content-Location" + '\0' + "b.b" + '\0' + "Content-ID" + '\0' + "<"
        + "00 32"_octets + "0C 01 9E AE 09 81 98"_octets + "c.c" + "00 85 64 00 33"_octets
        + "01 01 9E 34"_octets;
    QvlMessage message;
    ASSERT_TRUE(message.receive(pdu).isOk());
    EXPECT_TRUE(message.changes().empty());
    ASSERT_EQ(message.parts().getPartCount(), 4);
    EXPECT_EQ(message.parts().getBodypartByIndex(0)->getContentLocation(), "a.a");
    EXPECT_EQ(message.parts().getBodypartByIndex(1)->getContentLocation(), "b.b");
    EXPECT_EQ(message.parts().getBodypartByIndex(1)->getContentID(), "<");
    EXPECT_EQ(message.parts().getBodypartByIndex(2)->getContentLocation(), "c.c");
    EXPECT_EQ(message.parts().getBodypartByIndex(3)->getContentLocation(), "file0.jpg");
}

TEST(Message, DecodesPartsFromTheirTransferEncoding)
{
    // One part, text/plain; charset ISO-8859-1; the octets "4Q==" stand for an a with an accent.
    const QByteArray pdu = "8C 84 8D 90 84 A3 01 25 04 03 83 81 84"_octets
        + "Content-Transfer-Encoding" + '\0' + "base64" + '\0' + "4Q==";
    QvlMessage message;
    ASSERT_TRUE(message.receive(pdu).isOk());
    const Part &part = *message.parts().getBodypartByIndex(0);
    EXPECT_EQ(part.getBodyData(), "\xE1");
    EXPECT_EQ(message.text(part), QString(QChar(0xE1)));
    ASSERT_EQ(message.changes().size(), 1U);
    const QvlChange &change = message.changes()[0];
    EXPECT_EQ(change.kind, QvlChange::Rewritten);
    EXPECT_EQ(change.place, QvlChange::PartBody);
    EXPECT_EQ(change.part, 0);
    EXPECT_EQ(change.offset, pdu.size() - 4);
    ASSERT_TRUE(message.receive(pdu, QvlMessage::Strict).isOk());
    EXPECT_EQ(message.parts().getBodypartByIndex(0)->getBodyData(), "4Q==");
}

TEST(Message, KeepsAMalformedTransferEncoding)
{
    const QByteArray pdu = "8C 84 8D 90 84 A3 01 22 04 83"_octets + "Content-Transfer-Encoding"
        + '\0' + "base64" + '\0' + "4?==";
    QvlMessage message;
    ASSERT_TRUE(message.receive(pdu).isOk());
    EXPECT_EQ(message.parts().getBodypartByIndex(0)->getBodyData(), "4?==");
    EXPECT_TRUE(message.changes().empty());
}

TEST(Message, NamesTheLayerThatFailed)
{
    QvlMessage message;
    const auto header = message.receive("8C 84 FF"_octets);
    expectResult(header, Layer::Header, WireResult::UnknownField);
    EXPECT_STREQ(header.layerName(), "header");
    EXPECT_STREQ(header.meaning(), WireResult::meaning(WireResult::UnknownField));
    EXPECT_EQ(message.header().getMessageType(), QvlMessageType::RetrieveConf); // read before

    const auto body = message.receive(MixedPdu.chopped(1));
    expectResult(body, Layer::Body, MultipartResult::CannotDecode);
    EXPECT_STREQ(body.layerName(), "body");
    EXPECT_STREQ(body.meaning(), MultipartResult::meaning(MultipartResult::CannotDecode));

    expectResult(message.receive(relatedPdu("<smil>")), Layer::Body, MultipartResult::Ok);
    const auto slides = message.present();
    expectResult(slides, Layer::Presentation, SmilResult::NotWellFormed);
    EXPECT_STREQ(slides.layerName(), "presentation");
    EXPECT_STREQ(slides.meaning(), SmilResult::meaning(SmilResult::NotWellFormed));
}

TEST(Message, ForgetsThePreviousMessage)
{
    QvlMessage message;
    ASSERT_TRUE(message.receive(MixedPdu).isOk());
    ASSERT_TRUE(message.present().isOk());
    expectResult(message.receive("8C 81 98 54 00"_octets), Layer::Header, WireResult::Read);
    EXPECT_FALSE(message.header().fieldsPresent(headerFieldMask(ContentType)));
    EXPECT_EQ(message.parts().getPartCount(), 0);
    EXPECT_EQ(message.slides().getTotalSlidesNum(), 0U);
    EXPECT_FALSE(message.areSlidesGenerated());
}

TEST(Message, ReadsSlidesFromTheSmilPart)
{
    QvlMessage message;
    ASSERT_TRUE(message.receive(relatedPdu(Smil)).isOk());
    expectResult(message.present(), Layer::Presentation, SmilResult::Ok);
    ASSERT_EQ(message.slides().getTotalSlidesNum(), 1U);
    EXPECT_EQ(message.slides().getSlide(0)->getDur(), 2000);
    EXPECT_EQ(message.slides().getMediaObject(0, 0)->getData(),
              message.parts().getBodypartByIndex(1));
    EXPECT_FALSE(message.areSlidesGenerated());
}

TEST(Message, GeneratesSlidesWithoutSmilAndKeepsTheParts)
{
    QvlMessage message;
    ASSERT_TRUE(message.receive(MixedPdu).isOk());
    expectResult(message.present(), Layer::Presentation, SmilResult::Ok);
    EXPECT_TRUE(message.areSlidesGenerated());
    ASSERT_EQ(message.slides().getTotalSlidesNum(), 1U);
    EXPECT_EQ(message.slides().getMediaObject(0, 0)->getSrc(), "b");
    EXPECT_EQ(message.parts().getPartCount(), 1);
}

TEST(Message, IsPresentedOnce)
{
    QvlMessage message;
    ASSERT_TRUE(message.receive(relatedPdu(Smil)).isOk());
    expectResult(message.present(), Layer::Presentation, SmilResult::Ok);
    expectResult(message.present(), Layer::Presentation, SmilResult::Ok);
    EXPECT_EQ(message.slides().getTotalSlidesNum(), 1U);
}

TEST(Message, StoresSlidesInTheSmilPart)
{
    QvlMessage message;
    ASSERT_TRUE(message.receive(relatedPdu(Smil)).isOk());
    ASSERT_TRUE(message.present().isOk());
    message.slides().getSlide(0)->setDur(3000);
    ASSERT_TRUE(message.storeSlides());
    EXPECT_EQ(message.parts().getPartCount(), 2);
    EXPECT_TRUE(message.parts().getSmilPart()->getBodyData().contains("dur=\"3000ms\""));
}

TEST(Message, GetsASmilPartForItsSlides)
{
    QvlMessage message;
    ASSERT_TRUE(message.receive(MixedPdu).isOk());
    ASSERT_TRUE(message.present().isOk());
    ASSERT_TRUE(message.storeSlides());
    ASSERT_EQ(message.parts().getPartCount(), 2);
    const MMS_COMP_SMILMultipartBodypart *smil = message.parts().getSmilPart();
    EXPECT_EQ(smil, message.parts().getBodypartByIndex(0));
    EXPECT_EQ(smil->getContentLocation(), "slides.smil");
    EXPECT_EQ(smil->getContentID(), "<slides.smil>");
    EXPECT_EQ(smil->getBodyData(), message.smilText());
    EXPECT_EQ(message.parts().getStart(), "<slides.smil>");
    EXPECT_EQ(message.parts().getSubType(), "vnd.wap.multipart.related");
}

TEST(Message, GivesTheSmilPartAFreeName)
{
    QvlMessage message;
    appendParts(message.parts(), {{.location = "b.smil"}});
    ASSERT_TRUE(message.storeSlides("b.smil"));
    EXPECT_EQ(message.parts().getSmilPart()->getContentLocation(), "b_0.smil");
}

TEST(Message, KeepsPageColorsThatTheWriterWouldLose)
{
    QvlMessage message;
    MMS_COMP_COLOR color;
    MMS_COMP_SMILParser::parseColor("navy", color);
    auto *slide = message.slides().appendSlide(1000U);
    ASSERT_TRUE(
        slide->updateData("text", "t", SMIL_MEDIA_TEXT, "plain", "T", true, &message.parts()));
    slide->setPageColor(color);
    ASSERT_TRUE(message.storeSlides());

    QByteArray pdu;
    message.header().setMessageType(QvlMessageType::RetrieveConf);
    message.header().addFieldsPresent(headerFieldMask(MessageType));
    ASSERT_TRUE(message.encode(&pdu).isOk());
    QvlMessage again;
    ASSERT_TRUE(again.receive(pdu).isOk());
    ASSERT_TRUE(again.present().isOk());
    EXPECT_EQ(again.slides().getSlide(0)->getPageColor().color, QColor(0, 0, 128));
}

TEST(Message, KeepsPageColorsHoweverOftenItsSlidesAreStored)
{
    QvlMessage message;
    ASSERT_TRUE(message.receive(relatedPdu(Smil)).isOk());
    ASSERT_TRUE(message.present().isOk());
    MMS_COMP_COLOR color;
    MMS_COMP_SMILParser::parseColor("navy", color);
    message.slides().getSlide(0)->setPageColor(color);
    const QByteArray first = message.smilText();
    EXPECT_EQ(first.count("<param name=\"background-color\" value=\"#000080\""), 1);
    EXPECT_EQ(message.smilText(), first);
    EXPECT_EQ(message.slides().getSlide(0)->getPageColor().name, "navy");
}

TEST(Message, MovesTheColorOfTheRootLayoutToTheSlides)
{
    QvlMessage message;
    ASSERT_TRUE(message.receive(relatedPdu(Smil)).isOk());
    ASSERT_TRUE(message.present().isOk());
    message.slides().getRootLayout()->setBackgroundColor("red");
    EXPECT_TRUE(message.smilText().contains("<param name=\"background-color\" value=\"#ff0000\""));
    EXPECT_FALSE(message.slides().getRootLayout()->getBackgroundColor()->isUsable());
}

TEST(Message, IsEncodedAsReceived)
{
    QvlMessage message;
    ASSERT_TRUE(message.receive(MixedPdu).isOk());
    QByteArray pdu;
    expectResult(message.encode(&pdu), Layer::Body, 0);
    // From is always written, and the text gets a charset and a location.
    EXPECT_EQ(pdu, "8C 84 8D 90 89 01 81 84 A3 01 0A 01 06 83 85 62 00 81 EA 8E 62 00 42"_octets);
}

TEST(Message, WithoutPartsEncodesOnlyItsHeader)
{
    QvlMessage message;
    message.header().setMessageType(QvlMessageType::AcknowledgeInd);
    message.header().setTransactionId("T");
    message.header().setMMSVersion(QvlMmsVersion::Version10);
    message.header().addFieldsPresent(headerFieldMask(MessageType)
                                      | headerFieldMask(TransactionId));
    QByteArray pdu;
    expectResult(message.encode(&pdu), Layer::Body, 0);
    EXPECT_EQ(pdu, "8C 85 98 54 00 8D 90"_octets);
}

TEST(Message, FailedEncodingKeepsTheOctets)
{
    QvlMessage message;
    QByteArray pdu = "before";
    appendParts(message.parts(), {{.location = "a"}});
    message.parts().setBoundary("text");
    expectResult(message.encode(&pdu), Layer::Body, MultipartResult::CannotEncode);
    expectResult(message.encode(nullptr), Layer::Header, WireResult::BadArgument);
    EXPECT_EQ(pdu, "before");
}

TEST(Message, HasNoPartsInATypeWithoutABody)
{
    for (int type = 128; type <= 135; ++type) {
        SCOPED_TRACE(type);
        QvlMessage message;
        appendParts(message.parts(), {{.format = "text/plain", .location = "a"}});
        message.header().setMessageType(static_cast<unsigned char>(type));
        message.header().addFieldsPresent(headerFieldMask(MessageType));
        QByteArray pdu;
        const bool hasBody =
            type == QvlMessageType::SendReq || type == QvlMessageType::RetrieveConf;
        EXPECT_EQ(message.encode(&pdu).isOk(), hasBody);
        EXPECT_EQ(QvlMessage().receive(pdu).isOk(), true) << pdu.toHex(' ').toStdString();
    }
}

TEST(Message, WritesABodyThatIsNoMultipartAsOnePart)
{
    QvlMessage message;
    ASSERT_TRUE(message.receive(PicturePdu).isOk());
    QByteArray pdu;
    ASSERT_TRUE(message.encode(&pdu).isOk());
    QvlMessage read;
    ASSERT_TRUE(read.receive(pdu).isOk());
    EXPECT_TRUE(read.isMultipart());
    ASSERT_EQ(read.parts().getPartCount(), 1);
    EXPECT_EQ(read.parts().getBodypartByIndex(0)->getBodyData(), "GIF");
}

TEST(Message, WritesTextsInUtf8AndDeclaresIt)
{
    // Two parts: text/plain in ISO-8859-1, named "a", and in UTF-8, named "b".
    const QByteArray pdu = "8C 84 8D 90 84 A3 02"_octets + "07 01 06 83 81 84 85 61 00 E9"_octets
        + "07 02 06 83 81 EA 85 62 00 C3 A9"_octets;
    QvlMessage message;
    ASSERT_TRUE(message.receive(pdu).isOk());
    QByteArray written;
    ASSERT_TRUE(message.encode(&written).isOk());
    // The writer puts the name first and repeats it as the content location.
    EXPECT_TRUE(written.endsWith("02"_octets + "0A 02 06 83 85 61 00 81 EA 8E 61 00 C3 A9"_octets
                                 + "0A 02 06 83 85 62 00 81 EA 8E 62 00 C3 A9"_octets))
        << written.toHex(' ').toStdString();
    EXPECT_EQ(message.text(*message.parts().getBodypartByIndex(0)), QString(QChar(0xE9)));
}

TEST(Message, DeclaresTextsInUtf8ThatCameInACharsetOfSevenBits)
{
    // ISO-2022-JP, number 39; the text is one hiragana character, U+3053.
    const QByteArray pdu = "8C 84 8D 90 84 A3 01 07 08 06 83 81 A7 85 61 00"_octets
        + "1B 24 42 24 33 1B 28 42"_octets;
    QvlMessage message;
    ASSERT_TRUE(message.receive(pdu).isOk());
    QByteArray written;
    ASSERT_TRUE(message.encode(&written).isOk());
    EXPECT_TRUE(written.endsWith("0A 03 06 83 85 61 00 81 EA 8E 61 00 E3 81 93"_octets))
        << written.toHex(' ').toStdString();
    QByteArray again;
    ASSERT_TRUE(message.encode(&again).isOk());
    EXPECT_EQ(again, written);
}

TEST(Message, ReadsTextsOfTheHeaderInTheirCharset)
{
    // From, To twice, Subject and Response-Text in ISO-8859-1; the second To declares no charset.
    const QByteArray pdu = "8C 84 8D 90 89 07 80 05 84 E4 40 62 00 97 05 84 E4 40 63 00"_octets
        + "97 64 40 65 00 96 04 84 70 E4 00 93 03 84 E4 00 84 83 68"_octets;
    QvlMessage message;
    ASSERT_TRUE(message.receive(pdu).isOk());
    const MMS_UA_UAMsg &header = message.header();
    EXPECT_EQ(header.getFrom().getAddress(), "ä@b");
    ASSERT_EQ(header.getToRecipients().count(), 2U);
    EXPECT_EQ(header.getToRecipients().at(0)->getAddress(), "ä@c");
    EXPECT_EQ(header.getToRecipients().at(1)->getAddress(), "d@e");
    EXPECT_EQ(header.getSubject(), "pä");
    EXPECT_EQ(header.getResponseText(), "ä");
    QByteArray written;
    ASSERT_TRUE(message.encode(&written).isOk());
    EXPECT_TRUE(written.contains("96 05 EA 70 C3 A4 00"_octets)) << written.toHex(' ').toStdString();
}

TEST(Message, WithTextsThatBeginWithAControlCharacterIsNotEncoded)
{
    QvlMessage to;
    to.header().addToRecipient(MMS_UTIL_Entry("", MMS_UTIL_Entry::Email, "\x01"));
    QvlMessage id;
    id.header().setTransactionId("\x1F");
    QByteArray pdu;
    for (QvlMessage *message : {&to, &id})
        expectResult(message->encode(&pdu), Layer::Header, WireResult::CannotWrite);
}

TEST(Message, WithALongNameIsNotEncoded)
{
    QvlMessage message;
    message.header().addFieldsPresent(headerFieldMask(MessageType));
    QByteArray pdu;
    appendParts(message.parts(), {{.format = "text/plain", .location = QString(490, u'a')}});
    EXPECT_TRUE(message.encode(&pdu).isOk());
    QvlMessage read;
    ASSERT_TRUE(read.receive(pdu).isOk());
    EXPECT_EQ(read.parts().getBodypartByIndex(0)->getContentLocation().size(), 490);
    message.parts().getBodypartByIndex(0)->setContentLocation(QString(600, u'a'));
    expectResult(message.encode(&pdu), Layer::Body, MultipartResult::CannotEncode);
}

TEST(Message, PutsBareContentIdsIntoBrackets)
{
    QvlMessage message;
    message.header().addFieldsPresent(headerFieldMask(MessageType));
    appendParts(message.parts(), {{.format = "application/smil", .location = "s", .data = "S"}});
    message.parts().getBodypartByIndex(0)->setContentID("s");
    message.parts().setStart("s");
    QByteArray pdu;
    ASSERT_TRUE(message.encode(&pdu).isOk());
    EXPECT_EQ(message.parts().getBodypartByIndex(0)->getContentID(), "<s>");
    EXPECT_EQ(message.parts().getStart(), "<s>");
    EXPECT_TRUE(pdu.contains("C0 22 3C 73 3E 00"_octets));
}

TEST(Message, WritesTimesAsTheSenderMeantThem)
{
    // m-send-req; Date 1,000,000,000; Expiry 7 days; Delivery-Time one hour after the date.
    const QByteArray pdu = "8C 80 8D 90 85 04 3B 9A CA 00 89 01 81 88 05 81 03 09 3A 80"_octets
        + "87 04 81 02 0E 10 84 A3 00"_octets;
    QvlMessage message;
    ASSERT_TRUE(message.receive(pdu).isOk());
    const int decoded = message.header().getExpiry();
    QByteArray written;
    ASSERT_TRUE(message.encode(&written).isOk());
    EXPECT_EQ(written,
              "8C 80 8D 90 85 04 3B 9A CA 00 89 01 81 88 05 81 03 09 3A 80"_octets
                  + "87 06 80 04 3B 9A D8 10 84 A3"_octets);
    EXPECT_EQ(message.header().getExpiry(), decoded);
    message.header().setExpiry(60);
    ASSERT_TRUE(message.encode(&written).isOk());
    EXPECT_TRUE(written.contains("88 02 81 BC"_octets));
}

TEST(Message, CountsAnAbsoluteExpiryFromTheDate)
{
    // m-notification-ind without a date would count from now, so this m-send-req has one.
    const QByteArray pdu = "8C 80 8D 90 85 04 3B 9A CA 00 88 06 80 04 3B 9A D8 10 84 A3 00"_octets;
    QvlMessage message;
    ASSERT_TRUE(message.receive(pdu).isOk());
    QByteArray written;
    ASSERT_TRUE(message.encode(&written).isOk());
    EXPECT_TRUE(written.contains("88 04 81 02 0E 10"_octets)); // 3,600 s
}

TEST(Message, HasAtMost127PartsWhenItIsEncoded)
{
    QvlMessage message;
    message.header().addFieldsPresent(headerFieldMask(MessageType));
    QByteArray pdu;
    for (int i = 0; i < 127; ++i)
        message.parts().appendBodypart(new Part);
    EXPECT_TRUE(message.encode(&pdu).isOk());
    message.parts().appendBodypart(new Part);
    expectResult(message.encode(&pdu), Layer::Body, MultipartResult::CannotEncode);
}

TEST(Message, WithAnAddressThatHasNoFormOnTheWireIsNotEncoded)
{
    const MMS_UTIL_Entry absent("", MMS_UTIL_Entry::Absent, "x");
    QvlMessage to;
    to.header().addToRecipient(absent);
    QvlMessage cc;
    cc.header().addCcRecipient(absent);
    QvlMessage bcc;
    bcc.header().addBccRecipient(absent);
    QvlMessage from;
    from.header().setFrom(absent);
    QvlMessage version;
    version.header().setMMSVersion(0x90);
    QByteArray pdu;
    for (QvlMessage *message : {&to, &cc, &bcc, &from, &version})
        expectResult(message->encode(&pdu), Layer::Header, WireResult::CannotWrite);
}

TEST(Message, KeepsAPresentationThatWasNotRead)
{
    QvlMessage message;
    ASSERT_TRUE(message.receive(relatedPdu(Smil)).isOk());
    ASSERT_TRUE(message.storeSlides());
    EXPECT_EQ(message.slides().getTotalSlidesNum(), 1U);

    ASSERT_TRUE(message.receive(relatedPdu("<smil>")).isOk());
    EXPECT_FALSE(message.storeSlides());
    EXPECT_EQ(message.parts().getSmilPart()->getBodyData(), "<smil>");
}

TEST(Message, IsPresentedAgainOnceItHasParts)
{
    QvlMessage message;
    ASSERT_TRUE(message.present().isOk());
    appendParts(message.parts(), {{.format = "text/plain", .location = "a", .data = "A"}});
    ASSERT_TRUE(message.present().isOk());
    EXPECT_EQ(message.slides().getTotalSlidesNum(), 1U);
}

TEST(Message, DoesNotCallSlidesOfTheApplicationGenerated)
{
    QvlMessage message;
    appendParts(message.parts(), {{.format = "application/pdf", .location = "a", .data = "A"}});
    message.slides().appendSlide(new MMS_COMP_SMILTimingContainer(&message.parts()));
    ASSERT_TRUE(message.present().isOk());
    EXPECT_EQ(message.slides().getTotalSlidesNum(), 1U);
    EXPECT_FALSE(message.areSlidesGenerated());
}

TEST(Message, SaysDoneOfEverySuccess)
{
    QvlMessage message;
    EXPECT_STREQ(message.receive(MixedPdu).meaning(), "done");
    EXPECT_STREQ(message.present().meaning(), "done");
}
