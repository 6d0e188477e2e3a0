#include "convert/opened_clip.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>

namespace {

constexpr int WindowSize = 4096; // octets

int refuseToOpen(AVFormatContext *, AVIOContext **, const char *, int, AVDictionary **)
{
    return AVERROR(EPERM);
}

} // namespace

OpenedClip::OpenedClip(const uint8_t *data, std::size_t size) : m_source{data, int64_t(size)} { }

bool OpenedClip::open(const char *demuxer)
{
    return openFile() && openFormat(demuxer);
}

int OpenedClip::read(void *self, uint8_t *target, int size)
{
    auto &source = *static_cast<Source *>(self);
    const int64_t left = source.size - source.position;
    if (left <= 0)
        return AVERROR_EOF;
    const auto count = int(std::min<int64_t>(size, left));
    std::memcpy(target, source.data + source.position, std::size_t(count));
    source.position += count;
    return count;
}

int64_t OpenedClip::seek(void *self, int64_t offset, int whence)
{
    auto &source = *static_cast<Source *>(self);
    if (whence & AVSEEK_SIZE)
        return source.size;
    const int64_t base = whence == SEEK_SET ? 0
        : whence == SEEK_CUR                ? source.position
                                            : source.size;
    if (offset < -base || offset > std::numeric_limits<int64_t>::max() - base)
        return AVERROR(EINVAL);
    return source.position = base + offset;
}

bool OpenedClip::openFile()
{
    auto *window = static_cast<uint8_t *>(av_malloc(WindowSize));
    if (!window)
        return false;
    m_file.reset(avio_alloc_context(window, WindowSize, 0, &m_source, read, nullptr, seek));
    if (!m_file)
        av_free(window);
    return m_file != nullptr;
}

bool OpenedClip::openFormat(const char *demuxer)
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
    if (format->nb_streams == 0 && avformat_find_stream_info(format, nullptr) < 0)
        return false;
    for (unsigned int i = 0; i < format->nb_streams; ++i)
        format->streams[i]->discard = AVDISCARD_ALL;
    return true;
}

AVStream *OpenedClip::select(AVMediaType kind)
{
    for (unsigned int i = 0; i < m_format->nb_streams; ++i) {
        AVStream *stream = m_format->streams[i];
        if (stream->codecpar->codec_type == kind) {
            stream->discard = AVDISCARD_DEFAULT;
            return stream;
        }
    }
    return nullptr;
}

bool OpenedClip::read(AVPacket *packet)
{
    return av_read_frame(m_format.get(), packet) == 0;
}

bool OpenedClip::seek(const AVStream &stream, int64_t time)
{
    return av_seek_frame(m_format.get(), stream.index, time, AVSEEK_FLAG_BACKWARD) >= 0;
}

bool StreamDecoder::open(const AVStream &stream)
{
    const AVCodec *codec = avcodec_find_decoder(stream.codecpar->codec_id);
    m_codec.reset(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!m_codec || !m_frame)
        return false;
    m_codec->thread_count = 1;
    m_codec->pkt_timebase = stream.time_base;
    return avcodec_parameters_to_context(m_codec.get(), stream.codecpar) == 0
        && avcodec_open2(m_codec.get(), codec, nullptr) == 0;
}

AVFrame *StreamDecoder::receive()
{
    return avcodec_receive_frame(m_codec.get(), m_frame.get()) == 0 ? m_frame.get() : nullptr;
}
