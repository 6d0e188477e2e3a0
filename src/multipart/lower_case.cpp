#include "multipart/lower_case.h"

#include "base/text_hash.h"

#include <QChar>

#include <algorithm>
#include <utility>

namespace {

constexpr bool isAscii(char32_t character)
{
    return character < 0x80;
}

constexpr char32_t asciiLowerCase(char32_t character)
{
    return character >= 'A' && character <= 'Z' ? character + ('a' - 'A') : character;
}

/// The characters of a text in lower case, one after the other.
class LowerCase
{
public:
    explicit LowerCase(QStringView text) : m_rest(text) { }

    bool isAtEnd() const { return m_rest.isEmpty() && m_pending == 0; }

    char32_t next()
    {
        if (m_pending != 0)
            return std::exchange(m_pending, 0);
        const char32_t character = take();
        if (isAscii(character))
            return asciiLowerCase(character);
        if (character == CapitalIWithDot) { // the only one that becomes two
            m_pending = CombiningDot;
            return 'i';
        }
        return QChar::toLower(character);
    }

private:
    static constexpr char32_t CapitalIWithDot = 0x130;
    static constexpr char32_t CombiningDot = 0x307;

    char32_t take()
    {
        const QChar first = m_rest.front();
        m_rest = m_rest.sliced(1);
        if (!first.isHighSurrogate() || m_rest.isEmpty() || !m_rest.front().isLowSurrogate())
            return first.unicode();
        const QChar second = m_rest.front();
        m_rest = m_rest.sliced(1);
        return QChar::surrogateToUcs4(first, second);
    }

    QStringView m_rest;
    char32_t m_pending = 0;
};

} // namespace

bool isSameInLowerCase(QStringView a, QStringView b)
{
    // Nearly all names are ASCII.
    const qsizetype shorter = std::min(a.size(), b.size());
    qsizetype same = 0;
    for (; same < shorter; ++same) {
        const char16_t inA = a[same].unicode();
        const char16_t inB = b[same].unicode();
        if (!isAscii(inA) || !isAscii(inB))
            break;
        if (asciiLowerCase(inA) != asciiLowerCase(inB))
            return false;
    }
    LowerCase left(a.sliced(same));
    LowerCase right(b.sliced(same));
    while (!left.isAtEnd() && !right.isAtEnd()) {
        if (left.next() != right.next())
            return false;
    }
    return left.isAtEnd() && right.isAtEnd();
}

std::size_t hashInLowerCase(QStringView text)
{
    QvlCharacterHash hash;
    qsizetype ascii = 0;
    for (; ascii < text.size() && isAscii(text[ascii].unicode()); ++ascii)
        hash.add(asciiLowerCase(text[ascii].unicode()));
    for (LowerCase rest(text.sliced(ascii)); !rest.isAtEnd();)
        hash.add(rest.next());
    return hash.value();
}
