/** @file
 * Durations of slides and clips. All are in milliseconds.
 */
#pragma once

/// Durations that mean something else than their number, and the unit of all others.
namespace QvlDuration {
inline constexpr int None = -1; ///< no duration is given
inline constexpr int Indefinite = -2; ///< until the user goes on
inline constexpr int Default = 5000; ///< of a slide that gives none, or one that is not understood
inline constexpr int Step = 500; ///< slides last a whole number of steps
} // namespace QvlDuration
