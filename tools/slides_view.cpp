#include "slides_view.h"

#include "message.h"
#include "model_text.h"
#include "terminal_text.h"

#include <QJsonArray>
#include <QXmlStreamReader>

#include <array>

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;

QString kindOf(const Object &object)
{
    constexpr std::array kinds{"audio", "video", "text", "image", "ref"};
    const int type = object.getMediaElementType();
    return type >= 0 && size_t(type) < kinds.size() ? QString::fromLatin1(kinds[size_t(type)])
                                                    : QStringLiteral("unknown");
}

int indexOfPart(const MMS_COMP_SMILMultipart &body, const Part *part)
{
    for (int i = 0; i < body.getPartCount(); ++i) {
        if (body.getBodypartByIndex(i) == part)
            return i;
    }
    return -1;
}

QString firstLine(const Object &object)
{
    const Part *part = object.getData();
    if (!part || object.getMediaElementType() != SMIL_MEDIA_TEXT)
        return QString();
    const QString text = QString::fromUtf8(part->getBodyData().constData()); // up to a zero
    return text.section(QLatin1Char('\n'), 0, 0).trimmed();
}

// Milliseconds that a clip plays, or -1 when that cannot be measured.
int playDuration(const Object &object)
{
    const int type = object.getMediaElementType();
    const bool isClip = type == SMIL_MEDIA_AUDIO || type == SMIL_MEDIA_VIDEO;
    return isClip && object.getData() ? object.getData()->getPlayDur() : -1;
}

QString playText(const Object &object)
{
    const int milliseconds = playDuration(object);
    return milliseconds < 0 ? QString() : ModelText::duration(milliseconds);
}

bool hasMeasuredClip(const Slide &slide)
{
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i) {
        if (playDuration(*slide.getMediaObject(i)) > 0)
            return true;
    }
    return false;
}

// The reader leaves a slide the duration that the document gives, and the default one where the
// document's cannot be read or media stand outside of a par. Slides that were made last as long as
// their clips.
QString durationSource(const Message &message, const Slide &slide)
{
    const int milliseconds = slide.getDur();
    if (message.slidesAreMade)
        return hasMeasuredClip(slide) ? QStringLiteral("measured") : QStringLiteral("by default");
    if (milliseconds == -1)
        return QStringLiteral("the document gives none");
    if (milliseconds == Slide::DefaultDuration)
        return QStringLiteral("from the document or by default");
    return QStringLiteral("from the document");
}

QString slideText(const MMS_COMP_SMILMultipart &body, const Slide &slide)
{
    QList<QStringList> rows;
    bool hasClips = false;
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i) {
        const Object &object = *slide.getMediaObject(i);
        const Part *part = object.getData();
        rows += {kindOf(object),
                 object.getSrc(),
                 object.getRegionId(),
                 part ? QString::number(indexOfPart(body, part)) : QString(),
                 part ? QString::number(part->getBodyDataLen()) : QString(),
                 firstLine(object),
                 playText(object)};
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

QString slideTitle(const Message &message, unsigned int index, const Slide &slide)
{
    QStringList words{QStringLiteral("slide %1: ").arg(index + 1)
                      + ModelText::duration(slide.getDur()) + QLatin1String(" (")
                      + durationSource(message, slide) + QLatin1Char(')')};
    if (slide.getPageColor().isUsable())
        words += QLatin1String("page ") + ModelText::colour(slide.getPageColor());
    if (slide.getTextColor().isUsable())
        words += QLatin1String("text ") + ModelText::colour(slide.getTextColor());
    if (!slide.getTextSize().isEmpty())
        words += QLatin1String("text size ") + TerminalText::visible(slide.getTextSize());
    return QLatin1String("    ") + words.join(QLatin1String(", ")) + QLatin1Char('\n');
}

QJsonObject paramJson(const MMS_COMP_SMILMediaObjectParam &param)
{
    return {{QStringLiteral("name"), param.getName()}, {QStringLiteral("value"), param.getValue()}};
}

QJsonObject objectJson(const MMS_COMP_SMILMultipart &body, const Object &object)
{
    QJsonArray params;
    for (int i = 0; i < object.getParamCount(); ++i)
        params += paramJson(*object.getParam(i));
    QJsonObject json{{QStringLiteral("kind"), kindOf(object)},
                     {QStringLiteral("source"), object.getSrc()},
                     {QStringLiteral("region"), object.getRegionId()},
                     {QStringLiteral("alt"), object.getAlt()},
                     {QStringLiteral("begin"), ModelText::time(object.getBegin())},
                     {QStringLiteral("end"), ModelText::time(object.getEnd())},
                     {QStringLiteral("params"), params}};
    if (const Part *part = object.getData()) {
        json[QStringLiteral("part")] = indexOfPart(body, part);
        json[QStringLiteral("octets")] = part->getBodyDataLen();
    }
    if (const int milliseconds = playDuration(object); milliseconds >= 0)
        json[QStringLiteral("playDuration")] = milliseconds;
    if (object.getMediaElementType() == SMIL_MEDIA_TEXT)
        json[QStringLiteral("firstLine")] = firstLine(object);
    return json;
}

QJsonObject slideJson(const Message &message, const Slide &slide)
{
    QJsonArray media;
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i)
        media += objectJson(message.body, *slide.getMediaObject(i));
    return {{QStringLiteral("duration"), slide.getDur()},
            {QStringLiteral("durationSource"), durationSource(message, slide)},
            {QStringLiteral("pageColor"), ModelText::colour(slide.getPageColor())},
            {QStringLiteral("textColor"), ModelText::colour(slide.getTextColor())},
            {QStringLiteral("textSize"), slide.getTextSize()},
            {QStringLiteral("media"), media}};
}

QJsonObject regionJson(const MMS_COMP_SMILRegion &region)
{
    const char *fit = MMS_COMP_SMILRegion::fitKeyword(region.getFit());
    return {{QStringLiteral("id"), region.getId()},
            {QStringLiteral("left"), double(region.getLeft())},
            {QStringLiteral("top"), double(region.getTop())},
            {QStringLiteral("width"), double(region.getWidth())},
            {QStringLiteral("height"), double(region.getHeight())},
            {QStringLiteral("fit"), QString::fromLatin1(fit ? fit : "unknown")}};
}

} // namespace

QString slidesText(const Message &message)
{
    QString text;
    for (unsigned int i = 0; i < message.slides.getTotalSlidesNum(); ++i) {
        const Slide &slide = *message.slides.getSlide(i);
        text += slideTitle(message, i, slide) + slideText(message.body, slide);
    }
    return text;
}

QJsonObject slidesJson(const Message &message)
{
    const MMS_COMP_SMILData &data = message.slides;
    QJsonArray regions;
    for (unsigned int i = 0; i < data.getRegionCount(); ++i)
        regions += regionJson(*data.getRegion(i));
    QJsonArray slides;
    for (unsigned int i = 0; i < data.getTotalSlidesNum(); ++i)
        slides += slideJson(message, *data.getSlide(i));
    QJsonObject json{{QStringLiteral("unit"),
                      data.getLayoutMeasureUnit() == SMIL_UNIT_PIXEL ? QStringLiteral("pixel")
                                                                     : QStringLiteral("percent")},
                     {QStringLiteral("regions"), regions},
                     {QStringLiteral("slides"), slides}};
    if (const MMS_COMP_SMILRootLayout *root = data.getRootLayout()) {
        json[QStringLiteral("rootLayout")] =
            QJsonObject{{QStringLiteral("width"), root->getWidth()},
                        {QStringLiteral("height"), root->getHeight()},
                        {QStringLiteral("color"), ModelText::colour(*root->getBackgroundColor())}};
    }
    return json;
}

QString whyNotWellFormed(const QByteArray &smil)
{
    const QString all = QString::fromUtf8(smil);
    const qsizetype start = std::max<qsizetype>(all.indexOf(QLatin1String("<smil")), 0);
    const QStringView before = QStringView(all).first(start);
    const QString text = all.sliced(start);
    if (text.contains(QLatin1String("<!ENTITY")) || text.contains(QLatin1String("<!ATTLIST")))
        return QString();
    QXmlStreamReader reader(text);
    reader.setNamespaceProcessing(false);
    for (int depth = 0; !reader.atEnd() && depth <= 256;) {
        reader.readNext();
        depth += reader.isStartElement() ? 1 : reader.isEndElement() ? -1 : 0;
    }
    const qint64 line = reader.lineNumber() + before.count(QLatin1Char('\n'));
    const qint64 lineStart =
        reader.lineNumber() == 1 ? before.lastIndexOf(QLatin1Char('\n')) + 1 : start;
    const QString place = QStringLiteral("line %1, column %2: ")
                              .arg(line)
                              .arg(reader.columnNumber() + start - lineStart);
    if (!reader.atEnd())
        return place + QStringLiteral("nested more than 256 levels deep");
    return reader.hasError() ? place + reader.errorString() : QString();
}
