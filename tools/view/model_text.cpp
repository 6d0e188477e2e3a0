#include "view/model_text.h"

#include "view/terminal_text.h"

#include <qvlsmilparser.h>

#include <array>
#include <span>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

constexpr QLatin1String Unknown("unknown");

QLatin1String nameOfValueType(int number)
{
    const bool isNamed = number >= 0 && size_t(number) < qvlParamValueTypes.size();
    return isNamed ? qvlParamValueTypes[size_t(number)] : Unknown;
}

QString quoted(const QString &text)
{
    return QLatin1Char('"') + TerminalText::visible(text) + QLatin1Char('"');
}

QString number(float value)
{
    return QString::number(double(value));
}

QString regionLine(const MMS_COMP_SMILRegion &region)
{
    const char *fit = MMS_COMP_SMILRegion::fitKeyword(region.getFit());
    return QLatin1String("region ") + quoted(region.getId()) + QLatin1String(" left ")
        + number(region.getLeft()) + QLatin1String(" top ") + number(region.getTop())
        + QLatin1String(" width ") + number(region.getWidth()) + QLatin1String(" height ")
        + number(region.getHeight()) + QLatin1String(" fit ")
        + QString::fromLatin1(fit ? fit : "unknown") + QLatin1Char('\n');
}

QString slideLine(unsigned int index, const MMS_COMP_SMILTimingContainer &slide)
{
    return QLatin1String("slide ") + QString::number(index) + QLatin1String(" duration ")
        + ModelText::duration(slide.getDur()) + QLatin1String(" page ")
        + ModelText::color(slide.getPageColor()) + QLatin1String(" text ")
        + ModelText::color(slide.getTextColor()) + QLatin1String(" size ")
        + quoted(slide.getTextSize()) + QLatin1Char('\n');
}

QString partText(const Part *part)
{
    return part ? quoted(part->getContentLocation()) + QLatin1Char(' ')
            + TerminalText::visible(part->getMimeFormat()) + QLatin1Char(' ')
            + QString::number(part->getBodyDataLen())
                : QStringLiteral("none");
}

QString objectLines(const MMS_COMP_SMILMediaObject &object)
{
    QString lines = QLatin1String("  ") + ModelText::mediaName(object) + QLatin1String(" src ")
        + quoted(object.getSrc()) + QLatin1String(" region ") + quoted(object.getRegionId())
        + QLatin1String(" alt ") + quoted(object.getAlt()) + QLatin1String(" begin ")
        + ModelText::time(object.getBegin()) + QLatin1String(" end ")
        + ModelText::time(object.getEnd()) + QLatin1String(" part ") + partText(object.getData())
        + QLatin1Char('\n');
    for (int i = 0; i < object.getParamCount(); ++i) {
        const MMS_COMP_SMILMediaObjectParam &param = *object.getParam(i);
        lines += QLatin1String("    param ") + quoted(param.getName()) + QLatin1String(" value ")
            + quoted(param.getValue()) + QLatin1Char(' ') + nameOfValueType(param.getValueType())
            + QLatin1String(" type ") + quoted(param.getRefValueType()) + QLatin1Char('\n');
    }
    return lines;
}

} // namespace

QString ModelText::mediaName(const MMS_COMP_SMILMediaObject &object)
{
    const QvlMediaKind *kind = qvlMediaKind(object.getMediaElementType());
    if (!kind)
        return Unknown;
    return kind->mainType.isEmpty() ? kind->tag : kind->mainType;
}

QString ModelText::color(const MMS_COMP_COLOR &color)
{
    if (color.kind == SMIL_COLOR_NONE)
        return QStringLiteral("none");
    if (!color.isUsable())
        return QStringLiteral("invalid");
    const QString name = color.name.isEmpty() ? QString() : QLatin1Char(' ') + color.name;
    return color.color.name() + TerminalText::visible(name);
}

QString ModelText::duration(int milliseconds)
{
    if (milliseconds == QvlDuration::NotGiven)
        return QStringLiteral("none");
    if (milliseconds == QvlDuration::Indefinite)
        return QStringLiteral("indefinite");
    return QString::number(milliseconds) + QLatin1String(" ms");
}

QString ModelText::time(const MMS_COMP_SMIL_TIME &time)
{
    switch (time.timeType) {
    case SMIL_TIME_NONE:
        return QStringLiteral("none");
    case SMIL_TIME_OFFSET:
        return QString::number(time.timeValue) + QLatin1String(" ms");
    case SMIL_TIME_EVENT: {
        const QString point = time.timeValue == MMS_COMP_SMIL_TIME::AtBegin
            ? QStringLiteral("begin")
            : time.timeValue == MMS_COMP_SMIL_TIME::AtEnd
            ? QStringLiteral("end")
            : QString::number(time.timeValue) + QLatin1String(" ms");
        return point + QLatin1String(" of ") + quoted(time.eventId);
    }
    default:
        return QStringLiteral("invalid");
    }
}

QString ModelText::presentation(const MMS_COMP_SMILData &data)
{
    QString text = data.getLayoutMeasureUnit() == SMIL_UNIT_PIXEL
        ? QStringLiteral("unit pixel\n")
        : QStringLiteral("unit percent\n");
    if (const MMS_COMP_SMILRootLayout *root = data.getRootLayout()) {
        text += QStringLiteral("root-layout width %1 height %2 color ")
                    .arg(root->getWidth())
                    .arg(root->getHeight())
            + color(*root->getBackgroundColor()) + QLatin1Char('\n');
    }
    for (unsigned int i = 0; i < data.getRegionCount(); ++i)
        text += regionLine(*data.getRegion(i));
    for (unsigned int i = 0; i < data.getMetaCount(); ++i) {
        text += QLatin1String("meta ") + quoted(data.getMeta(i)->getName()) + QLatin1Char(' ')
            + quoted(data.getMeta(i)->getContent()) + QLatin1Char('\n');
    }
    for (unsigned int i = 0; i < data.getTotalSlidesNum(); ++i) {
        const MMS_COMP_SMILTimingContainer &slide = *data.getSlide(i);
        text += slideLine(i, slide);
        for (unsigned int j = 0; j < slide.getMediaObjectCount(); ++j)
            text += objectLines(*slide.getMediaObject(j));
    }
    return text;
}
