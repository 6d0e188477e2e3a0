/*
 * The records that the child process writes while it streams a clip: a header, then its octets.
 * Both ends are on one machine, so numbers are in its own order of octets. The reader trusts
 * nothing: a clip may have taken over the child.
 */
#pragma once

#include <cstdint>

namespace ClipStream {

/// What a record holds.
enum class Kind : std::int32_t {
    Sound = 1, ///< samples of 16 bits, interleaved
    Picture, ///< rows of RGB with 8 bits each, without gaps
    NoSoundDecoder, ///< the name of the codec
    NoPictureDecoder, ///< the name of the codec
    End, ///< nothing; the last record of a clip that was decoded
};

struct Header
{
    Kind kind{};
    std::int32_t octets = 0; ///< of the record, without this header
    std::int64_t ms = 0; ///< from the clip's begin; for End the length of the clip
    std::int32_t rate = 0; ///< of Sound, samples in a second
    std::int32_t channels = 0; ///< of Sound
    std::int32_t width = 0; ///< of Picture
    std::int32_t height = 0; ///< of Picture
};

} // namespace ClipStream
