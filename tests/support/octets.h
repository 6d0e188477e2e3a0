/*
 * Octets in tests: a literal that looks like a dump, blocks and buffers, and how octets and texts
 * are printed when a test fails.
 */
#pragma once

#include "wire/linear_buffer.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <ostream>
#include <vector>

namespace OctetsDetail {

constexpr int digitValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

/// The text of a literal as a template argument, so that a mistyped literal does not compile.
template <std::size_t N>
struct HexText
{
    std::array<char, N> text{};

    // NOLINTNEXTLINE(google-explicit-constructor): literals have to convert
    consteval HexText(const char (&literal)[N]) { std::copy_n(literal, N, text.begin()); }

    constexpr std::size_t length() const { return N - 1; }

    /// Pairs of digits with blanks between them.
    constexpr bool isValid() const
    {
        for (std::size_t i = 0; i < length(); ++i) {
            const bool blank = text[i] == ' ';
            if (i % 3 == 2 ? !blank : digitValue(text[i]) < 0)
                return false;
        }
        return length() == 0 || length() % 3 == 2;
    }
};

} // namespace OctetsDetail

/// "8C 80 98"_octets are three octets.
template <OctetsDetail::HexText Hex>
QByteArray operator""_octets()
{
    static_assert(Hex.isValid(), "pairs of hexadecimal digits, one blank between them");
    QByteArray octets;
    for (std::size_t i = 0; i + 1 < Hex.length(); i += 3) {
        const int value =
            OctetsDetail::digitValue(Hex.text[i]) * 16 + OctetsDetail::digitValue(Hex.text[i + 1]);
        octets.append(static_cast<char>(value));
    }
    return octets;
}

/// @p count times the same octet.
inline QByteArray octet(int value, qsizetype count = 1)
{
    return QByteArray(count, static_cast<char>(value));
}

/// A copy of octets in a block of exactly their size, so that AddressSanitizer detects overreads.
class HeapBlock
{
public:
    explicit HeapBlock(const QByteArray &octets)
        : m_data(new unsigned char[static_cast<std::size_t>(octets.size())]),
          m_size(static_cast<int>(octets.size()))
    {
        std::copy(octets.begin(), octets.end(), m_data.get());
    }

    unsigned char *data() const { return m_data.get(); }
    int size() const { return m_size; }

private:
    std::unique_ptr<unsigned char[]> m_data;
    int m_size;
};

/// A cursor for reading over a HeapBlock: `Input input("05 EA"_octets); X::readFrom(input, &x);`
class Input
{
public:
    explicit Input(const QByteArray &octets)
        : m_block(octets), m_buffer(LinearBuffer::forReading(m_block.data(), m_block.size()))
    {
    }

    LinearBuffer *buffer() { return &m_buffer; }
    operator LinearBuffer *() { return &m_buffer; }
    int position() const { return m_buffer.getPosition(); }

private:
    HeapBlock m_block;
    LinearBuffer m_buffer;
};

/// A cursor for writing into its own array; octets() returns what was written so far.
class Output
{
public:
    explicit Output(int capacity = 4096)
        : m_array(static_cast<std::size_t>(capacity), Untouched), m_buffer(m_array.data(), capacity)
    {
    }

    LinearBuffer *buffer() { return &m_buffer; }
    operator LinearBuffer *() { return &m_buffer; }
    QByteArray octets() const
    {
        return QByteArray(reinterpret_cast<const char *>(m_array.data()), m_buffer.getPosition());
    }

private:
    static constexpr unsigned char Untouched = 0xA5;

    std::vector<unsigned char> m_array;
    LinearBuffer m_buffer;
};

// Used by GoogleTest, which otherwise prints characters and their codes.
inline void PrintTo(const QByteArray &octets, std::ostream *out)
{
    *out << octets.size() << " octets: " << octets.toHex(' ').toUpper().constData();
}

inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toUtf8().constData() << '"';
}
