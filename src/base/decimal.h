/*
 * Formats whole numbers without allocating memory, for the benchmarks smil/write/1 and
 * message/decode/nameless.
 */
#pragma once

#include <QString>

#include <array>
#include <charconv>
#include <limits>

/// The decimal digits of a number, with its sign when it is negative.
class QvlDecimal
{
public:
    explicit QvlDecimal(int number)
        : m_length(
            int(std::to_chars(m_digits.begin(), m_digits.end(), number).ptr - m_digits.begin()))
    {
    }

    /// The text is valid as long as this object.
    QLatin1StringView text() const { return QLatin1StringView(m_digits.data(), m_length); }

private:
    static constexpr int SignAndLastDigit = 2;

    std::array<char, std::numeric_limits<int>::digits10 + SignAndLastDigit> m_digits;
    int m_length;
};
