#include "convert/decoder_module.h"

#include "convert/frames.h"
#include "convert/opened_clip.h"
#include "convert/streamed_clip.h"

#include <limits>
#include <vector>

extern "C" {
#include <libavutil/log.h>
}

namespace {

/// A clip, and the decoder of its first stream of one kind.
class OneStream
{
public:
    OneStream(const uint8_t *data, std::size_t size) : m_clip(data, size) { }

    bool open(const char *demuxer, AVMediaType kind)
    {
        if (!m_packet || !m_clip.open(demuxer))
            return false;
        m_stream = m_clip.select(kind);
        return m_stream && m_decoder.open(*m_stream);
    }

    const char *codecName() const { return m_decoder.codecName(); }

    /// The next decoded frame; null at the end.
    const AVFrame *next()
    {
        const AVFrame *frame = nullptr;
        while (!(frame = m_decoder.receive()) && !m_isAtEnd)
            sendPacket();
        return frame;
    }

private:
    void sendPacket()
    {
        if (!m_clip.read(m_packet.get())) {
            m_isAtEnd = true;
            m_decoder.send(nullptr);
            return;
        }
        if (m_packet->stream_index == m_stream->index)
            m_decoder.send(m_packet.get());
        av_packet_unref(m_packet.get());
    }

    OpenedClip m_clip;
    StreamDecoder m_decoder;
    Owned<AVPacket> m_packet{av_packet_alloc()};
    const AVStream *m_stream = nullptr;
    bool m_isAtEnd = false;
};

bool decodeSound(const uint8_t *clip, std::size_t size, const char *demuxer, void *taker,
                 TakeSound take)
{
    av_log_set_level(AV_LOG_QUIET);
    OneStream stream(clip, size);
    if (!stream.open(demuxer, AVMEDIA_TYPE_AUDIO))
        return false;
    std::vector<int16_t> samples;
    bool hasAny = false;
    while (const AVFrame *frame = stream.next()) {
        const int channels = Frames::channelsOf(*frame);
        if (channels == 0 || !Frames::interleave(*frame, channels, &samples))
            return hasAny;
        if (!take(taker, frame->sample_rate, channels, samples.data(), samples.size()))
            return true;
        hasAny = true;
    }
    return hasAny;
}

bool decodePicture(const uint8_t *clip, std::size_t size, const char *demuxer, void *taker,
                   TakePicture take)
{
    av_log_set_level(AV_LOG_QUIET);
    OneStream stream(clip, size);
    const AVFrame *frame = stream.open(demuxer, AVMEDIA_TYPE_VIDEO) ? stream.next() : nullptr;
    Frames::Scaler scaler;
    Frames::Rows rows;
    if (!frame || !scaler.scale(*frame, std::numeric_limits<int>::max(), &rows))
        return false;
    take(taker, stream.codecName(), rows.width, rows.height, rows.pixels.data(), rows.width * 3);
    return true;
}

int64_t decodeClip(const uint8_t *clip, std::size_t size, const char *demuxer, int64_t fromMs,
                   int side, ClipTaker *taker)
{
    av_log_set_level(AV_LOG_QUIET);
    StreamedClip streamed(clip, size, side, taker);
    return streamed.open(demuxer) ? streamed.decode(fromMs) : -1;
}

} // namespace

const DecoderModule qvlmmsDecoder{decodeSound, decodePicture, decodeClip};
