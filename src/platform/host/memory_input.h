/*
 * Memory as FFmpeg reads a file, up to a limit on the octets read.
 */
#pragma once

#include "platform/host/clip.h"

#include <cstdint>
#include <memory>

struct AVIOContext;

namespace HostPlatform {

/// A file with the octets of a clip, which must outlive it.
class MemoryInput
{
public:
    explicit MemoryInput(Octets clip);
    MemoryInput(const MemoryInput &) = delete;
    MemoryInput &operator=(const MemoryInput &) = delete;
    ~MemoryInput();

    /// The file for FFmpeg, owned by this object. Null when there is no memory.
    AVIOContext *file() const { return m_file.get(); }

    /// Raises the limit by one packet, wherever it is.
    void allowPacket();
    /// True once FFmpeg tried to read more than allowed; demuxers take it for an error.
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
