#include "presentation/media_object.h"

#include "base/no_memory.h"
#include "base/tables.h"
#include "document/element.h"
#include "platform/comp_util.h"
#include "presentation/media_kinds.h"
#include "presentation/smil_result.h"
#include "presentation/smil_values.h"

#include <QDataStream>
#include <QDomElement>

#include <algorithm>
#include <limits>
#include <memory>
#include <tuple>

using Part = MMS_COMP_SMILMultipartBodypart;
using Param = MMS_COMP_SMILMediaObjectParam;

using namespace Qt::StringLiterals;

namespace {

// Does not exceed the largest count: applications set any count.
void addUse(Part *part)
{
    if (const int count = part->getRefCount(); count < std::numeric_limits<int>::max())
        part->setRefCount(count + 1);
}

void write(QDataStream &stream, const MMS_COMP_SMIL_TIME &time)
{
    stream << qint32(time.timeType) << time.eventId << qint32(time.timeValue);
}

void read(QDataStream &stream, MMS_COMP_SMIL_TIME *time)
{
    qint32 type = 0;
    qint32 value = 0;
    stream >> type >> time->eventId >> value;
    time->timeType = MMS_COMP_SMIL_TIME_TYPE(type);
    time->timeValue = value;
}

} // namespace

Param::MMS_COMP_SMILMediaObjectParam(const QString &name, const QString &value,
                                     MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType,
                                     const QString &refValueType)
{
    setAll(name, value, valueType, refValueType);
}

bool Param::setName(const QString &name)
{
    m_name = name;
    return true;
}

bool Param::setValue(const QString &value)
{
    m_value = value;
    return true;
}

bool Param::setValueType(MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType)
{
    m_valueType = valueType;
    return true;
}

bool Param::setRefValueType(const QString &refValueType)
{
    m_refValueType = refValueType;
    return true;
}

bool Param::setAll(const QString &name, const QString &value,
                   MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType, const QString &refValueType)
{
    m_name = name;
    m_value = value;
    m_valueType = valueType;
    m_refValueType = refValueType;
    return true;
}

MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE Param::valueTypeOf(const QString &keyword)
{
    return MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE(placeOf(qvlParamValueTypes, keyword));
}

bool Param::writeToStream(QDataStream &stream) const
{
    stream << m_name << m_value << qint32(m_valueType) << m_refValueType;
    return true;
}

bool Param::readFromStream(QDataStream &stream)
{
    qint32 valueType = 0;
    stream >> m_name >> m_value >> valueType >> m_refValueType;
    m_valueType = MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE(valueType);
    return true;
}

MMS_COMP_SMILMediaObject::MMS_COMP_SMILMediaObject(MMS_COMP_SMILMultipart *multipart)
    : m_multipart(multipart)
{
    m_params.setAutoDelete(true);
}

MMS_COMP_SMILMediaObject::~MMS_COMP_SMILMediaObject() = default;

bool MMS_COMP_SMILMediaObject::setMediaElementType(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type)
{
    m_mediaElementType = type;
    if (type == SMIL_MEDIA_TEXT)
        m_mediaType = u"txt"_s;
    return true;
}

bool MMS_COMP_SMILMediaObject::setMediaType(const QString &mediaType)
{
    m_mediaType = mediaType;
    return true;
}

bool MMS_COMP_SMILMediaObject::setSrc(const QString &src)
{
    m_src = src;
    m_alt = src;
    return true;
}

bool MMS_COMP_SMILMediaObject::setRegionId(const QString &regionId)
{
    m_regionId = regionId;
    return true;
}

bool MMS_COMP_SMILMediaObject::setMimeType(const QString &mimeType)
{
    m_mimeType = mimeType;
    return true;
}

bool MMS_COMP_SMILMediaObject::setAlt(const QString &alt)
{
    m_alt = alt;
    return true;
}

bool MMS_COMP_SMILMediaObject::setBeginTimeType(MMS_COMP_SMIL_TIME_TYPE type)
{
    m_begin.timeType = type;
    return true;
}

bool MMS_COMP_SMILMediaObject::setBeginTimeEvent(const QString &eventId)
{
    m_begin.eventId = eventId;
    return true;
}

bool MMS_COMP_SMILMediaObject::setBeginTimeLength(int milliseconds)
{
    m_begin.timeValue = milliseconds;
    return true;
}

bool MMS_COMP_SMILMediaObject::setEndTimeType(MMS_COMP_SMIL_TIME_TYPE type)
{
    m_end.timeType = type;
    return true;
}

bool MMS_COMP_SMILMediaObject::setEndTimeEvent(const QString &eventId)
{
    m_end.eventId = eventId;
    return true;
}

bool MMS_COMP_SMILMediaObject::setEndTimeLength(int milliseconds)
{
    m_end.timeValue = milliseconds;
    return true;
}

bool MMS_COMP_SMILMediaObject::setData(Part *part)
{
    if (part != getData())
        m_madeData = false;
    m_data = part;
    return true;
}

void MMS_COMP_SMILMediaObject::bindOwn(Part *part)
{
    m_data = part;
    m_madeData = true;
}

// A part that an application bound to an object with a message belongs to the application, even
// after the message is deleted: it may not be on the heap.
bool MMS_COMP_SMILMediaObject::ownsData() const
{
    const Part *part = getData();
    return part && !part->isHeldByMultipart() && (m_madeData || !m_multipart.isSet());
}

bool MMS_COMP_SMILMediaObject::setMultiPart(MMS_COMP_SMILMultipart *multipart)
{
    m_multipart = multipart;
    return true;
}

bool MMS_COMP_SMILMediaObject::setData(const QString &regionId, const QString &src,
                                       MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type,
                                       const QString &subType, const QArray<char> &bytes,
                                       MMS_COMP_SMILMultipart *multipart)
{
    return unlessOutOfMemory(false, [&] {
        m_multipart = multipart;
        setMediaElementType(type);
        setSrc(src);
        setRegionId(regionId);
        Part *part = getData();
        std::unique_ptr<Part> added;
        if (!part) {
            added = std::make_unique<Part>();
            part = added.get();
            if (multipart)
                multipart->appendBodypart(added.release());
        }
        part->setContentLocation(src);
        part->setDispFileName(MMS_COMP_Util::stripePath(src));
        const QvlMediaKind *kind = qvlMediaKind(type);
        std::ignore =
            part->setContentType(kind ? kind->mainTypeCode : int(EMAIL_Util::Application));
        part->setContentSubType(subType);
        part->setDispFileType(Part::Shown);
        part->setBodyData(bytes);
        if (added)
            bindOwn(part);
        else
            setData(part);
        std::ignore = added.release(); // the object owns it now
        return true;
    });
}

int MMS_COMP_SMILMediaObject::setObjectElem(QDomElement *element, MMS_COMP_SMILMultipart *multipart)
{
    return unlessOutOfMemory(SmilResult::OutOfMemory, [&]() -> int {
        m_multipart = multipart;
        return element ? readElement(SmilDocument(*element).root(), multipart)
                       : SmilResult::NotInMessage;
    });
}

int MMS_COMP_SMILMediaObject::readElement(const SmilElement &element,
                                          MMS_COMP_SMILMultipart *multipart)
{
    m_multipart = multipart;
    setMediaElementType(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE(
        placeOf(qvlMediaKinds, element.tag().trimmed(), &QvlMediaKind::tag)));
    m_src = element.attribute(u"src").trimmed();
    m_regionId = element.attribute(u"region").trimmed();
    m_alt = element.attribute(u"alt").trimmed();
    if (!multipart)
        return SmilResult::NotInMessage;
    Part *part = multipart->getBodyPartBySrc(m_src, Part::Attachment);
    if (!part)
        part = multipart->getBodyPartBySrc(m_src, Part::Shown);
    if (!part)
        return SmilResult::NotInMessage;
    setData(part);
    // A new part already counts one use; each further object adds one.
    if (part->getDispFileType() == Part::Shown)
        addUse(part);
    part->setDispFileType(Part::Shown);
    SmilValues::readTime(element.attribute(u"begin").trimmed(), &m_begin);
    SmilValues::readTime(element.attribute(u"end").trimmed(), &m_end);
    return SmilResult::Ok;
}

bool MMS_COMP_SMILMediaObject::copyTo(MMS_COMP_SMILMediaObject *target,
                                      MMS_COMP_SMILMultipart *multipart) const
{
    return unlessOutOfMemory(false, [&]() -> bool {
        Part *part = multipart ? multipart->getBodyPartBySrc(m_src, Part::Shown) : nullptr;
        if (!target || !part)
            return false;
        target->setData(part);
        target->setMediaElementType(m_mediaElementType);
        target->setMediaType(m_mediaType);
        target->setSrc(m_src);
        target->setRegionId(m_regionId);
        target->setMimeType(m_mimeType);
        target->m_begin = m_end; // the target's end does not change
        target->setAlt(m_alt);
        // Count first: a copy onto itself adds params while it walks them.
        for (int i = 0, count = getParamCount(); i < count; ++i) {
            const Param *param = getParam(i);
            if (target->appendParamElem(param->getName(), param->getValue(), param->getValueType(),
                                        param->getRefValueType())
                != SmilResult::Ok)
                return false;
        }
        return target->setMultiPart(multipart);
    });
}

int MMS_COMP_SMILMediaObject::appendParamElem(const QString &name, const QString &value,
                                              MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType,
                                              const QString &refValueType)
{
    return unlessOutOfMemory(SmilResult::OutOfMemory, [&]() -> int {
        m_params.append(new Param(name, value, valueType, refValueType));
        return SmilResult::Ok;
    });
}

int MMS_COMP_SMILMediaObject::appendParamElem(const QString &name, const QString &value,
                                              const QString &valueTypeKeyword,
                                              const QString &refValueType)
{
    return appendParamElem(name, value, Param::valueTypeOf(valueTypeKeyword), refValueType);
}

bool MMS_COMP_SMILMediaObject::deleteParamElem(int index)
{
    return m_params.remove(index);
}

int MMS_COMP_SMILMediaObject::indexOfParam(const QString &name) const
{
    const auto row =
        std::ranges::find_if(m_params, [&](const Param *param) { return param->isNamed(name); });
    return row != m_params.end() ? int(row - m_params.begin()) : -1;
}

int MMS_COMP_SMILMediaObject::updateParamByName(const QString &name, const QString &value)
{
    return unlessOutOfMemory(SmilResult::OutOfMemory, [&]() -> int {
        if (Param *param = getParam(indexOfParam(name))) {
            param->setValue(value);
            return SmilResult::Ok;
        }
        return appendParamElem(name, value, SMIL_PARAM_VALUE_DATA, u""_s);
    });
}

QString MMS_COMP_SMILMediaObject::getParamValueByName(const QString &name) const
{
    const Param *param = getParam(indexOfParam(name));
    return param ? param->getValue() : u""_s;
}

void MMS_COMP_SMILMediaObject::removeParamByName(const QString &name)
{
    std::ignore = m_params.remove(indexOfParam(name)); // there may be no such param
}

void MMS_COMP_SMILMediaObject::clear()
{
    Part *part = getData();
    const bool isOwn = ownsData();
    setData(nullptr);
    MMS_COMP_SMILMultipart *multipart = getMultiPart();
    if (isOwn)
        delete part;
    else if (part && multipart && multipart->holds(part)) // keeps a part without location
        std::ignore = multipart->deletePartBySrc(part->getContentLocation());
}

bool MMS_COMP_SMILMediaObject::writeToStream(QDataStream &stream) const
{
    stream << qint32(m_mediaElementType) << m_mediaType << m_src << m_regionId << m_mimeType;
    write(stream, m_begin);
    write(stream, m_end);
    const Part *part = getData();
    stream << m_alt << qint32(part ? 1 : 0);
    if (part)
        part->writeToStream(stream);
    stream << qint32(m_params.count());
    for (const Param *param : m_params)
        param->writeToStream(stream);
    return true;
}

bool MMS_COMP_SMILMediaObject::readFromStream(QDataStream &stream)
{
    return unlessOutOfMemory(false, [&]() -> bool {
        qint32 type = 0;
        stream >> type >> m_mediaType >> m_src >> m_regionId >> m_mimeType;
        m_mediaElementType = MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE(type);
        read(stream, &m_begin);
        read(stream, &m_end);
        qint32 hasPart = 0;
        stream >> m_alt >> hasPart;

        if (ownsData())
            delete getData();
        setData(nullptr);
        if (hasPart == 1) {
            auto part = std::make_unique<Part>();
            part->readFromStream(stream);
            bindOwn(part.get());
            std::ignore = part.release();
        }
        qint32 count = 0;
        stream >> count;
        // Stops at the end of the stream, because a damaged count can be any number.
        for (qint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
            auto *param = new Param;
            m_params.append(param);
            param->readFromStream(stream);
        }
        return true;
    });
}
