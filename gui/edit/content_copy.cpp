#include "edit/content_copy.h"

#include "compose/new_message.h"
#include "compose/values.h"
#include "edit/edited_state.h"
#include "edit/part_name.h"

#include <QHash>

#include <algorithm>
#include <vector>

namespace {

using Body = MMS_COMP_SMILMultipart;
using Object = MMS_COMP_SMILMediaObject;
using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;

template <typename Visit>
void forEachObject(const MMS_COMP_SMILData &slides, Visit visit)
{
    for (unsigned int i = 0; i < slides.getTotalSlidesNum(); ++i) {
        Slide *slide = slides.getSlide(i);
        for (unsigned int k = 0; k < slide->getMediaObjectCount(); ++k)
            visit(slide->getMediaObject(k));
    }
}

bool isSmil(const Part &part)
{
    return part.getMimeFormat().compare(QLatin1String("application/smil"), Qt::CaseInsensitive)
        == 0;
}

// SMIL is written without escaping.
bool fitsSmil(const QString &text)
{
    return ComposeValues::isName(text)
        && std::ranges::none_of(text, [](QChar c) { return QStringView(u"&<>\"").contains(c); });
}

// The names of types are short texts in ASCII.
bool isMediaType(const QString &type)
{
    constexpr qsizetype Longest = 127;
    return !type.isEmpty() && type.size() <= Longest
        && std::ranges::all_of(type, [](QChar c) { return c > u' ' && c < u'\x7F' && c != u';'; });
}

void replaceUnfitTypes(Body *parts)
{
    for (int i = 0; i < parts->getPartCount(); ++i) {
        Part *part = parts->getBodypartByIndex(i);
        if (isMediaType(part->getContentType()) && isMediaType(part->getSubType()))
            continue;
        part->setContentType(QStringLiteral("application"));
        part->setContentSubType(QStringLiteral("octet-stream"));
    }
}

// As sent, a part counts as text in the charset that was declared for it. A new message declares
// UTF-8.
void convertTexts(const Message &source, Body *parts)
{
    for (int i = 0; i < parts->getPartCount(); ++i) {
        const Part &sent = *source.parts().getBodypartByIndex(i);
        Part *part = parts->getBodypartByIndex(i);
        if (part->getMimeFormat() != QLatin1String("text/plain"))
            continue;
        if (source.charset(sent) != 0 || !sent.getBodyData().isValidUtf8())
            part->setBodyData(source.text(sent).toUtf8());
        part->setCharset(QString());
    }
}

bool isPresentation(const Part *part, const Message &source, Body *parts)
{
    return isSmil(*part) || (source.smilResult == SmilResult::Ok && part == parts->getSmilPart());
}

// Objects that are bound to one stay without content until removeUnbound(). The message counts as
// related, as it will be when it is saved.
void removePresentation(const Message &source, Body *parts)
{
    for (int i = parts->getPartCount() - 1; i >= 0; --i) {
        Part *part = parts->getBodypartByIndex(i);
        if (!isPresentation(part, source, parts))
            continue;
        part->setRefCount(1);
        parts->deletePart(i);
    }
    const Body related;
    parts->setMimeType(related.getMimeType());
    parts->setSubType(related.getSubType());
    parts->setExtType(related.getExtType());
    parts->setStart(QString());
}

void removeUnbound(MMS_COMP_SMILData *slides)
{
    for (unsigned int i = 0; i < slides->getTotalSlidesNum(); ++i) {
        Slide *slide = slides->getSlide(i);
        for (unsigned int k = slide->getMediaObjectCount(); k > 0; --k) {
            if (!slide->getMediaObject(k - 1)->getData())
                slide->remove(k - 1);
        }
    }
}

// References count the objects, and only parts of slides count as shown.
void countUses(Message *message)
{
    QHash<const Part *, int> uses;
    forEachObject(message->slides(), [&](const Object *object) { ++uses[object->getData()]; });
    for (int i = 0; i < message->parts().getPartCount(); ++i) {
        Part *part = message->parts().getBodypartByIndex(i);
        const int count = uses.value(part);
        part->setRefCount(std::max(count, 1));
        part->setDispFileType(count > 0 ? Part::Shown : Part::Attachment);
    }
}

bool refersTo(const QString &reference, const Part &part)
{
    return part.getContentLocation().compare(reference, Qt::CaseInsensitive) == 0
        || Body::isCidEqual(reference, part.getContentID());
}

bool hasOwnName(const Part &part, const Body &parts)
{
    const QString location = part.getContentLocation();
    if (location.isEmpty() || location != partLocation(location))
        return false;
    for (int i = 0; i < parts.getPartCount(); ++i) {
        const Part *other = parts.getBodypartByIndex(i);
        if (other != &part && refersTo(location, *other))
            return false;
    }
    return true;
}

// Content-IDs go, because each reference becomes a location.
void nameParts(Message *message)
{
    Body &parts = message->parts();
    for (int i = 0; i < parts.getPartCount(); ++i)
        parts.getBodypartByIndex(i)->setContentID(QString());
    for (int i = 0; i < parts.getPartCount(); ++i) {
        Part *part = parts.getBodypartByIndex(i);
        if (hasOwnName(*part, parts))
            continue;
        part->setContentLocation(
            message->slides().createUniqueSrc(partLocation(part->getContentLocation())));
    }
}

void replaceUnfitTexts(Object *object)
{
    const QString alt = object->getAlt();
    object->setSrc(object->getData()->getContentLocation());
    if (fitsSmil(alt))
        object->setAlt(alt);
    if (!fitsSmil(object->getRegionId()))
        object->setRegionId(QString());
    if (!fitsSmil(object->getBegin().eventId))
        object->setBeginTimeType(SMIL_TIME_NONE);
    if (!fitsSmil(object->getEnd().eventId))
        object->setEndTimeType(SMIL_TIME_NONE);
    for (int i = object->getParamCount() - 1; i >= 0; --i) {
        const auto *param = object->getParam(i);
        if (!fitsSmil(param->getName()) || !fitsSmil(param->getValue())
            || !fitsSmil(param->getRefValueType()))
            object->deleteParamElem(i);
    }
}

// Regions that no object can name, and metas that SMIL cannot hold, go.
EditedFrame tidied(EditedFrame frame)
{
    std::erase_if(frame.regions, [](const EditedRegion &region) { return !fitsSmil(region.id); });
    std::erase_if(frame.metas,
                  [](const auto &meta) { return !fitsSmil(meta.first) || !fitsSmil(meta.second); });
    return frame;
}

// Writing slides would replace their own colors by the color of the root layout.
void moveRootColor(MMS_COMP_SMILData *slides)
{
    MMS_COMP_SMILRootLayout *root = slides->getRootLayout();
    if (!root || !root->getBackgroundColor()->isUsable())
        return;
    for (unsigned int i = 0; i < slides->getTotalSlidesNum(); ++i) {
        if (!slides->getSlide(i)->getPageColor().isUsable())
            slides->getSlide(i)->setPageColor(*root->getBackgroundColor());
    }
    *root->getBackgroundColor() = MMS_COMP_COLOR();
}

// SMIL does not say whether a duration was fixed.
void noteFixedDurations(MMS_COMP_SMILData *slides)
{
    for (unsigned int i = 0; i < slides->getTotalSlidesNum(); ++i) {
        Slide *slide = slides->getSlide(i);
        const bool plays = slide->isVideoExist() || slide->isAudioExist();
        slide->setSetDurManually(!plays && slide->getDur() >= 0
                                 && slide->getDur() != QvlDuration::Default);
    }
}

void generateSlides(Message *message)
{
    for (int i = 0; i < message->parts().getPartCount(); ++i)
        message->parts().getBodypartByIndex(i)->setDispFileType(Part::Attachment);
    MMS_COMP_SMILParser::makeSmilForMixed(&message->parts(), &message->slides(), false);
}

} // namespace

std::unique_ptr<Message> copyContent(const Message &source)
{
    auto copy = std::make_unique<Message>();
    EditedState state = EditedState::of(source);
    state.frame = tidied(*state.frame);
    state.header = EditedState::of(*copy).header;
    state.restore(copy.get());
    beginHeader(&copy->header());
    convertTexts(source, &copy->parts());
    removePresentation(source, &copy->parts());
    removeUnbound(&copy->slides());
    replaceUnfitTypes(&copy->parts());
    nameParts(copy.get());
    forEachObject(copy->slides(), replaceUnfitTexts);
    if (copy->slides().getTotalSlidesNum() == 0)
        generateSlides(copy.get());
    if (copy->parts().getPartCount() == 0)
        copy->slides().appendSlide(unsigned(QvlDuration::Default));
    countUses(copy.get());
    MMS_COMP_SMILParser::updateToCorvaneRootLayout(&copy->slides());
    MMS_COMP_SMILParser::updateToCorvaneRegion(&copy->slides());
    moveRootColor(&copy->slides());
    noteFixedDurations(&copy->slides());
    return copy;
}
