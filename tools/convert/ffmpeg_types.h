/*
 * FFmpeg's objects with an owner.
 */
#pragma once

#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/mem.h>
#include <libswscale/swscale.h>
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
