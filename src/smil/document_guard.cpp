#include "smil/document_guard.h"

#include "platform/text_hash.h"

#include <algorithm>
#include <optional>

namespace {

constexpr qint64 GrowthFactor = 16;
constexpr qint64 GrowthAllowance = 65536;
constexpr int DeepestEntityChain = 64;

// What a piece of text comes to when it is expanded.
struct Extent
{
    qint64 length = 0;
    int depth = 0; // levels open at the end, from 0 at its start
    int deepest = 0;
};

struct Entity
{
    QStringView value;
    enum { NotMeasured, BeingMeasured, Measured } state = NotMeasured;
    Extent extent;
};

bool isNameCharacter(QChar character)
{
    return !character.isSpace() && !QStringView(u"/><&;\"'=[]").contains(character);
}

// Measures a document; every operation that returns false has met something beyond the limits.
class Scanner
{
public:
    explicit Scanner(QStringView document)
        : m_longest(document.size() * GrowthFactor + GrowthAllowance)
    {
    }

    bool measure(QStringView text, Extent *extent);

private:
    bool measureMarkup(QStringView text, qsizetype *at, Extent *extent);
    bool measureStartTag(QStringView text, qsizetype *at, Extent *extent);
    bool measureReference(QStringView text, qsizetype *at, Extent *extent);
    bool readDoctype(QStringView text, qsizetype *at);
    // Declarations that hide what they come to, behind parameter entities or character references,
    // are refused: no handset writes them.
    bool readDeclaration(QStringView declaration);
    void declareEntity(QStringView declaration);
    void declareAttributes(QStringView declaration);
    bool isWithin(const Extent &extent) const;

    qint64 m_longest;
    int m_entityChain = 0;
    QvlTextMap<QStringView, Entity> m_entities;
    QvlTextMap<QStringView, qint64> m_defaultAttributes; // characters by element name
};

// The position behind the next @p end, or the end of the text.
qsizetype behind(QStringView text, qsizetype from, QStringView end)
{
    const qsizetype found = text.indexOf(end, from);
    return found < 0 ? text.size() : found + end.size();
}

qsizetype behind(QStringView text, qsizetype from, QChar end)
{
    const qsizetype found = text.indexOf(end, from);
    return found < 0 ? text.size() : found + 1;
}

QStringView nameAt(QStringView text, qsizetype at)
{
    qsizetype end = at;
    while (end < text.size() && isNameCharacter(text[end]))
        ++end;
    return text.sliced(at, end - at);
}

// The position of the ">" that ends the tag or declaration at @p from: not one inside quotes.
qsizetype endOfTag(QStringView text, qsizetype from)
{
    for (qsizetype at = from; at < text.size(); ++at) {
        const QChar character = text[at];
        if (character == u'>')
            return at;
        if (character == u'"' || character == u'\'')
            at = behind(text, at + 1, character) - 1;
    }
    return text.size();
}

bool Scanner::isWithin(const Extent &extent) const
{
    return extent.length <= m_longest && extent.deepest <= DocumentGuard::DeepestNesting;
}

bool Scanner::measure(QStringView text, Extent *extent)
{
    for (qsizetype at = 0; at < text.size();) {
        const QChar character = text[at];
        bool within = true;
        if (character == u'<') {
            within = measureMarkup(text, &at, extent);
        } else if (character == u'&') {
            ++extent->length;
            within = measureReference(text, &at, extent);
        } else {
            ++at;
            ++extent->length;
        }
        if (!within || !isWithin(*extent))
            return false;
    }
    return true;
}

bool Scanner::measureMarkup(QStringView text, qsizetype *at, Extent *extent)
{
    const QStringView rest = text.sliced(*at);
    const QChar kind = rest.size() > 1 ? rest[1] : QChar();
    const qsizetype start = *at;
    bool within = true;
    if (kind == u'/') {
        *at = behind(text, *at + 2, u'>');
        --extent->depth;
    } else if (kind == u'?') {
        *at = behind(text, *at + 2, u"?>");
    } else if (kind != u'!') {
        within = measureStartTag(text, at, extent);
    } else if (rest.startsWith(u"<!--")) {
        *at = behind(text, *at + 4, u"-->");
    } else if (rest.startsWith(u"<![CDATA[")) {
        *at = behind(text, *at + 9, u"]]>");
    } else {
        within = m_entityChain == 0 && readDoctype(text, at); // no entity holds a document type
    }
    extent->length += *at - start;
    return within;
}

bool Scanner::measureStartTag(QStringView text, qsizetype *at, Extent *extent)
{
    const qsizetype end = endOfTag(text, *at + 1);
    const QStringView tag = text.sliced(*at + 1, end - *at - 1);
    extent->deepest = std::max(extent->deepest, extent->depth + 1);
    if (!tag.endsWith(u'/'))
        ++extent->depth;
    if (!m_defaultAttributes.empty()) {
        const auto attributes = m_defaultAttributes.find(nameAt(tag, 0));
        extent->length += attributes == m_defaultAttributes.end() ? 0 : attributes->second;
    }
    for (qsizetype i = tag.indexOf(u'&'); i >= 0; i = tag.indexOf(u'&', i)) {
        if (!measureReference(tag, &i, extent))
            return false;
    }
    *at = std::min(end + 1, text.size());
    return true;
}

bool Scanner::measureReference(QStringView text, qsizetype *at, Extent *extent)
{
    ++*at;
    const QStringView name = nameAt(text, *at);
    const auto found = m_entities.find(name);
    if (found == m_entities.end())
        return true;
    Entity &entity = found->second;
    if (entity.state == Entity::BeingMeasured)
        return false;
    if (entity.state == Entity::NotMeasured) {
        if (++m_entityChain > DeepestEntityChain)
            return false;
        entity.state = Entity::BeingMeasured;
        if (!measure(entity.value, &entity.extent))
            return false;
        entity.state = Entity::Measured;
        --m_entityChain;
    }
    extent->deepest = std::max(extent->deepest, extent->depth + entity.extent.deepest);
    extent->depth += entity.extent.depth;
    extent->length += entity.extent.length - (name.size() + 2); // which count as they stand
    return isWithin(*extent);
}

// doctype ::= "<!" ... ["[" (declaration | comment | instruction | reference)* "]"] ">"
bool Scanner::readDoctype(QStringView text, qsizetype *at)
{
    int brackets = 0;
    for (*at += 2; *at < text.size();) {
        const QChar character = text[*at];
        const QStringView rest = text.sliced(*at);
        if (rest.startsWith(u"<!--")) {
            *at = behind(text, *at + 4, u"-->");
        } else if (rest.startsWith(u"<?")) {
            *at = behind(text, *at + 2, u"?>");
        } else if (rest.startsWith(u"<!")) {
            const qsizetype end = endOfTag(text, *at + 2);
            if (!readDeclaration(text.sliced(*at + 2, end - *at - 2)))
                return false;
            *at = std::min(end + 1, text.size());
        } else if (character == u'"' || character == u'\'') {
            *at = behind(text, *at + 1, character);
        } else {
            ++*at;
            if (character == u'[')
                ++brackets;
            else if (character == u']')
                --brackets;
            else if (character == u'>' && brackets <= 0)
                return true;
        }
    }
    return true;
}

bool Scanner::readDeclaration(QStringView declaration)
{
    const QStringView keyword = nameAt(declaration, 0);
    const QStringView rest = declaration.sliced(keyword.size()).trimmed();
    if (keyword == u"ATTLIST") {
        declareAttributes(rest);
        return !rest.contains(u'&');
    }
    if (keyword != u"ENTITY")
        return true;
    declareEntity(rest);
    return !rest.startsWith(u'%') && !rest.contains(u"&#");
}

// The first declaration of a name counts.
void Scanner::declareEntity(QStringView declaration)
{
    const QStringView name = nameAt(declaration, 0);
    const QStringView rest = declaration.sliced(name.size()).trimmed();
    if (name.isEmpty() || rest.size() < 2 || (rest[0] != u'"' && rest[0] != u'\''))
        return;
    const qsizetype end = rest.indexOf(rest[0], 1);
    if (end > 0)
        m_entities.try_emplace(name, Entity{rest.sliced(1, end - 1), Entity::NotMeasured, {}});
}

// Defaults are not told apart from other literals: there is no harm in counting too much.
void Scanner::declareAttributes(QStringView declaration)
{
    const QStringView name = nameAt(declaration, 0);
    m_defaultAttributes[name] += declaration.size() - name.size();
}

} // namespace

bool DocumentGuard::isWithinLimits(QStringView document)
{
    Extent extent;
    return Scanner(document).measure(document, &extent);
}
