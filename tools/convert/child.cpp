#include "convert/child.h"

#include "convert/decoder_module.h"
#include "convert/limits.h"
#include "convert/stream_writer.h"
#include "convert/wav.h"

#include <QFile>
#include <QImage>
#include <QLibrary>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <optional>
#include <string_view>

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

// Sanitizers reserve terabytes, so their builds have no limit on memory. A clip that is streamed
// may wait for long: its child ends with the program at the latest.
void limitProcess(bool isStreamed)
{
    limit(RLIMIT_CPU, isStreamed ? ConvertLimits::StreamSeconds : ConvertLimits::Seconds);
    limit(RLIMIT_CORE, 0);
#ifndef QVLMMS_UNLIMITED_MEMORY
    limit(RLIMIT_DATA, ConvertLimits::Octets);
#endif
    if (isStreamed)
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
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

/// A clip, and what decodes it.
struct Work
{
    const DecoderModule &module;
    const char *demuxer;
    const uint8_t *clip;
    std::size_t size;
};

bool convertSound(const Work &work)
{
    SoundWriter writer;
    return work.module.decodeSound(work.clip, work.size, work.demuxer, &writer, SoundWriter::take)
        && std::fflush(stdout) == 0;
}

bool convertPicture(const Work &work)
{
    return work.module.decodePicture(work.clip, work.size, work.demuxer, nullptr, writePicture)
        && std::fflush(stdout) == 0;
}

bool stream(const Work &work, int64_t fromMs)
{
    StreamWriter writer;
    const int64_t end = work.module.decodeClip(work.clip, work.size, work.demuxer, fromMs,
                                               ConvertLimits::PictureSide, &writer);
    return end >= 0 && writer.finish(end);
}

// The time from which a clip is streamed; nothing for clips that are converted.
std::optional<int64_t> startOf(std::string_view what)
{
    constexpr std::string_view Prefix = "stream=";
    int64_t ms = -1;
    if (what.starts_with(Prefix))
        std::from_chars(what.data() + Prefix.size(), what.data() + what.size(), ms);
    return ms >= 0 ? std::optional(ms) : std::nullopt;
}

} // namespace

QStringList extensions()
{
    QStringList all;
    for (const Demuxer &demuxer : demuxers)
        all += QString::fromLatin1(demuxer.extension.data(), qsizetype(demuxer.extension.size()));
    return all;
}

bool canConvert(std::string_view extension)
{
    return demuxerFor(extension) != nullptr;
}

int run(int argc, char **argv)
{
    if (argc != 3)
        return NotStarted;
    const std::string_view what = argv[0];
    const std::optional<int64_t> start = startOf(what);
    const char *demuxer = demuxerFor(argv[1]);
    const DecoderModule *module = demuxer ? loadModule(argv[2]) : nullptr;
    if (!module)
        return NotStarted;
    limitProcess(start.has_value());
    QFile in;
    if (!in.open(stdin, QIODevice::ReadOnly))
        return NotStarted;
    const QByteArray clip = in.readAll();
    const Work work{*module, demuxer, reinterpret_cast<const uint8_t *>(clip.constData()),
                    std::size_t(clip.size())};
    const bool isDone = start ? stream(work, *start)
        : what == "sound"     ? convertSound(work)
                              : convertPicture(work);
    return isDone ? Converted : NotDecoded;
}

} // namespace ConvertChild
