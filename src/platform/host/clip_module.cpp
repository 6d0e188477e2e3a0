/*
 * Entry point of the module with the FFmpeg readers.
 */
#include "platform/host/clip_module.h"

#include <string_view>

using namespace HostPlatform;

void qvlOpenClip(Octets clip, const char *reader, Measure *measure)
{
    const bool isAdts = std::string_view(reader) == AdtsReader;
    *measure = isAdts ? openAdts(clip) : openDemuxed(clip, reader);
}
