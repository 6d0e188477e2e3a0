/*
 * A clip in memory, opened with one demuxer. It opens nothing else: no other demuxer, no file and
 * no address. The process that loads this is limited in time and memory, so the clip is not.
 */
#pragma once

#include "convert/ffmpeg_types.h"

#include <cstddef>
#include <cstdint>

class OpenedClip
{
public:
    /// Reads @p data until it is destroyed.
    OpenedClip(const uint8_t *data, std::size_t size);
    OpenedClip(const OpenedClip &) = delete;
    OpenedClip &operator=(const OpenedClip &) = delete;

    [[nodiscard]] bool open(const char *demuxer);

    /// The first stream of a kind, which is read from now on; null when there is none. Other
    /// streams are read only once they were selected.
    AVStream *select(AVMediaType kind);

    /// Reads the next packet. False at the end.
    bool read(AVPacket *packet);

    /// Continues at the last complete picture up to a time of the stream. False when the clip has
    /// no such place.
    bool seek(const AVStream &stream, int64_t time);

private:
    struct Source
    {
        const uint8_t *data;
        int64_t size;
        int64_t position = 0;
    };

    static int read(void *source, uint8_t *target, int size);
    static int64_t seek(void *source, int64_t offset, int whence);
    bool openFile();
    bool openFormat(const char *demuxer);

    Source m_source;
    Owned<AVIOContext> m_file;
    Owned<AVFormatContext> m_format;
};

/// A decoder of one stream.
class StreamDecoder
{
public:
    /// False when FFmpeg has no decoder for the stream.
    [[nodiscard]] bool open(const AVStream &stream);

    /// FFmpeg's name of the codec.
    const char *codecName() const { return avcodec_get_name(m_codec->codec_id); }

    /// Takes a packet; null for the end. Malformed packets are passed over.
    void send(const AVPacket *packet) { avcodec_send_packet(m_codec.get(), packet); }

    /// The next decoded frame, until the next call; null when there is none without more packets.
    AVFrame *receive();

private:
    Owned<AVCodecContext> m_codec;
    Owned<AVFrame> m_frame{av_frame_alloc()};
};
