/*
 * Writer: one pass over the presentation, every fragment as other handsets know it. Blanks are part
 * of it: the reader finds the lines of the handset's own regions by their exact text. Values are
 * written as they are, and the width of a root layout with a colour is not closed. Kept: receivers
 * were tested with these texts.
 */
#include "smil/smil_parser.h"

#include "base/decimal.h"
#include "base/durations.h"
#include "base/no_memory.h"
#include "presentation/media_kinds.h"
#include "presentation/media_params.h"
#include "presentation/presentation.h"

#include <cmath>

namespace {

// Characters that most texts get by with, so that they are not moved while they grow.
constexpr qsizetype CommonLength = 500;
constexpr qsizetype SlideLength = 160;

constexpr bool isWritten(MMS_COMP_SMIL_TIME_TYPE type)
{
    return type == SMIL_TIME_EVENT || type == SMIL_TIME_OFFSET;
}

// Writes the text of a presentation; each operation appends one kind of element.
class Writer
{
public:
    QString write(MMS_COMP_SMILData *data);

private:
    void attribute(QLatin1String opening, QStringView value, QLatin1String closing);
    void attribute(QLatin1String opening, QLatin1String value, QLatin1String closing);
    void attribute(QLatin1String opening, int value, QLatin1String closing);
    void attribute(QLatin1String opening, float value, QLatin1String closing);
    void attributeUnlessEmpty(QLatin1String opening, const QString &value);
    void meta(const MMS_COMP_SMILMeta &meta);
    void rootLayout(const MMS_COMP_SMILRootLayout &rootLayout);
    void region(const MMS_COMP_SMILRegion &region, QLatin1String closing);
    void slide(const MMS_COMP_SMILTimingContainer &slide);
    void object(const MMS_COMP_SMILMediaObject &object);
    void time(QLatin1String name, const MMS_COMP_SMIL_TIME &time);
    void param(const MMS_COMP_SMILMediaObjectParam &param);

    QString m_out;
};

constexpr QLatin1String Quote("\"");

void Writer::attribute(QLatin1String opening, QStringView value, QLatin1String closing)
{
    m_out += opening + value + closing;
}

void Writer::attribute(QLatin1String opening, QLatin1String value, QLatin1String closing)
{
    m_out += opening + value + closing;
}

void Writer::attribute(QLatin1String opening, int value, QLatin1String closing)
{
    attribute(opening, QvlDecimal(value).text(), closing);
}

// Six digits. Fast path: whole numbers need no search for the shortest. Benchmark smil/write/1.
void Writer::attribute(QLatin1String opening, float value, QLatin1String closing)
{
    constexpr float firstWithExponent = 1e6F;
    if (std::abs(value) < firstWithExponent && value == std::trunc(value))
        attribute(opening, int(value), closing);
    else
        attribute(opening, QString::number(double(value), 'g', 6), closing);
}

// A view of the value, because each share of a text costs as much as copying it.
void Writer::attributeUnlessEmpty(QLatin1String opening, const QString &value)
{
    if (const QStringView trimmed = QStringView(value).trimmed(); !trimmed.isEmpty())
        attribute(opening, trimmed, Quote);
}

// Slides get their params right before they are written, while the processor has them at hand.
QString Writer::write(MMS_COMP_SMILData *data)
{
    m_out.reserve(CommonLength + SlideLength * qsizetype(data->getTotalSlidesNum()));
    m_out += QLatin1String("<smil>\n<head>\n");
    for (unsigned int i = 0; i < data->getMetaCount(); ++i)
        meta(*data->getMeta(i));
    m_out += QLatin1String("<layout> \n");
    if (const MMS_COMP_SMILRootLayout *layout = data->getRootLayout())
        rootLayout(*layout);
    const bool pixels = data->getLayoutMeasureUnit() == SMIL_UNIT_PIXEL;
    for (unsigned int i = 0; i < data->getRegionCount(); ++i) {
        if (const MMS_COMP_SMILRegion *entry = data->getRegion(i))
            region(*entry, pixels ? Quote : QLatin1String("%\""));
    }
    m_out += QLatin1String("</layout> \n</head>\n<body>\n");
    for (unsigned int i = 0; i < data->getTotalSlidesNum(); ++i) {
        data->updateParamToSlideAt(i);
        slide(*data->getSlide(i));
    }
    m_out += QLatin1String("</body>\n</smil>\n");
    return m_out;
}

void Writer::meta(const MMS_COMP_SMILMeta &meta)
{
    attribute(QLatin1String("<meta name=\""), meta.getName().trimmed(), Quote);
    attribute(QLatin1String(" content=\""), meta.getContent().trimmed(), QLatin1String("\" />\n"));
}

void Writer::rootLayout(const MMS_COMP_SMILRootLayout &rootLayout)
{
    attribute(QLatin1String("<root-layout height=\""), rootLayout.getHeight(), Quote);
    attribute(QLatin1String(" width=\""), rootLayout.getWidth(), QLatin1String());
    const MMS_COMP_COLOR *colour = rootLayout.getBackgroundColor();
    if (colour->isUsable())
        m_out += QLatin1String(" background-color=\"") + colour->color.name();
    m_out += QLatin1String("\" />\n");
}

void Writer::region(const MMS_COMP_SMILRegion &region, QLatin1String closing)
{
    m_out += QLatin1String("<region ");
    if (!region.getId().isEmpty())
        attribute(QLatin1String("id=\""), region.getId().trimmed(), Quote);
    if (!(region.getHeight() < 0))
        attribute(QLatin1String("  height=\""), region.getHeight(), closing);
    if (!(region.getWidth() < 0))
        attribute(QLatin1String("  width=\""), region.getWidth(), closing);
    attribute(QLatin1String(" left=\""), region.getLeft(), closing);
    attribute(QLatin1String(" top=\""), region.getTop(), closing);
    if (const char *keyword = MMS_COMP_SMILRegion::fitKeyword(region.getFit()))
        attribute(QLatin1String(" fit=\""), QLatin1String(keyword), Quote);
    m_out += QLatin1String(" />\n");
}

void Writer::slide(const MMS_COMP_SMILTimingContainer &slide)
{
    if (slide.getDur() == QvlDuration::Indefinite)
        m_out += QLatin1String("<par dur=\"indefinite\">\n");
    else if (slide.getDur() < 0)
        m_out += QLatin1String("<par>\n");
    else
        attribute(QLatin1String("<par dur=\""), slide.getDur(), QLatin1String("ms\">\n"));
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i)
        object(*slide.getMediaObject(i));
    m_out += QLatin1String("</par>\n");
}

void Writer::object(const MMS_COMP_SMILMediaObject &object)
{
    const auto type = object.getMediaElementType();
    const QvlMediaKind *kind = qvlMediaKind(type);
    if (!kind)
        return;
    m_out += QLatin1Char('<') + kind->tag;
    attributeUnlessEmpty(QLatin1String(" src=\""), object.getSrc());
    attributeUnlessEmpty(QLatin1String(" alt=\""), object.getAlt());
    // The handset places videos itself, and sounds have no place.
    if (type != SMIL_MEDIA_AUDIO && type != SMIL_MEDIA_VIDEO)
        attributeUnlessEmpty(QLatin1String(" region=\""), object.getRegionId());
    if (isWritten(object.getBeginTimeType()))
        time(QLatin1String("begin"), object.getBegin());
    if (isWritten(object.getEndTimeType()))
        time(QLatin1String("end"), object.getEnd());
    m_out += QLatin1String(" >\n");
    for (int i = 0; i < object.getParamCount(); ++i)
        param(*object.getParam(i));
    m_out += QLatin1String("</") + kind->tag + QLatin1String(">\n");
}

void Writer::time(QLatin1String name, const MMS_COMP_SMIL_TIME &time)
{
    m_out += QLatin1Char(' ') + name + QLatin1String("=\"");
    if (time.timeType == SMIL_TIME_OFFSET) {
        attribute(QLatin1String(), time.timeValue, QLatin1String("ms\""));
        return;
    }
    attribute(QLatin1String("id("), time.eventId.trimmed(), QLatin1String(")("));
    if (time.timeValue == MMS_COMP_SMIL_TIME::AtEnd)
        m_out += QLatin1String("end)\"");
    else if (time.timeValue > 0)
        attribute(QLatin1String(), time.timeValue, QLatin1String("ms)\""));
    else
        m_out += QLatin1String("begin)\"");
}

// A param without a value loses its name, and one without anything else is not written.
void Writer::param(const MMS_COMP_SMILMediaObjectParam &param)
{
    const qsizetype start = m_out.size();
    m_out += QLatin1String("<param");
    const qsizetype withoutAttributes = m_out.size();
    if (const QString value = param.getValue(); !value.isEmpty()) {
        attribute(QLatin1String(" name=\""), param.getName(), Quote);
        attribute(QLatin1String(" value=\""), value, Quote);
    }
    const auto valueType = param.getValueType();
    if (valueType == SMIL_PARAM_VALUE_REF || valueType == SMIL_PARAM_VALUE_OBJECT)
        attribute(QLatin1String(" valuetype=\""), qvlParamValueTypes[std::size_t(valueType)],
                  Quote);
    if (const QString type = param.getRefValueType(); !type.isEmpty())
        attribute(QLatin1String(" type=\""), type, Quote);
    if (m_out.size() == withoutAttributes)
        m_out.truncate(start);
    else
        m_out += QLatin1String(" />\n");
}

} // namespace

QString MMS_COMP_SMILParser::convertToSMILLang(MMS_COMP_SMILData *data)
{
    return unlessOutOfMemory(QString(), [&]() -> QString {
        if (!data)
            return QLatin1String("");
        return Writer().write(data);
    });
}
