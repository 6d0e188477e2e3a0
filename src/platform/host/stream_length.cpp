/*
 * Adds up packets. A packet lasts as long as it says, or until the next one if that starts later.
 */
#include "platform/host/stream_length.h"

#include <algorithm>

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/common.h>
}

namespace HostPlatform {

namespace {

// The length that the packet gives; 0 when unknown.
int64_t durationOf(const AVPacket &packet, const AVStream &stream)
{
    // For a stream that ends within its last packet, FFmpeg subtracts the rest and loses the sign.
    if (stream.codecpar->codec_id == AV_CODEC_ID_VORBIS)
        return static_cast<int32_t>(packet.duration);
    return std::max<int64_t>(packet.duration, 0);
}

} // namespace

int64_t StreamLength::played() const
{
    return m_lastTime != 0 ? m_played : av_sat_add64(m_played, m_lastStep);
}

void StreamLength::fillGap(int64_t start)
{
    if (start == AV_NOPTS_VALUE)
        return; // raw streams have neither timestamps nor gaps
    const int64_t step = m_lastStart ? av_sat_sub64(start, *m_lastStart) : 0;
    m_lastStart = start;
    if (step > m_lastTime)
        m_played = av_sat_add64(m_played, av_sat_sub64(step, m_lastTime));
    m_lastStep = std::max<int64_t>(step, 0);
}

void StreamLength::add(const AVPacket &packet, const AVStream &stream)
{
    // Encoder priming: decoded, but not played.
    const bool played = !(packet.flags & AV_PKT_FLAG_DISCARD);
    if (!m_begin && played && packet.pts != AV_NOPTS_VALUE)
        m_begin = packet.pts;
    fillGap(packet.dts);
    m_lastTime = durationOf(packet, stream);
    if (played)
        m_played = av_sat_add64(m_played, m_lastTime);
}

} // namespace HostPlatform
