/*
 * The length of a clip, measured by the platform's player engine.
 */
#pragma once

#include "platform/player_engine.h"
#include "support/octets.h"

#include <QByteArray>

#include <optional>

/// Milliseconds of a clip in a block of exactly its size; 0 if the length is unknown, nothing if
/// the engine does not open the clip.
inline std::optional<int> playLength(const QByteArray &clip, const char *extension)
{
    const HeapBlock block(clip);
    MP_PlayerEngine *engine = MP_CreatePlayerEngine(nullptr, nullptr);
    StaticStreamInfo info;
    const auto *octets = reinterpret_cast<const char *>(block.data());
    const bool opened = engine->open(octets, block.size(), extension);
    const bool measured = opened && engine->getStreamInfo(&info);
    engine->close();
    engine->destroy();
    return measured ? std::optional(info.playDuration) : std::nullopt;
}
