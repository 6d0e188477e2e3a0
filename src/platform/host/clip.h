/*
 * How the host's player engine opens clips: one function for each family of formats.
 */
#pragma once

#include <functional>
#include <span>

namespace HostPlatform {

using Octets = std::span<const unsigned char>;

/// Returns how long an opened clip plays, in milliseconds; 0 when unknown. The octets must still
/// exist.
using Measure = std::function<int()>;

/// Each opens a clip of its format, or returns null when @p clip is not one.
Measure openMidi(Octets clip); ///< standard MIDI file of any format
Measure openImelody(Octets clip);
Measure openInModule(Octets clip, const char *reader); ///< a clip for a reader of clip_module.h

} // namespace HostPlatform
