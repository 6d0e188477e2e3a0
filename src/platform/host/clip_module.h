/*
 * Clips that FFmpeg reads. The readers are in a module, a shared library that the platform library
 * loads for the first such clip: linking FFmpeg and the hundred libraries that it depends on takes
 * longer than decoding dozens of messages.
 */
#pragma once

#include "platform/host/clip.h"

namespace HostPlatform {

constexpr char AdtsReader[] = "adts"; ///< the one reader that is not a demuxer

/// Each opens a clip of its format, or returns null when @p clip is not one.
Measure openAdts(Octets clip); ///< raw AAC
Measure openDemuxed(Octets clip, const char *demuxer); ///< a format of FFmpeg's @p demuxer

} // namespace HostPlatform

/// The module's only export. @p reader is AdtsReader or one of FFmpeg's demuxers; @p measure gets
/// the result of openAdts() or openDemuxed().
extern "C" void qvlOpenClip(HostPlatform::Octets clip, const char *reader,
                            HostPlatform::Measure *measure);
