#include "multipart/lower_case.h"

#include <QChar>

#include <utility>

namespace {

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
        if (character < 0x80)
            return character >= 'A' && character <= 'Z' ? character + ('a' - 'A') : character;
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
    LowerCase left(a);
    LowerCase right(b);
    while (!left.isAtEnd() && !right.isAtEnd()) {
        if (left.next() != right.next())
            return false;
    }
    return left.isAtEnd() && right.isAtEnd();
}
