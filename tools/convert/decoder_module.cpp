/*
 * Decodes with one demuxer and the decoder of the stream that it finds. Nothing else is opened.
 * The process that loads this is limited in time and memory, so the clip is not limited here.
 */
#include "convert/decoder_module.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/log.h>
#include <libavutil/mem.h>
#include <libswscale/swscale.h>
}

namespace {

constexpr int WindowSize = 4096; // octets
constexpr int MostChannels = 8;

struct Clip
{
    const uint8_t *data;
    int64_t size;
    int64_t position = 0;
};

int readClip(void *self, uint8_t *target, int size)
{
    auto &clip = *static_cast<Clip *>(self);
    const int64_t left = clip.size - clip.position;
    if (left <= 0)
        return AVERROR_EOF;
    const auto count = int(std::min<int64_t>(size, left));
    std::memcpy(target, clip.data + clip.position, std::size_t(count));
    clip.position += count;
    return count;
}

int64_t seekClip(void *self, int64_t offset, int whence)
{
    auto &clip = *static_cast<Clip *>(self);
    if (whence & AVSEEK_SIZE)
        return clip.size;
    const int64_t base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? clip.position : clip.size;
    if (offset < -base || offset > std::numeric_limits<int64_t>::max() - base)
        return AVERROR(EINVAL);
    return clip.position = base + offset;
}

int refuseToOpen(AVFormatContext *, AVIOContext **, const char *, int, AVDictionary **)
{
    return AVERROR(EPERM);
}

struct Closer
{
    void operator()(AVIOContext *file) const
    {
        av_freep(&file->buffer);
        avio_context_free(&file);
    }
    void operator()(AVFormatContext *format) const { avformat_close_input(&format); }
    void operator()(AVCodecContext *codec) const { avcodec_free_context(&codec); }
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
    void operator()(AVFrame *frame) const { av_frame_free(&frame); }
    void operator()(SwsContext *scaler) const { sws_freeContext(scaler); }
};
template <typename T>
using Owned = std::unique_ptr<T, Closer>;

/// A clip, opened with its demuxer and the decoder of one stream.
class Decoder
{
public:
    Decoder(const uint8_t *data, std::size_t size) : m_clip{data, int64_t(size)} { }

    bool open(const char *demuxer, AVMediaType kind)
    {
        return openFile() && openFormat(demuxer) && findStream(kind) && openCodec();
    }

    const char *codecName() const { return avcodec_get_name(m_codec->codec_id); }

    /// The next decoded frame; null at the end.
    const AVFrame *next()
    {
        while (avcodec_receive_frame(m_codec.get(), m_frame.get()) != 0) {
            if (m_isAtEnd)
                return nullptr;
            sendPacket();
        }
        return m_frame.get();
    }

private:
    bool openFile()
    {
        auto *window = static_cast<uint8_t *>(av_malloc(WindowSize));
        if (!window)
            return false;
        m_file.reset(
            avio_alloc_context(window, WindowSize, 0, &m_clip, readClip, nullptr, seekClip));
        if (!m_file)
            av_free(window);
        return m_file != nullptr;
    }

    bool openFormat(const char *demuxer)
    {
        const AVInputFormat *input = av_find_input_format(demuxer);
        AVFormatContext *format = input ? avformat_alloc_context() : nullptr;
        if (!format)
            return false;
        format->pb = m_file.get();
        format->io_open = refuseToOpen;
        format->format_whitelist = av_strdup(input->name);
        format->protocol_whitelist = av_strdup("none");
        if (avformat_open_input(&format, "", input, nullptr) != 0) // frees it when it fails
            return false;
        m_format.reset(format);
        // Some containers have no header: their streams show with the first packets.
        return format->nb_streams > 0 || avformat_find_stream_info(format, nullptr) >= 0;
    }

    bool findStream(AVMediaType kind)
    {
        for (unsigned int i = 0; i < m_format->nb_streams; ++i) {
            AVStream &stream = *m_format->streams[i];
            const bool isWanted = m_stream < 0 && stream.codecpar->codec_type == kind;
            stream.discard = isWanted ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
            if (isWanted)
                m_stream = int(i);
        }
        return m_stream >= 0;
    }

    bool openCodec()
    {
        const AVCodecParameters &parameters = *m_format->streams[m_stream]->codecpar;
        const AVCodec *codec = avcodec_find_decoder(parameters.codec_id);
        m_codec.reset(codec ? avcodec_alloc_context3(codec) : nullptr);
        if (!m_codec || !m_packet || !m_frame)
            return false;
        m_codec->thread_count = 1;
        return avcodec_parameters_to_context(m_codec.get(), &parameters) == 0
            && avcodec_open2(m_codec.get(), codec, nullptr) == 0;
    }

    // Malformed packets are passed over.
    void sendPacket()
    {
        if (av_read_frame(m_format.get(), m_packet.get()) != 0) {
            m_isAtEnd = true;
            avcodec_send_packet(m_codec.get(), nullptr);
            return;
        }
        if (m_packet->stream_index == m_stream)
            avcodec_send_packet(m_codec.get(), m_packet.get());
        av_packet_unref(m_packet.get());
    }

    Clip m_clip;
    Owned<AVIOContext> m_file;
    Owned<AVFormatContext> m_format;
    Owned<AVCodecContext> m_codec;
    Owned<AVPacket> m_packet{av_packet_alloc()};
    Owned<AVFrame> m_frame{av_frame_alloc()};
    int m_stream = -1;
    bool m_isAtEnd = false;
};

int channelsOf(const AVFrame &frame)
{
#if LIBAVUTIL_VERSION_INT >= AV_VERSION_INT(57, 28, 100)
    return frame.ch_layout.nb_channels;
#else
    return frame.channels;
#endif
}

int16_t fromFloat(float sample)
{
    return int16_t(std::clamp(sample, -1.0F, 1.0F) * std::numeric_limits<int16_t>::max());
}

// The sample of one channel in 16 bits; nothing for formats that no sound of messages has.
bool sampleAt(const AVFrame &frame, int channel, int channels, int index, int16_t *sample)
{
    const auto format = AVSampleFormat(frame.format);
    const bool isPlanar = av_sample_fmt_is_planar(format);
    const uint8_t *data = frame.extended_data[isPlanar ? channel : 0];
    const int place = isPlanar ? index : index * channels + channel;
    switch (av_get_packed_sample_fmt(format)) {
    case AV_SAMPLE_FMT_U8:
        *sample = int16_t((data[place] - 128) * 256);
        return true;
    case AV_SAMPLE_FMT_S16:
        *sample = reinterpret_cast<const int16_t *>(data)[place];
        return true;
    case AV_SAMPLE_FMT_S32:
        *sample = int16_t(reinterpret_cast<const int32_t *>(data)[place] >> 16);
        return true;
    case AV_SAMPLE_FMT_FLT:
        *sample = fromFloat(reinterpret_cast<const float *>(data)[place]);
        return true;
    default:
        return false;
    }
}

bool interleave(const AVFrame &frame, int channels, std::vector<int16_t> *samples)
{
    samples->resize(std::size_t(frame.nb_samples) * std::size_t(channels));
    auto target = samples->begin();
    for (int i = 0; i < frame.nb_samples; ++i) {
        for (int channel = 0; channel < channels; ++channel) {
            if (!sampleAt(frame, channel, channels, i, &*target++))
                return false;
        }
    }
    return true;
}

bool decodeSound(const uint8_t *clip, std::size_t size, const char *demuxer, void *taker,
                 TakeSound take)
{
    av_log_set_level(AV_LOG_QUIET);
    Decoder decoder(clip, size);
    if (!decoder.open(demuxer, AVMEDIA_TYPE_AUDIO))
        return false;
    std::vector<int16_t> samples;
    bool hasAny = false;
    while (const AVFrame *frame = decoder.next()) {
        const int channels = channelsOf(*frame);
        if (channels < 1 || channels > MostChannels || !interleave(*frame, channels, &samples))
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
    Decoder decoder(clip, size);
    const AVFrame *frame = decoder.open(demuxer, AVMEDIA_TYPE_VIDEO) ? decoder.next() : nullptr;
    if (!frame)
        return false;
    const Owned<SwsContext> scaler(
        sws_getContext(frame->width, frame->height, AVPixelFormat(frame->format), frame->width,
                       frame->height, AV_PIX_FMT_RGB24, SWS_BILINEAR, nullptr, nullptr, nullptr));
    if (!scaler)
        return false;
    const int stride = frame->width * 3;
    std::vector<uint8_t> pixels(std::size_t(stride) * std::size_t(frame->height));
    uint8_t *const planes[] = {pixels.data()};
    const int strides[] = {stride};
    sws_scale(scaler.get(), frame->data, frame->linesize, 0, frame->height, planes, strides);
    take(taker, decoder.codecName(), frame->width, frame->height, pixels.data(), stride);
    return true;
}

} // namespace

const DecoderModule qvlmmsDecoder{decodeSound, decodePicture};
