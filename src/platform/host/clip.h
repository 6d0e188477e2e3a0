/*
 * Clips as the host's player engine opens them: one opener for each family of formats.
 */
#pragma once

#include <functional>
#include <span>

namespace HostPlatform {

using Octets = std::span<const unsigned char>;

/// Tells how long an opened clip plays, in milliseconds; 0 when that cannot be known. The octets
/// must still be there.
using Measure = std::function<int()>;

/// Each opens a clip of its kind, and gives nothing when @p clip is none.
Measure openMidi(Octets clip); ///< standard MIDI file of any format
Measure openImelody(Octets clip);
Measure openInModule(Octets clip, const char *reader); ///< what a reader of clip_module.h reads

} // namespace HostPlatform
