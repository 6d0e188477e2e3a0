#include "stage/timing.h"

#include "input/message.h"
#include "view/shown_parts.h"

#include <algorithm>

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Slide = MMS_COMP_SMILTimingContainer;

constexpr int ShortestDuration = 500; // so that a slide of 0 is seen
constexpr int WithoutClips = 5000;

bool isClip(const Object &object)
{
    const int type = object.getMediaElementType();
    return type == SMIL_MEDIA_AUDIO || type == SMIL_MEDIA_VIDEO;
}

MediaSpan spanOf(const Object &object)
{
    MediaSpan span;
    if (object.getBeginTimeType() == SMIL_TIME_OFFSET)
        span.begin = std::max(0, object.getBeginTimeLength());
    // Some senders write an end of 0 for media that are to be seen.
    if (object.getEndTimeType() == SMIL_TIME_OFFSET && object.getEndTimeLength() > span.begin)
        span.end = object.getEndTimeLength();
    return span;
}

SlideTiming timingOf(const Slide &slide, ShownParts *parts)
{
    SlideTiming timing;
    int longest = 0;
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i) {
        const Object &object = *slide.getMediaObject(i);
        timing.media.push_back(spanOf(object));
        if (object.getData() && isClip(object))
            longest = std::max(longest, parts->playDuration(*object.getData()));
    }
    const int given = slide.getDur();
    timing.duration = given == QvlDuration::Indefinite ? given
        : given >= 0                                   ? std::max(given, ShortestDuration)
        : longest > 0                                  ? longest
                                                       : WithoutClips;
    timing.waitsForClips = longest > 0 && longest <= timing.duration;
    return timing;
}

} // namespace

std::vector<SlideTiming> timingOf(const Message &message)
{
    std::vector<SlideTiming> timings;
    ShownParts parts(message);
    const MMS_COMP_SMILData &slides = message.slides();
    for (unsigned int i = 0; i < slides.getTotalSlidesNum(); ++i)
        timings.push_back(timingOf(*slides.getSlide(i), &parts));
    return timings;
}
