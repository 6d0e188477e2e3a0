/*
 * The module that decodes clips with FFmpeg. Only the child process that converts a clip loads it:
 * linking FFmpeg would take longer than most commands.
 */
#pragma once

#include <cstddef>
#include <cstdint>

/// Takes decoded sound: samples of 16 bits, interleaved. Called at least once before the samples,
/// with none. False to stop.
using TakeSound = bool (*)(void *taker, int rate, int channels, const int16_t *samples,
                           std::size_t count);

/// Takes a decoded picture: @p stride octets for each row of RGB with 8 bits each. @p codec is
/// FFmpeg's name of the video's codec, such as "h264".
using TakePicture = void (*)(void *taker, const char *codec, int width, int height,
                             const uint8_t *pixels, std::ptrdiff_t stride);

/// Takes sound and pictures of a clip in the order of their times, in milliseconds from the clip's
/// begin. The operations return false to stop.
class ClipTaker
{
public:
    virtual bool takeSound(int64_t ms, int rate, int channels, const int16_t *samples,
                           std::size_t count) = 0;
    /// Rows of RGB with 8 bits each, without gaps. The times ascend.
    virtual bool takePicture(int64_t ms, int width, int height, const uint8_t *pixels) = 0;
    /// The clip has sound or pictures of a codec that cannot be decoded.
    virtual bool lackDecoder(bool isSound, const char *codec) = 0;

protected:
    ~ClipTaker() = default;
};

/// What the module exports, under the name qvlmmsDecoder.
struct DecoderModule
{
    /// Decodes the first sound of a clip. False when there is none.
    bool (*decodeSound)(const uint8_t *clip, std::size_t size, const char *demuxer, void *taker,
                        TakeSound take);
    /// Decodes the first picture of a video. False when there is none.
    bool (*decodePicture)(const uint8_t *clip, std::size_t size, const char *demuxer, void *taker,
                          TakePicture take);
    /// Decodes the first sound and the first video of a clip from @p fromMs on. Pictures are made
    /// smaller until neither side is above @p side. Returns the time at which the clip ends, in
    /// milliseconds; negative when nothing was decoded.
    int64_t (*decodeClip)(const uint8_t *clip, std::size_t size, const char *demuxer,
                          int64_t fromMs, int side, ClipTaker *taker);
};

extern "C" __attribute__((visibility("default"))) const DecoderModule qvlmmsDecoder;
