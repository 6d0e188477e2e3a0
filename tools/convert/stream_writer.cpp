#include "convert/stream_writer.h"

#include "convert/limits.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

using namespace ClipStream;

namespace {

constexpr int64_t MostMs = int64_t(ConvertLimits::Minutes) * 60 * 1000;

} // namespace

bool StreamWriter::write(Header header, const void *octets, std::size_t count)
{
    header.octets = int32_t(count);
    m_hasFailed = m_hasFailed || std::fwrite(&header, sizeof header, 1, stdout) != 1
        || std::fwrite(octets, 1, count, stdout) != count || std::fflush(stdout) != 0;
    return !m_hasFailed;
}

bool StreamWriter::takeSound(int64_t ms, int rate, int channels, const int16_t *samples,
                             std::size_t count)
{
    if (m_rate == 0) {
        m_rate = rate;
        m_channels = channels;
        m_leftSamples = std::size_t(MostMs / 1000) * std::size_t(rate) * std::size_t(channels);
    }
    const std::size_t octets = count * sizeof *samples;
    if (rate != m_rate || channels != m_channels || ms >= MostMs || count > m_leftSamples
        || octets > ConvertLimits::RecordOctets)
        return false;
    m_leftSamples -= count;
    return write({.kind = Kind::Sound, .ms = ms, .rate = rate, .channels = channels}, samples,
                 octets);
}

bool StreamWriter::takePicture(int64_t ms, int width, int height, const uint8_t *pixels)
{
    return ms < MostMs
        && write({.kind = Kind::Picture, .ms = ms, .width = width, .height = height}, pixels,
                 std::size_t(width) * std::size_t(height) * 3);
}

bool StreamWriter::lackDecoder(bool isSound, const char *codec)
{
    const Kind kind = isSound ? Kind::NoSoundDecoder : Kind::NoPictureDecoder;
    return write({.kind = kind}, codec, std::strlen(codec));
}

bool StreamWriter::finish(int64_t ms)
{
    return write({.kind = Kind::End, .ms = std::min(ms, MostMs)}, "", 0);
}
