/*
 * Reader: a tolerant walk over the elements of a document. It knows a fixed set of elements, skips
 * all others, and rejects structures that the handset cannot show. The whole document is parsed
 * before the presentation changes.
 */
#include "smil/smil_parser.h"

#include "base/no_memory.h"
#include "base/tables.h"
#include "document/encoding.h"
#include "document/parser.h"
#include "multipart/multipart.h"
#include "multipart/part_index.h"
#include "presentation/media_kinds.h"
#include "presentation/presentation.h"
#include "presentation/region_index.h"
#include "presentation/smil_result.h"
#include "presentation/smil_values.h"

#include <QDomElement>
#include <QFile>

#include <array>
#include <tuple>

using namespace Qt::StringLiterals;

/// Reads the elements of a document into a presentation. MMS_COMP_SMILParser publishes its
/// operations.
class SmilReader
{
public:
    SmilReader(MMS_COMP_SMILMultipart *multipart, MMS_COMP_SMILData *data)
        : m_multipart(multipart), m_data(data)
    {
    }

    [[nodiscard]] int readSmil(const SmilElement &root);
    [[nodiscard]] int readHead(const SmilElement &head);
    [[nodiscard]] int readMeta(const SmilElement &meta);
    [[nodiscard]] int readLayout(const SmilElement &layout);
    [[nodiscard]] int readRootLayout(const SmilElement &rootLayout);
    [[nodiscard]] int readRegion(const SmilElement &region);
    [[nodiscard]] int readBody(const SmilElement &body);
    [[nodiscard]] int readPar(const SmilElement &par, int &depth);
    [[nodiscard]] int readSeq(const SmilElement &seq, int &depth);
    [[nodiscard]] static int readParams(const SmilElement &element,
                                        MMS_COMP_SMILMediaObject *object);
    static bool isBodyTag(const QString &tag);

    /// SmilResult::MetaRefused when a meta element was not kept, else 0.
    int warning() const { return m_warning; }

private:
    using ElementReader = int (SmilReader::*)(const SmilElement &);
    using ContainerReader = int (SmilReader::*)(const SmilElement &, int &);
    enum class NewSlide { Always, AfterNested };

    /// A tag and the reader of elements with this tag.
    struct Child
    {
        QStringView tag;
        ElementReader read;
    };

    int readLeading(const Child &row, SmilElement *element);
    [[nodiscard]] int readAround(const SmilElement &parent, const Child &row, const Child &middle);
    static ContainerReader containerReader(const QString &tag);
    [[nodiscard]] int readNested(ContainerReader read, const SmilElement &element, int &depth);
    [[nodiscard]] int readMedia(const SmilElement &element, bool newSlide, int dur);
    [[nodiscard]] int readTimedChildren(const SmilElement &parent, NewSlide newSlide, int dur,
                                        int &depth);

    MMS_COMP_SMILMultipart *m_multipart;
    MMS_COMP_SMILData *m_data;
    int m_warning = 0;
};

namespace {

constexpr int DeepestTimeContainer = 10;

// Earlier versions of the writer wrote the lines of the handset's own two regions twice.
constexpr std::array<QByteArrayView, 2> OwnRegionLines{
    "<region id=\"text\"  height=\"160\"  width=\"120\" left=\"0\" top=\"0\" fit=\"hidden\" />",
    "<region id=\"image\"  height=\"160\"  width=\"120\" left=\"0\" top=\"160\" fit=\"hidden\" />"};

void removeRepeatedLine(QByteArray *text, QByteArrayView line)
{
    const qsizetype first = text->indexOf(line);
    if (first >= 0 && text->indexOf(line, first + 1) >= 0)
        text->remove(first, line.size());
}

// The text in UTF-8. Replaces invalid octets, as Qt does.
QByteArray repairedText(const QByteArray &octets)
{
    QByteArrayView view(octets);
    if (view.endsWith('\0'))
        view.chop(1);
    QByteArray text = !view.isValidUtf8() ? QString::fromUtf8(view).toUtf8()
        : view.size() == octets.size()    ? octets
                                          : octets.chopped(1);
    for (const QByteArrayView line : OwnRegionLines)
        removeRepeatedLine(&text, line);
    if (const qsizetype start = text.indexOf("<smil"); start > 0)
        text.remove(0, start);
    return text;
}

bool isMediaTag(const QString &tag)
{
    return rowOf(qvlMediaKinds, tag, &QvlMediaKind::tag);
}

int durationOf(const SmilElement &element)
{
    return SmilValues::readDuration(element.attribute(u"dur"));
}

// The result of @p read for a copy of @p element, which is part of a QDomElement tree.
template <typename Read>
int readCopy(const QDomElement *element, const MMS_COMP_SMILData *data, Read read)
{
    return unlessOutOfMemory(SmilResult::OutOfMemory, [&]() -> int {
        if (!element || !data)
            return SmilResult::NullArgument;
        const SmilDocument document(*element);
        return read(document.root());
    });
}

} // namespace

int MMS_COMP_SMILParser::parse(const QArray<char> &smilText, MMS_COMP_SMILMultipart *multipart,
                               MMS_COMP_SMILData *data)
{
    return unlessOutOfMemory(SmilResult::OutOfMemory, [&]() -> int {
        m_lastWarning = 0;
        if (!data || smilText.isEmpty())
            return SmilResult::NullArgument;
        return readDocument(repairedText(smilText), multipart, data);
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
        const auto text = DocumentEncoding::toUtf8(file.readAll());
        return text ? readDocument(*text, multipart, data) : SmilResult::NotWellFormed;
    });
}

int MMS_COMP_SMILParser::readDocument(const QByteArray &utf8, MMS_COMP_SMILMultipart *multipart,
                                      MMS_COMP_SMILData *data)
{
    const auto document = DocumentParser::parse(utf8);
    if (!document)
        return SmilResult::NotWellFormed;
    SmilReader reader(multipart, data);
    const int result = reader.readSmil(document->root());
    m_lastWarning = reader.warning();
    if (result != SmilResult::Ok)
        return result;
    std::ignore = updateToCorvaneRegion(data); // a list with a null region stays as it is
    data->updateParamFromSlide();
    return SmilResult::Ok;
}

int MMS_COMP_SMILParser::readFragment(const QDomElement *element, MMS_COMP_SMILMultipart *multipart,
                                      MMS_COMP_SMILData *data,
                                      int (SmilReader::*read)(const SmilElement &))
{
    SmilReader reader(multipart, data);
    const int result =
        readCopy(element, data, [&](const SmilElement &copy) { return (reader.*read)(copy); });
    if (reader.warning())
        m_lastWarning = reader.warning();
    return result;
}

int MMS_COMP_SMILParser::parseSmil(QDomElement *root, MMS_COMP_SMILMultipart *multipart,
                                   MMS_COMP_SMILData *data)
{
    if (!root || !root->isElement())
        return SmilResult::NullArgument;
    return readFragment(root, multipart, data, &SmilReader::readSmil);
}

int SmilReader::readSmil(const SmilElement &root)
{
    if (root.tag() != u"smil")
        return SmilResult::NotSmil;
    bool headSeen = false;
    bool bodySeen = false;
    for (SmilElement child = root.firstChild(); !child.isNull(); child = child.nextSibling()) {
        int result = SmilResult::Ok;
        if (child.tag() == u"head") {
            if (bodySeen)
                return SmilResult::HeadAfterBody;
            if (headSeen)
                return SmilResult::SecondHead;
            result = readHead(child);
            headSeen = true;
        } else if (child.tag() == u"body") {
            if (bodySeen)
                return SmilResult::SecondBody;
            result = readBody(child);
            bodySeen = true;
        }
        if (result != SmilResult::Ok)
            return result;
    }
    return SmilResult::Ok;
}

// Reads @p element and its following siblings while they have the tag of @p row.
int SmilReader::readLeading(const Child &row, SmilElement *element)
{
    for (; element->tag() == row.tag; *element = element->nextSibling()) {
        if (const int result = (this->*row.read)(*element))
            return result;
    }
    return SmilResult::Ok;
}

// parent ::= row* [middle | other] row*
// Elements after these are not read: a middle after another element is ignored.
int SmilReader::readAround(const SmilElement &parent, const Child &row, const Child &middle)
{
    SmilElement child = parent.firstChild();
    if (const int result = readLeading(row, &child))
        return result;
    if (child.tag() == middle.tag) {
        if (const int result = (this->*middle.read)(child))
            return result;
    }
    child = child.nextSibling();
    return readLeading(row, &child);
}

int MMS_COMP_SMILParser::parseSmilHead(QDomElement *head, MMS_COMP_SMILData *data)
{
    return readFragment(head, nullptr, data, &SmilReader::readHead);
}

// head ::= meta* [layout | other] meta*
int SmilReader::readHead(const SmilElement &head)
{
    return readAround(head, {u"meta", &SmilReader::readMeta}, {u"layout", &SmilReader::readLayout});
}

int MMS_COMP_SMILParser::parseSmilMeta(QDomElement *meta, MMS_COMP_SMILData *data)
{
    return readFragment(meta, nullptr, data, &SmilReader::readMeta);
}

int SmilReader::readMeta(const SmilElement &meta)
{
    if (!m_data->appendMeta(meta.attribute(u"name"), meta.attribute(u"content")))
        m_warning = SmilResult::MetaRefused;
    return SmilResult::Ok;
}

int MMS_COMP_SMILParser::parseSmilLayout(QDomElement *layout, MMS_COMP_SMILData *data)
{
    return readCopy(layout, data, [data](const SmilElement &copy) {
        return SmilReader(nullptr, data).readLayout(copy);
    });
}

// layout ::= region* [root-layout | other] region*
int SmilReader::readLayout(const SmilElement &layout)
{
    const RegionIndexScope index(m_data->getLayout());
    return readAround(layout, {u"region", &SmilReader::readRegion},
                      {u"root-layout", &SmilReader::readRootLayout});
}

int MMS_COMP_SMILParser::parseSmilRootLayout(QDomElement *rootLayout, MMS_COMP_SMILData *data)
{
    return rootLayout && data ? data->setRootLayout(rootLayout) : SmilResult::NullArgument;
}

int SmilReader::readRootLayout(const SmilElement &rootLayout)
{
    return m_data->getLayout()->readRootLayout(rootLayout);
}

int MMS_COMP_SMILParser::parseSmilRegion(QDomElement *region, MMS_COMP_SMILData *data)
{
    return readCopy(region, data, [data](const SmilElement &copy) {
        return SmilReader(nullptr, data).readRegion(copy);
    });
}

int SmilReader::readRegion(const SmilElement &region)
{
    return m_data->appendRegion(region.attribute(u"left"), region.attribute(u"top"),
                                region.attribute(u"width"), region.attribute(u"height"),
                                region.attribute(u"fit"), region.attribute(u"id"))
        ? SmilResult::Ok
        : SmilResult::RegionRefused;
}

int MMS_COMP_SMILParser::parseSmilBody(QDomElement *body, MMS_COMP_SMILMultipart *multipart,
                                       MMS_COMP_SMILData *data)
{
    return readCopy(body, data, [=](const SmilElement &copy) {
        return SmilReader(multipart, data).readBody(copy);
    });
}

int SmilReader::readBody(const SmilElement &body)
{
    const PartIndexScope index(m_multipart);
    int depth = 0;
    return readTimedChildren(body, NewSlide::Always, MMS_COMP_SMILTimingContainer::DefaultDuration,
                             depth);
}

int MMS_COMP_SMILParser::parseSmilPar(QDomElement *par, MMS_COMP_SMILMultipart *multipart,
                                      MMS_COMP_SMILData *data, int &depth)
{
    return readCopy(par, data, [&](const SmilElement &copy) {
        return SmilReader(multipart, data).readPar(copy, depth);
    });
}

int SmilReader::readPar(const SmilElement &par, int &depth)
{
    const int dur = durationOf(par);
    if (!m_data->appendSlide(unsigned(dur)))
        return SmilResult::OutOfMemory;
    return readTimedChildren(par, NewSlide::AfterNested, dur, depth);
}

int MMS_COMP_SMILParser::parseSmilSeq(QDomElement *seq, MMS_COMP_SMILMultipart *multipart,
                                      MMS_COMP_SMILData *data, int &depth)
{
    return readCopy(seq, data, [&](const SmilElement &copy) {
        return SmilReader(multipart, data).readSeq(copy, depth);
    });
}

int SmilReader::readSeq(const SmilElement &seq, int &depth)
{
    return readTimedChildren(seq, NewSlide::Always, durationOf(seq), depth);
}

bool SmilReader::isBodyTag(const QString &tag)
{
    return containerReader(tag) || isMediaTag(tag);
}

SmilReader::ContainerReader SmilReader::containerReader(const QString &tag)
{
    if (tag == u"par")
        return &SmilReader::readPar;
    if (tag == u"seq")
        return &SmilReader::readSeq;
    return nullptr;
}

int SmilReader::readNested(ContainerReader read, const SmilElement &element, int &depth)
{
    if (depth >= DeepestTimeContainer)
        return SmilResult::NestedTooDeep;
    ++depth;
    const int result = (this->*read)(element, depth);
    --depth;
    return result;
}

// Reads the children of body, par and seq. The media of a par share a slide; media after a nested
// par or seq begin a new one.
int SmilReader::readTimedChildren(const SmilElement &parent, NewSlide newSlide, int dur, int &depth)
{
    bool beginsSlide = newSlide == NewSlide::Always;
    for (SmilElement child = parent.firstChild(); !child.isNull(); child = child.nextSibling()) {
        const QString tag = child.tag();
        if (const ContainerReader read = containerReader(tag)) {
            if (const int result = readNested(read, child, depth))
                return result;
            beginsSlide = true;
            continue;
        }
        if (!isMediaTag(tag))
            continue;
        const int result = readMedia(child, beginsSlide, dur);
        if (result < SmilResult::Ok)
            return result;
        if (result == SmilResult::Ok)
            beginsSlide = newSlide == NewSlide::Always;
    }
    return SmilResult::Ok;
}

// Returns a positive code when the presentation declined the element; the caller skips it.
int SmilReader::readMedia(const SmilElement &element, bool newSlide, int dur)
{
    MMS_COMP_SMILMediaObject *object = nullptr;
    const int result = m_data->appendElement(element, m_multipart, newSlide, dur, &object);
    return result == SmilResult::Ok ? readParams(element, object) : result;
}

int MMS_COMP_SMILParser::parseMediaObjectParam(QDomElement *element,
                                               MMS_COMP_SMILMediaObject *object)
{
    return unlessOutOfMemory(SmilResult::OutOfMemory, [&]() -> int {
        if (!element || !object)
            return SmilResult::NullArgument;
        const SmilDocument document(*element);
        return SmilReader::readParams(document.root(), object);
    });
}

int SmilReader::readParams(const SmilElement &element, MMS_COMP_SMILMediaObject *object)
{
    for (SmilElement child = element.firstChild(); !child.isNull(); child = child.nextSibling()) {
        if (child.tag() != u"param")
            continue;
        const int result =
            object->appendParamElem(child.attribute(u"name"), child.attribute(u"value"),
                                    child.attribute(u"valuetype"), child.attribute(u"type"));
        if (result != SmilResult::Ok)
            return result;
    }
    return SmilResult::Ok;
}

void MMS_COMP_SMILParser::parseTime(const QString &text, MMS_COMP_SMIL_TIME *time)
{
    SmilValues::readTime(text, time);
}

int MMS_COMP_SMILParser::parseDur(const QString &text)
{
    return SmilValues::readDuration(text);
}

void MMS_COMP_SMILParser::parseColor(const QString &text, MMS_COMP_COLOR &color)
{
    SmilValues::readColor(text, color);
}

bool MMS_COMP_SMILParser::isValidBodyElement(const QDomElement *element)
{
    return element && SmilReader::isBodyTag(element->tagName());
}

QDomNode MMS_COMP_SMILParser::getNextSibling(const QDomNode &node)
{
    return node.nextSibling();
}

MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE MMS_COMP_SMILParser::getTypeEnum(const QString &word)
{
    const QvlMediaKind *kind =
        word.isEmpty() ? nullptr : rowOf(qvlMediaKinds, word, &QvlMediaKind::mainType);
    return kind ? kind->type : SMIL_MEDIA_UNKNOWN;
}

QString MMS_COMP_SMILParser::getMimeTypeStr(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type)
{
    const QvlMediaKind *kind = qvlMediaKind(type);
    return kind ? kind->mainType : ""_L1;
}
