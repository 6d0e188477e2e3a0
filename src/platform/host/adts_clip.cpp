/*
 * Length of raw AAC in ADTS frames. Walks the frames here, because FFmpeg leaves their length to
 * the decoder and unpacks the tags between them; FFmpeg reads the headers of the frames.
 */
#include "platform/host/clip_guard.h"
#include "platform/host/clip_module.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>

extern "C" {
#include <libavcodec/adts_parser.h>
}

namespace HostPlatform {

namespace {

constexpr int rates[] = {96000, 88200, 64000, 48000, 44100, 32000, 24000,
                         22050, 16000, 12000, 11025, 8000,  7350};

struct Frame
{
    std::size_t size; // octets, including the header
    double milliseconds;
};

std::optional<Frame> frameAt(Octets clip)
{
    uint32_t samples = 0;
    uint8_t blocks = 0;
    if (clip.size() < AV_AAC_ADTS_HEADER_SIZE
        || av_adts_header_parse(clip.data(), &samples, &blocks) != 0)
        return std::nullopt;
    const std::size_t rate = clip[2] >> 2 & 0x0F;
    const std::size_t size = (clip[3] & 0x03u) << 11 | std::size_t(clip[4]) << 3 | clip[5] >> 5u;
    if (rate >= std::size(rates) || size < AV_AAC_ADTS_HEADER_SIZE)
        return std::nullopt;
    return Frame{size, 1000.0 * samples / rates[rate]};
}

int playLength(Octets clip)
{
    double length = 0;
    while (const auto frame = frameAt(clip)) {
        length += frame->milliseconds;
        clip = clip.subspan(std::min(frame->size, clip.size()));
    }
    return int(std::min(length + 0.5, double(std::numeric_limits<int>::max())));
}

} // namespace

Measure openAdts(Octets clip)
{
    const Octets frames = withoutTags(clip);
    const auto first = frameAt(frames);
    const bool followed =
        first && (first->size >= frames.size() || frameAt(frames.subspan(first->size)));
    if (!followed)
        return nullptr;
    return [frames] { return playLength(frames); };
}

} // namespace HostPlatform
