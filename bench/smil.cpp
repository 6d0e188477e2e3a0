/*
 * Presentations: reads, normalizes and writes them by number of slides. For comparison runs Qt's
 * tree builder, Qt's stream reader and expat alone on the same text. All slides show the same two
 * parts.
 */
#include "subjects.h"
#include "support/benchmarks.h"
#include "support/presentations.h"

#include <expat.h>

#include <QDomDocument>
#include <QXmlStreamReader>

#include <memory>

namespace {

constexpr int slideCounts[] = {1, 10, 100, 1000, 5000};

auto reading(int slides)
{
    const Shape shape{.slides = slides};
    auto message = std::make_shared<MMS_COMP_SMILMultipart>();
    addShownParts(message.get(), shape);
    const QByteArray smil = smilOf(shape);
    return Work{[smil, message] { return readSmil(smil, message.get()); }, smil.size()};
}

auto buildingTree(int slides)
{
    const QByteArray smil = smilOf({.slides = slides});
    return Work{[text = QString::fromUtf8(smil)] {
                    QDomDocument document(QStringLiteral("smil"));
                    return bool(document.setContent(text));
                },
                smil.size()};
}

auto streaming(int slides)
{
    const QByteArray smil = smilOf({.slides = slides});
    return Work{[text = QString::fromUtf8(smil)] {
                    QXmlStreamReader reader(text);
                    reader.setNamespaceProcessing(false);
                    while (!reader.atEnd())
                        reader.readNext();
                    return !reader.hasError();
                },
                smil.size()};
}

auto parsingWithExpat(int slides)
{
    const QByteArray smil = smilOf({.slides = slides});
    return Work{[smil] {
                    XML_Parser parser = XML_ParserCreate("UTF-8");
                    XML_SetElementHandler(
                        parser, [](void *, const char *, const char **) {},
                        [](void *, const char *) {});
                    const auto status = XML_Parse(parser, smil.constData(), int(smil.size()), 1);
                    XML_ParserFree(parser);
                    return status == XML_STATUS_OK;
                },
                smil.size()};
}

auto showOf(int slides)
{
    auto show = std::make_shared<QvlMessage>();
    fill(show.get(), {.slides = slides});
    return show;
}

// The first run renames the regions; later ones walk the same way.
auto normalizing(int slides)
{
    return Work{[show = showOf(slides)] {
        MMS_COMP_SMILParser::updateToCorvaneRootLayout(&show->slides());
        return MMS_COMP_SMILParser::updateToCorvaneRegion(&show->slides()) == 1;
    }};
}

auto writing(int slides)
{
    auto show = showOf(slides);
    const qint64 size = smilOf({.slides = slides}).size();
    return Work{
        [show] { return !MMS_COMP_SMILParser::convertToSMILLang(&show->slides()).isEmpty(); },
        size};
}

} // namespace

void addSmilBenchmarks()
{
    for (int slides : slideCounts) {
        const std::string suffix = '/' + std::to_string(slides);
        addBenchmark("smil/read" + suffix, [=] { return reading(slides); });
        addBenchmark("smil/normalize" + suffix, [=] { return normalizing(slides); });
        addBenchmark("smil/write" + suffix, [=] { return writing(slides); });
        addBenchmark("reference/tree" + suffix, [=] { return buildingTree(slides); });
        addBenchmark("reference/stream" + suffix, [=] { return streaming(slides); });
        addBenchmark("reference/expat" + suffix, [=] { return parsingWithExpat(slides); });
    }
}
