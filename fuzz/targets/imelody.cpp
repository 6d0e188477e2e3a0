/*
 * An untrusted clip for the project's own iMelody reader.
 */
#include "support/clip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    probeClip(data, size, "imy");
    return 0;
}
