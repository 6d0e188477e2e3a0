/*
 * The limits on converting one clip, and on streaming one.
 */
#pragma once

namespace ConvertLimits {

inline constexpr int Minutes = 10; ///< of sound, and of a clip that is streamed
inline constexpr int Seconds = 10; ///< of processor time
inline constexpr int Octets = 256 << 20; ///< of memory
inline constexpr int ResultOctets = 20 << 20; ///< of a sound (10 minutes of AMR-WB) or a picture
inline constexpr int WaitingSeconds = 30; ///< until a process counts as stuck

inline constexpr int StreamSeconds = 120; ///< of processor time, for a clip that is streamed
inline constexpr int StreamWaitingSeconds = 10; ///< until a process without a new record is stuck
inline constexpr int PictureSide = 1024; ///< of a streamed picture; larger ones become smaller
inline constexpr int RecordOctets = 3 * PictureSide * PictureSide;
inline constexpr int Channels = 8;
inline constexpr int SampleRate = 192'000;

} // namespace ConvertLimits
