/*
 * Hash tables of texts that senders chose. Qt's own containers end the process when memory runs out
 * while they grow; the standard ones throw.
 */
#pragma once

#include <QHash>
#include <QString>

#include <unordered_map>

/// Seeded at every start, so that nobody can choose texts that collide.
struct QvlTextHash
{
    std::size_t operator()(QStringView text) const noexcept
    {
        return qHash(text, QHashSeed::globalSeed());
    }
};

template <typename Text, typename Value>
using QvlTextMap = std::unordered_map<Text, Value, QvlTextHash>;
