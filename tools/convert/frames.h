/*
 * Decoded frames in the forms that leave the module: samples of 16 bits, and rows of RGB.
 */
#pragma once

#include "convert/ffmpeg_types.h"

#include <cstdint>
#include <vector>

namespace Frames {

/// The channels of a frame of sound; 0 when there are more than the samples may have.
int channelsOf(const AVFrame &frame);

/// The samples of a frame of sound, interleaved. False for formats that no sound of messages has.
bool interleave(const AVFrame &frame, int channels, std::vector<int16_t> *samples);

struct Rows
{
    int width = 0;
    int height = 0;
    std::vector<uint8_t> pixels; ///< rows of RGB with 8 bits each, without gaps
};

/// Scales pictures, and keeps what they have in common.
class Scaler
{
public:
    /// The frame, made smaller until neither side is above @p side. False when FFmpeg cannot.
    bool scale(const AVFrame &frame, int side, Rows *rows);

private:
    Owned<SwsContext> m_context;
};

} // namespace Frames
