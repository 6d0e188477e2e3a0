/*
 * Hash tables of texts that senders chose. Qt's own containers end the process when memory runs out
 * while they grow; the standard ones throw.
 */
#pragma once

#include <QRandomGenerator>
#include <QString>

#include <unordered_map>

/// The text as a polynomial in a point that is drawn at every start, modulo a prime, so that nobody
/// can choose texts that collide. Qt's hash takes ten times as long for short texts on processors
/// where it mixes two sets of vector instructions.
struct QvlTextHash
{
    using is_transparent = void; // views find texts

    // Without noexcept, because the standard library keeps the hashes of such a table.
    std::size_t operator()(QStringView text) const
    {
        static const quint64 point = QRandomGenerator::system()->bounded(1U, quint32(prime));
        auto hash = quint64(text.size());
        for (QChar character : text)
            hash = reduced(hash * point + character.unicode());
        return std::size_t(hash);
    }

private:
    static constexpr int primeBits = 31;
    static constexpr quint64 prime = (quint64(1) << primeBits) - 1;

    // What is left is at most some units above the prime, so that the next product fits.
    static constexpr quint64 reduced(quint64 value)
    {
        value = (value & prime) + (value >> primeBits);
        return (value & prime) + (value >> primeBits);
    }
};

template <typename Text, typename Value>
using QvlTextMap = std::unordered_map<Text, Value, QvlTextHash>;
