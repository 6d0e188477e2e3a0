/*
 * Every rule, with a message that breaks it and one that does not. The octets are written by hand.
 */
#include "check/check.h"

#include "input/message.h"
#include "support/pdu_writer.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

#include <set>

using namespace Check;
using namespace PduWriter;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Limit = 30'000; // octets
constexpr int Latin1 = 4;
constexpr int Utf8 = 106;

// Codes of header fields.
constexpr int Content = 0x04;
constexpr int MessageType = 0x0C;
constexpr int Priority = 0x0F;
constexpr int ReadStatus = 0x1B;
constexpr int ResponseStatus = 0x12;
constexpr int Subject = 0x16;
constexpr int To = 0x17;
constexpr int TransactionId = 0x18;
constexpr int Version = 0x0D;

// Codes of media types, of parameters, and of headers of parts.
constexpr int TextPlain = 0x03;
constexpr int Jpeg = 0x1E;
constexpr int Png = 0x20;
constexpr int Mixed = 0x23;
constexpr int Related = 0x33;
constexpr int Charset = 0x01;
constexpr int Location = 0x0E;
constexpr int Id = 0x40;

const QByteArray SendReq =
    field(MessageType, token(128)) + field(TransactionId, text("T")) + field(Version, token(0x90));
const QByteArray ToPhone = field(To, text("+491511234/TYPE=PLMN"));
const QByteArray Smil = "<smil><head><layout><root-layout width=\"160\" height=\"120\"/>"
                        "<region id=\"r\" width=\"100%\" height=\"120\"/></layout></head>"
                        "<body><par dur=\"2s\"><img src=\"a.png\" region=\"r\"/></par></body>"
                        "</smil>";

QByteArray png(int width, int height)
{
    QByteArray octets;
    QBuffer buffer(&octets);
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.save(&buffer, "PNG");
    return octets;
}

QByteArray named(const QByteArray &contentType, const QByteArray &location, const QByteArray &data)
{
    return part(contentType, field(Location, text(location)), data);
}

QByteArray withCharset(int charset)
{
    return generalType(mediaCode(TextPlain), field(Charset, integer(quint64(charset))));
}

QByteArray textPart(const QByteArray &location, const QByteArray &data = "text")
{
    return named(withCharset(Utf8), location, data);
}

QByteArray smilPart(const QByteArray &smil)
{
    return part(generalType(text("application/smil")), {}, smil);
}

QByteArray mixed(const QList<QByteArray> &parts)
{
    return SendReq + ToPhone + field(Content, mediaCode(Mixed)) + body(parts);
}

QByteArray related(const QByteArray &smil, const QList<QByteArray> &parts)
{
    return SendReq + ToPhone + field(Content, mediaCode(Related))
        + body(QList<QByteArray>{smilPart(smil)} + parts);
}

QByteArray withPicture(int width, int height)
{
    return related(Smil, {named(mediaCode(Png), "a.png", png(width, height))});
}

QByteArray withSmil(const QByteArray &before, const QByteArray &after)
{
    return related(QByteArray(Smil).replace(before, after),
                   {named(mediaCode(Png), "a.png", png(8, 8))});
}

QByteArray manyParts(int count)
{
    QList<QByteArray> parts;
    for (int i = 0; i < count; ++i)
        parts += textPart("t" + QByteArray::number(i));
    return mixed(parts);
}

// The header of a bitmap, without its pixels.
QByteArray bitmap(int width, int height)
{
    const auto number = [](int value) {
        return octet(value & 0xFF) + octet(value >> 8 & 0xFF) + octet(value >> 16) + octet(0);
    };
    return "BM" + number(54) + octet(0, 4) + number(54) + number(40) + number(width)
        + number(height) + octet(1) + octet(0) + octet(24) + octet(0) + octet(0, 24);
}

struct Row
{
    Rule rule;
    QByteArray breaking;
    QByteArray keeping;
};

const std::vector<Row> &rows()
{
    static const QByteArray body =
        field(Content, mediaCode(Mixed)) + PduWriter::body({textPart("a")});
    static const QByteArray whole = SendReq + ToPhone + body;
    static const std::vector<Row> rows{
        {Rule::NoMessage, "HTTP/1.1 200 OK", whole},
        {Rule::HeaderRefused, SendReq + "\x05"_L1.latin1(), whole},
        {Rule::WrongVersion,
         field(MessageType, token(128)) + field(TransactionId, text("T"))
             + field(Version, token(0xA0)) + ToPhone + body,
         whole},
        {Rule::LaterVersion,
         field(MessageType, token(128)) + field(TransactionId, text("T"))
             + field(Version, token(0x92)) + ToPhone + body,
         whole},
        {Rule::UnknownType, field(MessageType, token(255)) + ToPhone + body, whole},
        {Rule::MissingField,
         field(MessageType, token(129)) + field(TransactionId, text("T"))
             + field(Version, token(0x90)),
         field(MessageType, token(129)) + field(TransactionId, text("T"))
             + field(Version, token(0x90)) + field(ResponseStatus, token(128))},
        {Rule::FieldOrder,
         field(MessageType, token(128)) + field(Version, token(0x90)) + ToPhone
             + field(TransactionId, text("T")) + body,
         whole},
        {Rule::LaterField, SendReq + field(ReadStatus, token(128)) + ToPhone + body,
         SendReq + field(Priority, token(128)) + ToPhone + body},
        {Rule::UnknownField, SendReq + fieldInLetters("X-Own", text("1")) + ToPhone + body, whole},
        {Rule::RepeatedField,
         SendReq + field(Priority, token(128)) + field(Priority, token(129)) + ToPhone + body,
         SendReq + ToPhone + ToPhone + body},
        {Rule::MalformedField, SendReq + field(Priority, text("high")) + ToPhone + body,
         SendReq + field(Priority, token(130)) + ToPhone + body},
        {Rule::UnknownValue, SendReq + field(Priority, token(131)) + ToPhone + body,
         SendReq + field(Priority, token(130)) + ToPhone + body},
        {Rule::HeaderForm, SendReq + field(Priority, withLength(token(128))) + ToPhone + body,
         whole},
        {Rule::NoRecipient, SendReq + body, whole},
        {Rule::EmptyRecipient, SendReq + field(To, text("/TYPE=PLMN")) + body, whole},
        {Rule::HeaderCharset,
         SendReq + field(Subject, encodedText(Utf8, text("\xE4"))) + ToPhone + body,
         SendReq + field(Subject, encodedText(Latin1, text("\xE4"))) + ToPhone + body},
        {Rule::BodyRefused, whole.chopped(1), whole},
        {Rule::NoParts, mixed({}), whole},
        {Rule::ExtraOctets, whole + 'x', whole},
        {Rule::PartForm,
         mixed({part(text("text/plain"), field(Location, withLength(integer(Utf8) + text("a"))),
                     "x")}),
         whole},
        {Rule::TooManyParts, manyParts(128), manyParts(127)},
        {Rule::TooLarge, mixed({textPart("a", QByteArray(Limit, 'x'))}),
         mixed({textPart("a", QByteArray(Limit - 200, 'x'))})},
        {Rule::EmptyPart, mixed({textPart("a", "")}), whole},
        {Rule::SameName, mixed({textPart("a"), textPart("A")}),
         mixed({textPart("a"), textPart("b")})},
        {Rule::NoName, related(Smil, {part(mediaCode(Png), {}, png(8, 8))}), withPicture(8, 8)},
        {Rule::UnsafeName, mixed({textPart("a/b")}), mixed({textPart("a-b.txt")})},
        {Rule::LongName, mixed({textPart(QByteArray(101, 'a'))}),
         mixed({textPart(QByteArray(100, 'a'))})},
        {Rule::ForeignName, mixed({textPart("\xC3\xA4")}), whole},
        {Rule::BareContentId, mixed({part(withCharset(Utf8), field(Id, quotedString("a")), "x")}),
         mixed({part(withCharset(Utf8), field(Id, quotedString("<a>")), "x")})},
        {Rule::TextCharset, mixed({textPart("a", "\xE4")}),
         mixed({named(withCharset(Latin1), "a", "\xE4")})},
        {Rule::WrongType, mixed({named(mediaCode(Jpeg), "a", png(8, 8))}),
         mixed({named(mediaCode(Png), "a", png(8, 8))})},
        {Rule::BrokenPicture, mixed({named(mediaCode(Png), "a", png(8, 8).first(40))}),
         mixed({named(mediaCode(Png), "a", png(8, 8))})},
        {Rule::LargePicture, mixed({named(text("image/bmp"), "a", bitmap(9000, 9000))}),
         mixed({named(mediaCode(Png), "a", png(8, 8))})},
        {Rule::NoClipLength, mixed({named(text("audio/amr"), "a.amr", "#!AMR\n")}), whole},
        {Rule::NoSlides, whole, withPicture(8, 8)},
        {Rule::SmilRefused, withSmil("</body>", ""), withPicture(8, 8)},
        {Rule::InvalidXml, withSmil("<layout>", "<layout>\xFF"), withPicture(8, 8)},
        {Rule::SkippedElement, withSmil("<par", "<excl/><par"), withPicture(8, 8)},
        {Rule::MissingPart, withSmil("a.png", "b.png"), withPicture(8, 8)},
        {Rule::OtherSpelling, withSmil("a.png", "A.png"), withPicture(8, 8)},
        {Rule::UnusedPart,
         related(Smil, {named(mediaCode(Png), "a.png", png(8, 8)), textPart("b")}),
         withPicture(8, 8)},
        {Rule::SmallRegion, withPicture(161, 120), withPicture(160, 120)},
        {Rule::ZeroDuration, withSmil("2s", "0ms"), withPicture(8, 8)},
        {Rule::UnreadableDuration, withSmil("2s", "2sec"), withSmil("2s", "00:02")},
    };
    return rows;
}

class CheckRule : public testing::TestWithParam<Row>
{
};

Findings findingsIn(const QByteArray &octets)
{
    const auto message = decodeMessage(octets);
    return checkMessage(*message, {Limit});
}

TEST_P(CheckRule, FindsTheMessageThatBreaksIt)
{
    EXPECT_TRUE(findingsIn(GetParam().breaking).has(GetParam().rule));
}

TEST_P(CheckRule, FindsNothingInTheOtherMessage)
{
    EXPECT_FALSE(findingsIn(GetParam().keeping).has(GetParam().rule));
}

std::string nameOfRow(const testing::TestParamInfo<Row> &info)
{
    std::string name = textOf(info.param.rule).id;
    std::erase(name, '-');
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, CheckRule, testing::ValuesIn(rows()), nameOfRow);

TEST(CheckHeader, FindsAValueAfterWhichTheHeaderCanBeReadInTwoWays)
{
    constexpr int Expiry = 0x08;
    const Findings findings = findingsIn(SendReq + field(Expiry, text("soon")) + ToPhone
                                         + field(Content, mediaCode(Mixed)) + octet(0));
    EXPECT_TRUE(findings.has(Rule::MalformedField));
}

bool finds(Rule rule, const QByteArray &octets)
{
    return findingsIn(octets).has(rule);
}

bool findsInPart(Rule rule, const QByteArray &type, const QByteArray &data)
{
    return finds(rule, mixed({named(text(type), "a", data)}));
}

QByteArray withFields(const QByteArray &fields)
{
    return field(MessageType, token(128)) + fields + ToPhone + field(Content, mediaCode(Mixed))
        + body({textPart("a")});
}

const QByteArray Transaction = field(TransactionId, text("T"));
const QByteArray Version10 = field(Version, token(0x90));
const QByteArray Sender = field(0x09, withLength(token(129)));

TEST(CheckHeader, FindsEveryMandatoryFieldThatIsMissing)
{
    EXPECT_FALSE(finds(Rule::MissingField, withFields(Transaction + Version10 + Sender)));
    EXPECT_TRUE(finds(Rule::MissingField, withFields(Version10 + Sender)));
    EXPECT_TRUE(finds(Rule::MissingField, withFields(Transaction + Version10)));
}

// Each message has all mandatory fields, in order.
TEST(CheckMessage, FindsNothingInGoodMessages)
{
    constexpr int Class = 0x0A;
    constexpr int Size = 0x0E;
    constexpr int Expiry = 0x08;
    constexpr int ContentLocation = 0x03;
    constexpr int Date = 0x05;
    constexpr int MessageId = 0x0B;
    constexpr int Status = 0x15;
    const auto start = [](int type) { return field(MessageType, token(type)); };
    const QByteArray date = field(Date, longInteger(1'300'000'000, 4));
    const QByteArray slides = field(Content, mediaCode(Related))
        + body({smilPart(Smil), named(mediaCode(Png), "a.png", png(8, 8))});
    const QByteArray id = field(MessageId, text("I"));
    const std::vector good{
        start(128) + Transaction + Version10 + Sender + ToPhone + slides,
        start(129) + Transaction + Version10 + field(ResponseStatus, token(128)),
        start(130) + Transaction + Version10 + field(Class, token(128)) + field(Size, integer(300))
            + field(Expiry, withLength(token(129) + integer(60)))
            + field(ContentLocation, text("http://relay/1")),
        start(131) + Transaction + Version10 + field(Status, token(129)),
        start(132) + Version10 + date + Sender + slides,
        start(133) + Transaction + Version10,
        start(134) + Version10 + id + ToPhone + date + field(Status, token(129)),
    };
    for (const QByteArray &octets : good) {
        const Findings findings = findingsIn(octets);
        EXPECT_TRUE(findings.inOrder().empty())
            << octets.toHex().constData() << ' ' << textOf(findings.inOrder().front().rule).id;
    }
}

TEST(CheckHeader, NamesTheFieldThatIsNotAtItsPlace)
{
    const Findings findings = findingsIn(withFields(Transaction + Sender + Version10));
    ASSERT_EQ(findings.count(Rule::FieldOrder), 1);
    EXPECT_EQ(findings.inOrder().front().place.name, "MMS-Version");
    const QByteArray date = field(0x05, octet(4) + QByteArray("\x40\xF8\0\0", 4));
    EXPECT_FALSE(finds(Rule::FieldOrder, withFields(Transaction + Version10 + date + date)));
}

TEST(CheckHeader, FindsAMissingVersion)
{
    EXPECT_TRUE(finds(Rule::WrongVersion, withFields(Transaction + Sender)));
    EXPECT_FALSE(finds(Rule::MissingField, withFields(Transaction + Sender)));
}

TEST(CheckHeader, FindsThatTheMessageEndsWithinAText)
{
    const QByteArray whole = SendReq + field(Subject, text("Photos"));
    EXPECT_FALSE(finds(Rule::MalformedField, whole));
    EXPECT_TRUE(finds(Rule::MalformedField, whole.chopped(1)));
}

TEST(CheckHeader, FindsTheOrderOfAHeaderThatCanBeReadInTwoWays)
{
    const QByteArray sender = field(0x09, octet(9) + token(129));
    EXPECT_TRUE(
        finds(Rule::FieldOrder, field(MessageType, token(129)) + Version10 + Transaction + sender));
}

TEST(CheckHeader, FindsASenderThatIsNeitherPresentNorInserted)
{
    const auto from = [](int sender) {
        return SendReq + field(0x09, withLength(token(sender))) + ToPhone;
    };
    EXPECT_TRUE(finds(Rule::UnknownValue, from(131)));
    EXPECT_FALSE(finds(Rule::UnknownValue, from(129)));
}

TEST(CheckHeader, TakesFieldsOfTheDeclaredVersion)
{
    const QByteArray readStatus = field(ReadStatus, token(128));
    EXPECT_FALSE(finds(Rule::LaterField,
                       withFields(Transaction + field(Version, token(0x91)) + readStatus)));
    EXPECT_TRUE(finds(Rule::LaterField, withFields(Transaction + Version10 + readStatus)));
}

TEST(CheckHeader, TakesAnOrderFaultForAMessage)
{
    EXPECT_FALSE(finds(Rule::NoMessage, Transaction + SendReq + ToPhone));
    EXPECT_TRUE(finds(Rule::NoMessage, "HTTP/1.1 200 OK\r\n" + octet(0) + SendReq + ToPhone));
}

TEST(CheckParts, FindsABodyWithoutACount)
{
    EXPECT_TRUE(finds(Rule::NoParts, SendReq + ToPhone + field(Content, mediaCode(Mixed))));
    EXPECT_FALSE(finds(Rule::NoParts, SendReq + ToPhone));
    EXPECT_TRUE(finds(Rule::NoParts, SendReq + ToPhone + field(Content, mediaCode(TextPlain))));
}

TEST(CheckParts, AreNotMissedWhereTheRelayReportsAFailure)
{
    constexpr int RetrieveStatus = 0x19;
    const auto retrieved = [](int status) {
        return field(MessageType, token(132)) + Version10 + field(RetrieveStatus, token(status))
            + field(Content, mediaCode(Mixed)) + octet(0);
    };
    EXPECT_TRUE(finds(Rule::NoParts, retrieved(128)));
    EXPECT_FALSE(finds(Rule::NoParts, retrieved(224)));
}

TEST(CheckNames, AsksOfAContentIdWhatReferencesNeed)
{
    const auto withId = [](const QByteArray &id) {
        return mixed({part(withCharset(Utf8), field(Id, quotedString("<" + id + ">")), "x")});
    };
    EXPECT_TRUE(finds(Rule::LongName, withId(QByteArray(101, 'a'))));
    EXPECT_FALSE(finds(Rule::LongName, withId(QByteArray(100, 'a'))));
    EXPECT_TRUE(finds(Rule::ForeignName, withId("\xC3\xA4")));
    EXPECT_TRUE(finds(Rule::UnsafeName, withId("a/b")));
    const QByteArray located = field(Id, quotedString("<a/b>")) + field(Location, text("a"));
    EXPECT_FALSE(finds(Rule::UnsafeName, mixed({part(withCharset(Utf8), located, "x")})));
}

TEST(CheckSmil, FindsAPresentationWithoutSlides)
{
    const QByteArray withoutSlides = "<smil><head/><body/></smil>";
    EXPECT_TRUE(finds(Rule::NoSlides, related(withoutSlides, {textPart("a")})));
}

TEST(CheckSmil, TakesElementsWithAPrefixForOthers)
{
    EXPECT_TRUE(finds(Rule::SkippedElement,
                      withSmil("<par dur=\"2s\"", "<par><x:par xmlns:x=\"y\"/></par><par")));
}

Place placeOf(Rule rule, const QByteArray &octets)
{
    const Findings findings = findingsIn(octets);
    for (const Finding &finding : findings.inOrder()) {
        if (finding.rule == rule)
            return finding.place;
    }
    return {};
}

Place placeOfSkipped(const QByteArray &octets)
{
    return placeOf(Rule::SkippedElement, octets);
}

TEST(CheckSmil, NamesAnElementAtTheWrongPlaceOnlyOnce)
{
    const QByteArray twoBodies = withSmil("</smil>", "\n<body/></smil>");
    const Place place = placeOf(Rule::SmilRefused, twoBodies);
    EXPECT_EQ(place.line, 2);
    EXPECT_EQ(place.column, 1);
    EXPECT_FALSE(finds(Rule::SkippedElement, twoBodies));
}

TEST(CheckSmil, DoesNotTakeAHarmlessElementForTheReasonOfARefusal)
{
    const QByteArray body = "<body><foo/><par><body/></par></body>";
    const auto document = [&](const QByteArray &after) {
        return related("<smil>" + body + after + "</smil>", {textPart("a")});
    };
    for (const char *second : {"<body/>", "<head/>"}) {
        const QByteArray octets = document(QByteArray("\n") + second);
        EXPECT_EQ(placeOf(Rule::SmilRefused, octets).line, 2) << second;
        EXPECT_EQ(findingsIn(octets).count(Rule::SkippedElement), 2) << second;
    }
    QByteArray deep = "<par/>";
    for (int i = 0; i < 11; ++i)
        deep = "<par>" + deep + "</par>";
    const QByteArray nested = "<smil><body><foo/>" + deep + "</body></smil>";
    EXPECT_EQ(placeOf(Rule::SmilRefused, related(nested, {})).line, 0);
}

TEST(CheckSmil, FindsTheOctetThatIsNoUtf8)
{
    const Place place =
        placeOf(Rule::InvalidXml, withSmil("<body>", "\n<body title=\"\u00E4\xFF\">"));
    EXPECT_EQ(place.line, 2);
    EXPECT_EQ(place.column, QByteArray("<body title=\"a").size() + 1);
}

TEST(CheckSmil, CountsLinesAndColumnsInCharacters)
{
    const Place place =
        placeOfSkipped(withSmil("<body>", "<body title=\"\U0001F600\">\n\t <excl/>\n"));
    EXPECT_EQ(place.line, 2);
    EXPECT_EQ(place.column, 3);
    EXPECT_EQ(placeOfSkipped(withSmil("<body>", "<body title=\"\U0001F600\"><excl/>")).column,
              placeOfSkipped(withSmil("<body>", "<body title=\"x\"><excl/>")).column);
}

TEST(CheckType, TakesTextsForTextsWhateverTheyBeginWith)
{
    for (const char *data : {"GIF89a is a format", "RIFF1234WAVE", "BEGIN:IMELODY", "ID3 tags"})
        EXPECT_FALSE(findsInPart(Rule::WrongType, "text/plain", data)) << data;
    EXPECT_TRUE(findsInPart(Rule::WrongType, "text/plain", png(8, 8)));
}

TEST(CheckType, DoesNotContradictTypesThatSayNothing)
{
    for (const char *type : {"application/octet-stream", "*/*", "image/*"})
        EXPECT_FALSE(findsInPart(Rule::WrongType, type, png(8, 8))) << type;
    EXPECT_TRUE(findsInPart(Rule::WrongType, "audio/*", png(8, 8)));
}

TEST(CheckType, KnowsTheFamilyOfMp4)
{
    const QByteArray file("\0\0\0\x10"
                          "ftypM4A \0\0\0\0",
                          16);
    for (const char *type : {"audio/mp4", "audio/x-m4a", "video/quicktime", "image/heic"})
        EXPECT_FALSE(findsInPart(Rule::WrongType, type, file)) << type;
    EXPECT_TRUE(findsInPart(Rule::WrongType, "audio/amr", file));
}

TEST(CheckPicture, FindsPicturesThatEndTooEarly)
{
    const QByteArray picture = png(8, 8);
    EXPECT_FALSE(findsInPart(Rule::BrokenPicture, "image/png", picture));
    EXPECT_TRUE(findsInPart(Rule::BrokenPicture, "image/png", picture.chopped(12)));
    const QByteArray scan("\xFF\xD8\xFF\xE0 \xFF\xD9 thumbnail \xFF\xDA picture");
    EXPECT_TRUE(findsInPart(Rule::BrokenPicture, "image/jpeg", scan));
    const QByteArray webp = "RIFF" + octet(6) + octet(0, 3) + "WEBPVP";
    EXPECT_FALSE(findsInPart(Rule::BrokenPicture, "image/webp", webp));
    EXPECT_TRUE(findsInPart(Rule::BrokenPicture, "image/webp", webp.chopped(1)));
}

TEST(CheckPicture, SaysNothingOfFormatsThatSomeMachinesCannotDecode)
{
    EXPECT_FALSE(findsInPart(Rule::BrokenPicture, "image/svg+xml", "<svg/>"));
    EXPECT_TRUE(findsInPart(Rule::BrokenPicture, "image/bmp", "BMbroken"));
}

QByteArray box(const QByteArray &type, const QByteArray &content)
{
    return octet(0, 3) + octet(int(content.size()) + 8) + type + content;
}

// The boxes of an MP4 file up to the size of its video, 176x144, with the matrix that turns it.
QByteArray videoBoxes(const QByteArray &matrix)
{
    const QByteArray size = octet(0) + octet(176) + octet(0, 3) + octet(144) + octet(0, 2);
    return box("ftyp", "3gp4")
        + box("moov", box("trak", box("tkhd", octet(0, 40) + matrix + size)));
}

QByteArray videoBoxes()
{
    return videoBoxes(octet(0, 36));
}

TEST(CheckRegion, IsLargeEnoughForAVideo)
{
    const auto inRegion = [](const QByteArray &width, const QByteArray &video) {
        const QByteArray smil = QByteArray(Smil)
                                    .replace("120\"/></layout>", "176\"/></layout>")
                                    .replace("100%", width)
                                    .replace("<img", "<video");
        return related(smil, {named(text("video/3gpp"), "a.png", video)});
    };
    EXPECT_FALSE(finds(Rule::SmallRegion, inRegion("176", videoBoxes())));
    EXPECT_TRUE(finds(Rule::SmallRegion, inRegion("175", videoBoxes())));
    const QByteArray one = octet(0) + octet(1) + octet(0, 2);
    const QByteArray quarter = octet(0, 4) + one + octet(0, 4) + one + octet(0, 20);
    EXPECT_FALSE(finds(Rule::SmallRegion, inRegion("144", videoBoxes(quarter))));
    for (qsizetype size = 0; size < videoBoxes().size(); ++size)
        EXPECT_FALSE(finds(Rule::SmallRegion, inRegion("175", videoBoxes().first(size)))) << size;
}

TEST(CheckDuration, FindsZeroInEveryForm)
{
    for (const char *zero : {"0", "0s", "0.0s", "00:00", "00:00:00", "0h", " 0 ", "-5s"})
        EXPECT_TRUE(finds(Rule::ZeroDuration, withSmil("2s", zero))) << zero;
    for (const char *time : {"0.5s", "00:01", "indefinite", "media", "x", "10ms"})
        EXPECT_FALSE(finds(Rule::ZeroDuration, withSmil("2s", time))) << time;
    EXPECT_TRUE(finds(Rule::ZeroDuration, withSmil("region=\"r\"", "region=\"r\" end=\"0s\"")));
}

TEST(CheckNames, MayBeSharedByALocationAndAnId)
{
    const QByteArray withId = part(withCharset(Utf8), field(Id, quotedString("<a>")), "x");
    EXPECT_FALSE(finds(Rule::SameName, mixed({textPart("a"), withId})));
    EXPECT_TRUE(finds(Rule::SameName, mixed({withId, withId})));
}

TEST(CheckReference, MayBeEscaped)
{
    const auto message = [](const QByteArray &reference, const QByteArray &name) {
        return related(QByteArray(Smil).replace("a.png", reference),
                       {named(mediaCode(Png), name, png(8, 8))});
    };
    for (const auto &[reference, name] :
         {std::pair("a%20b.png", "a b.png"), {"./a.png", "a.png"}, {"A.PNG", "a.png"}}) {
        EXPECT_FALSE(finds(Rule::MissingPart, message(reference, name))) << reference;
        EXPECT_TRUE(finds(Rule::OtherSpelling, message(reference, name))) << reference;
    }
    EXPECT_FALSE(finds(Rule::OtherSpelling, message("cid:a.png", "a.png")));
    EXPECT_TRUE(finds(Rule::MissingPart, message("%61b.png", "a.png")));
}

TEST(CheckRules, AreAllTested)
{
    std::set<Rule> tested;
    for (const Row &row : rows())
        tested.insert(row.rule);
    EXPECT_EQ(tested.size(), rules().size());
}

} // namespace
