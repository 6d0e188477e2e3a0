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
// The same with a text type that no SMIL and no multipart has: image/gif.
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
    expectResult(message.receive(*pdu), Layer::Header, WireResult::Read);
    pdu.reset();
    EXPECT_EQ(message.header().getBodyOctets(), "GIF");
}

TEST(Message, ReadsNoPartsFromABodyThatIsNotMultipart)
{
    QvlMessage message;
    expectResult(message.receive(PicturePdu), Layer::Header, WireResult::Read);
    EXPECT_FALSE(message.isMultipart());
    EXPECT_EQ(message.parts().getPartCount(), 0);
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

TEST(Message, KeepsAReceivedBodyThatIsNoMultipart)
{
    QvlMessage message;
    ASSERT_TRUE(message.receive(PicturePdu).isOk());
    QByteArray pdu;
    ASSERT_TRUE(message.encode(&pdu).isOk());
    EXPECT_EQ(pdu, "8C 84 8D 90 89 01 81 84 9D 47 49 46"_octets); // From is always written
}

TEST(Message, HasAtMost255PartsWhenItIsEncoded)
{
    QvlMessage message;
    message.header().addFieldsPresent(headerFieldMask(MessageType));
    QByteArray pdu;
    for (int i = 0; i < 255; ++i)
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
