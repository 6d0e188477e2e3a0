/*
 * Finding parts by reference in an indexed message: the result is the same as without the index,
 * for all names.
 */
#include "multipart/part_index.h"

#include "multipart/part_facts.h"

#include <gtest/gtest.h>

namespace {

const QString names[] = {"",
                         "a.jpg",
                         "A.JPG",
                         "<a.jpg>",
                         "cid:a.jpg",
                         " <CID:A.jpg> ",
                         "b.txt",
                         "<b.txt>",
                         "<>",
                         "cid:",
                         QChar(0xC9),
                         QChar(0xE9),
                         "<" + QString(QChar(0x130)) + ">",
                         "i\u0307",
                         "c"};

// Every pair of the names is location and Content-ID of a part; every third part is shown.
void appendAllPairs(Multipart *message)
{
    int count = 0;
    for (const QString &location : names) {
        for (const QString &contentId : names) {
            auto part = std::make_unique<Part>();
            part->setContentLocation(location);
            part->setContentID(contentId);
            part->setDispFileType(++count % 3 == 0 ? Part::Shown : Part::Attachment);
            message->appendBodypart(part.release());
        }
    }
}

} // namespace

TEST(PartIndexScope, FindsTheSamePartsAsWithoutIndex)
{
    Multipart message;
    appendAllPairs(&message);
    for (const QString &reference : names) {
        for (int type : {int(Part::Shown), int(Part::Attachment), 2}) {
            SCOPED_TRACE(reference.toStdString() + ", " + std::to_string(type));
            const Part *found = message.getBodyPartBySrc(reference, type);
            const PartIndexScope index(&message);
            EXPECT_EQ(message.getBodyPartBySrc(reference, type), found);
        }
    }
}

TEST(PartIndexScope, FollowsTheDisplayFileType)
{
    Multipart message;
    appendParts(message, {{.location = "a"}, {.location = "a"}});
    const PartIndexScope index(&message);
    message.getBodypartByIndex(0)->setDispFileType(Part::Shown);
    EXPECT_EQ(message.getBodyPartBySrc("a", Part::Shown), message.getBodypartByIndex(0));
    EXPECT_EQ(message.getBodyPartBySrc("a", Part::Attachment), message.getBodypartByIndex(1));
}

TEST(PartIndexScope, EndsWithAnyChangeOfTheParts)
{
    struct Row
    {
        const char *name;
        void (*change)(Multipart &message);
        int found; ///< index of the part "b" after the change, or -1
    };
    const Row rows[] = {
        {"append", [](Multipart &m) { appendParts(m, {{.location = "d"}}); }, 1},
        {"insert", [](Multipart &m) { m.insertBodypart(new Part, 0); }, 2},
        {"delete", [](Multipart &m) { m.deletePart(0); }, 0},
        {"delete what is looked for", [](Multipart &m) { m.deletePart(1); }, -1},
        {"delete by reference", [](Multipart &m) { m.deletePartBySrc("b"); }, -1},
        {"clear", [](Multipart &m) { m.clear(); }, -1},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        Multipart message;
        appendParts(message, {{.location = "a"}, {.location = "b"}});
        const PartIndexScope index(&message);
        row.change(message);
        EXPECT_EQ(message.getBodyPartBySrc("b", Part::Attachment),
                  message.getBodypartByIndex(row.found));
    }
}

TEST(PartIndexScope, FindsAnAppendedPart)
{
    Multipart message;
    const PartIndexScope index(&message);
    appendParts(message, {{.location = "a"}});
    EXPECT_EQ(message.getBodyPartBySrc("a", Part::Attachment), message.getBodypartByIndex(0));
}

TEST(PartIndexScope, AcceptsANullMessage)
{
    const PartIndexScope index(nullptr);
}
