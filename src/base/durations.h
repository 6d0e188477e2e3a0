/** @file
 * Durations of slides and clips. All are in milliseconds.
 */
#pragma once

#include <QtGlobal>

/// Durations that mean something else than their number, and the unit of all others.
namespace QvlDuration {
inline constexpr int None = -1; ///< no duration is given
inline constexpr int Indefinite = -2; ///< until the user goes on
inline constexpr int Default = 5000; ///< of a slide that gives none, or one that is not understood
inline constexpr int Step = 500; ///< slides last a whole number of steps

/// @p milliseconds, up to the next whole number of steps unless it is negative. At most Step more,
/// which may be beyond an int.
constexpr qint64 roundedUpToStep(qint64 milliseconds)
{
    const qint64 rest = milliseconds % Step;
    return rest > 0 ? milliseconds - rest + Step : milliseconds;
}
} // namespace QvlDuration
