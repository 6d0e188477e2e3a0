#include "platform/host/stream_length.h"

#include <algorithm>

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/common.h>
}

namespace HostPlatform {

namespace {

// The length of a packet by itself; 0 when it is not known.
int64_t durationOf(const AVPacket &packet, const AVStream &stream)
{
    // Where a stream ends within its last packet, FFmpeg takes that from it and loses the sign.
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
        return; // raw streams have no clock, and no gaps
    const int64_t step = m_lastStart ? av_sat_sub64(start, *m_lastStart) : 0;
    m_lastStart = start;
    if (step > m_lastTime)
        m_played = av_sat_add64(m_played, av_sat_sub64(step, m_lastTime));
    m_lastStep = std::max<int64_t>(step, 0);
}

void StreamLength::add(const AVPacket &packet, const AVStream &stream)
{
    // What an encoder needs before the first sample is read and not played.
    const bool played = !(packet.flags & AV_PKT_FLAG_DISCARD);
    if (!m_begin && played && packet.pts != AV_NOPTS_VALUE)
        m_begin = packet.pts;
    fillGap(packet.dts);
    m_lastTime = durationOf(packet, stream);
    if (played)
        m_played = av_sat_add64(m_played, m_lastTime);
}

} // namespace HostPlatform
