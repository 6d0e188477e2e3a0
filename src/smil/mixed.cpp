/*
 * Slides for a mixed message, which has no presentation: every attachment that can be shown becomes
 * a slide. On request, the presentation is stored in the message as a SMIL part.
 */
#include "smil/smil_parser.h"

#include "base/no_memory.h"
#include "multipart/multipart.h"
#include "presentation/media_kinds.h"
#include "presentation/presentation.h"
#include "smil/media_probe.h"
#include "smil/smil_part.h"

#include <algorithm>
#include <memory>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;

constexpr int Created = 1;
constexpr int NotCreated = 0;

// The kind of a part that a slide can show, or null for any other part.
const QvlMediaKind *kindOf(Part &part, MediaProbe *probe)
{
    const QString mainType = part.getContentType();
    const auto kind = std::ranges::find_if(qvlMediaKinds, [&](const QvlMediaKind &row) {
        return !row.mainType.isEmpty() && mainType.compare(row.mainType, Qt::CaseInsensitive) == 0;
    });
    if (kind == qvlMediaKinds.end())
        return nullptr;
    const bool shown = kind->type == SMIL_MEDIA_TEXT
        ? part.getSubType().compare("plain"_L1, Qt::CaseInsensitive) == 0
        : probe->passes(&part);
    return shown ? &*kind : nullptr;
}

// Sounds go to the text region. Kept: the viewer shows their names there.
QString regionOf(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type, const MMS_COMP_SMILData &data)
{
    return type == SMIL_MEDIA_IMAGE || type == SMIL_MEDIA_VIDEO ? data.getImgRegionId()
                                                                : data.getTextRegionId();
}

void appendSlide(MMS_COMP_SMILMultipart *multipart, MMS_COMP_SMILData *data, Part *part,
                 MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type)
{
    Slide *slide = data->appendSlide(unsigned(Slide::DefaultDuration));
    auto object = std::make_unique<Object>(multipart);
    object->setData(part);
    object->setMediaElementType(type);
    object->setSrc(part->getContentLocation());
    object->setMimeType(part->getMimeFormat());
    object->setRegionId(regionOf(type, *data));
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
        MediaProbe probe;
        for (int i = 0; i < multipart->getPartCount(); ++i) {
            Part *part = multipart->getBodypartByIndex(i);
            if (part->getDispFileType() == Part::Shown)
                continue;
            if (const QvlMediaKind *kind = kindOf(*part, &probe))
                appendSlide(multipart, data, part, kind->type);
        }
        if (!writeSmil)
            return Created;
        SmilPart::store(multipart, convertToSMILLang(data).toUtf8(), u"qvlsmil.smil"_s);
        return Created;
    });
}
