#include "document/expansion.h"

#include "document/limits.h"

#include <algorithm>

namespace {

constexpr int MarkupOfTag = 3; // "<", "/" and ">"
constexpr int LengthOfDeclaration = 24; // octets that the parser allocates per declared attribute
constexpr int MarkupOfAttribute = 4; // a blank, "=" and two quotes

// UTF-16 units of a UTF-8 text: one for each octet that begins a character, and another for
// characters of four octets.
qint64 lengthOf(std::string_view utf8)
{
    qint64 length = 0;
    for (const char c : utf8) {
        const auto octet = static_cast<unsigned char>(c);
        length += (octet & 0xC0) != 0x80;
        length += octet >= 0xF0;
    }
    return length;
}

// The start tag at the beginning of @p text.
struct Tag
{
    explicit Tag(std::string_view text);

    bool hasReference = false;
    qint64 lengthOfValues = 0;
};

Tag::Tag(std::string_view text)
{
    std::size_t at = text.find_first_of("\"'>");
    while (at < text.size() && text[at] != '>') {
        const std::size_t end = std::min(text.find(text[at], at + 1), text.size());
        const std::string_view value = text.substr(at + 1, end - at - 1);
        hasReference = hasReference || value.find('&') != value.npos;
        lengthOfValues += lengthOf(value);
        at = end < text.size() ? text.find_first_of("\"'>", end + 1) : text.size();
    }
}

std::string_view viewOf(QByteArrayView octets)
{
    return {octets.data(), std::size_t(octets.size())};
}

} // namespace

ExpansionMeter::ExpansionMeter(QByteArrayView document)
    : m_document(document), m_limit(QvlDocumentLimits::ExpansionFactor * lengthOf(viewOf(document))
                                    + QvlDocumentLimits::ExpansionAllowance),
      m_length(lengthOf(viewOf(document)))
{
}

bool ExpansionMeter::isReference(qint64 at) const
{
    return at >= 0 && at < m_document.size() && m_document[qsizetype(at)] == '&';
}

// The parser reports the contents of an entity in pieces, all at the position of the reference.
void ExpansionMeter::addReplacement(qint64 at, qint64 length)
{
    m_length += length;
    if (at == m_lastReference)
        return;
    m_lastReference = at;
    const auto text = viewOf(m_document.sliced(qsizetype(at)));
    m_length -= lengthOf(text.substr(0, std::min(text.find(';'), text.size() - 1) + 1));
}

void ExpansionMeter::addText(qint64 at, std::string_view text)
{
    if (isReference(at))
        addReplacement(at, lengthOf(text));
}

void ExpansionMeter::addStartTag(qint64 at, const char *name, const char **attributes,
                                 int specified)
{
    qint64 values = 0;
    qint64 names = 0;
    qint64 defaults = 0;
    for (int i = 0; attributes[i]; i += 2) {
        if (i >= specified) {
            defaults += lengthOf(attributes[i]) + lengthOf(attributes[i + 1]);
            continue;
        }
        names += lengthOf(attributes[i]) + MarkupOfAttribute;
        values += lengthOf(attributes[i + 1]);
    }
    if (const auto found = m_declaredAttributes.find(std::string_view(name));
        found != m_declaredAttributes.end())
        m_length += found->second * (1 + specified / 2);
    if (isReference(at)) {
        addReplacement(at, lengthOf(name) + MarkupOfTag + names + values + defaults);
        return;
    }
    m_length += defaults;
    const Tag tag(
        viewOf(m_document.sliced(std::clamp<qsizetype>(qsizetype(at), 0, m_document.size()))));
    if (tag.hasReference)
        m_length += values - tag.lengthOfValues;
}

void ExpansionMeter::declareAttribute(const char *element, bool hasDefault)
{
    qint64 &count = m_declaredAttributes.try_emplace(element, 0).first->second;
    m_length += LengthOfDeclaration + (hasDefault ? count : 0);
    ++count;
}

bool EntityLevels::declare(char mark, std::string_view name, std::string_view text)
{
    Entity &entity = m_entities[mark + std::string(name)];
    const std::string ends = std::string(" \t\r\n;") + mark; // characters that end a name
    int level = 1;
    for (std::size_t at = text.find(mark); at != text.npos; at = text.find(mark, at)) {
        const std::size_t end = text.find_first_of(ends, at + 1);
        const std::string_view reference = text.substr(at, end - at);
        at = std::min(end, text.size());
        if (end == text.npos || text[end] != ';')
            continue;
        Entity &used = m_entities[std::string(reference)];
        if (used.users.empty() || used.users.back() != &entity)
            used.users.push_back(&entity);
        level = std::max(level, used.level + 1);
    }
    return raise(&entity, level);
}

bool EntityLevels::raise(Entity *entity, int level)
{
    std::vector<std::pair<Entity *, int>> pending{{entity, level}};
    while (!pending.empty()) {
        const auto [raised, to] = pending.back();
        pending.pop_back();
        if (to <= raised->level)
            continue;
        if (to > QvlDocumentLimits::DeepestEntities)
            return false;
        raised->level = to;
        for (Entity *user : raised->users)
            pending.emplace_back(user, to + 1);
    }
    return true;
}
