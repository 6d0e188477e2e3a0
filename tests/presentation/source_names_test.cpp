/*
 * Names for new content. The library uses an index of the names in use; PlainSources below is the
 * simplest implementation of the rule, and both must agree.
 */
#include "base/durations.h"
#include "presentation/presentation.h"

#include "platform/comp_util.h"
#include "presentation/model_facts.h"

#include <QUrl>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

namespace {

QString a(int count)
{
    return QString(count, 'a');
}

// A media object: its src, and the part that it is bound to.
struct ObjectRow
{
    QString src;
    QString location = {};
    QString id = {};
    bool bound = true;
};

// A presentation with two slides that share the objects, and the message with the other parts. The
// objects' parts are in a separate message, so that they count only through the objects.
class Fixture
{
public:
    Fixture(const QList<ObjectRow> &objects, const QList<PartFacts> &parts)
    {
        appendParts(m_message, parts);
        for (const ObjectRow &row : objects) {
            Slide *slide = m_data.getSlide(m_data.getTotalSlidesNum() - 1);
            if (!slide || slide->getMediaObjectCount() * 2 > unsigned(objects.size()))
                slide = m_data.appendSlide(QvlDuration::Default);
            Part *part =
                row.bound ? addPart(m_others, {.location = row.location, .id = row.id}) : nullptr;
            slide->appendObject(newObject(SMIL_MEDIA_IMAGE, row.src, nullptr, part));
        }
    }

    Presentation &operator*() { return m_data; }
    Presentation *operator->() { return &m_data; }

private:
    Multipart m_message;
    Multipart m_others;
    Presentation m_data{&m_message};
};

struct NamingRow
{
    const char *what;
    QStringList taken; // sources of objects
    QString asked;
    QString given;
};

void expectNames(std::initializer_list<NamingRow> rows)
{
    for (const NamingRow &row : rows) {
        SCOPED_TRACE(row.what);
        QList<ObjectRow> objects;
        for (const QString &src : row.taken)
            objects += ObjectRow{.src = src, .bound = false};
        Fixture data(objects, {});
        EXPECT_EQ(data->createUniqueSrc(row.asked), row.given);
        EXPECT_FALSE(data->isElemNameExist(row.given));
    }
}

} // namespace

TEST(ElementName, ExistsByAnySrcLocationOrContentId)
{
    Fixture data({{.src = "Src.jpg", .location = "Loc.jpg", .id = "<Id>"},
                  {.src = "second", .location = "", .id = "cid:Two"},
                  {.src = "lonely", .bound = false}},
                 {{.location = "Part.jpg"}, {.id = "<part id>"}});
    const std::pair<QString, bool> rows[] = {
        {"Src.jpg", true}, {"src.jpg", false}, // a src is compared with regard to case
        {"Loc.jpg", true}, {"LOC.JPG", true},    {"Id", true},        {"<id>", true},
        {"cid:ID", true},  {" <cid:id> ", true}, {"two", true},       {"second", true},
        {"lonely", true},  {"Lonely", false},    {"part.JPG", true},  {"part id", true},
        {"other", false},  {"Loc", false},       {"Loc.jpg ", false}, {a(99), false},
    };
    for (const auto &[name, exists] : rows)
        EXPECT_EQ(data->isElemNameExist(name), exists) << name.toStdString();
}

TEST(ElementName, UnusableNamesCountAsExisting)
{
    const Presentation data(nullptr);
    const std::pair<QString, bool> rows[] = {
        {"", true},      {QString(), true}, {":x", true},   {a(99), false}, {a(100), true},
        {a(5000), true}, {"x", false},      {"a b", false}, {"a&b", false}, {"http://[x", true},
    };
    for (const auto &[name, exists] : rows)
        EXPECT_EQ(data.isElemNameExist(name), exists) << name.left(20).toStdString();
}

TEST(UniqueSource, IsTheNameOrTheFirstFreeNumberBeforeItsExtension)
{
    expectNames({
        {"free", {}, "pic.jpg", "pic.jpg"},
        {"without directories", {"pic.jpg"}, "/a/b/pic.jpg", "pic_0.jpg"},
        {"taken twice", {"pic.jpg", "pic_0.jpg"}, "/a/b/pic.jpg", "pic_1.jpg"},
        {"gap", {"pic.jpg", "pic_1.jpg"}, "pic.jpg", "pic_0.jpg"},
        {"src in other case", {"PIC.jpg"}, "pic.jpg", "pic.jpg"},
        {"no extension", {"pic"}, "pic", "pic_0"},
        {"two dots", {"a.b.c"}, "a.b.c", "a.b_0.c"},
        {"dot at the end", {"a."}, "a.", "a._0"},
        {"dot at the start", {".x"}, ".x", "_0.x"},
        {"pattern in the base", {"a%1.jpg", "a%1_0.jpg"}, "a%1.jpg", "a%1_1.jpg"},
        {"pattern in the extension", {"a.%1"}, "a.%1", "a_0.%1"},
        {"two patterns", {"%1%2"}, "%1%2", "%1%2_0"},
    });
}

TEST(UniqueSource, AmpersandIsDroppedOnlyFromTheFirstCandidate)
{
    expectNames({
        {"free", {}, "/a/b/p&q.jpg", "pq.jpg"},
        {"taken", {"pq.jpg"}, "/a/b/p&q.jpg", "p&q_0.jpg"},
        {"taken twice", {"pq.jpg", "p&q_0.jpg"}, "p&q.jpg", "p&q_1.jpg"},
        {"as it stands taken", {"p&q.jpg"}, "p&q.jpg", "pq.jpg"},
        {"no extension", {}, "you&me", "youme"},
        {"no extension, taken", {"youme"}, "you&me", "you&me_0"},
        {"every one", {}, "&a&&b&", "ab"},
        {"in the extension", {}, "a.b&c", "a.bc"},
        {"in the extension, taken", {"a.bc"}, "a.b&c", "a_0.b&c"},
        {"nothing else before the extension", {}, "&.jpg", ".jpg"},
        {"truncated, so it comes back", {}, '&' + a(90) + ".jpg", '&' + a(84) + ".jpg"},
    });
}

TEST(UniqueSource, NameThatIsNotAUrlIsRenamed)
{
    expectNames({
        {"empty", {}, "", "renamed"},
        {"empty, taken", {"renamed"}, "", "renamed_0"},
        {"directory", {}, "/tmp/", "renamed"},
        {"nothing but &", {}, "&", "renamed"},
        {"no extension", {}, ":x", "renamed"},
        {"extension", {}, ":x.jpg", "renamed.jpg"},
        {"extension, taken", {"renamed.jpg"}, ":x.jpg", "renamed_0.jpg"},
        {"no URL without &", {}, "&:x.jpg", "renamed.jpg"},
        {"extension of 81", {}, ":x." + a(81), "renamed." + a(81)},
        {"extension of 82", {}, ":x." + a(82), "rename." + a(82)},
        {"long and no URL", {}, ':' + a(200) + ".jpg", "renamed.jpg"},
        {"& in the extension", {}, ":x.a&b", "renamed.a&b"},
    });
}

TEST(UniqueSource, BaseAndExtensionAreTruncatedTo88Characters)
{
    expectNames({
        {"88", {}, a(84) + ".jpeg", a(84) + ".jpeg"},
        {"89", {}, a(85) + ".jpeg", a(84) + ".jpeg"},
        {"89, taken", {a(84) + ".jpeg"}, a(85) + ".jpeg", a(84) + "_0.jpeg"},
        {"no extension, 88", {}, a(88), a(88)},
        {"no extension, 89", {}, a(89), a(88)},
        {"no extension, 500", {a(88)}, a(500), a(88) + "_0"},
        {"extension of 88", {}, "b." + a(88), '.' + a(88)},
        {"extension of 87", {}, "bc." + a(87), "b." + a(87)},
        {"extension of 98", {}, "b." + a(98), '.' + a(98)},
        {"extension of 96, taken", {'.' + a(96)}, "b." + a(96), "_0." + a(96)},
    });
}

TEST(UniqueSource, UnusableNameBecomesFileWithANumber)
{
    expectNames({
        {"extension of 99", {}, "b." + a(99), "file0"},
        {"extension of 99, taken", {"file0", "file1"}, "b." + a(99), "file2"},
        {"extension of 97, taken", {'.' + a(97)}, "b." + a(97), "file0"},
        {"extension of 5000", {}, "b." + a(5000), "file0"},
        {"URL only without &", {}, "a&:x", "a:x"},
        {"URL only without &, taken", {"a:x"}, "a&:x", "file0"},
        {"URL only without &, extension, taken", {"a:x.jpg"}, "a&:x.jpg", "file0"},
    });
}

TEST(UniqueSource, CountsPartsOfObjectsAndOfTheMessage)
{
    Fixture data({{.src = "x", .location = "PIC.jpg", .id = "<pic_1.jpg>"}},
                 {{.location = "Pic_0.jpg"}, {.id = "cid:pic_2.JPG"}});
    EXPECT_EQ(data->createUniqueSrc("pic.jpg"), "pic_3.jpg");
    data->setMultiPart(nullptr);
    EXPECT_EQ(data->createUniqueSrc("pic.jpg"), "pic_0.jpg");
    data->clean();
    EXPECT_EQ(data->createUniqueSrc("pic.jpg"), "pic.jpg");
}

TEST(UniqueSource, DoesNotReserveTheName)
{
    Fixture data({}, {});
    EXPECT_EQ(data->createUniqueSrc("pic.jpg"), "pic.jpg");
    EXPECT_EQ(data->createUniqueSrc("pic.jpg"), "pic.jpg");
}

namespace {

class PlainSources
{
public:
    PlainSources(const QList<ObjectRow> &objects, const QList<PartFacts> &parts)
        : m_objects(objects), m_parts(parts)
    {
    }

    bool exists(const QString &name) const
    {
        const auto names = [&](const QString &location, const QString &id) {
            return location.compare(name, Qt::CaseInsensitive) == 0
                || Multipart::isCidEqual(name, id);
        };
        if (!QUrl(name).isValid() || name.size() > 99)
            return true;
        for (const ObjectRow &object : m_objects) {
            if (object.src == name || (object.bound && names(object.location, object.id)))
                return true;
        }
        return std::any_of(m_parts.begin(), m_parts.end(),
                           [&](const PartFacts &part) { return names(part.location, part.id); });
    }

    QString source(const QString &name) const
    {
        const QString stripped = MMS_COMP_Util::stripePath(name);
        const QString ext = MMS_COMP_Util::getExtName(stripped);
        const QString end = ext.isEmpty() ? ext : '.' + ext;
        QString base = MMS_COMP_Util::getNoExtName(stripped);
        QString candidate = QString(stripped).replace("&", "");
        if (!QUrl(candidate).isValid()) {
            base = "renamed";
            candidate = "renamed" + end;
        }
        if (base.size() + ext.size() > 88) {
            base = base.left(qMax(0, 88 - int(ext.size())));
            candidate = base + end;
        }
        for (int n = 0; n <= limit() && exists(candidate); ++n)
            candidate = base + '_' + QString::number(n) + end;
        for (int n = 0; n <= limit() && exists(candidate); ++n)
            candidate = "file" + QString::number(n);
        return candidate;
    }

private:
    // Every object occupies at most three numbers, and every part two.
    int limit() const { return int(3 * m_objects.size() + 2 * m_parts.size()); }

    QList<ObjectRow> m_objects;
    QList<PartFacts> m_parts;
};

const QStringList Names = {"",
                           "x",
                           "pic.jpg",
                           "PIC.jpg",
                           "pic_0.jpg",
                           "Pic_1.JPG",
                           "/d/pic.jpg",
                           "p&q.jpg",
                           "pq.jpg",
                           "p&q_0.jpg",
                           "&",
                           ":x",
                           ":x.jpg",
                           "renamed",
                           "renamed_0",
                           "renamed.jpg",
                           "a&:x",
                           "a:x",
                           "file0",
                           "FILE1",
                           "a%1",
                           "a%1_0",
                           "a.",
                           ".jpg",
                           "_0.jpg",
                           a(88),
                           a(99),
                           a(100),
                           a(88) + "_0",
                           a(120) + ".jpg",
                           "b." + a(87),
                           "b." + a(96),
                           '.' + a(96),
                           "b." + a(97),
                           "b." + a(120),
                           "<pic.jpg>",
                           "cid:pic.jpg",
                           " x ",
                           "< x >",
                           "<>"};

class Generator
{
public:
    explicit Generator(unsigned int seed) : m_random(seed) { }

    QList<ObjectRow> objects(unsigned int count)
    {
        QList<ObjectRow> rows;
        while (rows.size() < qsizetype(count))
            rows += ObjectRow{name(), name(), name(), m_random() % 3 != 0};
        return rows;
    }

    QList<PartFacts> parts(unsigned int count)
    {
        QList<PartFacts> rows;
        while (rows.size() < qsizetype(count))
            rows += PartFacts{.location = name(), .id = name()};
        return rows;
    }

private:
    QString name() { return Names[qsizetype(m_random() % unsigned(Names.size()))]; }

    std::minstd_rand m_random;
};

} // namespace

TEST(UniqueSource, FollowsThePlainRuleForGeneratedPresentations)
{
    for (unsigned int seed = 1; seed <= 200; ++seed) {
        Generator generator(seed);
        const QList<ObjectRow> objects = generator.objects(seed % 13);
        const QList<PartFacts> parts = generator.parts(seed % 7);
        const PlainSources plain(objects, parts);
        Fixture data(objects, parts);
        for (const QString &name : Names) {
            SCOPED_TRACE(std::to_string(seed) + ' ' + name.toStdString());
            EXPECT_EQ(data->isElemNameExist(name), plain.exists(name));
            EXPECT_EQ(data->createUniqueSrc(name), plain.source(name));
        }
    }
}

TEST(UniqueSource, EqualNamesAreNumberedInOrder)
{
    Multipart message;
    Presentation data(&message);
    Slide *slide = data.appendSlide(QvlDuration::Default);
    for (int i = 0; i < 120; ++i) {
        const QString expected = i == 0 ? QString("p.jpg") : QString("p_%1.jpg").arg(i - 1);
        const QString src = data.createUniqueSrc("d/p.jpg");
        ASSERT_EQ(src, expected);
        auto object = std::make_unique<Object>(&message);
        ASSERT_TRUE(object->setData("", src, SMIL_MEDIA_REF, "x", "", &message));
        slide->appendObject(object.release());
    }
}
