/*
 * Actions of Editor on the media of a slide, and on attachments.
 */
#include "compose/file_type.h"
#include "compose/new_message.h"
#include "edit/editor.h"
#include "edit/part_name.h"

#include <algorithm>
#include <array>

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;
using Kind = MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE;

constexpr int FirstTextField = 16; // the fields of the header have smaller numbers

bool isPicture(Kind kind)
{
    return kind == SMIL_MEDIA_IMAGE || kind == SMIL_MEDIA_VIDEO;
}

// The kind that shows parts of a type; unknown for those that no slide shows.
Kind kindOf(const FileType &type)
{
    constexpr std::array kinds{SMIL_MEDIA_IMAGE, SMIL_MEDIA_VIDEO, SMIL_MEDIA_AUDIO};
    const auto kind = std::ranges::find_if(
        kinds, [&](Kind candidate) { return type.type == qvlMediaKind(candidate)->mainType; });
    return kind != kinds.end() ? *kind : SMIL_MEDIA_UNKNOWN;
}

// "text/plain" with a NUL at its end loses it when it is read.
QByteArray octetsOf(QString text)
{
    return text.remove(QChar::Null).toUtf8();
}

} // namespace

QString Editor::whyNoMoreParts(int more) const
{
    // One is for the SMIL.
    if (m_message->parts().getPartCount() + more < QvlMessage::MostParts)
        return {};
    return tr("A message has at most %1 parts.").arg(QvlMessage::MostParts);
}

QString Editor::text(int index) const
{
    Slide *target = slide(index);
    const Object *object = target ? target->getTextElem(false) : nullptr;
    return object && object->getData() ? m_message->text(*object->getData()) : QString();
}

QString Editor::setText(int index, const QString &text)
{
    if (this->text(index) == text && slide(index))
        return {};
    return changeSlide(
        index, tr("Change Text"), [&](Slide *target) { return placeText(target, index, text); },
        FirstTextField + index);
}

QString Editor::placeText(Slide *target, int index, const QString &text)
{
    MMS_COMP_SMILData &slides = m_message->slides();
    Object *object = target->getTextElem(false);
    Part *part = object ? object->getData() : nullptr;
    if (part && part->getRefCount() > 1) { // other slides show it, too
        object->clear();
        part = nullptr;
    }
    if (!part) {
        if (QString problem = whyNoMoreParts(1); !problem.isEmpty())
            return problem;
    }
    const QString source = part
        ? part->getContentLocation()
        : slides.createUniqueSrc(QStringLiteral("slide%1.txt").arg(index + 1));
    const QString region = object ? object->getRegionId() : regionOf(slides, SMIL_MEDIA_TEXT);
    return target->updateData(region, source, SMIL_MEDIA_TEXT, QStringLiteral("plain"),
                              octetsOf(text), true, &m_message->parts())
        ? QString()
        : tr("There is not enough memory.");
}

QString Editor::setTextAbovePicture(int index, bool isAbove)
{
    return changeSlide(index, tr("Move Text"), [&](Slide *target) -> QString {
        if (!target->getTextElem(false))
            return tr("The slide has no text.");
        if (!target->isImageExist() || target->isTextBellowImg() != isAbove)
            return {};
        Object *text = target->getTextElem(true);
        target->insert(isAbove ? 0 : target->getMediaObjectCount(), text);
        return {};
    });
}

int Editor::objectIndex(int index, Kind kind) const
{
    const Slide *target = slide(index);
    for (unsigned int i = 0; target && i < target->getMediaObjectCount(); ++i) {
        const Kind other = target->getMediaObject(i)->getMediaElementType();
        if (other == kind || (isPicture(other) && isPicture(kind)))
            return int(i);
    }
    return -1;
}

QString Editor::whyNotInserted(int index, Kind kind) const
{
    const Slide *target = slide(index);
    if (!target)
        return tr("There is no such slide.");
    const QvlMediaKind *info = qvlMediaKind(kind);
    if (info && target->canBeInserted(info->tag))
        return whyNoMoreParts(1);
    if (isPicture(kind))
        return tr("Slide %1 already has a picture or a video.").arg(index + 1);
    return kind == SMIL_MEDIA_AUDIO ? tr("Slide %1 already has a sound.").arg(index + 1)
        : kind == SMIL_MEDIA_TEXT   ? tr("Slide %1 already has a text.").arg(index + 1)
                                    : tr("A slide cannot show this.");
}

QString Editor::addMedia(int index, const QString &fileName, const QByteArray &octets,
                         Placement placement)
{
    return changeSlide(index, placement == Replace ? tr("Replace Media") : tr("Add Media"),
                       [&](Slide *) { return placeMedia(index, fileName, octets, placement); });
}

QString Editor::placeMedia(int index, const QString &fileName, const QByteArray &octets,
                           Placement placement)
{
    const FileType type = fileTypeOf(fileName, octets);
    const Kind kind = kindOf(type);
    if (kind == SMIL_MEDIA_UNKNOWN)
        return tr("%1 is neither a picture nor a video nor a sound.").arg(fileName);
    const auto part = newPart(type, fileName, octets);
    if (!part->isMediaObjectSupported())
        return tr("%1 cannot be shown or played as %2. It may be damaged or misnamed.")
            .arg(fileName, part->getMimeFormat());
    Slide *target = slide(index);
    const bool isTextBelow = target->isTextBellowImg();
    if (const int old = objectIndex(index, kind); placement == Replace && old >= 0)
        target->remove(unsigned(old));
    if (QString problem = whyNotInserted(index, kind); !problem.isEmpty())
        return problem;
    MMS_COMP_SMILData &slides = m_message->slides();
    const QString source = slides.createUniqueSrc(partLocation(fileName));
    return target->updateData(regionOf(slides, kind), source, kind, type.subtype, octets,
                              isTextBelow, &m_message->parts())
        ? QString()
        : tr("There is not enough memory.");
}

QString Editor::removeObject(int index, int object)
{
    return changeSlide(index, tr("Remove Media"), [&](Slide *target) {
        if (object < 0 || unsigned(object) >= target->getMediaObjectCount())
            return tr("There is nothing to remove.");
        target->remove(unsigned(object));
        return QString();
    });
}

QString Editor::attach(const QString &fileName, const QByteArray &octets)
{
    if (QString problem = whyNoMoreParts(1); !problem.isEmpty())
        return problem;
    FileType type = attachmentType(fileName, octets);
    if (type.subtype == QLatin1String("smil")) // it would count as the slides of the message
        type = {QStringLiteral("application"), QStringLiteral("octet-stream"), {}};
    return perform(tr("Attach File"), [&] {
        const QString location = m_message->slides().createUniqueSrc(partLocation(fileName));
        m_message->parts().appendBodypart(newPart(type, location, octets).release());
        return QString();
    });
}

QString Editor::removeAttachment(int index)
{
    return perform(tr("Remove Attachment"), [&] {
        MMS_COMP_SMILMultipart &parts = m_message->parts();
        const Part *part = parts.getAttachment(index);
        for (int i = 0; part && i < parts.getPartCount(); ++i) {
            if (parts.getBodypartByIndex(i) == part) {
                parts.deletePart(i);
                return QString();
            }
        }
        return tr("There is nothing to remove.");
    });
}
