/** @file
 * Durations of slides and clips. All are in milliseconds.
 */
#pragma once

#include <QtGlobal>

/// Durations with a special meaning, and the unit of all others.
namespace QvlDuration {
inline constexpr int NotGiven = -1; ///< no duration is given
inline constexpr int Indefinite = -2; ///< until the user continues
inline constexpr int Default = 5000; ///< of a slide without a duration or with an unreadable one
inline constexpr int Step = 500; ///< slides last a whole number of steps

/// @p milliseconds, rounded up to a whole number of steps unless negative. The result is at most
/// Step larger, which may exceed an int.
constexpr qint64 roundedUpToStep(qint64 milliseconds)
{
    const qint64 rest = milliseconds % Step;
    return rest > 0 ? milliseconds - rest + Step : milliseconds;
}
} // namespace QvlDuration
