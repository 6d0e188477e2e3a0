/*
 * Writer: one pass over the presentation that writes every fragment exactly as other handsets know
 * it, including blanks: the reader finds the lines of the handset's own regions by their exact
 * text. Values are not escaped, and the width of a root layout with a color has no closing quote.
 * Kept: receivers were tested with these texts.
 */
#include "smil/smil_parser.h"

#include "base/decimal.h"
#include "base/durations.h"
#include "base/no_memory.h"
#include "presentation/media_kinds.h"
#include "presentation/media_params.h"
#include "presentation/presentation.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Typical sizes in characters, reserved up front to avoid reallocation.
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
    void attribute(QLatin1StringView opening, QStringView value, QLatin1StringView closing);
    void attribute(QLatin1StringView opening, QLatin1StringView value, QLatin1StringView closing);
    void attribute(QLatin1StringView opening, int value, QLatin1StringView closing);
    void attribute(QLatin1StringView opening, float value, QLatin1StringView closing);
    void attributeUnlessEmpty(QLatin1StringView opening, const QString &value);
    void meta(const MMS_COMP_SMILMeta &meta);
    void rootLayout(const MMS_COMP_SMILRootLayout &rootLayout);
    void region(const MMS_COMP_SMILRegion &region, QLatin1StringView closing);
    void slide(const MMS_COMP_SMILTimingContainer &slide);
    void object(const MMS_COMP_SMILMediaObject &object);
    void time(QLatin1StringView name, const MMS_COMP_SMIL_TIME &time);
    void param(const MMS_COMP_SMILMediaObjectParam &param);

    QString m_out;
};

constexpr QLatin1StringView Quote = "\""_L1;

void Writer::attribute(QLatin1StringView opening, QStringView value, QLatin1StringView closing)
{
    m_out += opening + value + closing;
}

void Writer::attribute(QLatin1StringView opening, QLatin1StringView value,
                       QLatin1StringView closing)
{
    m_out += opening + value + closing;
}

void Writer::attribute(QLatin1StringView opening, int value, QLatin1StringView closing)
{
    attribute(opening, QvlDecimal(value).text(), closing);
}

// Six significant digits. Fast path: whole numbers do not need QString::number(). Benchmark
// smil/write/1.
void Writer::attribute(QLatin1StringView opening, float value, QLatin1StringView closing)
{
    constexpr float firstWithExponent = 1e6F;
    if (std::abs(value) < firstWithExponent && value == std::trunc(value))
        attribute(opening, int(value), closing);
    else
        attribute(opening, QString::number(double(value), 'g', 6), closing);
}

// Trims a view: QString::trimmed() costs an atomic increment even if nothing is trimmed.
void Writer::attributeUnlessEmpty(QLatin1StringView opening, const QString &value)
{
    if (const QStringView trimmed = QStringView(value).trimmed(); !trimmed.isEmpty())
        attribute(opening, trimmed, Quote);
}

// Updates each slide's params just before writing it, while the slide is still in cache.
QString Writer::write(MMS_COMP_SMILData *data)
{
    m_out.reserve(CommonLength + SlideLength * qsizetype(data->getTotalSlidesNum()));
    m_out += "<smil>\n<head>\n"_L1;
    for (unsigned int i = 0; i < data->getMetaCount(); ++i)
        meta(*data->getMeta(i));
    m_out += "<layout> \n"_L1;
    if (const MMS_COMP_SMILRootLayout *layout = data->getRootLayout())
        rootLayout(*layout);
    const bool pixels = data->getLayoutMeasureUnit() == SMIL_UNIT_PIXEL;
    for (unsigned int i = 0; i < data->getRegionCount(); ++i) {
        if (const MMS_COMP_SMILRegion *entry = data->getRegion(i))
            region(*entry, pixels ? Quote : "%\""_L1);
    }
    m_out += "</layout> \n</head>\n<body>\n"_L1;
    for (unsigned int i = 0; i < data->getTotalSlidesNum(); ++i) {
        data->updateParamToSlideAt(i);
        slide(*data->getSlide(i));
    }
    m_out += "</body>\n</smil>\n"_L1;
    return m_out;
}

void Writer::meta(const MMS_COMP_SMILMeta &meta)
{
    attribute("<meta name=\""_L1, meta.getName().trimmed(), Quote);
    attribute(" content=\""_L1, meta.getContent().trimmed(), "\" />\n"_L1);
}

void Writer::rootLayout(const MMS_COMP_SMILRootLayout &rootLayout)
{
    attribute("<root-layout height=\""_L1, rootLayout.getHeight(), Quote);
    attribute(" width=\""_L1, rootLayout.getWidth(), ""_L1);
    const MMS_COMP_COLOR *color = rootLayout.getBackgroundColor();
    if (color->isUsable())
        m_out += " background-color=\""_L1 + color->color.name();
    m_out += "\" />\n"_L1;
}

void Writer::region(const MMS_COMP_SMILRegion &region, QLatin1StringView closing)
{
    m_out += "<region "_L1;
    if (!region.getId().isEmpty())
        attribute("id=\""_L1, region.getId().trimmed(), Quote);
    if (!(region.getHeight() < 0))
        attribute("  height=\""_L1, region.getHeight(), closing);
    if (!(region.getWidth() < 0))
        attribute("  width=\""_L1, region.getWidth(), closing);
    attribute(" left=\""_L1, region.getLeft(), closing);
    attribute(" top=\""_L1, region.getTop(), closing);
    if (const char *keyword = MMS_COMP_SMILRegion::fitKeyword(region.getFit()))
        attribute(" fit=\""_L1, QLatin1StringView(keyword), Quote);
    m_out += " />\n"_L1;
}

void Writer::slide(const MMS_COMP_SMILTimingContainer &slide)
{
    if (slide.getDur() == QvlDuration::Indefinite)
        m_out += "<par dur=\"indefinite\">\n"_L1;
    else if (slide.getDur() < 0)
        m_out += "<par>\n"_L1;
    else
        attribute("<par dur=\""_L1, slide.getDur(), "ms\">\n"_L1);
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i)
        object(*slide.getMediaObject(i));
    m_out += "</par>\n"_L1;
}

void Writer::object(const MMS_COMP_SMILMediaObject &object)
{
    const auto type = object.getMediaElementType();
    const QvlMediaKind *kind = qvlMediaKind(type);
    if (!kind)
        return;
    m_out += u'<' + kind->tag;
    attributeUnlessEmpty(" src=\""_L1, object.getSrc());
    attributeUnlessEmpty(" alt=\""_L1, object.getAlt());
    // The handset places videos itself, and sounds are not visible.
    if (type != SMIL_MEDIA_AUDIO && type != SMIL_MEDIA_VIDEO)
        attributeUnlessEmpty(" region=\""_L1, object.getRegionId());
    if (isWritten(object.getBeginTimeType()))
        time("begin"_L1, object.getBegin());
    if (isWritten(object.getEndTimeType()))
        time("end"_L1, object.getEnd());
    m_out += " >\n"_L1;
    for (int i = 0; i < object.getParamCount(); ++i)
        param(*object.getParam(i));
    m_out += "</"_L1 + kind->tag + ">\n"_L1;
}

void Writer::time(QLatin1StringView name, const MMS_COMP_SMIL_TIME &time)
{
    m_out += u' ' + name + "=\""_L1;
    if (time.timeType == SMIL_TIME_OFFSET) {
        attribute(""_L1, time.timeValue, "ms\""_L1);
        return;
    }
    attribute("id("_L1, time.eventId.trimmed(), ")("_L1);
    if (time.timeValue == MMS_COMP_SMIL_TIME::AtEnd)
        m_out += "end)\""_L1;
    else if (time.timeValue > 0)
        attribute(""_L1, time.timeValue, "ms)\""_L1);
    else
        m_out += "begin)\""_L1;
}

// A param without a value loses its name; a param without any attribute is not written.
void Writer::param(const MMS_COMP_SMILMediaObjectParam &param)
{
    const qsizetype start = m_out.size();
    m_out += "<param"_L1;
    const qsizetype withoutAttributes = m_out.size();
    if (const QString value = param.getValue(); !value.isEmpty()) {
        attribute(" name=\""_L1, param.getName(), Quote);
        attribute(" value=\""_L1, value, Quote);
    }
    const auto valueType = param.getValueType();
    if (valueType == SMIL_PARAM_VALUE_REF || valueType == SMIL_PARAM_VALUE_OBJECT)
        attribute(" valuetype=\""_L1, qvlParamValueTypes[std::size_t(valueType)], Quote);
    if (const QString type = param.getRefValueType(); !type.isEmpty())
        attribute(" type=\""_L1, type, Quote);
    if (m_out.size() == withoutAttributes)
        m_out.truncate(start);
    else
        m_out += " />\n"_L1;
}

} // namespace

QString MMS_COMP_SMILParser::convertToSMILLang(MMS_COMP_SMILData *data)
{
    return unlessOutOfMemory(QString(), [&]() -> QString {
        if (!data)
            return ""_L1;
        return Writer().write(data);
    });
}
