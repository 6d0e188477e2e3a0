/*
 * The container of a message's parts: its attributes, the list and its ownership, deletion by index
 * and by reference, the presentation part, and attachments.
 */
#include "multipart/multipart.h"

#include "multipart/multipart_result.h"
#include "multipart/part_facts.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <tuple>

using MultipartResult::Ok;
using MultipartResult::RemovalRefused;

namespace {

const QString Application = "application";
const QString Related = "vnd.wap.multipart.related";
const QString Mixed = "vnd.wap.multipart.mixed";

QStringList locationsOf(const Multipart &multipart)
{
    QStringList locations;
    for (const PartFacts &facts : factsOf(multipart))
        locations += facts.location;
    return locations;
}

void setType(Multipart &multipart, const QString &type, const QString &subtype)
{
    multipart.setMimeType(type);
    multipart.setSubType(subtype);
}

// True while a part shares the octets.
bool isShared(const QByteArray &octets)
{
    return !octets.isDetached();
}

// A copy does not own its parts; the caller does.
void deleteParts(const Multipart &copy)
{
    for (int i = 0; i < copy.getPartCount(); ++i)
        delete copy.getBodypartByIndex(i);
}

} // namespace

TEST(MultipartContainer, NewOneIsRelatedAndEmpty)
{
    const Multipart multipart;
    EXPECT_EQ(multipart.getExtType(), "application/smil");
    EXPECT_EQ(multipart.getMimeType(), Application);
    EXPECT_EQ(multipart.getSubType(), Related);
    EXPECT_EQ(multipart.getStart(), "");
    EXPECT_FALSE(multipart.getStart().isNull());
    EXPECT_TRUE(multipart.getBoundary().isNull());
    EXPECT_EQ(multipart.getPartCount(), 0);
}

TEST(MultipartContainer, SettersStoreTheirValueAndReturnTrue)
{
    Multipart multipart;
    EXPECT_TRUE(multipart.setExtType(" E "));
    EXPECT_TRUE(multipart.setMimeType(" T "));
    EXPECT_TRUE(multipart.setSubType(" S "));
    EXPECT_TRUE(multipart.setStart(" s "));
    EXPECT_TRUE(multipart.setBoundary(" b "));
    EXPECT_EQ(multipart.getExtType(), " E ");
    EXPECT_EQ(multipart.getMimeType(), " T ");
    EXPECT_EQ(multipart.getSubType(), " S ");
    EXPECT_EQ(multipart.getStart(), " s ");
    EXPECT_EQ(multipart.getBoundary(), " b ");
}

TEST(MultipartContainer, ClearKeepsOnlyTheBoundary)
{
    const QByteArray octets("octets");
    Multipart multipart;
    appendParts(multipart, {{.data = octets}, {}});
    multipart.setExtType("e");
    setType(multipart, "t", "s");
    multipart.setStart("x");
    multipart.setBoundary("b");
    multipart.clear();
    EXPECT_EQ(multipart.getExtType(), "");
    EXPECT_EQ(multipart.getMimeType(), Application);
    EXPECT_EQ(multipart.getSubType(), Related);
    EXPECT_EQ(multipart.getStart(), "");
    EXPECT_EQ(multipart.getBoundary(), "b");
    EXPECT_EQ(multipart.getPartCount(), 0);
    EXPECT_FALSE(isShared(octets));
}

TEST(MultipartContainer, PartsAreFoundByIndex)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "a"}, {.location = "b"}});
    EXPECT_EQ(multipart.getPartCount(), 2);
    EXPECT_EQ(multipart.getBodypartByIndex(0)->getContentLocation(), "a");
    EXPECT_EQ(multipart.getBodypartByIndex(1)->getContentLocation(), "b");
    for (const int index :
         {-1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(multipart.getBodypartByIndex(index), nullptr);
}

TEST(MultipartContainer, OwnsItsParts)
{
    const QByteArray octets("octets");
    auto multipart = std::make_unique<Multipart>();
    appendParts(*multipart, {{.data = octets}});
    EXPECT_TRUE(isShared(octets));
    multipart.reset();
    EXPECT_FALSE(isShared(octets));
}

TEST(MultipartContainer, NullPartIsRefused)
{
    Multipart multipart;
    multipart.appendBodypart(nullptr);
    EXPECT_EQ(multipart.insertBodypart(nullptr, 0), MultipartResult::InsertionRefused);
    EXPECT_EQ(multipart.getPartCount(), 0);
}

TEST(MultipartContainer, InsertionBeforeAnIndexOrAtTheEnds)
{
    const std::pair<int, QStringList> rows[] = {
        {std::numeric_limits<int>::min(), {"x", "a", "b"}},
        {-1, {"x", "a", "b"}},
        {0, {"x", "a", "b"}},
        {1, {"a", "x", "b"}},
        {2, {"a", "b", "x"}},
        {3, {"a", "b", "x"}},
        {std::numeric_limits<int>::max(), {"a", "b", "x"}},
    };
    for (const auto &[index, locations] : rows) {
        SCOPED_TRACE(index);
        Multipart multipart;
        appendParts(multipart, {{.location = "a"}, {.location = "b"}});
        auto *part = new Part(partWith({.location = "x"}));
        EXPECT_EQ(multipart.insertBodypart(part, index), MultipartResult::Ok);
        EXPECT_EQ(locationsOf(multipart), locations);
    }
}

TEST(MultipartContainer, InsertionIntoAnEmptyList)
{
    for (const int index : {-1, 0, 1}) {
        Multipart multipart;
        EXPECT_EQ(multipart.insertBodypart(new Part, index), MultipartResult::Ok);
        EXPECT_EQ(multipart.getPartCount(), 1);
    }
}

TEST(MultipartCopy, CopiesAttributesExceptTheBoundaryAndSharesOctets)
{
    Multipart source;
    source.setExtType("e");
    setType(source, "t", "s");
    source.setStart("x");
    source.setBoundary("b");
    appendParts(source, {{.format = "a/b", .data = "octets", .display = 0, .refCount = 3}, {}});
    const Multipart copy(source);
    EXPECT_EQ(copy.getExtType(), "e");
    EXPECT_EQ(copy.getMimeType(), "t");
    EXPECT_EQ(copy.getSubType(), "s");
    EXPECT_EQ(copy.getStart(), "x");
    EXPECT_TRUE(copy.getBoundary().isNull());
    EXPECT_EQ(factsOf(copy), factsOf(source));
    EXPECT_NE(copy.getBodypartByIndex(0), source.getBodypartByIndex(0));
    EXPECT_EQ(copy.getBodypartByIndex(0)->getBodyData().constData(),
              source.getBodypartByIndex(0)->getBodyData().constData());
    deleteParts(copy);
}

TEST(MultipartCopy, NeverDeletesParts)
{
    const QByteArray octets("octets");
    Multipart source;
    appendParts(source, {{.data = octets}, {.data = "removed"}});
    Part later = partWith({.location = "later"});
    std::unique_ptr<Part> first;
    std::unique_ptr<Part> second;
    {
        Multipart copy(source);
        copy.appendBodypart(&later);
        first.reset(copy.getBodypartByIndex(0));
        second.reset(copy.getBodypartByIndex(1));
        EXPECT_EQ(copy.deletePart(1), MultipartResult::Ok);
        EXPECT_EQ(copy.deletePartBySrc("later"), MultipartResult::Ok);
        EXPECT_EQ(copy.getPartCount(), 1);
    }
    EXPECT_EQ(first->getBodyData(), octets);
    EXPECT_EQ(second->getBodyData(), "removed");
    EXPECT_EQ(later.getContentLocation(), "later");
}

TEST(MultipartCopy, ClearOfACopyLeavesThePartsAlive)
{
    Multipart source;
    appendParts(source, {{.data = "octets"}});
    Multipart copy(source);
    const std::unique_ptr<Part> part(copy.getBodypartByIndex(0));
    copy.clear();
    EXPECT_EQ(copy.getPartCount(), 0);
    EXPECT_EQ(part->getBodyData(), "octets");
}

TEST(MultipartCopy, CopyFromAppendsAndKeepsTheBoundary)
{
    Multipart source;
    source.setExtType("e");
    setType(source, "t", "s");
    source.setStart("b");
    source.setBoundary("source");
    appendParts(source, {{.location = "b"}, {.location = "c"}});
    Multipart target;
    target.setBoundary("target");
    appendParts(target, {{.location = "a"}});
    target.copyFrom(source);
    EXPECT_EQ(locationsOf(target), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(target.getBoundary(), "target");
    EXPECT_EQ(target.getExtType(), "e");
    EXPECT_EQ(target.getMimeType(), "t");
    EXPECT_EQ(target.getSubType(), "s");
    EXPECT_EQ(target.getStart(), "b");
    // The start is copied as a text. Unlike setStart(), this does not select a part as the
    // presentation.
    EXPECT_EQ(target.getBodypartByIndex(1)->getDispFileType(), Part::Attachment);
}

TEST(MultipartCopy, CopyFromOwnsTheCopiesLikeItsOtherParts)
{
    const QByteArray octets("octets");
    auto source = std::make_unique<Multipart>();
    appendParts(*source, {{.data = octets}});
    {
        Multipart target;
        target.copyFrom(*source);
        source.reset();
        EXPECT_TRUE(isShared(octets));
    }
    EXPECT_FALSE(isShared(octets));
}

TEST(MultipartCopy, CopyFromItselfDoublesTheParts)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "a"}, {.location = "b"}});
    multipart.copyFrom(multipart);
    EXPECT_EQ(locationsOf(multipart), (QStringList{"a", "b", "a", "b"}));
}

namespace {

// "a" and "A" match the reference "a" by location, "<a>" by Content-ID, all others do not.
struct Deletable
{
    QString name;
    int refCount = 1;

    bool operator==(const Deletable &) const = default;
};

void PrintTo(const Deletable &part, std::ostream *out)
{
    *out << part.name.toStdString() << ':' << part.refCount;
}

void append(Multipart &multipart, const QList<Deletable> &parts)
{
    for (const auto &[name, refCount] : parts) {
        const bool byId = name.startsWith('<');
        appendParts(multipart,
                    {{.location = byId ? QString() : name,
                      .id = byId ? name : QString(),
                      .refCount = refCount}});
    }
}

QList<Deletable> left(const Multipart &multipart)
{
    QList<Deletable> parts;
    for (const PartFacts &facts : factsOf(multipart))
        parts += {facts.id.isEmpty() ? facts.location : facts.id, facts.refCount};
    return parts;
}

struct DeletionRow
{
    const char *name;
    QList<Deletable> parts;
    int result;
    QList<Deletable> left;
};

} // namespace

TEST(MultipartDeletion, ByIndexReleasesOneUse)
{
    const std::tuple<int, int, QList<Deletable>> rows[] = {
        {-1, RemovalRefused, {{"a"}, {"b", 3}, {"c", 0}}},
        {0, Ok, {{"b", 3}, {"c", 0}}},
        {1, Ok, {{"a"}, {"b", 2}, {"c", 0}}},
        {2, Ok, {{"a"}, {"b", 3}}},
        {3, RemovalRefused, {{"a"}, {"b", 3}, {"c", 0}}},
    };
    for (const auto &[index, result, expected] : rows) {
        SCOPED_TRACE(index);
        Multipart multipart;
        append(multipart, {{"a"}, {"b", 3}, {"c", 0}});
        EXPECT_EQ(multipart.deletePart(index), result);
        EXPECT_EQ(left(multipart), expected);
    }
}

TEST(MultipartDeletion, ByIndexDeletesThePartWithItsLastUse)
{
    const QByteArray octets("octets");
    Multipart multipart;
    appendParts(multipart, {{.data = octets, .refCount = 2}});
    EXPECT_EQ(multipart.deletePart(0), Ok);
    EXPECT_TRUE(isShared(octets));
    EXPECT_EQ(multipart.deletePart(0), Ok);
    EXPECT_FALSE(isShared(octets));
    EXPECT_EQ(multipart.deletePart(0), RemovalRefused);
}

// The loop visits every remaining part, but acts on the index that counts the visits so far. After
// a removal, that index is one ahead of the loop.
TEST(MultipartDeletion, ByReferenceActsOnTheIndexThatCountsTheVisits)
{
    const DeletionRow rows[] = {
        {"no parts", {}, Ok, {}},
        {"no match", {{"v"}, {"w", 2}}, Ok, {{"v"}, {"w", 2}}},
        {"first", {{"a"}, {"v"}}, Ok, {{"v"}}},
        {"last", {{"v"}, {"a"}}, Ok, {{"v"}}},
        {"between", {{"v"}, {"a"}, {"w"}}, Ok, {{"v"}, {"w"}}},
        {"by Content-ID", {{"v"}, {"<A>"}, {"w"}}, Ok, {{"v"}, {"w"}}},
        {"count 0", {{"a", 0}, {"v"}}, Ok, {{"v"}}},
        {"count below 0", {{"a", -3}, {"v"}}, Ok, {{"v"}}},
        {"in use twice", {{"v"}, {"a", 2}}, Ok, {{"v"}, {"a", 1}}},
        {"in use twice, another after it", {{"a", 2}, {"A"}}, Ok, {{"a", 1}, {"A"}}},
        {"two in a row, another after", {{"a"}, {"A"}, {"v"}}, Ok, {{"A"}}},
        {"two at the end", {{"a"}, {"A"}}, RemovalRefused, {{"A"}}},
        {"two after another", {{"v"}, {"a"}, {"A"}}, RemovalRefused, {{"v"}, {"A"}}},
        {"two apart", {{"a"}, {"v"}, {"A"}}, RemovalRefused, {{"v"}, {"A"}}},
        {"two apart, another after", {{"a"}, {"v"}, {"A"}, {"w"}}, Ok, {{"v"}, {"A"}}},
        {"two, walk goes on", {{"a"}, {"A"}, {"v"}, {"w"}}, Ok, {{"A"}, {"w"}}},
        {"three in a row", {{"a"}, {"A"}, {"<a>"}, {"w"}}, Ok, {{"A"}, {"w"}}},
        {"match removed in the place of another", {{"a"}, {"A"}, {"<a>"}}, Ok, {{"A"}}},
        {"third past the end", {{"a"}, {"A"}, {"v"}, {"<a>"}}, RemovalRefused, {{"A"}, {"<a>"}}},
        {"second in use, decreases another", {{"a"}, {"A", 2}, {"v", 5}}, Ok, {{"A", 2}, {"v", 4}}},
        {"second in use, another in use once", {{"a"}, {"A", 2}, {"v"}}, Ok, {{"A", 2}, {"v", 0}}},
        {"second in use at the end", {{"a"}, {"A", 2}}, Ok, {{"A", 2}}},
        {"stops at the one in use",
         {{"a"}, {"v"}, {"A", 2}, {"w", 3}, {"a"}},
         Ok,
         {{"v"}, {"A", 2}, {"w", 2}, {"a"}}},
        {"removes one in use", {{"a"}, {"A"}, {"v", 9}}, Ok, {{"A"}}},
    };
    for (const DeletionRow &row : rows) {
        SCOPED_TRACE(row.name);
        Multipart multipart;
        append(multipart, row.parts);
        EXPECT_EQ(multipart.deletePartBySrc("a"), row.result);
        EXPECT_EQ(left(multipart), row.left);
    }
}

TEST(MultipartDeletion, ReferenceCountStopsAtItsSmallestValue)
{
    constexpr int smallest = std::numeric_limits<int>::min();
    Multipart multipart;
    appendParts(multipart,
                {{.location = "a"},
                 {.location = "A", .refCount = 2},
                 {.location = "x", .refCount = smallest}});
    EXPECT_EQ(multipart.deletePartBySrc("a"), MultipartResult::Ok); // works on x in the place of A
    EXPECT_EQ(multipart.getBodypartByIndex(0)->getRefCount(), 2);
    EXPECT_EQ(multipart.getBodypartByIndex(1)->getRefCount(), smallest);
}

TEST(MultipartDeletion, EmptyReferenceIsRefused)
{
    Multipart multipart;
    append(multipart, {{""}, {"a"}});
    EXPECT_EQ(multipart.deletePartBySrc(""), RemovalRefused);
    EXPECT_EQ(multipart.deletePartBySrc(QString()), RemovalRefused);
    EXPECT_EQ(multipart.getPartCount(), 2);
}

TEST(MultipartDeletion, ReferenceMayBelongToTheDeletedPart)
{
    Multipart multipart;
    append(multipart, {{"a"}, {"v"}});
    const QString &reference = multipart.getBodypartByIndex(0)->getContentLocation();
    EXPECT_EQ(multipart.deletePartBySrc(reference), MultipartResult::Ok);
    EXPECT_EQ(locationsOf(multipart), QStringList{"v"});
}

TEST(MultipartStart, TakesTheFirstAttachmentThatItMatches)
{
    struct Row
    {
        const char *name;
        QString start;
        QList<int> displays;
    };
    const Row rows[] = {
        {"first attachment, not what is shown", "<cid:A>", {0, 0, 1, 1}},
        {"none", "b", {0, 1, 1, 1}},
        {"empty", "", {0, 1, 1, 1}},
        {"location", "X.SMIL", {0, 1, 1, 0}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        Multipart multipart;
        appendParts(
            multipart,
            {{.id = "<a>", .display = 0}, {.id = "a"}, {.id = "<A>"}, {.location = "x.smil"}});
        multipart.setStart(row.start);
        EXPECT_EQ(multipart.getStart(), row.start);
        QList<int> displays;
        for (const PartFacts &facts : factsOf(multipart))
            displays += facts.display;
        EXPECT_EQ(displays, row.displays);
    }
}

namespace {

struct SmilRow
{
    const char *name;
    QString type;
    QString subtype;
    QString start;
    QList<PartFacts> parts;
    int found; // index, or -1
};

const PartFacts SmilAttachment = {.format = "application/smil"};
const PartFacts ShownStart = {.format = "x/y", .id = "s", .display = Part::Shown};
const PartFacts Picture = {.format = "image/jpeg"};

} // namespace

TEST(MultipartSmilPart, IsTheShownStartOrTheFirstPartOfARelatedMessage)
{
    const SmilRow rows[] = {
        {"no parts", Application, Related, "s", {}, -1},
        {"start", Application, Related, "s", {SmilAttachment, ShownStart}, 1},
        {"start of any message", "text", "plain", "s", {Picture, ShownStart}, 1},
        {"start that is not shown",
         Application,
         Related,
         "s",
         {SmilAttachment, {.format = "application/smil", .id = "s"}},
         0},
        {"start that is not there", Application, Related, "z", {SmilAttachment, ShownStart}, 0},
        {"first part", Application, Related, "", {SmilAttachment, Picture}, 0},
        {"in any case",
         "APPLICATION",
         "VND.wap.Multipart.RELATED",
         "",
         {{.format = "Application/SMIL"}},
         0},
        {"first part already shown",
         Application,
         Related,
         "",
         {{.format = "application/smil", .display = Part::Shown}},
         0},
        {"second part", Application, Related, "", {Picture, SmilAttachment}, -1},
        {"mixed", Application, Mixed, "", {SmilAttachment}, -1},
        {"no application", "text", Related, "", {SmilAttachment}, -1},
        {"other subtype", Application, Related, "", {{.format = "application/smil+xml"}}, -1},
        {"other type", Application, Related, "", {{.format = "text/smil"}}, -1},
    };
    for (const SmilRow &row : rows) {
        SCOPED_TRACE(row.name);
        Multipart multipart;
        setType(multipart, row.type, row.subtype);
        multipart.setStart(row.start); // before the parts exist, so that it selects none
        appendParts(multipart, row.parts);
        QList<PartFacts> expected = row.parts;
        if (row.found >= 0)
            expected[row.found].display = Part::Shown;
        EXPECT_EQ(multipart.getSmilPart(), multipart.getBodypartByIndex(row.found));
        EXPECT_EQ(factsOf(multipart), expected);
    }
}

TEST(MultipartAttachments, AreThePartsNotShownOrAllPartsOfAMixedMessage)
{
    struct Row
    {
        QString type;
        QString subtype;
        QList<int> attachments; // indices of the parts
    };
    const Row rows[] = {
        {Application, Related, {1, 3}},
        {"Application", "VND.WAP.MULTIPART.RELATED", {1, 3}},
        {Application, Mixed, {0, 1, 2, 3}},
        {"text", Related, {0, 1, 2, 3}},
        {"", "", {0, 1, 2, 3}},
        {Application, Related + ' ', {0, 1, 2, 3}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE((row.type + '/' + row.subtype).toStdString());
        Multipart multipart;
        setType(multipart, row.type, row.subtype);
        appendParts(multipart, {{.display = 0}, {.display = 1}, {.display = 0}, {.display = 1}});
        const int count = int(row.attachments.size());
        EXPECT_EQ(multipart.getAttachmentCount(), count);
        for (int i = 0; i < count; ++i)
            EXPECT_EQ(multipart.getAttachment(i), multipart.getBodypartByIndex(row.attachments[i]));
        for (const int index : {-1, count, std::numeric_limits<int>::min()})
            EXPECT_EQ(multipart.getAttachment(index), nullptr);
    }
}

TEST(MultipartAttachments, EmptyMessageHasNone)
{
    for (const QString &subtype : {Related, Mixed}) {
        Multipart multipart;
        multipart.setSubType(subtype);
        EXPECT_EQ(multipart.getAttachmentCount(), 0);
        EXPECT_EQ(multipart.getAttachment(0), nullptr);
    }
}
