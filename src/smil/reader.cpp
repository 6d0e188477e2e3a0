/*
 * Reader: a tolerant walk over the document's tree. It knows a fixed set of elements, passes over
 * the others, and refuses what breaks the structure that the handset can show.
 */
#include "smil/smil_parser.h"

#include "multipart/multipart.h"
#include "platform/no_memory.h"
#include "presentation/presentation.h"
#include "smil/document_guard.h"
#include "smil/element_attributes.h"
#include "smil/smil_result.h"

#include <QDomDocument>
#include <QFile>
#include <QStringDecoder>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using TimeContainerReader = int (*)(QDomElement *, MMS_COMP_SMILMultipart *, MMS_COMP_SMILData *,
                                    int &);

constexpr int DeepestTimeContainer = 10;

// What earlier versions of the writer put into a document once too often: the lines of the
// handset's own two regions.
constexpr std::array ownRegionLines{
    QLatin1String("<region id=\"text\"  height=\"160\"  width=\"120\" left=\"0\" top=\"0\" "
                  "fit=\"hidden\" />"),
    QLatin1String("<region id=\"image\"  height=\"160\"  width=\"120\" left=\"0\" top=\"160\" "
                  "fit=\"hidden\" />")};

struct MediaWord
{
    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type;
    QLatin1String word;
};

constexpr std::array mediaWords{MediaWord{SMIL_MEDIA_AUDIO, QLatin1String("audio")},
                                MediaWord{SMIL_MEDIA_VIDEO, QLatin1String("video")},
                                MediaWord{SMIL_MEDIA_TEXT, QLatin1String("text")},
                                MediaWord{SMIL_MEDIA_IMAGE, QLatin1String("image")}};

constexpr std::array bodyTags{"par", "seq", "text", "img", "audio", "video", "ref"};

void removeRepeatedLine(QString *text, QLatin1String line)
{
    const qsizetype first = text->indexOf(line);
    if (first >= 0 && text->indexOf(line, first + 1) >= 0)
        text->remove(first, line.size());
}

QString repairedText(const QByteArray &octets)
{
    QByteArrayView view(octets);
    if (view.endsWith('\0'))
        view.chop(1);
    QString text = QString::fromUtf8(view);
    for (QLatin1String line : ownRegionLines)
        removeRepeatedLine(&text, line);
    if (const qsizetype start = text.indexOf(QLatin1String("<smil")); start > 0)
        text.remove(0, start);
    return text;
}

// The text of a file as far as the guard needs it: what is no UTF-16 or UTF-32 has its markup in
// the octets of ASCII.
QString markupOf(const QByteArray &octets)
{
    const auto encoding = QStringConverter::encodingForData(octets, u'<');
    QStringDecoder decode(encoding.value_or(QStringConverter::Utf8));
    return decode(octets);
}

// The first child of @p parent, or sibling behind @p node, that is an element.
QDomElement firstElement(QDomNode node)
{
    while (!node.isNull() && !node.isElement())
        node = MMS_COMP_SMILParser::getNextSibling(node);
    return node.toElement();
}

QDomElement firstChild(const QDomElement &parent)
{
    return firstElement(parent.firstChild());
}

QDomElement nextElement(const QDomElement &element)
{
    return firstElement(MMS_COMP_SMILParser::getNextSibling(element));
}

// Reads the leading elements with the tag @p tag; stops behind them, or at a failure.
template <typename Reader>
int readWhile(QDomElement *element, const char *tag, Reader read)
{
    for (; element->tagName() == QLatin1String(tag); *element = nextElement(*element)) {
        if (const int result = read(element))
            return result;
    }
    return SmilResult::Ok;
}

bool isBodyTag(const QString &tag)
{
    return std::any_of(bodyTags.begin(), bodyTags.end(),
                       [&tag](const char *row) { return tag == QLatin1String(row); });
}

TimeContainerReader timeContainerReader(const QString &tag)
{
    if (tag == QLatin1String("par"))
        return MMS_COMP_SMILParser::parseSmilPar;
    if (tag == QLatin1String("seq"))
        return MMS_COMP_SMILParser::parseSmilSeq;
    return nullptr;
}

// Positive when the presentation declined the element, which is then passed over.
int readMedia(QDomElement *element, MMS_COMP_SMILMultipart *multipart, MMS_COMP_SMILData *data,
              bool newSlide, int dur)
{
    MMS_COMP_SMILMediaObject *object = nullptr;
    const int result = data->appendElementObject(element, multipart, newSlide, dur, &object);
    return result == SmilResult::Ok ? MMS_COMP_SMILParser::parseMediaObjectParam(element, object)
                                    : result;
}

int readNested(TimeContainerReader read, QDomElement *element, MMS_COMP_SMILMultipart *multipart,
               MMS_COMP_SMILData *data, int &depth)
{
    if (depth >= DeepestTimeContainer)
        return SmilResult::NestedTooDeep;
    ++depth;
    const int result = read(element, multipart, data, depth);
    --depth;
    return result;
}

enum class NewSlide { Always, AfterNested };

// The children of body, par and seq. In a par media share a slide; one that follows a nested par or
// seq begins another.
int readTimedChildren(QDomElement *parent, MMS_COMP_SMILMultipart *multipart,
                      MMS_COMP_SMILData *data, NewSlide newSlide, int dur, int &depth)
{
    bool beginsSlide = newSlide == NewSlide::Always;
    for (QDomElement child = firstChild(*parent); !child.isNull(); child = nextElement(child)) {
        const QString tag = child.tagName();
        if (!isBodyTag(tag))
            continue;
        if (const TimeContainerReader read = timeContainerReader(tag)) {
            if (const int result = readNested(read, &child, multipart, data, depth))
                return result;
            beginsSlide = true;
            continue;
        }
        const int result = readMedia(&child, multipart, data, beginsSlide, dur);
        if (result < SmilResult::Ok)
            return result;
        if (result == SmilResult::Ok)
            beginsSlide = newSlide == NewSlide::Always;
    }
    return SmilResult::Ok;
}

int durationOf(const QDomElement &element)
{
    return MMS_COMP_SMILParser::parseDur(ElementAttributes(element).take(u"dur"_s));
}

} // namespace

int MMS_COMP_SMILParser::parse(const QArray<char> &smilText, MMS_COMP_SMILMultipart *multipart,
                               MMS_COMP_SMILData *data)
{
    return unlessOutOfMemory(SmilResult::OutOfMemory, [&]() -> int {
        m_lastWarning = 0;
        if (!data || smilText.isEmpty())
            return SmilResult::NullArgument;
        const QString text = repairedText(smilText);
        QDomDocument document(QStringLiteral("smil"));
        if (!DocumentGuard::isWithinLimits(text) || !document.setContent(text))
            return SmilResult::NotWellFormed;
        return readDocument(&document, multipart, data);
    });
}

int MMS_COMP_SMILParser::parse(const QString &fileName, MMS_COMP_SMILMultipart *multipart,
                               MMS_COMP_SMILData *data)
{
    return unlessOutOfMemory(SmilResult::OutOfMemory, [&]() -> int {
        m_lastWarning = 0;
        if (!data)
            return SmilResult::NullArgument;
        QFile file(fileName);
        if (!file.open(QIODevice::ReadOnly))
            return SmilResult::FileUnreadable;
        const QByteArray octets = file.readAll();
        QDomDocument document(QStringLiteral("smil"));
        if (!DocumentGuard::isWithinLimits(markupOf(octets)) || !document.setContent(octets))
            return SmilResult::NotWellFormed;
        return readDocument(&document, multipart, data);
    });
}

int MMS_COMP_SMILParser::readDocument(QDomDocument *document, MMS_COMP_SMILMultipart *multipart,
                                      MMS_COMP_SMILData *data)
{
    QDomElement root = document->documentElement();
    if (const int result = parseSmil(&root, multipart, data))
        return result;
    updateToCorvaneRegion(data);
    data->updateParamFromSlide();
    return SmilResult::Ok;
}

int MMS_COMP_SMILParser::parseSmil(QDomElement *root, MMS_COMP_SMILMultipart *multipart,
                                   MMS_COMP_SMILData *data)
{
    if (!root || !root->isElement() || !data)
        return SmilResult::NullArgument;
    if (root->tagName() != QLatin1String("smil"))
        return SmilResult::NotSmil;
    bool headSeen = false;
    bool bodySeen = false;
    for (QDomElement child = firstChild(*root); !child.isNull(); child = nextElement(child)) {
        int result = SmilResult::Ok;
        if (child.tagName() == QLatin1String("head")) {
            if (bodySeen)
                return SmilResult::HeadAfterBody;
            if (headSeen)
                return SmilResult::SecondHead;
            result = parseSmilHead(&child, data);
            headSeen = true;
        } else if (child.tagName() == QLatin1String("body")) {
            if (bodySeen)
                return SmilResult::SecondBody;
            result = parseSmilBody(&child, multipart, data);
            bodySeen = true;
        }
        if (result != SmilResult::Ok)
            return result;
    }
    return SmilResult::Ok;
}

// head ::= meta* [layout | other] meta*
// Whatever comes behind is not read, so a layout behind a title is none.
int MMS_COMP_SMILParser::parseSmilHead(QDomElement *head, MMS_COMP_SMILData *data)
{
    if (!head || !data)
        return SmilResult::NullArgument;
    const auto readMeta = [&](QDomElement *meta) { return parseSmilMeta(meta, data); };
    QDomElement child = firstChild(*head);
    if (const int result = readWhile(&child, "meta", readMeta))
        return result;
    if (child.tagName() == QLatin1String("layout")) {
        if (const int result = parseSmilLayout(&child, data))
            return result;
    }
    child = nextElement(child);
    return readWhile(&child, "meta", readMeta);
}

int MMS_COMP_SMILParser::parseSmilMeta(QDomElement *meta, MMS_COMP_SMILData *data)
{
    if (!meta || !data)
        return SmilResult::NullArgument;
    if (!data->appendMeta(meta->attribute(u"name"_s), meta->attribute(u"content"_s)))
        m_lastWarning = SmilResult::MetaRefused;
    return SmilResult::Ok;
}

// layout ::= region* [root-layout | other] region*
int MMS_COMP_SMILParser::parseSmilLayout(QDomElement *layout, MMS_COMP_SMILData *data)
{
    if (!layout || !data)
        return SmilResult::NullArgument;
    const MMS_COMP_SMILLayout::Filling filling(data->getLayout());
    const auto readRegion = [&](QDomElement *region) { return parseSmilRegion(region, data); };
    QDomElement child = firstChild(*layout);
    if (const int result = readWhile(&child, "region", readRegion))
        return result;
    if (child.tagName() == QLatin1String("root-layout")) {
        if (const int result = parseSmilRootLayout(&child, data))
            return result;
    }
    child = nextElement(child);
    return readWhile(&child, "region", readRegion);
}

int MMS_COMP_SMILParser::parseSmilRootLayout(QDomElement *rootLayout, MMS_COMP_SMILData *data)
{
    return rootLayout && data ? data->setRootLayout(rootLayout) : SmilResult::NullArgument;
}

int MMS_COMP_SMILParser::parseSmilRegion(QDomElement *region, MMS_COMP_SMILData *data)
{
    if (!region || !data)
        return SmilResult::NullArgument;
    const auto text = [region](const QString &name) { return region->attribute(name); };
    return data->appendRegion(text(u"left"_s), text(u"top"_s), text(u"width"_s), text(u"height"_s),
                              text(u"fit"_s), text(u"id"_s))
        ? SmilResult::Ok
        : SmilResult::RegionRefused;
}

int MMS_COMP_SMILParser::parseSmilBody(QDomElement *body, MMS_COMP_SMILMultipart *multipart,
                                       MMS_COMP_SMILData *data)
{
    if (!body || !data)
        return SmilResult::NullArgument;
    const MMS_COMP_SMILMultipart::Indexing indexing(multipart);
    int depth = 0;
    return readTimedChildren(body, multipart, data, NewSlide::Always,
                             MMS_COMP_SMILTimingContainer::DefaultDuration, depth);
}

int MMS_COMP_SMILParser::parseSmilPar(QDomElement *par, MMS_COMP_SMILMultipart *multipart,
                                      MMS_COMP_SMILData *data, int &depth)
{
    if (!par || !data)
        return SmilResult::NullArgument;
    const int dur = durationOf(*par);
    if (!data->appendSlide(unsigned(dur)))
        return SmilResult::OutOfMemory;
    return readTimedChildren(par, multipart, data, NewSlide::AfterNested, dur, depth);
}

int MMS_COMP_SMILParser::parseSmilSeq(QDomElement *seq, MMS_COMP_SMILMultipart *multipart,
                                      MMS_COMP_SMILData *data, int &depth)
{
    if (!seq || !data)
        return SmilResult::NullArgument;
    return readTimedChildren(seq, multipart, data, NewSlide::Always, durationOf(*seq), depth);
}

int MMS_COMP_SMILParser::parseMediaObjectParam(QDomElement *element,
                                               MMS_COMP_SMILMediaObject *object)
{
    if (!element || !object)
        return SmilResult::NullArgument;
    for (QDomElement child = firstChild(*element); !child.isNull(); child = nextElement(child)) {
        if (child.tagName() != QLatin1String("param"))
            continue;
        ElementAttributes attributes(child);
        const QString name = attributes.take(u"name"_s);
        const QString value = attributes.take(u"value"_s);
        const QString valueType = attributes.take(u"valuetype"_s);
        const int result =
            object->appendParamElem(name, value, valueType, attributes.take(u"type"_s));
        if (result != SmilResult::Ok)
            return result;
    }
    return SmilResult::Ok;
}

bool MMS_COMP_SMILParser::isValidBodyElement(const QDomElement *element)
{
    return element && isBodyTag(element->tagName());
}

QDomNode MMS_COMP_SMILParser::getNextSibling(const QDomNode &node)
{
    return node.nextSibling();
}

MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE MMS_COMP_SMILParser::getTypeEnum(const QString &word)
{
    const auto row = std::find_if(mediaWords.begin(), mediaWords.end(),
                                  [&](const MediaWord &media) { return word == media.word; });
    return row != mediaWords.end() ? row->type : SMIL_MEDIA_UNKNOWN;
}

QString MMS_COMP_SMILParser::getMimeTypeStr(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type)
{
    const auto row = std::find_if(mediaWords.begin(), mediaWords.end(),
                                  [type](const MediaWord &media) { return type == media.type; });
    return row != mediaWords.end() ? row->word : QLatin1String("");
}
