/*
 * The limits on converting one clip.
 */
#pragma once

namespace ConvertLimits {

inline constexpr int Minutes = 10; ///< of sound
inline constexpr int Seconds = 10; ///< of processor time
inline constexpr int Octets = 256 << 20; ///< of memory
inline constexpr int ResultOctets = 20 << 20; ///< of a sound (10 minutes of AMR-WB) or a picture
inline constexpr int WaitingSeconds = 30; ///< until a process counts as stuck

} // namespace ConvertLimits
