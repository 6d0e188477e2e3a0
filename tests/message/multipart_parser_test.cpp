/*
 * From header record to body and back: parsing, the parameters of the content type, the naming
 * pass, and assembling, which determines the content type.
 */
#include "message/multipart_parser.h"

#include "multipart/multipart_result.h"
#include "multipart/part_facts.h"
#include "platform/msg_header_base.h"
#include "platform/setting.h"

#include <gtest/gtest.h>

#include <tuple>

using Parser = MMS_COMP_SMILMultipartParser;
using Header = MMS_UTIL_MsgHeaderBase;

namespace {

const QString Application = "application";
const QString Related = "vnd.wap.multipart.related";
const QString Mixed = "vnd.wap.multipart.mixed";
const QString Smil = "application/smil";

// A picture with the Content-ID "p", and a text without names.
const QByteArray PictureEntry = "05 01 01 9E C0 70 00 41"_octets;
const QByteArray TextEntry = "04 01 03 83 81 EA 42"_octets;

int parse(const QByteArray &body, const QString &params, Multipart *multipart)
{
    Header header;
    header.setContentType(Application);
    header.setContentSubType(Related);
    header.setContentTypeParams(params);
    return Parser::parse(body, &header, multipart);
}

QString contentTypeOf(const Header &header)
{
    return header.getContentType() + '/' + header.getContentSubType() + ';'
        + header.getContentTypeParams();
}

} // namespace

TEST(MultipartParse, NullArgumentsAreRefused)
{
    Header header;
    Multipart multipart;
    const QByteArray body = "01"_octets + PictureEntry;
    EXPECT_EQ(Parser::parse(body, nullptr, &multipart), MultipartResult::NullArgument);
    EXPECT_EQ(Parser::parse(body, &header, nullptr), MultipartResult::NullArgument);
    EXPECT_EQ(multipart.getPartCount(), 0);
}

TEST(MultipartParse, FillsTheMultipart)
{
    Multipart multipart;
    const QByteArray body = "02"_octets + PictureEntry + TextEntry;
    EXPECT_EQ(parse(body, "type=x/y;start=<p>", &multipart), MultipartResult::Ok);
    EXPECT_EQ(multipart.getStart(), "<p>");
    EXPECT_EQ(multipart.getExtType(), "x/y");
    EXPECT_EQ(factsOf(multipart),
              (QList<PartFacts>{{.format = "image/jpeg",
                                 .location = "file0.jpg",
                                 .id = "p",
                                 .name = "file0.jpg",
                                 .data = "A",
                                 .display = Part::Shown},
                                {.format = "text/plain",
                                 .charset = "UTF8",
                                 .location = "file0.txt",
                                 .name = "file0.txt",
                                 .data = "B"}}));
}

TEST(MultipartParse, StartMayBeAGeneratedLocation)
{
    Multipart multipart;
    EXPECT_EQ(parse("01"_octets + TextEntry, "start=FILE0.txt", &multipart), MultipartResult::Ok);
    EXPECT_EQ(multipart.getBodypartByIndex(0)->getDispFileType(), Part::Shown);
}

TEST(MultipartParse, QuotedStartMatchesNothing)
{
    Multipart multipart;
    EXPECT_EQ(parse("01"_octets + PictureEntry, "start=\"<p>\"", &multipart), MultipartResult::Ok);
    EXPECT_EQ(multipart.getStart(), "\"<p>\"");
    EXPECT_EQ(multipart.getBodypartByIndex(0)->getDispFileType(), Part::Attachment);
}

TEST(MultipartParse, AbsentParametersAreCleared)
{
    Multipart multipart;
    multipart.setStart("old");
    EXPECT_EQ(parse("00"_octets, "", &multipart), MultipartResult::Ok);
    EXPECT_EQ(multipart.getStart(), "");
    EXPECT_EQ(multipart.getExtType(), "");
}

TEST(MultipartParse, DoesNotSetTheTypeOfTheMultipart)
{
    for (const QString &subtype : {Related, Mixed, QString("x")}) {
        Header header;
        header.setContentType("t");
        header.setContentSubType(subtype);
        Multipart multipart;
        EXPECT_EQ(Parser::parse("01"_octets + TextEntry, &header, &multipart), MultipartResult::Ok);
        EXPECT_EQ(multipart.getMimeType(), Application);
        EXPECT_EQ(multipart.getSubType(), Related);
        EXPECT_EQ(multipart.getPartCount(), 1);
        EXPECT_EQ(contentTypeOf(header), "t/" + subtype + ';');
    }
}

TEST(MultipartParse, BodyInTextFormIsIgnored)
{
    Multipart multipart;
    multipart.setBoundary("b");
    appendParts(multipart, {{.format = "image/jpeg"}});
    for (const QByteArray &body : {"01"_octets + TextEntry, "01"_octets, ""_octets})
        EXPECT_EQ(parse(body, "start=s;type=t", &multipart), MultipartResult::Ok);
    EXPECT_EQ(factsOf(multipart), QList<PartFacts>{{.format = "image/jpeg"}});
    EXPECT_EQ(multipart.getStart(), "");
    EXPECT_EQ(multipart.getExtType(), Smil);
}

TEST(MultipartParse, FailureLeavesThePartsBeforeItWithoutNamesAndParameters)
{
    const std::pair<QByteArray, int> rows[] = {
        {""_octets, 0},
        {"01"_octets, 0},
        {"02"_octets + TextEntry, 1},
        {"02"_octets + TextEntry + PictureEntry.chopped(1), 1},
    };
    for (const auto &[body, count] : rows) {
        SCOPED_TRACE(body.toHex(' ').constData());
        Multipart multipart;
        EXPECT_EQ(parse(body, "start=s;type=t", &multipart), MultipartResult::CannotDecode);
        EXPECT_EQ(
            factsOf(multipart),
            QList<PartFacts>(count, {.format = "text/plain", .charset = "UTF8", .data = "B"}));
        EXPECT_EQ(multipart.getStart(), "");
        EXPECT_EQ(multipart.getExtType(), Smil);
    }
}

TEST(MultipartParse, AppendsToExistingPartsAndNamesThemToo)
{
    Multipart multipart;
    appendParts(multipart, {{.format = "text/plain"}});
    EXPECT_EQ(parse("01"_octets + TextEntry, "", &multipart), MultipartResult::Ok);
    ASSERT_EQ(multipart.getPartCount(), 2);
    EXPECT_EQ(multipart.getBodypartByIndex(0)->getContentLocation(), "file0.txt");
    EXPECT_EQ(multipart.getBodypartByIndex(1)->getContentLocation(), "file1.txt");
}

TEST(ContentTypeParameters, StartAndTypeAreFoundAnywhereInTheText)
{
    const std::tuple<QString, QString, QString> rows[] = {
        {"start=<s1>;type=application/smil", "<s1>", Smil},
        {"type=application/smil;start=<s1>", "<s1>", Smil},
        {"start=a", "a", ""},
        {"type=a", "", "a"},
        {"", "", ""},
        {"start;type", "", ""},
        {"start=;type=", "", ""},
        {"start=;x", "", ""},
        {"START=a;Type=b", "", ""},
        {"start=\"a\";type=\"b\"", "\"a\"", "\"b\""},
        {"start= a ;type= b ", " a ", " b "},
        {"start =a;type =b", "", ""},
        {"restart=a;subtype=b", "a", "b"}, // also inside another name
        {"x=type=a;type=b", "", "a"}, // and inside a value
        {"start=type=a", "type=a", "a"},
        {"start=a;start=b;type=c;type=d", "a", "c"},
        {";;start=a;;", "a", ""},
    };
    for (const auto &[params, start, type] : rows) {
        SCOPED_TRACE(params.toStdString());
        EXPECT_EQ(Parser::parseStart(params), start);
        EXPECT_EQ(Parser::parseExtType(params), type);
    }
}

TEST(CodecResults, AreMappedForAll256Values)
{
    for (int code = 0; code < 256; ++code) {
        int expected = MultipartResult::UnknownCodecResult;
        if (code == 0 || code == 10)
            expected = MultipartResult::Ok;
        else if (code <= 9)
            expected = MultipartResult::CannotDecode;
        else if (code <= 16)
            expected = MultipartResult::CannotEncode;
        EXPECT_EQ(Parser::handleErr(static_cast<unsigned char>(code)), expected) << code;
    }
}

TEST(CheckLocation, GivesLocationsAndDisplayNamesToPartsWithoutThem)
{
    struct Row
    {
        const char *name;
        PartFacts before;
        QString location;
        QString displayName;
    };
    const Row rows[] = {
        {"both", {.location = "l", .name = "n"}, "l", "n"},
        {"location", {.location = "l"}, "l", "l"},
        {"unusable location", {.location = ":x"}, ":x", ":x"},
        {"display name", {.name = "n.jpg"}, "n.jpg", "n.jpg"},
        {"display name with directories", {.name = "/x/n.jpg"}, "n.jpg", "/x/n.jpg"},
        {"display name of the first part", {.name = "TAKEN.jpg"}, "TAKEN_0.jpg", "TAKEN.jpg"},
        {"display name like an ID", {.name = "id"}, "id_0", "id"},
        {"its own ID counts", {.id = "<n>", .name = "n"}, "n_0", "n"},
        {"display name before the type",
         {.format = "image/png", .name = "n.jpg"},
         "n.jpg",
         "n.jpg"},
        {"type", {.format = "image/jpeg"}, "file0.jpg", "file0.jpg"},
        {"presentation", {.format = Smil}, "file0", "file0"},
        {"unknown type", {.format = "x/y"}, "file0", "file0"},
        {"no type", {}, "file0", "file0"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        Multipart multipart;
        appendParts(multipart, {{.location = "taken.jpg", .id = "id", .name = "x"}, row.before});
        Parser::checkLocation(&multipart);
        PartFacts expected = row.before;
        expected.location = row.location;
        expected.name = row.displayName;
        EXPECT_EQ(factsOf(*multipart.getBodypartByIndex(1)), expected);
    }
}

TEST(CheckLocation, ReceivedLocationsStayEvenIfShared)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "a"}, {.location = "a"}, {.name = "a"}});
    Parser::checkLocation(&multipart);
    EXPECT_EQ(multipart.getBodypartByIndex(0)->getContentLocation(), "a");
    EXPECT_EQ(multipart.getBodypartByIndex(1)->getContentLocation(), "a");
    EXPECT_EQ(multipart.getBodypartByIndex(2)->getContentLocation(), "a_0");
}

TEST(CheckLocation, NameOfALaterPartIsNotFree)
{
    Multipart multipart;
    appendParts(multipart, {{.format = "image/jpeg"}, {.location = "file0.jpg"}});
    Parser::checkLocation(&multipart);
    EXPECT_EQ(multipart.getBodypartByIndex(0)->getContentLocation(), "file1.jpg");
}

TEST(CheckLocation, AcceptsAnEmptyMessageAndNull)
{
    Multipart multipart;
    Parser::checkLocation(&multipart);
    EXPECT_EQ(multipart.getPartCount(), 0);
    Parser::checkLocation(nullptr); // does nothing
}

TEST(AssembleBody, NullArgumentsReturnNothing)
{
    Header header;
    header.setContentType("t");
    Multipart multipart;
    multipart.setMimeType("text");
    EXPECT_TRUE(Parser::assembleBody(nullptr, &header).isEmpty());
    EXPECT_TRUE(Parser::assembleBody(&multipart, nullptr).isEmpty());
    EXPECT_EQ(contentTypeOf(header), "t/;");
    EXPECT_EQ(multipart.getMimeType(), "text");
}

TEST(AssembleBody, BodyInTextFormIsIgnored)
{
    Header header;
    header.setContentType("t");
    Multipart multipart;
    multipart.setMimeType("text");
    multipart.setBoundary("b");
    appendParts(multipart, {{.format = Smil}});
    EXPECT_TRUE(Parser::assembleBody(&multipart, &header).isEmpty());
    EXPECT_EQ(contentTypeOf(header), "t/;");
    EXPECT_EQ(multipart.getMimeType(), "text");
    EXPECT_EQ(multipart.getExtType(), Smil);
}

// The start selects the presentation, in messages of every type.
TEST(AssembleBody, DeterminesTheContentType)
{
    struct Row
    {
        QString type, subtype;
        bool hasSmil;
        QString newType, newSubtype, extType;
    };
    const Row rows[] = {
        {"text", "plain", true, Application, Related, Smil},
        {"text", "plain", false, Application, Mixed, ""},
        {"", "", true, Application, Related, Smil},
        {"", "", false, Application, Mixed, ""},
        {"text", Mixed, true, Application, Related, Smil},
        {"text", Related, false, Application, Mixed, ""},
        {Application, Related, true, Application, Related, Smil},
        {Application, Related, false, Application, Related, Smil},
        {Application, Mixed, true, Application, Mixed, ""},
        {Application, Mixed, false, Application, Mixed, ""},
        {Application, "x", true, Application, Related, Smil},
        {Application, "x", false, Application, Mixed, ""},
        {Application, "", true, Application, Related, Smil},
        {"APPLICATION", Related.toUpper(), false, "APPLICATION", Related.toUpper(), Smil},
        {"Application", Mixed.toUpper(), true, "Application", Mixed.toUpper(), ""},
        {"Application", "x", true, "Application", Related, Smil},
        {"Application", "x", false, "Application", Mixed, ""},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE((row.type + '/' + row.subtype + (row.hasSmil ? " yes" : " no")).toStdString());
        Multipart multipart;
        multipart.setMimeType(row.type);
        multipart.setSubType(row.subtype);
        multipart.setExtType("old");
        appendParts(multipart, {{.format = "image/jpeg"}, {.format = Smil, .id = "s"}});
        if (row.hasSmil)
            multipart.setStart("s");
        Header header;
        header.setContentTypeParams("old");
        EXPECT_FALSE(Parser::assembleBody(&multipart, &header).isEmpty());
        EXPECT_EQ(multipart.getMimeType(), row.newType);
        EXPECT_EQ(multipart.getSubType(), row.newSubtype);
        EXPECT_EQ(multipart.getExtType(), row.extType);
        EXPECT_EQ(header.getContentType(), row.newType);
        EXPECT_EQ(header.getContentSubType(), row.newSubtype);
        const QString start = row.hasSmil ? "start=s" : "";
        const QString type = row.extType.isEmpty() ? QString() : "type=" + row.extType;
        const QString joint = start.isEmpty() || type.isEmpty() ? "" : ";";
        EXPECT_EQ(header.getContentTypeParams(), start + joint + type);
    }
}

TEST(AssembleBody, ParametersAreStartAndTypeAsStored)
{
    const std::tuple<QString, QString, QString> rows[] = {
        {Related, "", "type=application/smil"},
        {Related, "<s>", "start=<s>;type=application/smil"},
        {Related, " \"s\" ", "start= \"s\" ;type=application/smil"},
        {Related, "%1", "start=%1;type=application/smil"},
        {Mixed, "<s>", "start=<s>"},
        {Mixed, "", ""},
    };
    for (const auto &[subtype, start, params] : rows) {
        SCOPED_TRACE(params.toStdString());
        Multipart multipart;
        multipart.setSubType(subtype);
        multipart.setStart(start);
        Header header;
        EXPECT_EQ(Parser::assembleBody(&multipart, &header), "00"_octets);
        EXPECT_EQ(header.getContentTypeParams(), params);
    }
}

TEST(AssembleBody, NewMessageBecomesRelatedWithAPresentationFirst)
{
    Multipart multipart;
    appendParts(multipart, {{.format = Smil, .data = "s"}, {.format = "image/jpeg", .data = "A"}});
    Header header;
    EXPECT_EQ(Parser::assembleBody(&multipart, &header),
              "02 12 01 11"_octets + "application/smil" + "00 73 02 01 01 9E 41"_octets);
    EXPECT_EQ(contentTypeOf(header), Application + '/' + Related + ";type=application/smil");
    EXPECT_EQ(multipart.getBodypartByIndex(0)->getDispFileType(), Part::Shown);
    EXPECT_EQ(multipart.getBodypartByIndex(1)->getDispFileType(), Part::Attachment);
}

TEST(AssembleBody, ExtTypeOfARelatedMessageIsAlwaysReset)
{
    Multipart multipart;
    multipart.setExtType("x/y");
    Header header;
    EXPECT_EQ(Parser::assembleBody(&multipart, &header), "00"_octets);
    EXPECT_EQ(header.getContentTypeParams(), "type=application/smil");
}

TEST(AssembleBody, AssembledBodyParsesToTheSameParts)
{
    Multipart multipart;
    appendParts(multipart,
                {{.format = Smil, .location = "p.smil", .id = "<s>", .data = "s"},
                 {.format = "image/jpeg", .location = "a.jpg", .data = "A"}});
    multipart.setStart("<s>");
    Header header;
    const QByteArray body = Parser::assembleBody(&multipart, &header);
    Multipart parsed;
    EXPECT_EQ(Parser::parse(body, &header, &parsed), MultipartResult::Ok);
    Parser::checkLocation(&multipart); // display names are not written
    EXPECT_EQ(factsOf(parsed), factsOf(multipart));
    EXPECT_EQ(parsed.getStart(), "<s>");
    EXPECT_EQ(parsed.getExtType(), Smil);
}

TEST(AssembleBody, BodyAtItsCapacityReturnsOnlyAContentType)
{
    const int before = MMS_UTIL_Setting::getMaxiumMOMMSSize();
    MMS_UTIL_Setting::setMaxiumMOMMSSize(0);
    Multipart multipart;
    for (int i = 0; i < 3; ++i) // the count and three times 1,029 octets
        appendParts(multipart, {{.format = "image/jpeg", .location = QString(509, 'a')}});
    appendParts(multipart, {{.format = "a/b", .location = QString(497, 'a')}}); // 1,008
    Header header;
    EXPECT_TRUE(Parser::assembleBody(&multipart, &header).isEmpty());
    EXPECT_EQ(header.getContentSubType(), Related);
    MMS_UTIL_Setting::setMaxiumMOMMSSize(1000);
    EXPECT_EQ(Parser::assembleBody(&multipart, &header).size(), 4096);
    MMS_UTIL_Setting::setMaxiumMOMMSSize(before);
}

// One octet of the room stays unused.
TEST(AssembleBody, LimitCounts1024OctetsToTheKilobyte)
{
    const int before = MMS_UTIL_Setting::getMaxiumMOMMSSize();
    MMS_UTIL_Setting::setMaxiumMOMMSSize(5);
    const PartFacts full = {.format = "image/jpeg", .location = QString(509, 'a')}; // 1,029 octets
    const PartFacts last = {.format = "a/b", .location = QString(494, 'a')}; // 1,002
    const PartFacts longer = {.format = "image/jpeg", .location = QString(496, 'a')}; // 1,003
    const auto sizeWith = [&full](const PartFacts &added) {
        Multipart multipart;
        appendParts(multipart, {full, full, full, full, added});
        Header header;
        return Parser::assembleBody(&multipart, &header).size();
    };
    EXPECT_EQ(sizeWith(last), 5 * 1024 - 1);
    EXPECT_EQ(sizeWith(longer), 0);
    MMS_UTIL_Setting::setMaxiumMOMMSSize(before);
}
