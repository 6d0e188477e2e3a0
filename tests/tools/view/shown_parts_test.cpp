/*
 * Many media objects refer to one part: its clip is measured once, its text decoded once, and the
 * output stays short. The octets are written by hand; the tests have their own player engine.
 */
#include "view/shown_parts.h"

#include "input/message.h"
#include "support/fake_player_engine.h"
#include "support/pdu_writer.h"
#include "view/message_view.h"

#include <gtest/gtest.h>

namespace {

using namespace PduWriter;

const QByteArray Header = "8C 84 98 54 00 8D 90 89 01 81 84 B3"_octets;

QByteArray namedPart(const QByteArray &type, const QByteArray &name, const QByteArray &data)
{
    return part(generalType(text(type)), field(0x0E, text(name)), data);
}

// A message of that many slides, each with the same element.
std::unique_ptr<Message> messageOf(int slides, const QByteArray &element, const QByteArray &media)
{
    const QByteArray smil =
        "<smil><body>" + ("<par>" + element + "</par>").repeated(slides) + "</body></smil>";
    return decodeMessage(Header + body({namedPart("application/smil", "s", smil), media}));
}

std::unique_ptr<Message> messageOfText(int slides, const QByteArray &data)
{
    return messageOf(slides, "<text src='t'/>", namedPart("text/plain", "t", data));
}

std::unique_ptr<Message> messageOfClip(int slides)
{
    FakePlayerEngine::reset();
    return messageOf(slides, "<audio src='c'/>", namedPart("audio/amr", "c", "clip"));
}

QString firstLineOf(const QByteArray &data)
{
    const auto message = messageOfText(1, data);
    return ShownParts(*message).firstLine(*message->parts().getBodypartByIndex(1));
}

} // namespace

TEST(ShownParts, HaveTheirPlaceInTheMessage)
{
    const auto message = messageOfText(1, "text");
    ShownParts parts(*message);
    EXPECT_EQ(parts.indexOf(*message->parts().getBodypartByIndex(0)), 0);
    EXPECT_EQ(parts.indexOf(*message->parts().getBodypartByIndex(1)), 1);
    EXPECT_EQ(parts.indexOf(MMS_COMP_SMILMultipartBodypart()), -1);
}

TEST(ShownParts, FirstLineEndsAtALineFeedOrAZero)
{
    EXPECT_EQ(firstLineOf(""), "");
    EXPECT_EQ(firstLineOf("one"), "one");
    EXPECT_EQ(firstLineOf(" one \r\ntwo"), "one");
    EXPECT_EQ(firstLineOf(QByteArray("one\0two\nthree", 13)), "one");
    EXPECT_EQ(firstLineOf("\none"), "");
}

TEST(ShownParts, LongFirstLineEndsInAnEllipsis)
{
    const QByteArray longest(ShownParts::LongestLine, 'x');
    EXPECT_EQ(firstLineOf(longest), QString::fromLatin1(longest));
    EXPECT_EQ(firstLineOf(longest + 'x'), QString::fromLatin1(longest) + QChar(0x2026));
    EXPECT_EQ(firstLineOf(longest + "  \ntwo"), QString::fromLatin1(longest));
    const QByteArray pair = "\xF0\x9F\x8C\x8A"; // two units of UTF-16
    EXPECT_EQ(firstLineOf(longest.chopped(1) + pair + 'x'),
              QString::fromLatin1(longest.chopped(1)) + QChar(0x2026));
}

TEST(ShownParts, AreDecodedOnce)
{
    const auto message = messageOfText(1, "text");
    const auto &part = *message->parts().getBodypartByIndex(1);
    ShownParts parts(*message);
    const QString first = parts.firstLine(part);
    EXPECT_EQ(parts.firstLine(part).constData(), first.constData()); // the same copy
}

TEST(ShownParts, ClipIsMeasuredOnceForAllItsSlides)
{
    const auto message = messageOfClip(100);
    EXPECT_EQ(messageText(*message).count(u"2500 ms"), 100);
    EXPECT_EQ(FakePlayerEngine::record.opened, 1);
    EXPECT_NE(messageJson(*message).find("\"playDuration\":2500"), std::string::npos);
    EXPECT_EQ(FakePlayerEngine::record.opened, 2);
}

TEST(ShownParts, ClipThatCannotBeMeasuredIsOpenedOnce)
{
    const auto message = messageOfClip(100);
    FakePlayerEngine::behavior.opens = false;
    EXPECT_FALSE(messageText(*message).contains(u"Plays"));
    EXPECT_EQ(FakePlayerEngine::record.opened, 1);
}

TEST(ShownParts, LongTextTakesLittleSpaceOnEachSlide)
{
    constexpr int Slides = 1000;
    const auto message = messageOfText(Slides, QByteArray(100'000, 'x'));
    EXPECT_LT(messageText(*message).size(), Slides * 500);
    EXPECT_LT(messageJson(*message).size(), std::size_t(Slides) * 1000);
}
