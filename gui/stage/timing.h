/*
 * When slides and their media begin and end. All times are in milliseconds.
 */
#pragma once

#include <vector>

struct Message;

/// When a media object is shown or played, from the begin of its slide.
struct MediaSpan
{
    static constexpr int WithSlide = -1; ///< as an end

    int begin = 0;
    int end = WithSlide;

    bool contains(int time) const { return time >= begin && (end == WithSlide || time < end); }
};

struct SlideTiming
{
    int duration = 0; ///< QvlDuration::Indefinite for a slide until "next"
    bool waitsForClips = false; ///< its clips are not longer than the slide
    std::vector<MediaSpan> media; ///< in the order of the slide
};

/// The timing of each slide of @p message: the presentation's own durations. A slide of 0 is shown
/// for half a second, one without a duration as long as its clips, or for five seconds. A time that
/// depends on an event counts as not given.
std::vector<SlideTiming> timingOf(const Message &message);
