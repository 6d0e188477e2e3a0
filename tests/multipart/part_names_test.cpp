/*
 * Names for parts that have none. The library uses an index of the names in use; PlainNames below
 * is the simplest implementation of the rule, and both must agree.
 */
#include "multipart/multipart.h"

#include "message/multipart_parser.h"
#include "multipart/part_facts.h"
#include "platform/comp_util.h"

#include <QStringList>
#include <QUrl>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

QString a(int count)
{
    return QString(count, 'a');
}

struct NamingRow
{
    const char *what;
    QStringList taken; // locations of parts that are there
    QString asked;
    QString given;
};

using NamingRule = QString (Multipart::*)(const QString &) const;

void expectNames(NamingRule rule, std::initializer_list<NamingRow> rows)
{
    for (const NamingRow &row : rows) {
        SCOPED_TRACE(row.what);
        Multipart multipart;
        for (const QString &location : row.taken)
            appendParts(multipart, {{.location = location}});
        EXPECT_EQ((multipart.*rule)(row.asked), row.given);
        EXPECT_FALSE(multipart.isPartExist(row.given));
    }
}

void expectLocations(std::initializer_list<NamingRow> rows)
{
    expectNames(&Multipart::createUniqueLocation, rows);
}

void expectAttachmentLocations(std::initializer_list<NamingRow> rows)
{
    expectNames(&Multipart::createUniqueAttchmentLocation, rows);
}

} // namespace

TEST(PartExists, WhenAPartMatchesOrTheNameIsUnusable)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "Photo.jpg"}, {.id = "<Id>"}, {.location = "<x>"}});
    const std::pair<QString, bool> rows[] = {
        {"photo.JPG", true}, {"id", true},   {"cid:ID", true},
        {"other", false},    {"x", false}, // the location is in brackets
        {"", true}, // no URL
        {":x", true}, // no URL
        {a(99), false},      {a(100), true}, {a(101), true},
        {"you&me", false},   {"a%1", false}, {QString(QChar(0xE9)), false},
    };
    for (const auto &[name, exists] : rows) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(multipart.isPartExist(name), exists);
    }
}

TEST(PartExists, OnlyUnusableNamesInAnEmptyMessage)
{
    const Multipart multipart;
    EXPECT_FALSE(multipart.isPartExist("a"));
    EXPECT_FALSE(multipart.isPartExist("<>"));
    EXPECT_TRUE(multipart.isPartExist(""));
    EXPECT_TRUE(multipart.isPartExist(a(100)));
}

TEST(AttachmentLocation, IsTheFirstFreeNumber)
{
    expectAttachmentLocations({
        {"no extension", {}, "", "file0"},
        {"extension", {}, "jpg", "file0.jpg"},
        {"taken", {"file0.jpg"}, "jpg", "file1.jpg"},
        {"taken in other case", {"FILE0.JPG", "File1.jpg"}, "jpg", "file2.jpg"},
        {"other extension taken", {"file0.jpg"}, "png", "file0.png"},
        {"gap", {"file0", "file2"}, "", "file1"},
        {"two digits",
         {"file0", "file1", "file2", "file3", "file4", "file5", "file6", "file7", "file8", "file9"},
         "",
         "file10"},
        {"extension with a pattern", {"file0.%1"}, "%1", "file1.%1"},
        {"extension with &", {}, "a&b", "file0.a&b"},
        {"extension with a dot", {}, "a.b", "file0.a.b"},
    });
}

TEST(AttachmentLocation, ContentIdOccupiesANameToo)
{
    Multipart multipart;
    appendParts(multipart, {{.id = "<FILE0.jpg>"}, {.id = "cid:file1.jpg"}});
    EXPECT_EQ(multipart.createUniqueAttchmentLocation("jpg"), "file2.jpg");
}

TEST(AttachmentLocation, ExtensionThatMakesEveryNameTooLongIsDropped)
{
    QStringList oneDigit;
    for (int i = 0; i < 10; ++i)
        oneDigit += "file" + QString::number(i) + '.' + a(93);
    expectAttachmentLocations({
        {"99 characters", {}, a(93), "file0." + a(93)},
        {"100 characters", {}, a(94), "file0"},
        {"100 characters, taken", {"file0"}, a(94), "file1"},
        {"far too long", {}, a(5000), "file0"},
        {"100 characters from the second digit on", oneDigit, a(93), "file0"},
    });
}

TEST(UniqueLocation, IsTheNameOrTheFirstFreeNumberBeforeItsExtension)
{
    expectLocations({
        {"free", {}, "photo.jpg", "photo.jpg"},
        {"without directories", {}, "/tmp/x.y/photo.jpg", "photo.jpg"},
        {"taken", {"photo.jpg"}, "/tmp/photo.jpg", "photo_0.jpg"},
        {"taken twice", {"photo.jpg", "photo_0.jpg"}, "photo.jpg", "photo_1.jpg"},
        {"taken in other case", {"a.jpg", "a_0.JPG"}, "A.jpg", "A_1.jpg"},
        {"gap", {"a.jpg", "a_1.jpg"}, "a.jpg", "a_0.jpg"},
        {"no extension", {}, "photo", "photo"},
        {"no extension, taken", {"photo"}, "photo", "photo_0"},
        {"two dots", {"a.b.c"}, "a.b.c", "a.b_0.c"},
        {"dot at the end", {"a."}, "a.", "a._0"},
        {"dot at the start", {}, ".x", ".x"},
        {"dot at the start, taken", {".x"}, ".x", "_0.x"},
        {"blanks", {}, " a b .jpg", " a b .jpg"},
        {"other script", {QString(QChar(0xC9))}, QString(QChar(0xE9)), QString(QChar(0xE9)) + "_0"},
    });
}

TEST(UniqueLocation, ContentIdOccupiesANameToo)
{
    Multipart multipart;
    appendParts(multipart, {{.id = "<PHOTO.jpg>"}, {.id = "photo_0.jpg"}});
    EXPECT_EQ(multipart.createUniqueLocation("photo.jpg"), "photo_1.jpg");
}

TEST(UniqueLocation, PatternInTheNameIsText)
{
    expectLocations({
        {"base", {}, "a%1.jpg", "a%1.jpg"},
        {"base, taken", {"a%1.jpg"}, "a%1.jpg", "a%1_0.jpg"},
        {"base, taken twice", {"a%1.jpg", "a%1_0.jpg"}, "a%1.jpg", "a%1_1.jpg"},
        {"extension, taken", {"a.%1"}, "a.%1", "a_0.%1"},
        {"no extension, taken", {"%1"}, "%1", "%1_0"},
        {"two patterns, taken", {"%1%2.%3"}, "%1%2.%3", "%1%2_0.%3"},
    });
}

TEST(UniqueLocation, AmpersandIsDroppedOnlyFromTheFirstNameWithoutExtension)
{
    expectLocations({
        {"no extension", {}, "you&me", "youme"},
        {"no extension, taken", {"youme"}, "you&me", "you&me_0"},
        {"no extension, taken twice", {"youme", "you&me_0"}, "you&me", "you&me_1"},
        {"no extension, as it stands taken", {"you&me"}, "you&me", "youme"},
        {"every one", {}, "&a&&b&", "ab"},
        {"extension", {}, "you&me.jpg", "you&me.jpg"},
        {"extension, taken", {"you&me.jpg"}, "you&me.jpg", "you&me_0.jpg"},
        {"in the extension", {}, "a.b&c", "a.b&c"},
        {"nothing else", {}, "&", "renamed_0"},
        {"nothing else before the extension", {}, "&.jpg", "&.jpg"},
    });
}

TEST(UniqueLocation, NameThatIsNotAUrlIsRenamed)
{
    expectLocations({
        {"empty", {}, "", "renamed_0"},
        {"directory", {}, "/tmp/", "renamed_0"},
        {"empty, taken", {"renamed_0"}, "", "renamed_1"},
        {"no extension", {}, ":x", "renamed_0"},
        {"extension", {}, ":x.jpg", "renamed.jpg"},
        {"extension, taken", {"renamed.jpg"}, ":x.jpg", "renamed_0.jpg"},
        {"no URL without &", {}, "&:x.jpg", "renamed.jpg"},
    });
}

TEST(UniqueLocation, BaseAndExtensionAreTruncatedTo88Characters)
{
    expectLocations({
        {"88", {}, a(84) + ".jpeg", a(84) + ".jpeg"},
        {"89", {}, a(85) + ".jpeg", a(84) + ".jpeg"},
        {"89, taken", {a(84) + ".jpeg"}, a(85) + ".jpeg", a(84) + "_0.jpeg"},
        {"200", {}, a(200) + ".jpg", a(85) + ".jpg"},
        {"no extension, 99 uncut", {}, a(99), a(99)},
        {"no extension, 99 taken", {a(99)}, a(99), a(88) + "_0"},
        {"no extension, 100", {}, a(100), a(88) + "_0"},
        {"no extension, 100 taken", {a(88) + "_0"}, a(100), a(88) + "_1"},
        {"no extension, 88 taken", {a(88)}, a(88), a(88) + "_0"},
        {"extension of 88", {}, "b." + a(88), '.' + a(88)},
        {"extension of 87", {}, "bc." + a(87), "b." + a(87)},
        {"extension of 98", {}, "b." + a(98), '.' + a(98)},
        {"extension of 96, taken", {'.' + a(96)}, "b." + a(96), "_0." + a(96)},
    });
}

TEST(UniqueLocation, UnusableNameBecomesFileWithANumber)
{
    const QStringList tenTaken = [] {
        QStringList taken{'.' + a(96)};
        for (int i = 0; i < 10; ++i)
            taken += '_' + QString::number(i) + '.' + a(96);
        return taken;
    }();
    expectLocations({
        {"extension of 99", {}, "b." + a(99), "file0"},
        {"extension of 99, taken", {"file0"}, "b." + a(99), "file1"},
        {"extension of 97, taken", {'.' + a(97)}, "b." + a(97), "file0"},
        {"extension of 96 from the second digit on", tenTaken, "b." + a(96), "file0"},
        {"extension of 5000", {}, "b." + a(5000), "file0"},
        {"URL only without &", {}, "a&:x", "a:x"},
        {"URL only without &, taken", {"a:x"}, "a&:x", "file0"},
        {"URL only without &, extension", {}, "a&:x.jpg", "file0"},
    });
}

namespace {

class PlainNames
{
public:
    explicit PlainNames(const QList<PartFacts> &parts) : m_parts(parts) { }

    bool exists(const QString &name) const
    {
        if (!QUrl(name).isValid() || name.size() >= 100)
            return true;
        return std::any_of(m_parts.begin(), m_parts.end(), [&](const PartFacts &part) {
            return name.compare(part.location, Qt::CaseInsensitive) == 0
                || (!part.id.isEmpty() && Multipart::isCidEqual(name, part.id));
        });
    }

    // Every part occupies at most two numbers: with its location and with its Content-ID.
    QString firstFree(const QString &before, const QString &after) const
    {
        for (int n = 0; n <= 2 * m_parts.size(); ++n) {
            const QString name = before + QString::number(n) + after;
            if (!exists(name))
                return name;
        }
        return after.isEmpty() && before == "file" ? QString() : firstFree("file", "");
    }

    QString attachment(const QString &ext) const
    {
        return firstFree("file", ext.isEmpty() ? ext : '.' + ext);
    }

    QString location(const QString &name) const
    {
        const QString s = MMS_COMP_Util::stripePath(name);
        const QString ext = MMS_COMP_Util::getExtName(s);
        QString base = MMS_COMP_Util::getNoExtName(s);
        QString result = QString(s).replace("&", "");
        if (base.size() + ext.size() > 88)
            base = base.left(qMax(0, 88 - int(ext.size())));
        if (!QUrl(result).isValid())
            base = "renamed";
        if (!ext.isEmpty())
            result = base + '.' + ext;
        return exists(result) ? firstFree(base + '_', ext.isEmpty() ? ext : '.' + ext) : result;
    }

    void checkLocation()
    {
        for (PartFacts &part : m_parts) {
            if (part.location.isEmpty()) {
                const QString type = part.format.section('/', 0, 0);
                const QString subtype = part.format.section('/', 1);
                part.location = part.name.isEmpty()
                    ? attachment(MMS_COMP_Util::getFirstSupportExtNameByMIMEType(type, subtype))
                    : location(part.name);
            }
            if (part.name.isEmpty())
                part.name = part.location;
        }
    }

    const QList<PartFacts> &parts() const { return m_parts; }

private:
    QList<PartFacts> m_parts;
};

void expectNamedPlainly(const QList<PartFacts> &parts)
{
    Multipart multipart;
    appendParts(multipart, parts);
    PlainNames plain(parts);
    MMS_COMP_SMILMultipartParser::checkLocation(&multipart);
    plain.checkLocation();
    EXPECT_EQ(factsOf(multipart), plain.parts());
}

const QStringList Locations = {
    "",          "",      "",   "",   "file0.jpg", "FILE1.JPG", "file2", "photo.jpg", "photo_0.jpg",
    "renamed_0", "a&b_0", "ab", "a:x"};
const QStringList Ids = {
    "",       "",   "",           "<file0.jpg>", "cid:file1.jpg", "<FILE1>", "photo_1.jpg",
    "< ab >", "<>", " renamed_1 "};
const QStringList Names = {"",           "",
                           "",           "photo.jpg",
                           "Photo.JPG",  "/x/photo.jpg",
                           "a&b",        "a&b.gif",
                           "a&:x",       ":x",
                           ":x.jpg",     "a%1.gif",
                           "a.",         ".jpg",
                           a(99),        a(120) + ".jpg",
                           "b." + a(97), "b." + a(120),
                           "cid:file0",  "<photo.jpg>"};
const QStringList Formats = {"image/jpeg", "image/jpeg", "text/plain", "application/smil", "x/y"};

class PartGenerator
{
public:
    explicit PartGenerator(unsigned int seed) : m_random(seed) { }

    QList<PartFacts> parts(int count)
    {
        QList<PartFacts> parts;
        for (int i = 0; i < count; ++i)
            parts += {.format = one(Formats),
                      .location = one(Locations),
                      .id = one(Ids),
                      .name = one(Names)};
        return parts;
    }

private:
    QString one(const QStringList &texts)
    {
        return texts[qsizetype(m_random() % size_t(texts.size()))];
    }

    std::minstd_rand m_random;
};

} // namespace

TEST(NamingOfManyParts, FollowsThePlainRule)
{
    const QList<PartFacts> rows[] = {
        QList<PartFacts>(255, {.format = "image/jpeg"}), // as many as a body can hold
        QList<PartFacts>(255, {.name = "photo.jpg"}),
        QList<PartFacts>(40, {.format = "application/smil"}),
        QList<PartFacts>(40, {.name = "you&me"}),
        QList<PartFacts>(40, {.name = ":x"}),
        QList<PartFacts>(40, {.format = "image/jpeg", .id = "<file7.jpg>"}),
        QList<PartFacts>(40, {.name = a(120)}),
        QList<PartFacts>(40, {.name = "b." + a(96)}),
        QList<PartFacts>(40, {.name = "b." + a(99)}),
        QList<PartFacts>(40, {.name = "a&:x"}),
    };
    for (const QList<PartFacts> &parts : rows) {
        SCOPED_TRACE(testing::PrintToString(parts.first()));
        expectNamedPlainly(parts);
    }
}

TEST(NamingOfManyParts, FollowsThePlainRuleForGeneratedLists)
{
    for (unsigned int seed = 1; seed <= 150; ++seed) {
        SCOPED_TRACE(seed);
        expectNamedPlainly(PartGenerator(seed).parts(int(seed % 60)));
    }
}

TEST(NamingOfManyParts, FollowsThePlainRuleForSingleNames)
{
    for (unsigned int seed = 1; seed <= 20; ++seed) {
        SCOPED_TRACE(seed);
        const QList<PartFacts> parts = PartGenerator(seed).parts(20);
        const PlainNames plain(parts);
        Multipart multipart;
        appendParts(multipart, parts);
        for (const QString &name : Locations + Ids + Names) {
            SCOPED_TRACE(name.toStdString());
            EXPECT_EQ(multipart.isPartExist(name), plain.exists(name));
            EXPECT_EQ(multipart.createUniqueLocation(name), plain.location(name));
            EXPECT_EQ(multipart.createUniqueAttchmentLocation(name), plain.attachment(name));
        }
    }
}
