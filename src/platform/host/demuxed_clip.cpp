/*
 * Length of clips that FFmpeg's demuxers read. Opens no decoder: packets have times of their own,
 * and adding them up gives the exact length, while estimates from headers and bit rates are wrong
 * for raw streams.
 *
 * The octets are not trusted. Only one demuxer runs; it cannot open another demuxer, a codec, a
 * file or an address, and the octets that it reads and the packets that it finds are limited.
 */
#include "platform/host/clip_guard.h"
#include "platform/host/clip_module.h"
#include "platform/host/memory_input.h"
#include "platform/host/stream_length.h"

#include <QLoggingCategory>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <utility>

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/common.h>
#include <libavutil/log.h>
}

namespace HostPlatform {

namespace {

Q_LOGGING_CATEGORY(mediaLog, "qvl.platform.media", QtWarningMsg)

constexpr int MostPackets = 500'000; // nearly three hours of AMR
constexpr AVRational Milliseconds{1, 1000};

// FFmpeg's log level belongs to the process, so closing the last clip restores it.
class QuietLog
{
public:
    QuietLog()
    {
        const std::lock_guard lock(mutex);
        if (users++ == 0 && !mediaLog().isDebugEnabled()) {
            levelBefore = av_log_get_level();
            av_log_set_level(AV_LOG_QUIET);
            quiet = true;
        }
    }
    QuietLog(const QuietLog &) = delete;
    QuietLog &operator=(const QuietLog &) = delete;
    ~QuietLog()
    {
        const std::lock_guard lock(mutex);
        if (--users == 0 && std::exchange(quiet, false))
            av_log_set_level(levelBefore);
    }

private:
    static inline std::mutex mutex;
    static inline int users = 0;
    static inline bool quiet = false;
    static inline int levelBefore = 0;
};

// True without an error. A lack of memory is no property of the clip: it ends the measurement.
bool succeeded(int result)
{
    if (result == AVERROR(ENOMEM))
        throw std::bad_alloc();
    return result == 0;
}

int refuseToOpen(AVFormatContext *, AVIOContext **, const char *, int, AVDictionary **)
{
    return AVERROR(EPERM);
}

struct FormatCloser
{
    void operator()(AVFormatContext *context) const { avformat_close_input(&context); }
};
struct PacketCloser
{
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};

/// An opened clip, and the sums over its packets so far.
class DemuxedClip
{
public:
    explicit DemuxedClip(Octets clip) : m_input(clip) { }

    /// True when there is something to play: the clip has a packet.
    [[nodiscard]] bool open(const char *demuxer);
    /// Milliseconds from the earliest begin to the latest end of a stream; 0 when unknown.
    int duration();

private:
    [[nodiscard]] bool openFormat(const char *demuxer);
    bool countPacket();
    int64_t inMilliseconds(int stream, int64_t time) const;

    QuietLog m_quiet;
    MemoryInput m_input;
    std::unique_ptr<AVFormatContext, FormatCloser> m_format;
    std::unique_ptr<AVPacket, PacketCloser> m_packet{av_packet_alloc()};
    std::map<int, StreamLength> m_lengths; ///< by stream
    int m_packets = 0;
};

// Forbids everything else that a clip could make the demuxer open.
[[nodiscard]] bool isolate(AVFormatContext *context, const AVInputFormat &format)
{
    context->io_open = refuseToOpen;
    context->format_whitelist = av_strdup(format.name);
    context->codec_whitelist = av_strdup("none");
    context->protocol_whitelist = av_strdup("none");
    return context->format_whitelist && context->codec_whitelist && context->protocol_whitelist;
}

bool isPlayed(const AVStream &stream)
{
    const AVCodecParameters &codec = *stream.codecpar;
    return (codec.codec_type == AVMEDIA_TYPE_AUDIO || codec.codec_type == AVMEDIA_TYPE_VIDEO)
        && codec.codec_id != AV_CODEC_ID_NONE
        && !(stream.disposition & AV_DISPOSITION_ATTACHED_PIC); // the cover of an album
}

bool DemuxedClip::openFormat(const char *demuxer)
{
    const AVInputFormat *format = av_find_input_format(demuxer);
    if (!m_packet || !m_input.file())
        throw std::bad_alloc();
    if (!format)
        return false;
    m_format.reset(avformat_alloc_context());
    if (!m_format || !isolate(m_format.get(), *format))
        throw std::bad_alloc();
    m_format->pb = m_input.file();
    AVFormatContext *context = m_format.release(); // opening frees it when it fails
    if (!succeeded(avformat_open_input(&context, "", format, nullptr)))
        return false;
    m_format.reset(context);
    // FFmpeg would look into the subtitles of an AVI file and leak memory.
    for (unsigned int i = 0; i < m_format->nb_streams; ++i) {
        AVStream &stream = *m_format->streams[i];
        stream.discard = isPlayed(stream) ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
    return true;
}

// Adds the next played packet; false at the end, after an error and at the limit.
bool DemuxedClip::countPacket()
{
    while (m_packets <= MostPackets && succeeded(av_read_frame(m_format.get(), m_packet.get()))) {
        ++m_packets;
        m_input.allowPacket();
        const AVStream &stream = *m_format->streams[m_packet->stream_index];
        const bool played = isPlayed(stream);
        if (played)
            m_lengths[m_packet->stream_index].add(*m_packet, stream);
        av_packet_unref(m_packet.get());
        if (played)
            return true;
    }
    return false;
}

bool DemuxedClip::open(const char *demuxer)
{
    return openFormat(demuxer) && countPacket();
}

int64_t DemuxedClip::inMilliseconds(int stream, int64_t time) const
{
    return av_rescale_q(time, m_format->streams[stream]->time_base, Milliseconds);
}

int DemuxedClip::duration()
{
    while (countPacket()) { }
    if (m_packets > MostPackets || m_input.isExhausted())
        return 0;
    int64_t begin = std::numeric_limits<int64_t>::max();
    int64_t end = std::numeric_limits<int64_t>::min();
    for (const auto &[stream, length] : m_lengths) {
        const int64_t streamBegin = inMilliseconds(stream, length.begin());
        begin = std::min(begin, streamBegin);
        end = std::max(end, av_sat_add64(streamBegin, inMilliseconds(stream, length.played())));
    }
    return int(std::clamp<int64_t>(av_sat_sub64(end, begin), 0, std::numeric_limits<int>::max()));
}

} // namespace

Measure openDemuxed(Octets clip, const char *demuxer)
{
    const Octets untagged = withoutTags(clip);
    if (!isWithinLimits(untagged, demuxer))
        return nullptr;
    auto opened = std::make_shared<DemuxedClip>(untagged);
    if (!opened->open(demuxer))
        return nullptr;
    return [opened] { return opened->duration(); };
}

} // namespace HostPlatform
