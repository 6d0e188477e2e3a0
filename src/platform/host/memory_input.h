/*
 * Octets in memory as FFmpeg reads a file, up to a budget.
 */
#pragma once

#include "platform/host/clip.h"

#include <cstdint>
#include <memory>

struct AVIOContext;

namespace HostPlatform {

/// A file that is the octets of a clip, which have to outlive it.
class MemoryInput
{
public:
    explicit MemoryInput(Octets clip);
    MemoryInput(const MemoryInput &) = delete;
    MemoryInput &operator=(const MemoryInput &) = delete;
    ~MemoryInput();

    /// The file for FFmpeg; stays this object's. Null when there is no memory.
    AVIOContext *file() const { return m_file.get(); }

    /// Lets one more packet be read, wherever it stands.
    void allowPacket();
    /// True once more was to be read than was allowed, which a demuxer takes for an error.
    bool isExhausted() const { return m_budget < 0; }

private:
    static int read(void *self, uint8_t *target, int size);
    static int64_t seek(void *self, int64_t offset, int whence);

    struct FileCloser
    {
        void operator()(AVIOContext *file) const;
    };

    Octets m_octets;
    int64_t m_position = 0;
    int64_t m_budget; // octets
    std::unique_ptr<AVIOContext, FileCloser> m_file;
};

} // namespace HostPlatform
