#include "view/slides_view.h"

#include "input/message.h"
#include "view/json_writer.h"
#include "view/model_text.h"
#include "view/result_view.h"
#include "view/shown_parts.h"
#include "view/terminal_text.h"

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;

QString firstLine(ShownParts *parts, const Object &object)
{
    const Part *part = object.getData();
    const bool isText = object.getMediaElementType() == SMIL_MEDIA_TEXT;
    return part && isText ? parts->firstLine(*part) : QString();
}

// Milliseconds that a clip plays, or -1 when the library cannot measure it.
int playDuration(ShownParts *parts, const Object &object)
{
    const int type = object.getMediaElementType();
    const bool isClip = type == SMIL_MEDIA_AUDIO || type == SMIL_MEDIA_VIDEO;
    return isClip && object.getData() ? parts->playDuration(*object.getData()) : -1;
}

QString playText(ShownParts *parts, const Object &object)
{
    const int milliseconds = playDuration(parts, object);
    return milliseconds < 0 ? QString() : ModelText::duration(milliseconds);
}

bool hasMeasuredClip(ShownParts *parts, const Slide &slide)
{
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i) {
        if (playDuration(parts, *slide.getMediaObject(i)) > 0)
            return true;
    }
    return false;
}

// The library takes a slide's duration from the document, or the default if that is malformed or
// media are outside of a par. Generated slides last as long as their clips.
QString durationSource(const Message &message, ShownParts *parts, const Slide &slide)
{
    const int milliseconds = slide.getDur();
    if (message.areSlidesGenerated())
        return hasMeasuredClip(parts, slide) ? QStringLiteral("measured")
                                             : QStringLiteral("by default");
    if (milliseconds == QvlDuration::NotGiven)
        return QStringLiteral("the document gives none");
    if (milliseconds == Slide::DefaultDuration)
        return QStringLiteral("from the document or by default");
    return QStringLiteral("from the document");
}

QString slideText(ShownParts *parts, const Slide &slide)
{
    QList<QStringList> rows;
    bool hasClips = false;
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i) {
        const Object &object = *slide.getMediaObject(i);
        const Part *part = object.getData();
        rows += {ModelText::mediaName(object),
                 object.getSrc(),
                 object.getRegionId(),
                 part ? QString::number(parts->indexOf(*part)) : QString(),
                 part ? QString::number(part->getBodyDataLen()) : QString(),
                 firstLine(parts, object),
                 playText(parts, object)};
        hasClips = hasClips || !rows.back().back().isEmpty();
    }
    if (rows.isEmpty())
        return QStringLiteral("      empty\n");
    QList<TerminalText::Column> columns{
        {QStringLiteral("Media")},   {QStringLiteral("Source")},       {QStringLiteral("Region")},
        {QStringLiteral("#"), true}, {QStringLiteral("Octets"), true}, {QStringLiteral("Text")}};
    if (hasClips)
        columns += {QStringLiteral("Plays"), true};
    return TerminalText::table(columns, rows, QStringLiteral("      ")).join(QLatin1Char('\n'))
        + QLatin1Char('\n');
}

QString slideTitle(const Message &message, ShownParts *parts, unsigned int index,
                   const Slide &slide)
{
    QStringList words{QStringLiteral("slide %1: ").arg(index + 1)
                      + ModelText::duration(slide.getDur()) + QLatin1String(" (")
                      + durationSource(message, parts, slide) + QLatin1Char(')')};
    if (slide.getPageColor().isUsable())
        words += QLatin1String("page ") + ModelText::color(slide.getPageColor());
    if (slide.getTextColor().isUsable())
        words += QLatin1String("text ") + ModelText::color(slide.getTextColor());
    if (!slide.getTextSize().isEmpty())
        words += QLatin1String("text size ") + TerminalText::visible(slide.getTextSize());
    return QLatin1String("    ") + words.join(QLatin1String(", ")) + QLatin1Char('\n');
}

void writeParams(const Object &object, JsonWriter *json)
{
    json->key("params");
    json->beginArray();
    for (int i = 0; i < object.getParamCount(); ++i) {
        const MMS_COMP_SMILMediaObjectParam &param = *object.getParam(i);
        json->beginObject();
        json->member("name", param.getName());
        json->member("value", param.getValue());
        json->endObject();
    }
    json->endArray();
}

void writeObject(ShownParts *parts, const Object &object, JsonWriter *json)
{
    const Part *const part = object.getData();
    json->beginObject();
    json->member("alt", object.getAlt());
    json->member("begin", ModelText::time(object.getBegin()));
    json->member("end", ModelText::time(object.getEnd()));
    if (object.getMediaElementType() == SMIL_MEDIA_TEXT)
        json->member("firstLine", firstLine(parts, object));
    json->member("kind", ModelText::mediaName(object));
    if (part)
        json->member("octets", part->getBodyDataLen());
    writeParams(object, json);
    if (part)
        json->member("part", parts->indexOf(*part));
    if (const int milliseconds = playDuration(parts, object); milliseconds >= 0)
        json->member("playDuration", milliseconds);
    json->member("region", object.getRegionId());
    json->member("source", object.getSrc());
    json->endObject();
}

void writeSlide(const Message &message, ShownParts *parts, const Slide &slide, JsonWriter *json)
{
    json->beginObject();
    json->member("duration", slide.getDur());
    json->member("durationSource", durationSource(message, parts, slide));
    json->key("media");
    json->beginArray();
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i)
        writeObject(parts, *slide.getMediaObject(i), json);
    json->endArray();
    json->member("pageColor", ModelText::color(slide.getPageColor()));
    json->member("textColor", ModelText::color(slide.getTextColor()));
    json->member("textSize", slide.getTextSize());
    json->endObject();
}

void writeRegion(const MMS_COMP_SMILRegion &region, JsonWriter *json)
{
    const char *fit = MMS_COMP_SMILRegion::fitKeyword(region.getFit());
    json->beginObject();
    json->member("fit", fit ? fit : "unknown");
    json->member("height", double(region.getHeight()));
    json->member("id", region.getId());
    json->member("left", double(region.getLeft()));
    json->member("top", double(region.getTop()));
    json->member("width", double(region.getWidth()));
    json->endObject();
}

void writeRootLayout(const MMS_COMP_SMILRootLayout &root, JsonWriter *json)
{
    json->key("rootLayout");
    json->beginObject();
    json->member("color", ModelText::color(*root.getBackgroundColor()));
    json->member("height", root.getHeight());
    json->member("width", root.getWidth());
    json->endObject();
}

} // namespace

QString slidesText(const Message &message)
{
    ShownParts parts(message);
    QString text;
    for (unsigned int i = 0; i < message.slides().getTotalSlidesNum(); ++i) {
        const Slide &slide = *message.slides().getSlide(i);
        text += slideTitle(message, &parts, i, slide) + slideText(&parts, slide);
    }
    return text;
}

void writePresentation(const Message &message, JsonWriter *json)
{
    const MMS_COMP_SMILData &data = message.slides();
    const int result = message.smilResult.value_or(SmilResult::Ok);
    json->key("presentation");
    json->beginObject();
    json->member("made", message.areSlidesGenerated());
    json->key("regions");
    json->beginArray();
    for (unsigned int i = 0; i < data.getRegionCount(); ++i)
        writeRegion(*data.getRegion(i), json);
    json->endArray();
    writeResult(SmilResult::meaning(result), result, json);
    if (const MMS_COMP_SMILRootLayout *root = data.getRootLayout())
        writeRootLayout(*root, json);
    ShownParts parts(message);
    json->key("slides");
    json->beginArray();
    for (unsigned int i = 0; i < data.getTotalSlidesNum(); ++i)
        writeSlide(message, &parts, *data.getSlide(i), json);
    json->endArray();
    json->member("unit", data.getLayoutMeasureUnit() == SMIL_UNIT_PIXEL ? "pixel" : "percent");
    json->endObject();
}
