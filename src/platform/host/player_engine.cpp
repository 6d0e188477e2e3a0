/*
 * Player engine of the desktop. It plays nothing; it finds out whether a clip can be read and how
 * long it plays.
 *
 * The file extension alone selects the reader, so that a sender cannot choose one by the octets. A
 * program with its own engine defines MP_CreatePlayerEngine(), and the dynamic linker prefers it.
 */
#include "platform/player_engine.h"

#include "base/no_memory.h"
#include "platform/host/clip_module.h"

#include <QLatin1StringView>

#include <algorithm>

using namespace HostPlatform;

namespace {

struct FormatRow
{
    const char *extension;
    const char *reader; ///< for openInModule(); null for formats with a reader in this library
    Measure (*open)(Octets clip);
};

constexpr FormatRow formats[] = {
    {"3g2", "mov", nullptr},     {"3gp", "mov", nullptr},      {"3gpp", "mov", nullptr},
    {"3gpp2", "mov", nullptr},   {"aac", AdtsReader, nullptr}, {"amr", "amr", nullptr},
    {"avi", "avi", nullptr},     {"awb", "amr", nullptr},      {"imy", nullptr, openImelody},
    {"m4a", "mov", nullptr},     {"m4v", "mov", nullptr},      {"mid", nullptr, openMidi},
    {"midi", nullptr, openMidi}, {"mov", "mov", nullptr},      {"mp3", "mp3", nullptr},
    {"mp4", "mov", nullptr},     {"mpe", "mpeg", nullptr},     {"mpeg", "mpeg", nullptr},
    {"mpg", "mpeg", nullptr},    {"mpga", "mp3", nullptr},     {"oga", "ogg", nullptr},
    {"ogg", "ogg", nullptr},     {"qcp", "qcp", nullptr},      {"qt", "mov", nullptr},
    {"wav", "wav", nullptr},
};

Measure openClip(Octets clip, QLatin1StringView extension)
{
    const auto row = std::ranges::find_if(formats, [&](const FormatRow &format) {
        return extension.compare(QLatin1StringView(format.extension), Qt::CaseInsensitive) == 0;
    });
    if (row == std::end(formats))
        return nullptr;
    return row->open ? row->open(clip) : openInModule(clip, row->reader);
}

class HostPlayerEngine final : public MP_PlayerEngine
{
public:
    void destroy() override { delete this; }

    bool open(const char *data, int size, const char *extension) override
    {
        close();
        if (!data || size <= 0 || !extension)
            return false;
        return unlessOutOfMemory(false, [&] {
            m_measure = openClip({reinterpret_cast<const unsigned char *>(data), size_t(size)},
                                 QLatin1StringView(extension));
            return bool(m_measure);
        });
    }

    void close() override { m_measure = nullptr; }

    bool getStreamInfo(StaticStreamInfo *info) override
    {
        if (!info || !m_measure)
            return false;
        return unlessOutOfMemory(false, [&] {
            info->playDuration = m_measure();
            return true;
        });
    }

private:
    Measure m_measure;
};

} // namespace

MP_PlayerEngine *MP_CreatePlayerEngine(SOUNDM_AudioDevice_Interface *, Qvl_VideoDevice *)
{
    return new (std::nothrow) HostPlayerEngine;
}
