/*
 * Limits of a clip, checked before a demuxer sees it.
 *
 * Demuxers believe what a clip says of itself: a few octets can announce a hundred million samples,
 * for which they make room, or unpack to a thousand times their size.
 */
#pragma once

#include "platform/host/clip.h"

namespace HostPlatform {

/// @p clip without the ID3v2 tags before it, whose frames may be compressed.
Octets withoutTags(Octets clip);

/// False when what @p clip announces to FFmpeg's @p demuxer is out of proportion to its size.
bool isWithinLimits(Octets clip, const char *demuxer);

} // namespace HostPlatform
