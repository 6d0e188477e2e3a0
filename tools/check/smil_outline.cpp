#include "check/smil_outline.h"

#include "input/smil_text.h"

#include <qvlsmilparser.h>

#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

namespace Check {

namespace {

enum class Content : unsigned char {
    Document,
    Smil,
    Head,
    Layout,
    Slides, // of body, par and seq
    Params,
    Nothing,
};

/// An element that is read in a certain content, and its own content.
struct Known
{
    Content in;
    std::string_view tag;
    Content content;
    bool isSingle; // in its content; everything of the same kind after it is skipped
};

constexpr std::array known{
    Known{Content::Document, "smil", Content::Smil, true},
    Known{Content::Smil, "head", Content::Head, true},
    Known{Content::Smil, "body", Content::Slides, true},
    Known{Content::Head, "meta", Content::Nothing, false},
    Known{Content::Head, "layout", Content::Layout, true},
    Known{Content::Layout, "region", Content::Nothing, false},
    Known{Content::Layout, "root-layout", Content::Nothing, true},
    Known{Content::Slides, "par", Content::Slides, false},
    Known{Content::Slides, "seq", Content::Slides, false},
    Known{Content::Slides, "text", Content::Params, false},
    Known{Content::Slides, "img", Content::Params, false},
    Known{Content::Slides, "video", Content::Params, false},
    Known{Content::Slides, "audio", Content::Params, false},
    Known{Content::Slides, "ref", Content::Params, false},
    Known{Content::Params, "param", Content::Nothing, false},
};

/// The content of an element that is open.
class Level
{
public:
    explicit Level(Content content) : m_content(content) { }

    /// What the next element @p tag is; null when it is skipped.
    const Known *next(const QString &tag)
    {
        const auto row = std::ranges::find_if(known, [&](const Known &one) {
            return one.in == m_content
                && tag == QLatin1StringView(one.tag.data(), qsizetype(one.tag.size()));
        });
        const Known *found = row != known.end() ? &*row : nullptr;
        return isRead(found) ? found : nullptr;
    }

private:
    // Head and layout have one place for an element that may be another, and end at the second one.
    bool isRead(const Known *found)
    {
        switch (m_content) {
        case Content::Head:
        case Content::Layout:
            if (!found || found->isSingle)
                ++m_singles;
            return found && m_singles <= 1;
        case Content::Smil:
            return found && isInOrder(*found);
        default:
            return found != nullptr;
        }
    }

    // A head counts only before the body, and each of them once.
    bool isInOrder(const Known &found)
    {
        const int place = found.content == Content::Head ? 1 : 2;
        const bool isLater = place > m_singles;
        m_singles = std::max(m_singles, place);
        return isLater;
    }

    Content m_content;
    int m_singles = 0;
};

constexpr std::array usedAttributes{
    std::pair{"dur"_L1, SmilAttribute::Dur}, std::pair{"end"_L1, SmilAttribute::End},
    std::pair{"fit"_L1, SmilAttribute::Fit}, std::pair{"height"_L1, SmilAttribute::Height},
    std::pair{"id"_L1, SmilAttribute::Id},   std::pair{"region"_L1, SmilAttribute::Region},
    std::pair{"src"_L1, SmilAttribute::Src}, std::pair{"width"_L1, SmilAttribute::Width},
};

std::vector<std::pair<SmilAttribute, QString>> usedOf(const QXmlStreamAttributes &attributes)
{
    std::vector<std::pair<SmilAttribute, QString>> used;
    for (const auto &[name, attribute] : usedAttributes) {
        if (!attributes.hasAttribute(name))
            continue;
        const QStringView value = attributes.value(name);
        const bool isExact = attribute == SmilAttribute::Id; // blanks count in ids
        used.emplace_back(attribute, (isExact ? value : value.trimmed()).toString());
    }
    return used;
}

/// Finds lines and columns of ascending places, in one pass.
class PlaceCounter
{
public:
    explicit PlaceCounter(const SmilText &text)
        : m_text(text.text()), m_place{text.lineOfStart(), text.columnOfStart()}
    {
    }

    SmilText::Place placeOf(qsizetype position)
    {
        for (; m_position < position; ++m_position)
            m_place.pass(m_text[m_position]);
        return m_place;
    }

private:
    const QString &m_text;
    qsizetype m_position = 0;
    SmilText::Place m_place;
};

} // namespace

std::vector<SmilElement> smilOutline(const QByteArray &smil)
{
    std::vector<SmilElement> elements;
    const SmilText text(smil);
    if (text.hasDeclarations())
        return elements;
    QXmlStreamReader reader(text.text());
    reader.setNamespaceProcessing(false);
    PlaceCounter places(text);
    std::vector<Level> levels{Level(Content::Document)};
    while (!reader.atEnd() && levels.size() <= QvlDocumentLimits::DeepestNesting) {
        reader.readNext();
        if (reader.isEndElement())
            levels.pop_back();
        if (!reader.isStartElement())
            continue;
        const QString tag = reader.qualifiedName().toString();
        const Known *row = levels.back().next(tag);
        // No attribute has this character.
        const qsizetype begin = text.text().lastIndexOf(u'<', reader.characterOffset() - 1);
        const SmilText::Place place = places.placeOf(begin);
        elements.push_back({tag, usedOf(reader.attributes()), place.line, place.column,
                            int(levels.size()) - 1, !row});
        if (row)
            levels.emplace_back(row->content);
        else
            reader.skipCurrentElement();
    }
    return elements;
}

} // namespace Check
