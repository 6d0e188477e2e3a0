/*
 * Opens an untrusted clip in the host's player engine.
 */
#pragma once

#include "support/invariant.h"

#include <qvlsmilparser.h>

#include <cstdint>

/// Whether measuring may end without a length because memory is missing. FFmpeg's demuxers ask for
/// as much as a clip announces for a packet, and that may be more than there is.
enum class Memory : bool { Enough, MayBeMissing };

inline void probeClip(const std::uint8_t *data, std::size_t size, const char *extension,
                      Memory memory = Memory::Enough)
{
    MP_PlayerEngine *engine = MP_CreatePlayerEngine(nullptr, nullptr);
    if (engine->open(reinterpret_cast<const char *>(data), int(size), extension)) {
        StaticStreamInfo info;
        const bool isMeasured = engine->getStreamInfo(&info);
        require(isMeasured || memory == Memory::MayBeMissing, "an opened clip has information");
        require(!isMeasured || info.playDuration >= 0, "a clip has no negative duration");
        engine->close();
    }
    engine->destroy();
}
