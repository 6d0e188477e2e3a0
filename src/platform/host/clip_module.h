/*
 * Clips that are read with FFmpeg. Its readers are in a module, a shared library of their own, that
 * is loaded with the first such clip: linking FFmpeg and the hundred libraries that it depends on
 * takes longer than decoding dozens of messages.
 */
#pragma once

#include "platform/host/clip.h"

namespace HostPlatform {

constexpr char AdtsReader[] = "adts"; ///< the reader that is no demuxer

/// Each opens a clip of its kind, and gives nothing when @p clip is none.
Measure openAdts(Octets clip); ///< raw AAC
Measure openDemuxed(Octets clip, const char *demuxer); ///< what FFmpeg's @p demuxer reads

} // namespace HostPlatform

/// What the module exports. @p reader is AdtsReader or one of FFmpeg's demuxers; @p measure becomes
/// what openAdts() or openDemuxed() gives.
extern "C" void qvlOpenClip(HostPlatform::Octets clip, const char *reader,
                            HostPlatform::Measure *measure);
