#include "html/slide_page.h"

#include "html/media.h"
#include "render/layout.h"
#include "render/slide_style.h"
#include "render/text.h"

using namespace Qt::StringLiterals;

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Slide = MMS_COMP_SMILTimingContainer;

constexpr qsizetype OctetsForCharacter = 10; // as many octets of a picture take as long to write
constexpr QStringView NotShown = u" is left out: the page would be too large";

/// The slides, and the page that all of them have.
struct SlidesOfPage
{
    const MMS_COMP_SMILData &data;
    Page page;
};

QString number(double value)
{
    return QString::number(value, 'g', 6);
}

const char *fitClass(const PlacedObject &place)
{
    if (place.sharesPage)
        return "shared";
    switch (place.fit) {
    case SMIL_REGION_FIT_FILL:
        return "fill";
    case SMIL_REGION_FIT_MEET:
        return "meet";
    case SMIL_REGION_FIT_SLICE:
        return "slice";
    default:
        return "hidden";
    }
}

// Qt's layouts have another character for a new line.
void writeText(HtmlWriter *html, QString text, HtmlWriter::Attributes attributes)
{
    html->element("div", text.replace(QChar::LineSeparator, u'\n'), attributes);
}

void writeName(HtmlWriter *html, const QString &name, QStringView why)
{
    html->element("div", name + why.toString(), {{"class", u"name"_s}});
}

void writePicture(HtmlWriter *html, const PlacedObject &place, const BrowserMedia &picture)
{
    const Object &object = *place.object;
    html->singleWithData("img", "src", picture.type, picture.octets,
                         {{"class", QString::fromLatin1(fitClass(place))},
                          {"alt", object.getAlt().isEmpty() ? object.getSrc() : object.getAlt()},
                          {"loading", u"lazy"_s},
                          {"decoding", u"async"_s}});
}

void writeMedia(HtmlWriter *html, const PlacedObject &place, PageMedia *media)
{
    const Object &object = *place.object;
    if (object.getMediaElementType() == SMIL_MEDIA_TEXT && object.getData()) {
        const QString text = media->texts().find(*object.getData());
        if (!media->take(object, text.size() * OctetsForCharacter))
            return writeName(html, object.getSrc(), NotShown);
        return writeText(html, text, {{"class", u"text"_s}, {"dir", u"auto"_s}});
    }
    const BrowserMedia picture = media->picture(place);
    if (!picture.type)
        return writeName(html, object.getSrc(), u" cannot be shown");
    if (!media->take(object, picture.octets.size()))
        return writeName(html, object.getSrc(), NotShown);
    writePicture(html, place, picture);
}

void writePlaced(HtmlWriter *html, const SlideStyle &style, const PlacedObject &place,
                 const QRectF &page, PageMedia *media)
{
    const QRectF area = place.area & page;
    if (area.isEmpty())
        return;
    html->open("foreignObject",
               {{"x", number(area.x())},
                {"y", number(area.y())},
                {"width", number(area.width())},
                {"height", number(area.height())},
                {"color", style.textInk.name()},
                {"font-size", number(style.textHeight)}});
    html->open("div", {{"class", u"page"_s}});
    writeMedia(html, place, media);
    html->close();
    html->close();
}

void writePage(HtmlWriter *html, const QList<PlacedObject> &places, const QSize &size,
               const SlideStyle &style, unsigned int index, PageMedia *media)
{
    html->open("svg",
               {{"viewBox", u"0 0 %1 %2"_s.arg(size.width()).arg(size.height())},
                {"role", u"group"_s},
                {"aria-label", u"Slide %1"_s.arg(index + 1)}});
    html->open("rect", {{"width", u"100%"_s}, {"height", u"100%"_s}, {"fill", style.paper.name()}});
    html->close();
    for (const PlacedObject &place : places)
        writePlaced(html, style, place, QRectF(QPointF(0, 0), size), media);
    html->close();
}

// The texts that do not fit, or were not measured, whole, below the page.
void writeLongTexts(HtmlWriter *html, const QList<PlacedObject> &places, const QSize &size,
                    double textHeight, PageMedia *media)
{
    for (const PlacedObject &place : places) {
        const Object &object = *place.object;
        if (object.getMediaElementType() != SMIL_MEDIA_TEXT || !object.getData())
            continue;
        const QString text = media->texts().find(*object.getData());
        const QRectF area = place.area & QRectF(QPointF(0, 0), size);
        if (media->fits(*object.getData(), area.size(), textHeight)
            || !media->take(object, text.size() * OctetsForCharacter))
            continue;
        html->element("p", u"The whole text of "_s + object.getSrc() + u':',
                      {{"class", u"caption"_s}});
        writeText(html, text,
                  {{"class", u"whole"_s},
                   {"dir", u"auto"_s},
                   {"tabindex", u"0"_s},
                   {"role", u"group"_s},
                   {"aria-label", object.getSrc()}});
    }
}

bool isClip(const Object &object)
{
    const int type = object.getMediaElementType();
    return type == SMIL_MEDIA_AUDIO || type == SMIL_MEDIA_VIDEO;
}

// Such as "1.5 s", "21 min 40 s" or "1 h".
QString timeText(int milliseconds)
{
    constexpr int Second = 1000;
    constexpr int Minute = 60 * Second;
    constexpr int Hour = 60 * Minute;
    QStringList words;
    if (milliseconds >= Hour)
        words += u"%1 h"_s.arg(milliseconds / Hour);
    if (const int minutes = milliseconds % Hour / Minute)
        words += u"%1 min"_s.arg(minutes);
    if (milliseconds % Minute > 0 || words.isEmpty())
        words += number(double(milliseconds % Minute) / Second) + u" s"_s;
    return words.join(u' ');
}

QString lengthText(int milliseconds)
{
    return milliseconds < 0 ? u"of unknown length"_s : timeText(milliseconds);
}

// What is not played of a clip of @p length milliseconds, as the end of a sentence.
QString notPlayed(const BrowserMedia &clip, bool isPlayed, int length)
{
    constexpr int Tolerance = 1000; // of a measured length
    if (!isPlayed)
        return clip.whyNot ? u", "_s + QLatin1StringView(clip.whyNot) : u',' + NotShown.toString();
    const bool isTruncated = clip.milliseconds >= 0 && length > clip.milliseconds + Tolerance;
    return isTruncated ? u", only the first "_s + timeText(clip.milliseconds) : QString();
}

// Sounds and videos below the page, where their controls have room.
void writePlayer(HtmlWriter *html, const Object &object, PageMedia *media)
{
    auto *part = object.getData();
    const bool isVideo = object.getMediaElementType() == SMIL_MEDIA_VIDEO;
    if (!part || !isClip(object))
        return;
    const BrowserMedia clip = media->player(*part, isVideo);
    const bool isPlayed = clip.type && media->take(object, clip.octets.size());
    if (isPlayed) {
        html->openWithData(isVideo ? "video" : "audio", "src", clip.type, clip.octets,
                           {{"controls", {}}, {"preload", u"none"_s}, {"title", object.getSrc()}});
        html->close();
    }
    const int length = media->playDuration(*part);
    html->element("p",
                  object.getSrc() + u" ("_s + part->getMimeFormat() + u"), "_s + lengthText(length)
                      + notPlayed(clip, isPlayed, length),
                  {{"class", u"caption"_s}});
}

// Milliseconds that a slide plays: without a duration as long as its clips. Indefinite for one
// that has no end.
int playedDuration(const Slide &slide, PageMedia *media)
{
    constexpr int WithoutClips = 5000; // as generated slides
    if (slide.getDur() >= 0 || slide.getDur() == QvlDuration::Indefinite)
        return slide.getDur();
    int longest = 0;
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i) {
        auto *part = slide.getMediaObject(i)->getData();
        if (part && isClip(*slide.getMediaObject(i)))
            longest = std::max(longest, media->playDuration(*part));
    }
    return longest > 0 ? longest : WithoutClips;
}

QString durationText(const Slide &slide, int played)
{
    if (played == QvlDuration::Indefinite)
        return u"no end"_s;
    return slide.getDur() >= 0 ? timeText(played) : u"no duration, plays "_s + timeText(played);
}

void writeSlide(HtmlWriter *html, const SlidesOfPage &slides, unsigned int index, PageMedia *media)
{
    const Slide &slide = *slides.data.getSlide(index);
    const int played = playedDuration(slide, media);
    html->open("li", {{"class", u"slide"_s}, {"data-duration", QString::number(played)}});
    const QSize size = slides.page.size();
    const SlideStyle style = slideStyle(slides.data, slide, pageUnit(size));
    const QList<PlacedObject> places = slides.page.place(objectsOnPage(slide, &media->texts()));
    writePage(html, places, size, style, index, media);
    writeLongTexts(html, places, size, style.textHeight, media);
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i)
        writePlayer(html, *slide.getMediaObject(i), media);
    html->element("p", u"Slide %1, "_s.arg(index + 1) + durationText(slide, played),
                  {{"class", u"caption"_s}});
    html->close();
    html->markup("\n");
}

} // namespace

void writeSlides(HtmlWriter *html, const MMS_COMP_SMILData &slides, PageMedia *media)
{
    const SlidesOfPage page{slides, Page(slides)};
    for (unsigned int i = 0; i < slides.getTotalSlidesNum(); ++i)
        writeSlide(html, page, i, media);
}
