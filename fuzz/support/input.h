/*
 * The choices of a target, taken from its input: numbers from the end, texts from the beginning, so
 * that a number keeps its meaning when a text before it grows. When nothing is left, a number is
 * its minimum and a text is empty.
 */
#pragma once

#include <QByteArray>

#include <cstdint>
#include <iterator>
#include <limits>

/// The input of a target, as a sequence of choices.
class Input
{
public:
    Input(const std::uint8_t *data, std::size_t size) : m_next(data), m_end(data + size) { }

    bool isAtEnd() const { return m_next == m_end; }

    /// Takes as many octets as the range needs.
    template <typename Integer>
    Integer number(Integer least, Integer most)
    {
        const auto range = std::uint64_t(most) - std::uint64_t(least);
        std::uint64_t value = 0;
        for (int bits = 0; bits < 64 && range >> bits > 0 && !isAtEnd(); bits += 8)
            value = value << 8 | *--m_end;
        if (range != std::numeric_limits<std::uint64_t>::max())
            value %= range + 1;
        return Integer(std::uint64_t(least) + value);
    }

    bool boolean() { return number(0, 1) != 0; }

    template <typename Values>
    const auto &oneOf(const Values &values)
    {
        return values[number<std::size_t>(0, std::size(values) - 1)];
    }

    /// Takes at most @p most octets. A backslash ends the text, two stand for one.
    QByteArray text(int most)
    {
        QByteArray text;
        while (text.size() < most && !isAtEnd()) {
            auto octet = *m_next++;
            if (octet == '\\' && !isAtEnd()) {
                octet = *m_next++;
                if (octet != '\\')
                    break;
            }
            text += char(octet);
        }
        return text;
    }

    QByteArray rest()
    {
        const QByteArray octets(reinterpret_cast<const char *>(m_next), qsizetype(m_end - m_next));
        m_next = m_end;
        return octets;
    }

private:
    const std::uint8_t *m_next;
    const std::uint8_t *m_end;
};
