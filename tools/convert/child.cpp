#include "convert/child.h"

#include "convert/decoder_module.h"
#include "convert/limits.h"
#include "convert/wav.h"

#include <QFile>
#include <QImage>
#include <QLibrary>

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

namespace ConvertChild {

namespace {

/// FFmpeg's demuxer for a file extension.
struct Demuxer
{
    std::string_view extension;
    const char *name;
};

constexpr std::array demuxers{
    Demuxer{"amr", "amr"}, Demuxer{"awb", "amr"}, Demuxer{"3gp", "mov"},  Demuxer{"3gpp", "mov"},
    Demuxer{"3g2", "mov"}, Demuxer{"mov", "mov"}, Demuxer{"qt", "mov"},   Demuxer{"m4v", "mov"},
    Demuxer{"mp4", "mov"}, Demuxer{"m4a", "mov"}, Demuxer{"aac", "aac"},  Demuxer{"mp3", "mp3"},
    Demuxer{"wav", "wav"}, Demuxer{"avi", "avi"}, Demuxer{"mpg", "mpeg"}, Demuxer{"mpeg", "mpeg"},
    Demuxer{"qcp", "qcp"},
};

const char *demuxerFor(std::string_view extension)
{
    const auto found = std::ranges::find(demuxers, extension, &Demuxer::extension);
    return found != demuxers.end() ? found->name : nullptr;
}

void limit(int resource, rlim_t most)
{
    const rlimit limits{most, most};
    ::setrlimit(resource, &limits);
}

// Sanitizers reserve terabytes, so their builds have no limit on memory.
void limitProcess()
{
    limit(RLIMIT_CPU, ConvertLimits::Seconds);
    limit(RLIMIT_CORE, 0);
#ifndef QVLMMS_UNLIMITED_MEMORY
    limit(RLIMIT_DATA, ConvertLimits::Octets);
#endif
    constexpr unsigned int FirstOther = 3;
    ::close_range(FirstOther, ~0U, 0);
}

const DecoderModule *loadModule(const char *folder)
{
    QLibrary library(QFile::decodeName(folder) + QLatin1StringView("/decoder.so"));
    library.setLoadHints(QLibrary::PreventUnloadHint);
    return reinterpret_cast<const DecoderModule *>(library.resolve("qvlmmsDecoder"));
}

/// Writes sound to standard output, up to the most minutes.
class SoundWriter
{
public:
    static bool take(void *self, int rate, int channels, const int16_t *samples, std::size_t count)
    {
        return static_cast<SoundWriter *>(self)->write(rate, channels, samples, count);
    }

private:
    bool write(int rate, int channels, const int16_t *samples, std::size_t count)
    {
        if (m_left == 0) {
            const Sound::Form form{rate, channels};
            std::fwrite(&form, sizeof form, 1, stdout);
            m_form = form;
            m_left = std::min(std::size_t(ConvertLimits::Minutes) * 60 * std::size_t(rate)
                                  * std::size_t(channels),
                              (ConvertLimits::ResultOctets - sizeof form) / sizeof *samples);
        }
        if (rate != m_form.rate || channels != m_form.channels)
            return false;
        const std::size_t written = std::min(count, m_left);
        m_left -= written;
        return std::fwrite(samples, sizeof *samples, written, stdout) == written && m_left > 0;
    }

    Sound::Form m_form{};
    std::size_t m_left = 0; // samples; 0 before the first ones
};

// The codec in the first line, then the picture.
void writePicture(void *, const char *codec, int width, int height, const uint8_t *pixels,
                  std::ptrdiff_t stride)
{
    std::fprintf(stdout, "%s\n", codec);
    std::fflush(stdout);
    QFile out;
    if (out.open(stdout, QIODevice::WriteOnly))
        QImage(pixels, width, height, stride, QImage::Format_RGB888).save(&out, "PNG");
}

} // namespace

bool canConvert(std::string_view extension)
{
    return demuxerFor(extension) != nullptr;
}

int run(int argc, char **argv)
{
    if (argc != 3)
        return 2;
    const char *demuxer = demuxerFor(argv[1]);
    const DecoderModule *module = demuxer ? loadModule(argv[2]) : nullptr;
    if (!module)
        return 2;
    limitProcess();
    QFile in;
    if (!in.open(stdin, QIODevice::ReadOnly))
        return 2;
    const QByteArray clip = in.readAll();
    const auto *octets = reinterpret_cast<const uint8_t *>(clip.constData());
    SoundWriter writer;
    const bool isSound = std::strcmp(argv[0], "sound") == 0;
    const bool isDone = isSound
        ? module->decodeSound(octets, std::size_t(clip.size()), demuxer, &writer, SoundWriter::take)
        : module->decodePicture(octets, std::size_t(clip.size()), demuxer, nullptr, writePicture);
    return std::fflush(stdout) == 0 && isDone ? 0 : 1;
}

} // namespace ConvertChild
