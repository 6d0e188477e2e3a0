/*
 * How a reference is reduced, compared with a Content-ID, and matched with the parts of a message.
 */
#include "multipart/part_facts.h"

#include <gtest/gtest.h>

TEST(Reference, ParseCidDropsBracketsAndThenThePrefix)
{
    const std::pair<QString, QString> rows[] = {
        {"a", "a"},
        {"<a>", "a"},
        {"<cid:Img1>", "Img1"},
        {"<CiD:Img1>", "Img1"},
        {"cid:Img1", "Img1"},
        {"cid:<a>", "<a"}, // the brackets are looked at before the prefix
        {"<a", "a"},
        {"a>", "a"},
        {"a<b>c", "a<b>c"},
        {"<<a>>", "<a>"},
        {"cid:cid:a", "cid:a"},
        {"<cid:>", ""},
        {"cid:", ""},
        {"cid", "cid"},
        {"xcid:a", "xcid:a"},
        {"<", ""},
        {">", ""},
        {"<>", ""},
        {"", ""},
        {" <a> ", " <a> "}, // not trimmed
        {"< cid:a >", " cid:a "},
    };
    for (const auto &[reference, reduced] : rows) {
        SCOPED_TRACE(reference.toStdString());
        EXPECT_EQ(Multipart::parseCid(reference), reduced);
    }
}

TEST(Reference, ContentIdsAreComparedTrimmedReducedAndWithoutCase)
{
    struct Row
    {
        QString a;
        QString b;
        bool equal;
    };
    const Row rows[] = {
        {"abc", "abc", true},
        {" <cid:ABC> ", "abc", true},
        {"abc", "\t<CID:Abc>\n", true},
        {"<abc", "abc>", true},
        {QString(QChar(0xC9)), QString(QChar(0xE9)), true},
        {QString(QChar(0xC9)), QString(QChar(0xE8)), false},
        {"abc", "abd", false},
        {"abc", "", false},
        {"", "abc", false},
        {"", "", false},
        {"<>", "<>", false},
        {"cid:", "cid:", false},
        {" ", " ", false},
        {"abc", "< abc >", false}, // trimmed before the brackets are removed, but not after that
        {"cid: abc", "abc", false},
        {"cid:<abc>", "abc", false},
        {"<<abc>>", "<abc>", false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE((row.a + " and " + row.b).toStdString());
        EXPECT_EQ(Multipart::isCidEqual(row.a, row.b), row.equal);
        EXPECT_EQ(Multipart::isCidEqual(row.b, row.a), row.equal);
    }
}

TEST(Reference, MatchesReducedContentIdOrUnchangedLocation)
{
    struct Row
    {
        const char *name;
        QString reference;
        QString id;
        QString location;
        bool matches;
    };
    const Row rows[] = {
        {"id", "cid:a", "<A>", "", true},
        {"id with blanks", " a ", "\t<a> ", "", true},
        {"location", "a.jpg", "", "a.jpg", true},
        {"location in other case", "IMAGE.JPG", "", "image.jpg", true},
        {"location, other id", "a.jpg", "<b>", "a.jpg", true},
        {"id, other location", "b", "<b>", "a.jpg", true},
        {"location is not trimmed", "a.jpg", "", " a.jpg", false},
        {"reference is not trimmed for the location", " a.jpg", "", "a.jpg", false},
        {"both with blanks", " a.jpg", "", " A.jpg", true},
        {"reference is not reduced for the location", "cid:a", "", "a", false},
        {"location is not reduced", "a", "", "<a>", false},
        {"location with prefix", "cid:a", "", "CID:A", true},
        {"empty after reduction, id alike", "<>", "<>", "", false},
        {"empty after reduction, location alike", "<>", "", "<>", true},
        {"blank, location blank", " ", "", " ", true},
        {"blank, nothing there", " ", "", "", false},
        {"nothing alike", "a", "b", "c", false},
        {"part of a location", "a", "", "a.jpg", false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        Multipart multipart;
        appendParts(multipart, {{.location = row.location, .id = row.id}});
        Part *part = multipart.getBodypartByIndex(0);
        EXPECT_EQ(multipart.getBodyPartBySrc(row.reference, Part::Attachment),
                  row.matches ? part : nullptr);
    }
}

TEST(Reference, EmptyReferenceMatchesNothing)
{
    Multipart multipart;
    appendParts(multipart, {{}, {.location = ""}});
    EXPECT_EQ(multipart.getBodyPartBySrc("", Part::Attachment), nullptr);
    EXPECT_EQ(multipart.getBodyPartBySrc(QString(), Part::Attachment), nullptr);
}

TEST(Reference, FirstMatchOfTheDisplayTypeIsFound)
{
    Multipart multipart;
    EXPECT_EQ(multipart.getBodyPartBySrc("a", Part::Shown), nullptr);
    appendParts(multipart,
                {{.location = "b", .display = Part::Shown},
                 {.location = "a", .display = Part::Attachment},
                 {.id = "<A>", .display = Part::Shown},
                 {.location = "a", .display = Part::Shown},
                 {.location = "A", .display = Part::Attachment}});
    EXPECT_EQ(multipart.getBodyPartBySrc("a", Part::Shown), multipart.getBodypartByIndex(2));
    EXPECT_EQ(multipart.getBodyPartBySrc("a", Part::Attachment), multipart.getBodypartByIndex(1));
    EXPECT_EQ(multipart.getBodyPartBySrc("b", Part::Attachment), nullptr);
    EXPECT_EQ(multipart.getBodyPartBySrc("a", 2), nullptr);
}
