/*
 * An untrusted clip; its first octet selects the format. MIDI and iMelody have targets of their
 * own.
 */
#include "support/clip.h"

#include <iterator>

namespace {

const char *const extensions[] = {"amr", "awb", "aac", "mp3", "wav", "3gp", "avi",
                                  "ogg", "mpg", "qcp", "MOV", "txt", ""};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > 0)
        probeClip(data + 1, size - 1, extensions[data[0] % std::size(extensions)],
                  Memory::MayBeMissing);
    return 0;
}
