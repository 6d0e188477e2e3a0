#include "presentation/slide.h"

#include "base/durations.h"
#include "base/no_memory.h"
#include "base/tables.h"
#include "presentation/media_kinds.h"
#include "presentation/media_params.h"
#include "presentation/smil_result.h"
#include "presentation/smil_values.h"

#include <QDataStream>
#include <QScopeGuard>

#include <algorithm>
#include <limits>
#include <memory>
#include <tuple>

using Object = MMS_COMP_SMILMediaObject;
using Part = MMS_COMP_SMILMultipartBodypart;

using namespace Qt::StringLiterals;

namespace {

constexpr int LongestDuration =
    std::numeric_limits<int>::max() / QvlDuration::Step * QvlDuration::Step;

bool isText(const Object &object)
{
    return object.getMediaElementType() == SMIL_MEDIA_TEXT;
}

bool isVideo(const Object &object)
{
    return object.getMediaElementType() == SMIL_MEDIA_VIDEO;
}

bool isPicture(const Object &object)
{
    return isVideo(object) || object.getMediaElementType() == SMIL_MEDIA_IMAGE;
}

bool isAudio(const Object &object)
{
    return object.getMediaElementType() == SMIL_MEDIA_AUDIO;
}

bool plays(const Object &object)
{
    return isVideo(object) || isAudio(object);
}

// A length that is 0 or negative counts as none.
qint64 playLength(const Object *object)
{
    Part *part = object ? object->getData() : nullptr;
    return part ? std::max(part->getPlayDur(), 0) : 0;
}

bool hasCharacters(const Object &object)
{
    const Part *part = object.getData();
    return part && !part->getBodyData().isEmpty() && part->getBodyData().front() != '\0';
}

// Reads the color from the param of @p object; false when there is no usable one.
bool readColor(const Object *object, const QString &param, MMS_COMP_COLOR *color)
{
    if (!object)
        return false;
    MMS_COMP_COLOR read;
    SmilValues::readColor(object->getParamValueByName(param), read);
    if (read.isUsable())
        *color = read;
    return read.isUsable();
}

} // namespace

MMS_COMP_SMILTimingContainer::MMS_COMP_SMILTimingContainer(MMS_COMP_SMILMultipart *multipart)
    : m_multipart(multipart)
{
    m_objects.setAutoDelete(true);
}

MMS_COMP_SMILTimingContainer::~MMS_COMP_SMILTimingContainer()
{
    clear();
}

Object *MMS_COMP_SMILTimingContainer::getMediaObject(unsigned int index) const
{
    return index < getMediaObjectCount() ? m_objects.at(int(index)) : nullptr;
}

void MMS_COMP_SMILTimingContainer::appendObject(Object *object)
{
    asFarAsMemoryGoes([&] {
        if (object)
            m_objects.append(object);
    });
}

bool MMS_COMP_SMILTimingContainer::insert(unsigned int index, Object *object)
{
    if (!object || index > getMediaObjectCount())
        return false;
    const bool inserted = unlessOutOfMemory(false, [&] {
        const auto ownAgain = qScopeGuard([this] { m_objects.setAutoDelete(true); });
        m_objects.setAutoDelete(false); // without memory the caller keeps the object
        return m_objects.insert(int(index), object);
    });
    if (inserted && plays(*object))
        rectifyDur();
    return inserted;
}

bool MMS_COMP_SMILTimingContainer::remove(unsigned int index)
{
    const Object *object = getMediaObject(index);
    if (!object)
        return true;
    const bool played = plays(*object);
    release(int(index));
    if (played)
        rectifyDur();
    return true;
}

void MMS_COMP_SMILTimingContainer::release(int index)
{
    m_objects.at(index)->clear();
    std::ignore = m_objects.remove(index); // the callers have found it at this index
}

int MMS_COMP_SMILTimingContainer::indexOfFirst(Predicate fits) const
{
    const auto found =
        std::ranges::find_if(m_objects, [fits](const Object *object) { return fits(*object); });
    return found != m_objects.end() ? int(found - m_objects.begin()) : -1;
}

int MMS_COMP_SMILTimingContainer::indexOfLast(Predicate fits) const
{
    int index = m_objects.count() - 1;
    while (index >= 0 && !fits(*m_objects.at(index)))
        --index;
    return index;
}

Object *MMS_COMP_SMILTimingContainer::first(Predicate fits) const
{
    return m_objects.at(indexOfFirst(fits));
}

Object *MMS_COMP_SMILTimingContainer::take(Predicate fits)
{
    Object *object = m_objects.take(indexOfFirst(fits));
    if (object)
        rectifyDur();
    return object;
}

Object *MMS_COMP_SMILTimingContainer::getTextElem(bool take)
{
    return take ? m_objects.take(indexOfFirst(isText)) : first(isText);
}

Object *MMS_COMP_SMILTimingContainer::getVideoElem(bool take)
{
    return take ? this->take(isVideo) : first(isVideo);
}

Object *MMS_COMP_SMILTimingContainer::getImgObjectLikeElem(bool take)
{
    return take ? this->take(isPicture) : first(isPicture);
}

Object *MMS_COMP_SMILTimingContainer::getAudioElem(bool take)
{
    return take ? this->take(isAudio) : first(isAudio);
}

void MMS_COMP_SMILTimingContainer::removeTextElem()
{
    if (const int index = indexOfFirst(isText); index >= 0)
        release(index);
}

// Of pictures only videos play, so remove() derives the duration anew for these only.
void MMS_COMP_SMILTimingContainer::removeImgLikeElem()
{
    if (const int index = indexOfFirst(isPicture); index >= 0)
        remove(unsigned(index));
}

void MMS_COMP_SMILTimingContainer::removeBySrc(const QString &src)
{
    const auto found = std::ranges::find_if(
        m_objects, [&](const Object *object) { return object->getSrc() == src; });
    if (found != m_objects.end())
        remove(unsigned(found - m_objects.begin()));
}

bool MMS_COMP_SMILTimingContainer::isVideoExist() const
{
    return first(isVideo) != nullptr;
}

bool MMS_COMP_SMILTimingContainer::isImageExist() const
{
    return first(isPicture) != nullptr;
}

bool MMS_COMP_SMILTimingContainer::isAudioExist() const
{
    return first(isAudio) != nullptr;
}

bool MMS_COMP_SMILTimingContainer::canBeInserted(const QString &kind) const
{
    switch (placeOf(qvlMediaKinds, kind.toLower(), &QvlMediaKind::tag)) {
    case SMIL_MEDIA_TEXT:
        return !first(isText);
    case SMIL_MEDIA_IMAGE:
    case SMIL_MEDIA_VIDEO:
        return !isImageExist();
    case SMIL_MEDIA_AUDIO:
        return !isAudioExist();
    default:
        return false;
    }
}

bool MMS_COMP_SMILTimingContainer::updateData(const QString &regionId, const QString &src,
                                              MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type,
                                              const QString &subType, const QArray<char> &bytes,
                                              bool textBelowImage,
                                              MMS_COMP_SMILMultipart *multipart)
{
    return unlessOutOfMemory(false, [&]() -> bool {
        const int text = indexOfLast(isText);
        const int picture = indexOfLast(isPicture);
        int existing = -1;
        int place = m_objects.count();
        if (type == SMIL_MEDIA_TEXT) {
            existing = text;
            if (!textBelowImage && picture >= 0)
                place = picture;
        } else if (type == SMIL_MEDIA_IMAGE || type == SMIL_MEDIA_VIDEO) {
            existing = picture;
            if (textBelowImage && text >= 0)
                place = text;
        } else {
            const auto same = std::ranges::find_if(m_objects, [type](const Object *object) {
                return object->getMediaElementType() == type;
            });
            if (same != m_objects.end())
                existing = int(same - m_objects.begin());
        }

        std::unique_ptr<Object> added;
        Object *object = m_objects.at(existing);
        if (!object) {
            added = std::make_unique<Object>(getMultiPart());
            object = added.get();
        }
        if (!object->setData(regionId, src, type, subType, bytes, multipart))
            return false;
        if (added)
            std::ignore = m_objects.insert(place, added.release()); // never out of range
        // A video replaced by an image leaves its duration. Kept.
        if (plays(*object))
            rectifyDur();
        return true;
    });
}

bool MMS_COMP_SMILTimingContainer::isBlank() const
{
    return std::ranges::all_of(
        m_objects, [](const Object *object) { return isText(*object) && !hasCharacters(*object); });
}

bool MMS_COMP_SMILTimingContainer::isTextBellowImg() const
{
    const int text = indexOfFirst(isText);
    return text < 0 || indexOfLast(isPicture) < text;
}

void MMS_COMP_SMILTimingContainer::removeParamFromAll(const QString &name)
{
    for (Object *object : m_objects)
        object->removeParamByName(name);
}

// Without memory for the param an object has no color; the same for the text color below.
void MMS_COMP_SMILTimingContainer::updatePageColorToElem()
{
    if (!m_pageColor.isUsable())
        return removeParamFromAll(QvlParamName::pageColor());
    for (Object *object : {first(isText), first(isPicture), first(isAudio)}) {
        if (object)
            std::ignore =
                object->updateParamByName(QvlParamName::pageColor(), m_pageColor.color.name());
    }
}

void MMS_COMP_SMILTimingContainer::updatePageColorFromElem()
{
    const bool found = readColor(first(isText), QvlParamName::pageColor(), &m_pageColor)
        || readColor(first(isPicture), QvlParamName::pageColor(), &m_pageColor)
        || readColor(first(isAudio), QvlParamName::pageColor(), &m_pageColor);
    if (!found)
        m_pageColor.kind = SMIL_COLOR_INVALID;
}

void MMS_COMP_SMILTimingContainer::updateTextColorToElem()
{
    if (!m_textColor.isUsable())
        return removeParamFromAll(QvlParamName::textColor());
    if (Object *text = first(isText))
        std::ignore = text->updateParamByName(QvlParamName::textColor(), m_textColor.color.name());
}

void MMS_COMP_SMILTimingContainer::updateTextColorFromElem()
{
    if (!readColor(first(isText), QvlParamName::textColor(), &m_textColor))
        m_textColor.kind = SMIL_COLOR_INVALID;
}

int MMS_COMP_SMILTimingContainer::updateTextSizeToElem()
{
    Object *text = first(isText);
    return text ? text->updateParamByName(QvlParamName::textSize(), m_textSize) : SmilResult::Ok;
}

void MMS_COMP_SMILTimingContainer::updateTextSizeFromElem()
{
    const Object *text = first(isText);
    m_textSize = text ? text->getParamValueByName(QvlParamName::textSize()) : u"normal"_s;
}

unsigned int MMS_COMP_SMILTimingContainer::getPageSize() const
{
    unsigned int size = 0;
    for (const Object *object : m_objects) {
        if (const Part *part = object->getData())
            size += unsigned(part->getBodyDataLen());
    }
    return size;
}

void MMS_COMP_SMILTimingContainer::rectifyDur()
{
    // The sum, not the maximum: the handset plays the sound after the video.
    const qint64 length = playLength(first(isVideo)) + playLength(first(isAudio));
    qint64 duration = m_setDurManually ? m_dur : DefaultDuration;
    if (length > 0) {
        duration = length;
        m_setDurManually = false;
    }
    m_dur = int(std::min<qint64>(QvlDuration::roundedUpToStep(duration), LongestDuration));
}

void MMS_COMP_SMILTimingContainer::clear()
{
    for (Object *object : m_objects)
        object->clear();
    m_objects.clear();
    m_dur = DefaultDuration;
}

bool MMS_COMP_SMILTimingContainer::copyTo(MMS_COMP_SMILTimingContainer *target,
                                          MMS_COMP_SMILMultipart *multipart) const
{
    return unlessOutOfMemory(false, [&]() -> bool {
        if (!target)
            return false;
        target->setDur(m_dur);
        target->setMultiPart(multipart);
        // Count first: a copy onto itself adds objects while it walks them.
        for (int i = 0, count = m_objects.count(); i < count; ++i) {
            auto copy = std::make_unique<Object>(nullptr);
            if (!m_objects.at(i)->copyTo(copy.get(), multipart))
                return false;
            target->appendObject(copy.release());
        }
        target->setSetDurManually(m_setDurManually);
        target->setPageColor(m_pageColor);
        target->setTextColor(m_textColor);
        target->setTextSize(m_textSize);
        return true;
    });
}

bool MMS_COMP_SMILTimingContainer::writeToStream(QDataStream &stream) const
{
    stream << qint32(m_dur) << qint32(m_objects.count());
    for (const Object *object : m_objects)
        object->writeToStream(stream);
    return true;
}

bool MMS_COMP_SMILTimingContainer::readFromStream(QDataStream &stream)
{
    return unlessOutOfMemory(false, [&]() -> bool {
        qint32 dur = 0;
        qint32 count = 0;
        stream >> dur >> count;
        m_dur = dur;
        // Stops at the end of the stream, because a damaged count can be any number.
        for (qint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
            auto *object = new Object(nullptr);
            m_objects.append(object);
            object->readFromStream(stream);
        }
        return true;
    });
}
