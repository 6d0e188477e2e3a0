#include "platform/host/memory_input.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>

extern "C" {
#include <libavformat/avio.h>
#include <libavutil/error.h>
#include <libavutil/mem.h>
}

namespace HostPlatform {

namespace {

constexpr int WindowSize = 4096; // octets per read, also after every seek
constexpr int64_t PacketAllowance = 4 * WindowSize;
constexpr int64_t MostPasses = 8; // how often a demuxer may reread the same octets
constexpr int64_t SmallFileAllowance = 1 << 20; // demuxers seek back and forth in small files

} // namespace

void MemoryInput::FileCloser::operator()(AVIOContext *file) const
{
    av_freep(&file->buffer);
    avio_context_free(&file);
}

MemoryInput::MemoryInput(Octets clip)
    : m_octets(clip), m_budget(MostPasses * int64_t(clip.size()) + SmallFileAllowance)
{
    auto *window = static_cast<unsigned char *>(av_malloc(WindowSize));
    if (!window)
        return;
    m_file.reset(avio_alloc_context(window, WindowSize, 0, this, read, nullptr, seek));
    if (!m_file)
        av_free(window);
}

MemoryInput::~MemoryInput() = default;

void MemoryInput::allowPacket()
{
    if (!isExhausted())
        m_budget += PacketAllowance;
}

int MemoryInput::read(void *self, uint8_t *target, int size)
{
    auto &input = *static_cast<MemoryInput *>(self);
    const int64_t left = int64_t(input.m_octets.size()) - input.m_position;
    if (left <= 0)
        return AVERROR_EOF;
    const auto length = int(std::min<int64_t>(size, left));
    input.m_budget -= length;
    if (input.isExhausted())
        return AVERROR(EIO);
    std::memcpy(target, input.m_octets.data() + input.m_position, size_t(length));
    input.m_position += length;
    return length;
}

int64_t MemoryInput::seek(void *self, int64_t offset, int whence)
{
    auto &input = *static_cast<MemoryInput *>(self);
    const auto size = int64_t(input.m_octets.size());
    if (whence & AVSEEK_SIZE)
        return size;
    const int64_t base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? input.m_position : size;
    if (offset < -base || offset > std::numeric_limits<int64_t>::max() - base)
        return AVERROR(EINVAL);
    return input.m_position = base + offset;
}

} // namespace HostPlatform
