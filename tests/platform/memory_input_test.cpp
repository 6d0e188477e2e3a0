/*
 * The file that FFmpeg reads a clip from, called as FFmpeg calls it: what it reads, where it seeks,
 * and how much it may read in all.
 */
#include "platform/host/memory_input.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <limits>

extern "C" {
#include <libavformat/avio.h>
#include <libavutil/error.h>
}

using HostPlatform::MemoryInput;
using HostPlatform::Octets;

namespace {

constexpr int WindowSize = 4096; // octets of one read

/// A clip, and the file over it.
class File
{
public:
    explicit File(const QByteArray &clip)
        : m_clip(clip), m_input(Octets(reinterpret_cast<const unsigned char *>(m_clip.constData()),
                                       size_t(m_clip.size())))
    {
    }

    MemoryInput &input() { return m_input; }

    /// The octets of one read; the negative result as a number if it fails.
    QByteArray read(int size = WindowSize)
    {
        const int result = file().read_packet(file().opaque, m_window.data(), size);
        return result < 0 ? QByteArray::number(result)
                          : QByteArray(reinterpret_cast<const char *>(m_window.data()), result);
    }

    int64_t seek(int64_t offset, int whence) { return file().seek(file().opaque, offset, whence); }

    /// Reads the clip again and again. The number of octets until a read is refused, or -1.
    int64_t readUntilRefused()
    {
        constexpr int64_t farBeyondTheBudget = 1 << 24;
        int64_t octets = 0;
        while (octets < farBeyondTheBudget) {
            seek(0, SEEK_SET);
            const int result = file().read_packet(file().opaque, m_window.data(), WindowSize);
            if (result < 0)
                return result == AVERROR(EIO) ? octets : -1;
            octets += result;
        }
        return -1;
    }

private:
    AVIOContext &file() { return *m_input.file(); }

    QByteArray m_clip;
    MemoryInput m_input;
    std::array<unsigned char, WindowSize> m_window{};
};

const QByteArray EndOfFile = QByteArray::number(AVERROR_EOF);

} // namespace

TEST(MemoryInput, ReadsToTheEnd)
{
    File file("octets");
    EXPECT_EQ(file.read(4), "octe");
    EXPECT_EQ(file.read(4), "ts");
    EXPECT_EQ(file.read(4), EndOfFile);
    EXPECT_FALSE(file.input().isExhausted());
}

TEST(MemoryInput, SeeksFromTheBeginningThePositionAndTheEnd)
{
    File file("octets");
    EXPECT_EQ(file.seek(0, AVSEEK_SIZE), 6);
    EXPECT_EQ(file.seek(4, SEEK_SET), 4);
    EXPECT_EQ(file.read(1), "t");
    EXPECT_EQ(file.seek(-3, SEEK_CUR), 2);
    EXPECT_EQ(file.read(1), "t");
    EXPECT_EQ(file.seek(-1, SEEK_END), 5);
    EXPECT_EQ(file.read(1), "s");
}

TEST(MemoryInput, SeeksToItsFirstOctetAndNotBeforeIt)
{
    File file("octets");
    EXPECT_EQ(file.seek(0, SEEK_SET), 0);
    EXPECT_EQ(file.seek(-1, SEEK_SET), AVERROR(EINVAL));
    EXPECT_EQ(file.seek(3, SEEK_SET), 3);
    EXPECT_EQ(file.seek(-4, SEEK_CUR), AVERROR(EINVAL));
    EXPECT_EQ(file.seek(-7, SEEK_END), AVERROR(EINVAL));
    EXPECT_EQ(file.seek(std::numeric_limits<int64_t>::min(), SEEK_CUR), AVERROR(EINVAL));
    EXPECT_EQ(file.read(1), "e") << "the position stays";
    EXPECT_EQ(file.seek(-4, SEEK_CUR), 0);
    EXPECT_EQ(file.seek(-6, SEEK_END), 0);
}

TEST(MemoryInput, SeeksBeyondItsEndButNotBeyondTheLargestNumber)
{
    constexpr auto most = std::numeric_limits<int64_t>::max();
    File file("octets");
    EXPECT_EQ(file.seek(most - 6, SEEK_END), most);
    EXPECT_EQ(file.read(), EndOfFile);
    EXPECT_EQ(file.seek(1, SEEK_CUR), AVERROR(EINVAL));
    EXPECT_EQ(file.seek(most - 5, SEEK_END), AVERROR(EINVAL));
}

// Eight passes, and 1 MiB for small files.
TEST(MemoryInput, ReadsNoMoreThanItsBudget)
{
    File file(QByteArray(WindowSize, 'a'));
    EXPECT_EQ(file.readUntilRefused(), 8 * WindowSize + (1 << 20));
    EXPECT_TRUE(file.input().isExhausted());
}

TEST(MemoryInput, GetsFourMoreReadsForEachPacket)
{
    File file(QByteArray(WindowSize, 'a'));
    file.input().allowPacket();
    file.input().allowPacket();
    EXPECT_EQ(file.readUntilRefused(), (8 + 2 * 4) * WindowSize + (1 << 20));
    file.input().allowPacket();
    EXPECT_TRUE(file.input().isExhausted()) << "once exhausted, it stays so";
    EXPECT_EQ(file.readUntilRefused(), 0);
}
