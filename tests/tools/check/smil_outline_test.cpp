/*
 * The outline of a SMIL text takes the same elements for skipped as the library, which reads the text
 * with another parser: in all fixtures, and in each with another element before every tag.
 */
#include "check/part_keys.h"
#include "check/smil_outline.h"
#include "input/smil_text.h"

#include <qvlsmilparser.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>

using namespace Check;
using namespace Qt::StringLiterals;

namespace {

/// What is read of a document, in a form that does not depend on the order.
struct Elements
{
    QStringList sources; ///< of media
    QStringList regions; ///< their ids, each once
    qsizetype metas = 0;

    bool operator==(const Elements &other) const = default;
};

void PrintTo(const Elements &elements, std::ostream *out)
{
    *out << "media " << elements.sources.join(u' ').toStdString() << ", regions "
         << elements.regions.join(u' ').toStdString() << ", metas " << elements.metas;
}

Elements sorted(Elements elements)
{
    std::ranges::sort(elements.sources);
    std::ranges::sort(elements.regions);
    elements.regions.removeDuplicates();
    return elements;
}

bool isMedium(const QString &tag)
{
    return std::ranges::any_of(qvlMediaKinds,
                               [&tag](const QvlMediaKind &kind) { return tag == kind.tag; });
}

Elements outlined(const QByteArray &smil)
{
    Elements elements;
    for (const Check::SmilElement &element : smilOutline(smil)) {
        const QString source = element.value(SmilAttribute::Src);
        if (element.isSkipped)
            continue;
        if (isMedium(element.tag) && !bareName(source).isEmpty())
            elements.sources += bareName(source);
        else if (element.tag == "region"_L1)
            elements.regions += element.value(SmilAttribute::Id);
        elements.metas += element.tag == "meta"_L1;
    }
    return sorted(elements);
}

// A message with a part for each medium.
void addParts(const QStringList &sources, MMS_COMP_SMILMultipart *parts)
{
    for (const QString &source : QSet<QString>(sources.begin(), sources.end())) {
        auto *part = new MMS_COMP_SMILMultipartBodypart;
        part->setContentLocation(source);
        part->setContentID(u"<%1>"_s.arg(source));
        parts->appendBodypart(part);
    }
}

// Nothing if the document is refused.
std::optional<Elements> readByLibrary(const QByteArray &smil, const QStringList &sources)
{
    MMS_COMP_SMILMultipart parts;
    addParts(sources, &parts);
    QDomDocument document;
    MMS_COMP_SMILData data(&parts);
    if (!document.setContent(SmilText(smil).text()))
        return std::nullopt;
    QDomElement root = document.documentElement();
    if (MMS_COMP_SMILParser().parseSmil(&root, &parts, &data) < SmilResult::Ok)
        return std::nullopt;
    Elements elements;
    for (unsigned int i = 0; i < data.getTotalSlidesNum(); ++i) {
        for (unsigned int j = 0; j < data.getMediaObjectCount(i); ++j)
            elements.sources += bareName(data.getSlide(i)->getMediaObject(j)->getSrc());
    }
    for (unsigned int i = 0; i < data.getRegionCount(); ++i)
        elements.regions += data.getRegion(i)->getId();
    elements.metas = data.getMetaCount();
    return sorted(elements);
}

// False for a refused document, which has no elements to compare.
bool compare(const QByteArray &smil)
{
    const Elements outline = outlined(smil);
    const auto read = readByLibrary(smil, outline.sources);
    if (read) {
        EXPECT_EQ(outline, *read) << smil.constData();
    }
    return read.has_value();
}

QList<QByteArray> documents()
{
    QList<QByteArray> all;
    const QDir folder(QStringLiteral(QVL_FIXTURES "/smil"));
    for (const QString &name : folder.entryList({QStringLiteral("*.smil")})) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            all += file.readAll();
    }
    return all;
}

TEST(SmilOutline, HasTheElementsThatTheLibraryReads)
{
    int compared = 0;
    for (const QByteArray &smil : documents())
        compared += compare(smil);
    EXPECT_GT(compared, 100);
}

TEST(SmilOutline, SkipsWhatTheLibrarySkipsAtEveryPlace)
{
    constexpr std::array others{
        "<head><meta name='m'/></head>",
        "<body><text src='a'/></body>",
        "<layout><region id='q'/></layout>",
        "<root-layout/>",
        "<region id='p'/>",
        "<meta name='n'/>",
        "<par><text src='b'/></par>",
        "<seq><ref src='c'/></seq>",
        "<img src='d'/>",
        "<param name='e'/>",
        "<other><par><text src='f'/></par></other>",
    };
    constexpr qsizetype Longest = 600; // octets; longer documents have the same places
    int compared = 0;
    for (const QByteArray &smil : documents()) {
        if (smil.size() > Longest)
            continue;
        for (qsizetype tag = smil.indexOf('<'); tag >= 0; tag = smil.indexOf('<', tag + 1)) {
            for (const char *other : others)
                compared += compare(QByteArray(smil).insert(tag, other));
        }
    }
    EXPECT_GT(compared, 1000);
}

} // namespace
