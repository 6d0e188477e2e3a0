#include "multipart/lower_case.h"

#include <QChar>
#include <QRandomGenerator>

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

/// The characters of a text in lower case, one by one.
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
        if (character == CapitalIWithDot) { // the only character that becomes two
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

/// Evaluates the characters as a polynomial modulo a prime, at a point drawn at every start, so
/// that nobody can choose texts that collide. Unlike qHash() it needs no copy in lower case:
/// benchmark growth/parts, name a new one.
class CharacterHash
{
public:
    /// Adds @p character at the end.
    void add(char32_t character) { m_value = reduced(m_value * m_point + character); }
    /// The hash of the characters so far.
    std::size_t value() const { return std::size_t(m_value); }

private:
    static constexpr int PrimeBits = 31;
    static constexpr quint64 Prime = (quint64(1) << PrimeBits) - 1;

    static quint64 point()
    {
        static const quint64 drawn = QRandomGenerator::system()->bounded(1U, quint32(Prime));
        return drawn;
    }

    // The result is at most slightly above the prime, so that the next product fits.
    static constexpr quint64 reduced(quint64 value)
    {
        value = (value & Prime) + (value >> PrimeBits);
        return (value & Prime) + (value >> PrimeBits);
    }

    const quint64 m_point = point();
    quint64 m_value = 1; // so that leading zeros count
};

} // namespace

bool isSameInLowerCase(QStringView a, QStringView b)
{
    // Fast path: nearly all names are ASCII.
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
    CharacterHash hash;
    qsizetype ascii = 0;
    for (; ascii < text.size() && isAscii(text[ascii].unicode()); ++ascii)
        hash.add(asciiLowerCase(text[ascii].unicode()));
    for (LowerCase rest(text.sliced(ascii)); !rest.isAtEnd();)
        hash.add(rest.next());
    return hash.value();
}
