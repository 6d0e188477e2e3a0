/*
 * Opens an untrusted clip in the host's player engine.
 */
#pragma once

#include "support/invariant.h"

#include <qvlsmilparser.h>

#include <cstdint>

inline void probeClip(const std::uint8_t *data, std::size_t size, const char *extension)
{
    MP_PlayerEngine *engine = MP_CreatePlayerEngine(nullptr, nullptr);
    if (engine->open(reinterpret_cast<const char *>(data), int(size), extension)) {
        StaticStreamInfo info;
        require(engine->getStreamInfo(&info), "an opened clip has information");
        require(info.playDuration >= 0, "a clip has no negative duration");
        engine->close();
    }
    engine->destroy();
}
