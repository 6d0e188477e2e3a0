/*
 * Writes the records of a clip that is streamed to standard output, up to the most minutes.
 * Standard output is a pipe: writing waits until the reader wants more.
 */
#pragma once

#include "convert/clip_stream.h"
#include "convert/decoder_module.h"

class StreamWriter final : public ClipTaker
{
public:
    bool takeSound(int64_t ms, int rate, int channels, const int16_t *samples,
                   std::size_t count) override;
    bool takePicture(int64_t ms, int width, int height, const uint8_t *pixels) override;
    bool lackDecoder(bool isSound, const char *codec) override;

    /// Writes the last record. False if one of them was not written.
    bool finish(int64_t ms);

private:
    bool write(ClipStream::Header header, const void *octets, std::size_t count);

    std::size_t m_leftSamples = 0;
    int m_rate = 0; ///< of the samples, all of them; 0 before the first ones
    int m_channels = 0;
    bool m_hasFailed = false;
};
