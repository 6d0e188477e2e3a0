/*
 * Writer: one pass over the presentation, every fragment as other handsets know it. Blanks are part
 * of it: the reader finds the lines of the handset's own regions by their exact text. Values are
 * written as they are, and the width of a root layout with a colour is not closed. Kept: receivers
 * were tested with these texts.
 */
#include "smil/smil_parser.h"

#include "platform/no_memory.h"
#include "presentation/presentation.h"

#include <array>

namespace {

constexpr int Indefinite = -2;

QString decimal(int value)
{
    return QString::number(value);
}

QString decimal(float value)
{
    return QString::number(double(value), 'g', 6);
}

// Writes the text of a presentation; each operation appends one kind of element.
class Writer
{
public:
    QString write(const MMS_COMP_SMILData &data);

private:
    void attribute(QStringView opening, const QString &value, QStringView closing);
    void meta(const MMS_COMP_SMILMeta &meta);
    void rootLayout(const MMS_COMP_SMILRootLayout &rootLayout);
    void region(const MMS_COMP_SMILRegion &region, QStringView closing);
    void slide(const MMS_COMP_SMILTimingContainer &slide);
    void object(const MMS_COMP_SMILMediaObject &object);
    void time(QStringView name, const MMS_COMP_SMIL_TIME &time);
    void param(const MMS_COMP_SMILMediaObjectParam &param);

    QString m_out;
};

constexpr QStringView Quote(u"\"");

void Writer::attribute(QStringView opening, const QString &value, QStringView closing)
{
    m_out += opening;
    m_out += value;
    m_out += closing;
}

QString Writer::write(const MMS_COMP_SMILData &data)
{
    m_out += u"<smil>\n<head>\n";
    for (unsigned int i = 0; i < data.getMetaCount(); ++i)
        meta(*data.getMeta(i));
    m_out += u"<layout> \n";
    if (const MMS_COMP_SMILRootLayout *layout = data.getRootLayout())
        rootLayout(*layout);
    const bool pixels = data.getLayoutMeasureUnit() == SMIL_UNIT_PIXEL;
    for (unsigned int i = 0; i < data.getRegionCount(); ++i) {
        if (const MMS_COMP_SMILRegion *entry = data.getRegion(i))
            region(*entry, pixels ? Quote : u"%\"");
    }
    m_out += u"</layout> \n</head>\n<body>\n";
    for (unsigned int i = 0; i < data.getTotalSlidesNum(); ++i)
        slide(*data.getSlide(i));
    m_out += u"</body>\n</smil>\n";
    return m_out;
}

void Writer::meta(const MMS_COMP_SMILMeta &meta)
{
    attribute(u"<meta name=\"", meta.getName().trimmed(), Quote);
    attribute(u" content=\"", meta.getContent().trimmed(), u"\" />\n");
}

void Writer::rootLayout(const MMS_COMP_SMILRootLayout &rootLayout)
{
    attribute(u"<root-layout height=\"", decimal(rootLayout.getHeight()), Quote);
    m_out += u" width=\"" + decimal(rootLayout.getWidth());
    const MMS_COMP_COLOR *colour = rootLayout.getBackgroundColor();
    if (colour->isUsable())
        m_out += u" background-color=\"" + colour->color.name();
    m_out += u"\" />\n";
}

void Writer::region(const MMS_COMP_SMILRegion &region, QStringView closing)
{
    m_out += u"<region ";
    if (!region.getId().isEmpty())
        attribute(u"id=\"", region.getId().trimmed(), Quote);
    if (!(region.getHeight() < 0))
        attribute(u"  height=\"", decimal(region.getHeight()), closing);
    if (!(region.getWidth() < 0))
        attribute(u"  width=\"", decimal(region.getWidth()), closing);
    attribute(u" left=\"", decimal(region.getLeft()), closing);
    attribute(u" top=\"", decimal(region.getTop()), closing);
    if (const char *keyword = MMS_COMP_SMILRegion::fitKeyword(region.getFit()))
        attribute(u" fit=\"", QString::fromLatin1(keyword), Quote);
    m_out += u" />\n";
}

void Writer::slide(const MMS_COMP_SMILTimingContainer &slide)
{
    if (slide.getDur() == Indefinite)
        m_out += u"<par dur=\"indefinite\">\n";
    else if (slide.getDur() < 0)
        m_out += u"<par>\n";
    else
        attribute(u"<par dur=\"", decimal(slide.getDur()), u"ms\">\n");
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i)
        object(*slide.getMediaObject(i));
    m_out += u"</par>\n";
}

void Writer::object(const MMS_COMP_SMILMediaObject &object)
{
    // Names stand at their numbers.
    constexpr std::array<QStringView, 5> names{u"audio", u"video", u"text", u"img", u"ref"};
    const auto type = object.getMediaElementType();
    if (size_t(type) >= names.size())
        return;
    const QStringView name = names[size_t(type)];
    m_out += u'<' + name;
    if (const QString src = object.getSrc().trimmed(); !src.isEmpty())
        attribute(u" src=\"", src, Quote);
    if (const QString alt = object.getAlt().trimmed(); !alt.isEmpty())
        attribute(u" alt=\"", alt, Quote);
    // The handset places videos itself, and sounds have no place.
    const bool placed = type != SMIL_MEDIA_AUDIO && type != SMIL_MEDIA_VIDEO;
    if (const QString region = object.getRegionId().trimmed(); placed && !region.isEmpty())
        attribute(u" region=\"", region, Quote);
    time(u"begin", object.getBegin());
    time(u"end", object.getEnd());
    m_out += u" >\n";
    for (int i = 0; i < object.getParamCount(); ++i)
        param(*object.getParam(i));
    m_out += u"</" + name + u">\n";
}

void Writer::time(QStringView name, const MMS_COMP_SMIL_TIME &time)
{
    if (time.timeType != SMIL_TIME_EVENT && time.timeType != SMIL_TIME_OFFSET)
        return;
    m_out += u' ' + name + u"=\"";
    if (time.timeType == SMIL_TIME_OFFSET) {
        m_out += decimal(time.timeValue) + u"ms\"";
        return;
    }
    attribute(u"id(", time.eventId.trimmed(), u")(");
    if (time.timeValue == MMS_COMP_SMIL_TIME::AtEnd)
        m_out += u"end)\"";
    else if (time.timeValue > 0)
        m_out += decimal(time.timeValue) + u"ms)\"";
    else
        m_out += u"begin)\"";
}

// A param without a value loses its name.
void Writer::param(const MMS_COMP_SMILMediaObjectParam &param)
{
    QString attributes;
    if (const QString value = param.getValue(); !value.isEmpty()) {
        attributes += u" name=\"" + param.getName() + u"\" value=\"" + value + Quote;
    }
    if (param.getValueType() == SMIL_PARAM_VALUE_REF)
        attributes += u" valuetype=\"ref\"";
    else if (param.getValueType() == SMIL_PARAM_VALUE_OBJECT)
        attributes += u" valuetype=\"object\"";
    if (const QString type = param.getRefValueType(); !type.isEmpty())
        attributes += u" type=\"" + type + Quote;
    if (!attributes.isEmpty())
        attribute(u"<param", attributes, u" />\n");
}

} // namespace

QString MMS_COMP_SMILParser::convertToSMILLang(MMS_COMP_SMILData *data)
{
    return unlessOutOfMemory(QString(), [&]() -> QString {
        if (!data)
            return QStringLiteral("");
        data->updateParamToSlide();
        return Writer().write(*data);
    });
}
