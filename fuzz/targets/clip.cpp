/*
 * A clip from outside in the host's player engine. Built once for each of the project's own
 * readers, with their extension, and once for FFmpeg's demuxers, among which the first octet
 * chooses.
 */
#include "support/invariant.h"

#include <qvlsmilparser.h>

#include <cstdint>
#include <iterator>

namespace {

[[maybe_unused]] const char *const extensions[] = {"amr", "awb", "aac", "mp3", "wav", "3gp", "avi",
                                                   "ogg", "mpg", "qcp", "MOV", "txt", ""};

void probe(const std::uint8_t *data, std::size_t size, const char *extension)
{
    MP_PlayerEngine *engine = MP_CreatePlayerEngine(nullptr, nullptr);
    if (engine->open(reinterpret_cast<const char *>(data), int(size), extension)) {
        StaticStreamInfo info;
        require(engine->getStreamInfo(&info), "an opened clip has information");
        require(info.playDuration >= 0, "a clip does not play for less than no time");
        engine->close();
    }
    engine->destroy();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
#ifdef QVL_CLIP_EXTENSION
    probe(data, size, QVL_CLIP_EXTENSION);
#else
    if (size > 0)
        probe(data + 1, size - 1, extensions[data[0] % std::size(extensions)]);
#endif
    return 0;
}
