/*
 * Checks the limits of a clip before a demuxer sees it.
 *
 * Demuxers trust a clip: a few octets can announce a hundred million samples, for which they
 * allocate memory, or decompress to a thousand times their size.
 */
#pragma once

#include "platform/host/clip.h"

namespace HostPlatform {

/// @p clip without the ID3v2 tags before it, which may contain compressed frames.
Octets withoutTags(Octets clip);

/// False when the numbers that @p clip announces to FFmpeg's @p demuxer are out of proportion to
/// its size.
bool isWithinLimits(Octets clip, const char *demuxer);

} // namespace HostPlatform
