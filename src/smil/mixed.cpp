/*
 * Slides for a mixed message, which brings no presentation: every attachment that can be shown gets
 * a slide of its own, and the message may get the presentation as a SMIL part.
 */
#include "smil/smil_parser.h"

#include "base/no_memory.h"
#include "multipart/multipart.h"
#include "presentation/presentation.h"
#include "smil/smil_part.h"

#include <memory>

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;

constexpr int Created = 1;
constexpr int NotCreated = 0;

struct KindRow
{
    QLatin1String contentType;
    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE element;
    QLatin1String region;
};

// Sound stands in the text region. Kept: the viewer shows its name there.
constexpr KindRow kinds[] = {
    {QLatin1String("text"), SMIL_MEDIA_TEXT, QLatin1String("text")},
    {QLatin1String("image"), SMIL_MEDIA_IMAGE, QLatin1String("image")},
    {QLatin1String("video"), SMIL_MEDIA_VIDEO, QLatin1String("image")},
    {QLatin1String("audio"), SMIL_MEDIA_AUDIO, QLatin1String("text")},
};

// The kind of a part that a slide can show, or null.
const KindRow *kindOf(Part &part)
{
    for (const KindRow &kind : kinds) {
        if (part.getContentType().compare(kind.contentType, Qt::CaseInsensitive) != 0)
            continue;
        const bool shown = kind.element == SMIL_MEDIA_TEXT
            ? part.getSubType().compare(QLatin1String("plain"), Qt::CaseInsensitive) == 0
            : part.isMediaObjectSupported();
        return shown ? &kind : nullptr;
    }
    return nullptr;
}

void appendSlide(MMS_COMP_SMILMultipart *multipart, MMS_COMP_SMILData *data, Part *part,
                 const KindRow &kind)
{
    Slide *slide = data->appendSlide(unsigned(Slide::DefaultDuration));
    auto object = std::make_unique<Object>(multipart);
    object->setData(part);
    object->setMediaElementType(kind.element);
    object->setSrc(part->getContentLocation());
    object->setMimeType(part->getMimeFormat());
    object->setRegionId(kind.region);
    slide->appendObject(object.release());
    slide->rectifyDur();
    part->setDispFileType(Part::Shown);
}

} // namespace

int MMS_COMP_SMILParser::makeSmilForMixed(MMS_COMP_SMILMultipart *multipart,
                                          MMS_COMP_SMILData *data, bool writeSmil)
{
    return unlessOutOfMemory(NotCreated, [&]() -> int {
        if (!multipart || !data)
            return NotCreated;
        data->setMultiPart(multipart);
        for (int i = 0; i < multipart->getPartCount(); ++i) {
            Part *part = multipart->getBodypartByIndex(i);
            if (part->getDispFileType() == Part::Shown)
                continue;
            if (const KindRow *kind = kindOf(*part))
                appendSlide(multipart, data, part, *kind);
        }
        if (!writeSmil)
            return Created;
        SmilPart::store(multipart, convertToSMILLang(data).toUtf8(),
                        QStringLiteral("qvlsmil.smil"));
        return Created;
    });
}
