/*
 * Slides for messages without presentation: which parts get one, its content, and the message after
 * the presentation was written into it. The tests have their own engine.
 */
#include "multipart/part_facts.h"
#include "presentation/presentation.h"
#include "smil/presentation_facts.h"
#include "smil/smil_parser.h"
#include "support/fake_player_engine.h"
#include "support/octets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using FakePlayerEngine::behavior;
using FakePlayerEngine::record;

namespace {

const QByteArray picture = "P1\n1 1\n1\n";

// Square bitmaps, with and without their pixels.
QByteArray truncated(int size)
{
    const QByteArray length = QByteArray::number(size);
    return "P4\n" + length + ' ' + length + '\n';
}

QByteArray whole(int size)
{
    return truncated(size) + QByteArray((size + 7) / 8 * size, '\0');
}

QByteArray smilOf(const QString &slides)
{
    return ("<smil>\n<head>\n<layout> \n<root-layout height=\"160\" width=\"120\" />\n"
            "</layout> \n</head>\n<body>\n"
            + slides + "</body>\n</smil>\n")
        .toUtf8();
}

// A GIF with one row of pixels on a square screen.
QByteArray gif(int screen)
{
    const QByteArray length = octet(screen & 0xFF) + octet(screen >> 8);
    return "GIF89a" + QByteArray(2, '\0') + length + "80 00 00 00 00 00 00 00 00"_octets
        + "2C 00 00 00 00"_octets + length + "01 00 00 02 02 4C 01 00 3B"_octets;
}

// 4,000 pixels wide and high.
QByteArray jpegWithoutPixels(int scans)
{
    return "FF D8 FF C2 00 0B 08 0F A0 0F A0 01 01 11 00"_octets
        + "FF DA 00 08 01 01 00 00 00 00"_octets.repeated(scans);
}

// A mixed message, and its presentation so far.
class MixedMessage : public testing::Test
{
protected:
    MixedMessage()
    {
        FakePlayerEngine::reset();
        message.setExtType("");
        message.setSubType("vnd.wap.multipart.mixed");
    }

    void append(const PartFacts &facts) { message.appendBodypart(new Part(partWith(facts))); }

    int make(bool writeSmil = false)
    {
        return MMS_COMP_SMILParser::makeSmilForMixed(&message, &data, writeSmil);
    }

    Multipart message;
    MMS_COMP_SMILData data{nullptr};
};

struct KindRow
{
    const char *format;
    QByteArray data;
    const char *slide; // null: no slide is created
    const char *region = nullptr;
    const char *mediaType = "";
};

} // namespace

TEST_F(MixedMessage, GivesEveryPartThatCanBeShownASlideOfItsKind)
{
    const KindRow rows[] = {
        {"text/plain", "text", "5000: text part", "text", "txt"},
        {"TEXT/Plain", "text", "5000: text part", "text", "txt"},
        {"text/plain", "", "5000: text part", "text", "txt"},
        {"text/x-vcalendar", "text", nullptr},
        {"text/X-vCalendar", "text", nullptr},
        {"text/x-vcard", "text", nullptr},
        {"text/html", "text", nullptr},
        {"text/", "text", nullptr},
        {"image/jpeg", picture, "5000: img part", "image"},
        {"image/unheard-of", picture, "5000: img part", "image"},
        {"image/jpeg", "no picture", nullptr},
        {"IMAGE/jpeg", "no picture", "5000: img part", "image"}, // its content is not read
        {"video/3gpp", "clip", "2500: video part", "image"},
        {"Video/3gpp", "clip", "2500: video part", "image"},
        {"audio/amr", "clip", "2500: audio part", "text"},
        {"AUDIO/AMR", "clip", "2500: audio part", "text"},
        {"application/pdf", "document", nullptr},
        {"application/smil", "<smil/>", nullptr},
        {"multipart/mixed", "parts", nullptr},
        {"textual/plain", "text", nullptr},
        {"/", "anything", nullptr},
    };
    for (const KindRow &row : rows) {
        SCOPED_TRACE(row.format);
        Multipart one;
        one.setSubType("vnd.wap.multipart.mixed");
        one.appendBodypart(
            new Part(partWith({.format = row.format, .location = "part", .data = row.data})));
        MMS_COMP_SMILData slides(nullptr);
        EXPECT_EQ(MMS_COMP_SMILParser::makeSmilForMixed(&one, &slides, false), 1);
        const Part &part = *one.getBodypartByIndex(0);
        if (!row.slide) {
            EXPECT_EQ(slides.getTotalSlidesNum(), 0U);
            EXPECT_EQ(part.getDispFileType(), Part::Attachment);
            continue;
        }
        ASSERT_EQ(slidesOf(slides), QStringList{row.slide});
        const MMS_COMP_SMILMediaObject &made = *slides.getMediaObject(0, 0);
        EXPECT_EQ(made.getData(), &part);
        EXPECT_EQ(made.getRegionId(), row.region);
        EXPECT_EQ(made.getMediaType(), row.mediaType);
        EXPECT_EQ(made.getMimeType(), row.format);
        EXPECT_EQ(made.getAlt(), "part");
        EXPECT_EQ(made.getMultiPart(), &one);
        EXPECT_EQ(part.getDispFileType(), Part::Shown);
        EXPECT_EQ(part.getRefCount(), 1);
    }
}

TEST_F(MixedMessage, ShowsTextAndPictureInOrderAndKeepsTheRestAttached)
{
    append({.format = "text/plain", .location = "a.txt", .data = "text"});
    append({.format = "application/pdf", .location = "b.pdf", .data = "document"});
    append({.format = "image/jpeg", .location = "c.jpg", .data = picture});
    EXPECT_EQ(make(), 1);
    EXPECT_EQ(slidesOf(data), (QStringList{"5000: text a.txt", "5000: img c.jpg"}));
    EXPECT_EQ(message.getBodypartByIndex(1)->getDispFileType(), Part::Attachment);
    EXPECT_EQ(data.getMultiPart(), &message);
    EXPECT_EQ(data.getSlide(0)->getMultiPart(), &message);
    EXPECT_EQ(record.created, 0);
}

TEST_F(MixedMessage, SkipsPartsThatAPresentationAlreadyShows)
{
    append({.format = "text/plain", .location = "a.txt", .display = Part::Shown});
    append({.format = "text/plain", .location = "b.txt"});
    append({.format = "text/plain", .location = "c.txt", .display = 2});
    EXPECT_EQ(make(), 1);
    EXPECT_EQ(slidesOf(data), (QStringList{"5000: text b.txt", "5000: text c.txt"}));
    EXPECT_EQ(message.getBodypartByIndex(2)->getDispFileType(), Part::Shown);
}

TEST_F(MixedMessage, SecondCallAddsNothing)
{
    append({.format = "text/plain", .location = "a.txt"});
    append({.format = "image/jpeg", .location = "b.jpg", .data = picture});
    EXPECT_EQ(make(), 1);
    EXPECT_EQ(make(), 1);
    EXPECT_EQ(data.getTotalSlidesNum(), 2U);
}

TEST_F(MixedMessage, AppendsItsSlides)
{
    data.appendSlide(700U);
    append({.format = "text/plain", .location = "a.txt"});
    EXPECT_EQ(make(), 1);
    EXPECT_EQ(slidesOf(data), (QStringList{"700: ", "5000: text a.txt"}));
}

TEST_F(MixedMessage, OpensAClipOnceToCheckAndOnceToMeasureIt)
{
    append({.format = "audio/amr", .location = "a.amr", .data = "clip"});
    EXPECT_EQ(make(), 1);
    EXPECT_EQ(record.created, 2);
    EXPECT_EQ(record.opened, 2);
    EXPECT_EQ(record.infos, 1);
    EXPECT_EQ(record.closed, 2);
    EXPECT_EQ(record.destroyed, 2);
    EXPECT_EQ(record.extension, "amr");
}

TEST_F(MixedMessage, ClipsThatDoNotOpenStayAttached)
{
    behavior.opens = false;
    append({.format = "audio/amr", .location = "a.amr", .data = "clip"});
    append({.format = "video/3gpp", .location = "b.3gp", .data = "clip"});
    EXPECT_EQ(make(), 1);
    EXPECT_EQ(data.getTotalSlidesNum(), 0U);
    EXPECT_EQ(message.getAttachmentCount(), 2);
}

TEST_F(MixedMessage, ClipOfUnknownLengthGetsTheDefaultDuration)
{
    behavior.hasInfo = false;
    append({.format = "video/3gpp", .location = "b.3gp", .data = "clip"});
    EXPECT_EQ(make(), 1);
    EXPECT_EQ(slidesOf(data), QStringList{"5000: video b.3gp"});
}

TEST_F(MixedMessage, PicturesAreDecodedUpToALimitOfTheirPixels)
{
    struct Row
    {
        const char *name;
        QList<QByteArray> pictures;
        QStringList shown;
    };
    const Row rows[] = {
        {"a truncated one", {truncated(3000)}, {}},
        {"a truncated one at the limit", {truncated(4000)}, {}},
        {"a truncated one beyond the limit", {truncated(4001)}, {"5000: img 0"}},
        {"no picture beyond the limit", {whole(4000), "no picture"}, {"5000: img 0"}},
        {"the last one is within the limit", {whole(3000), truncated(2500)}, {"5000: img 0"}},
        {"the limit is that of the message",
         {whole(3000), truncated(3000), truncated(2500)},
         {"5000: img 0", "5000: img 1"}},
        {"the screen of a GIF counts", {gif(4000), truncated(100)}, {"5000: img 0", "5000: img 1"}},
        {"a GIF of a smaller screen", {gif(3990), truncated(100)}, {"5000: img 0"}},
        {"a JPEG of many scans", {jpegWithoutPixels(64)}, {"5000: img 0"}},
        {"a JPEG of fewer scans", {jpegWithoutPixels(63)}, {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        message.clear();
        message.setSubType("vnd.wap.multipart.mixed");
        for (const QByteArray &octets : row.pictures)
            append({.format = "image/x-portable-bitmap",
                    .location = QString::number(message.getPartCount()),
                    .data = octets});
        MMS_COMP_SMILData slides(nullptr);
        EXPECT_EQ(MMS_COMP_SMILParser::makeSmilForMixed(&message, &slides, false), 1);
        EXPECT_EQ(slidesOf(slides), row.shown);
    }
}

TEST_F(MixedMessage, RefusesNull)
{
    EXPECT_EQ(MMS_COMP_SMILParser::makeSmilForMixed(nullptr, &data, true), 0);
    EXPECT_EQ(MMS_COMP_SMILParser::makeSmilForMixed(&message, nullptr, true), 0);
    EXPECT_EQ(message.getPartCount(), 0);
    EXPECT_EQ(data.getMultiPart(), nullptr);
}

TEST_F(MixedMessage, WritesThePresentationAsFirstPartOfARelatedMessage)
{
    append({.format = "text/plain", .location = "a.txt", .data = "text"});
    append({.format = "audio/amr", .location = "b.amr", .data = "clip"});
    append({.format = "application/pdf", .location = "c.pdf", .data = "document"});
    EXPECT_EQ(make(true), 1);

    ASSERT_EQ(message.getPartCount(), 4);
    const QByteArray smil = smilOf(
        "<par dur=\"5000ms\">\n<text src=\"a.txt\" alt=\"a.txt\" region=\"text\" >\n</text>\n"
        "</par>\n<par dur=\"2500ms\">\n<audio src=\"b.amr\" alt=\"b.amr\" >\n</audio>\n</par>\n");
    const PartFacts expected{.format = "application/smil",
                             .location = "qvlsmil.smil",
                             .id = "<qvlsmil.smil>",
                             .name = "smil.txt",
                             .data = smil,
                             .display = Part::Shown};
    EXPECT_EQ(factsOf(*message.getBodypartByIndex(0)), expected);
    EXPECT_EQ(message.getSmilPart(), message.getBodypartByIndex(0));
    EXPECT_EQ(message.getMimeType(), "application");
    EXPECT_EQ(message.getSubType(), "vnd.wap.multipart.related");
    EXPECT_EQ(message.getExtType(), "application/smil");
    EXPECT_EQ(message.getStart(), "<qvlsmil.smil>");
    EXPECT_EQ(message.getAttachmentCount(), 1);
}

TEST_F(MixedMessage, WritesAPresentationEvenIfNothingCanBeShown)
{
    EXPECT_EQ(make(true), 1);
    ASSERT_EQ(message.getPartCount(), 1);
    EXPECT_EQ(message.getBodypartByIndex(0)->getBodyData(), smilOf(""));
}

TEST_F(MixedMessage, NewPartsLocationDiffersFromLocationsAndContentIds)
{
    append({.format = "application/pdf", .location = "QVLSMIL.smil"});
    append({.format = "application/pdf", .location = "other", .id = "<qvlsmil_0.smil>"});
    EXPECT_EQ(make(true), 1);
    const Part &smil = *message.getBodypartByIndex(0);
    EXPECT_EQ(smil.getContentLocation(), "qvlsmil_1.smil");
    EXPECT_EQ(smil.getContentID(), "<qvlsmil_1.smil>");
    EXPECT_EQ(smil.getDispFileName(), "smil.txt");
    EXPECT_EQ(message.getStart(), "<qvlsmil_1.smil>");
}

TEST_F(MixedMessage, OnlyTheTextOfAnExistingSmilPartChanges)
{
    message.setSubType("vnd.wap.multipart.RELATED");
    message.setExtType("kept");
    append({.format = "application/smil",
            .location = "s.smil",
            .id = "<s>",
            .name = "name",
            .data = "<smil/>"});
    append({.format = "text/plain", .location = "a.txt"});
    EXPECT_EQ(make(true), 1);
    ASSERT_EQ(message.getPartCount(), 2);
    const QByteArray smil = smilOf("<par dur=\"5000ms\">\n<text src=\"a.txt\" alt=\"a.txt\" "
                                   "region=\"text\" >\n</text>\n</par>\n");
    const PartFacts expected{.format = "application/smil",
                             .location = "s.smil",
                             .id = "<s>",
                             .name = "name",
                             .data = smil,
                             .display = Part::Shown};
    EXPECT_EQ(factsOf(*message.getBodypartByIndex(0)), expected);
    EXPECT_EQ(message.getSubType(), "vnd.wap.multipart.RELATED");
    EXPECT_EQ(message.getExtType(), "kept");
    EXPECT_EQ(message.getStart(), "");
}

// A mixed message has no presentation part unless its start names one.
TEST_F(MixedMessage, SmilPartThatIsNotTheStartStaysAndASecondOneIsAdded)
{
    append({.format = "application/smil", .location = "s.smil", .data = "<smil/>"});
    append({.format = "text/plain", .location = "a.txt"});
    EXPECT_EQ(make(true), 1);
    ASSERT_EQ(message.getPartCount(), 3);
    EXPECT_EQ(message.getBodypartByIndex(0)->getContentLocation(), "qvlsmil.smil");
    EXPECT_EQ(message.getBodypartByIndex(1)->getBodyData(), "<smil/>");
    EXPECT_EQ(message.getBodypartByIndex(1)->getDispFileType(), Part::Attachment);
}

TEST_F(MixedMessage, WritingTwiceKeepsOneSmilPart)
{
    append({.format = "text/plain", .location = "a.txt"});
    EXPECT_EQ(make(true), 1);
    const QList<PartFacts> once = factsOf(message);
    EXPECT_EQ(make(true), 1);
    EXPECT_EQ(factsOf(message), once);
}

TEST_F(MixedMessage, LocationsAreWrittenAsUtf8)
{
    append({.format = "text/plain", .location = "Grüße.txt"});
    EXPECT_EQ(make(true), 1);
    EXPECT_TRUE(message.getBodypartByIndex(0)->getBodyData().contains("src=\"Gr\xC3\xBC\xC3\x9F"
                                                                      "e.txt\""));
}

TEST_F(MixedMessage, WrittenPresentationReadsBackAsTheSameSlides)
{
    append({.format = "text/plain", .location = "a.txt", .data = "text"});
    append({.format = "image/jpeg", .location = "b.jpg", .data = picture});
    append({.format = "video/3gpp", .location = "c.3gp", .data = "clip"});
    append({.format = "audio/amr", .location = "d.amr", .data = "clip"});
    EXPECT_EQ(make(true), 1);
    Multipart received;
    received.copyFrom(message);
    MMS_COMP_SMILData read(&received);
    EXPECT_EQ(MMS_COMP_SMILParser().parse(received.getSmilPart()->getBodyData(), &received, &read),
              SmilResult::Ok);
    EXPECT_EQ(slidesOf(read), slidesOf(data));
}
