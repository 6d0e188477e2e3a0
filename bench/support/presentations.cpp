#include "support/presentations.h"

#include <memory>

namespace {

struct Medium
{
    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE element;
    const char *type;
    const char *subType;
    const char *region;
    const char *name;
    const char *extension;
    int octets;
};

constexpr Medium media[] = {
    {SMIL_MEDIA_IMAGE, "image", "jpeg", "image", "picture", ".jpg", 200},
    {SMIL_MEDIA_TEXT, "text", "plain", "text", "text", ".txt", 40},
};

QString locationOf(const Medium &medium, int slide, const Shape &shape)
{
    return QLatin1String(medium.name) + QString::number(shape.ownParts ? slide : 0)
        + QLatin1String(medium.extension);
}

// Marks the part as shown: reading adds a use, which discarding the presentation takes back, so one
// message serves for any number of readings.
void addShownPart(MMS_COMP_SMILMultipart *message, const Medium &medium, const QString &location)
{
    auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
    part->setContentType(QLatin1String(medium.type));
    part->setContentSubType(QLatin1String(medium.subType));
    part->setContentLocation(location);
    part->setContentID(QLatin1Char('<') + location + QLatin1Char('>'));
    part->setBodyData(QByteArray(medium.octets, 'x'));
    part->setDispFileType(MMS_COMP_SMILMultipartBodypart::Shown);
    message->appendBodypart(part.release());
}

void addRegions(MMS_COMP_SMILData *slides, int count)
{
    for (int i = 0; i < count; ++i) {
        const QString id = i < 2 ? QLatin1String(media[i].region) : QStringLiteral("r%1").arg(i);
        slides->appendRegion(0, float(i), 120, 80, QStringLiteral("hidden"), id);
    }
}

void addObject(MMS_COMP_SMILTimingContainer *slide, MMS_COMP_SMILMultipart *message,
               const Medium &medium, const QString &location, int params)
{
    auto object = std::make_unique<MMS_COMP_SMILMediaObject>(message);
    auto *part = message->getBodyPartBySrc(location, MMS_COMP_SMILMultipartBodypart::Shown);
    part->setRefCount(part->getRefCount() + 1);
    object->setData(part);
    object->setMediaElementType(medium.element);
    object->setSrc(location);
    object->setRegionId(QLatin1String(medium.region));
    for (int i = 0; i < params; ++i) {
        // As long as the names that the library looks up, so that comparisons run to the end.
        object->appendParamElem(QStringLiteral("name%1").arg(i, 4, 10, QLatin1Char('0')),
                                QStringLiteral("value"), SMIL_PARAM_VALUE_DATA, QString());
    }
    slide->appendObject(object.release());
}

} // namespace

void addShownParts(MMS_COMP_SMILMultipart *message, const Shape &shape)
{
    for (int i = 0; i < (shape.ownParts ? shape.slides : 1); ++i) {
        for (const Medium &medium : media)
            addShownPart(message, medium, locationOf(medium, i, shape));
    }
}

void fill(QvlMessage *show, const Shape &shape)
{
    addShownParts(&show->parts(), shape);
    show->slides().setRootLayout(120, 160);
    addRegions(&show->slides(), shape.regions);
    for (int i = 0; i < shape.slides; ++i) {
        auto *slide = show->slides().appendSlide(4000u);
        for (const Medium &medium : media) {
            addObject(slide, &show->parts(), medium, locationOf(medium, i, shape), shape.params);
        }
    }
}

QByteArray smilOf(const Shape &shape)
{
    QvlMessage show;
    fill(&show, shape);
    return MMS_COMP_SMILParser::convertToSMILLang(&show.slides()).toUtf8();
}

bool readSmil(const QByteArray &smil, MMS_COMP_SMILMultipart *message)
{
    MMS_COMP_SMILData slides(message);
    return MMS_COMP_SMILParser().parse(smil, message, &slides) == SmilResult::Ok;
}
