#include "convert/frames.h"

#include "convert/limits.h"

#include <algorithm>
#include <limits>

namespace {

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

} // namespace

int Frames::channelsOf(const AVFrame &frame)
{
#if LIBAVUTIL_VERSION_INT >= AV_VERSION_INT(57, 28, 100)
    const int channels = frame.ch_layout.nb_channels;
#else
    const int channels = frame.channels;
#endif
    return channels >= 1 && channels <= ConvertLimits::Channels ? channels : 0;
}

bool Frames::interleave(const AVFrame &frame, int channels, std::vector<int16_t> *samples)
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

bool Frames::Scaler::scale(const AVFrame &frame, int side, Rows *rows)
{
    const int longest = std::max({frame.width, frame.height, 1});
    const auto scaled = [&](int length) {
        return longest <= side ? length : std::max(1, int(int64_t(length) * side / longest));
    };
    rows->width = scaled(frame.width);
    rows->height = scaled(frame.height);
    m_context.reset(sws_getCachedContext(
        m_context.release(), frame.width, frame.height, AVPixelFormat(frame.format), rows->width,
        rows->height, AV_PIX_FMT_RGB24, SWS_BILINEAR, nullptr, nullptr, nullptr));
    if (!m_context)
        return false;
    const int stride = rows->width * 3;
    rows->pixels.resize(std::size_t(stride) * std::size_t(rows->height));
    uint8_t *const planes[] = {rows->pixels.data()};
    const int strides[] = {stride};
    return sws_scale(m_context.get(), frame.data, frame.linesize, 0, frame.height, planes, strides)
        == rows->height;
}
