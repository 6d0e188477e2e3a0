/*
 * Hash tables of texts that senders chose. Qt's own containers end the process when memory runs out
 * while they grow; the standard ones throw.
 */
#pragma once

#include <QRandomGenerator>
#include <QString>

#include <unordered_map>

/// Characters as a polynomial in a point that is drawn at every start, modulo a prime, so that
/// nobody can choose texts that collide. Qt's hash takes ten times as long for short texts on
/// processors where it mixes two sets of vector instructions.
class QvlCharacterHash
{
public:
    /// Goes on with @p character.
    void add(char32_t character) { m_value = reduced(m_value * m_point + character); }
    /// The hash of the characters until now.
    std::size_t value() const { return std::size_t(m_value); }

private:
    static constexpr int primeBits = 31;
    static constexpr quint64 prime = (quint64(1) << primeBits) - 1;

    static quint64 point()
    {
        static const quint64 drawn = QRandomGenerator::system()->bounded(1U, quint32(prime));
        return drawn;
    }

    // What is left is at most some units above the prime, so that the next product fits.
    static constexpr quint64 reduced(quint64 value)
    {
        value = (value & prime) + (value >> primeBits);
        return (value & prime) + (value >> primeBits);
    }

    const quint64 m_point = point();
    quint64 m_value = 1; // so that leading zeros count
};

/// The hash of a text's characters.
struct QvlTextHash
{
    using is_transparent = void; // views find texts

    // Without noexcept, because the standard library keeps the hashes of such a table.
    std::size_t operator()(QStringView text) const
    {
        QvlCharacterHash hash;
        for (QChar character : text)
            hash.add(character.unicode());
        return hash.value();
    }
};

template <typename Text, typename Value>
using QvlTextMap = std::unordered_map<Text, Value, QvlTextHash>;
