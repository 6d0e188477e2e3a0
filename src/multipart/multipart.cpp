#include "multipart/multipart.h"

#include "base/no_memory.h"
#include "multipart/lower_case.h"
#include "multipart/media_types.h"
#include "multipart/multipart_result.h"
#include "multipart/part_index.h"
#include "multipart/part_names.h"
#include "multipart/reference.h"
#include "platform/email_util.h"

#include <algorithm>
#include <limits>
#include <memory>

using Part = MMS_COMP_SMILMultipartBodypart;

using namespace Qt::StringLiterals;

namespace {

// Null for a code that the e-mail system does not know.
QString textOf(int code, bool (*lookUp)(int, QCString &))
{
    QCString text("");
    return lookUp(code, text) ? QString::fromLatin1(text) : QString();
}

// Does not go below the smallest count: applications set any count.
void removeUse(Part *part)
{
    if (const int count = part->getRefCount(); count > std::numeric_limits<int>::min())
        part->setRefCount(count - 1);
}

bool isAttachment(const Part *part)
{
    return part->getDispFileType() == Part::Attachment;
}

} // namespace

MMS_COMP_SMILMultipart::MMS_COMP_SMILMultipart() : m_extType(MediaTypes::smil()), m_start(""_L1)
{
    setRelatedType();
    m_parts.setAutoDelete(true);
}

MMS_COMP_SMILMultipart::MMS_COMP_SMILMultipart(const MMS_COMP_SMILMultipart &source)
{
    copyFrom(source);
}

MMS_COMP_SMILMultipart::~MMS_COMP_SMILMultipart() = default;

void MMS_COMP_SMILMultipart::setRelatedType()
{
    asFarAsMemoryGoes([this] {
        // Built once and shared by all messages.
        static const QString type = textOf(EMAIL_Util::Application, EMAIL_Util::typeEnumToStr);
        static const QString subType =
            textOf(EMAIL_Util::MultipartRelated, EMAIL_Util::subTypeEnumToStr);
        if (!type.isNull())
            m_mimeType = type;
        if (!subType.isNull())
            m_subType = subType;
    });
}

void MMS_COMP_SMILMultipart::copyFrom(const MMS_COMP_SMILMultipart &source)
{
    asFarAsMemoryGoes([&] {
        m_extType = source.m_extType;
        m_mimeType = source.m_mimeType;
        m_subType = source.m_subType;
        m_start = source.m_start;
        const int count = source.getPartCount(); // grows when a message is copied to itself
        for (int i = 0; i < count; ++i)
            appendBodypart(new Part(*source.m_parts.at(i)));
    });
}

void MMS_COMP_SMILMultipart::clear()
{
    setRelatedType();
    m_start = ""_L1;
    m_extType = ""_L1;
    m_index = nullptr;
    m_parts.clear();
}

void MMS_COMP_SMILMultipart::appendBodypart(Part *part)
{
    asFarAsMemoryGoes([&] {
        if (!part)
            return;
        m_index = nullptr;
        m_parts.append(part);
        part->m_liveness.setHeld();
    });
}

bool MMS_COMP_SMILMultipart::holds(const Part *part) const
{
    return std::ranges::find(m_parts, part) != m_parts.end();
}

int MMS_COMP_SMILMultipart::insertBodypart(Part *part, int index)
{
    return unlessOutOfMemory(MultipartResult::InsertionRefused, [&]() -> int {
        m_index = nullptr;
        if (!part || !m_parts.insert(std::clamp(index, 0, getPartCount()), part))
            return MultipartResult::InsertionRefused;
        part->m_liveness.setHeld();
        return MultipartResult::Ok;
    });
}

int MMS_COMP_SMILMultipart::deletePart(int index)
{
    Part *part = m_parts.at(index);
    if (part && part->getRefCount() > 1) {
        removeUse(part);
        return MultipartResult::Ok;
    }
    m_index = nullptr;
    return m_parts.remove(index) ? MultipartResult::Ok : MultipartResult::RemovalRefused;
}

int MMS_COMP_SMILMultipart::deletePartBySrc(const QString &src)
{
    if (src.isEmpty())
        return MultipartResult::RemovalRefused;
    m_index = nullptr;
    const Reference::Matcher reference(src);
    // The walk visits every remaining part, but the place of the removal counts the visits, so
    // every removal moves the two apart.
    int place = 0;
    for (int walk = 0; walk < m_parts.count(); ++place) {
        const Part *visited = m_parts.at(walk);
        if (!reference.matches(*visited)) {
            ++walk;
            continue;
        }
        if (visited->getRefCount() > 1) {
            if (Part *part = m_parts.at(place))
                removeUse(part);
            return MultipartResult::Ok;
        }
        if (!m_parts.remove(place))
            return MultipartResult::RemovalRefused;
        if (place > walk)
            ++walk;
    }
    return MultipartResult::Ok;
}

bool MMS_COMP_SMILMultipart::setStart(const QString &start)
{
    m_start = start;
    if (Part *part = getBodyPartBySrc(start, Part::Attachment))
        part->setDispFileType(Part::Shown);
    return true;
}

QString MMS_COMP_SMILMultipart::parseCid(const QString &reference)
{
    return Reference::withoutBrackets(reference).toString();
}

bool MMS_COMP_SMILMultipart::isCidEqual(const QString &a, const QString &b)
{
    const QStringView key = Reference::contentIdKey(a);
    return !key.isEmpty() && isSameInLowerCase(key, Reference::contentIdKey(b));
}

Part *MMS_COMP_SMILMultipart::getBodyPartBySrc(const QString &src, int type) const
{
    if (src.isEmpty())
        return nullptr;
    if (m_index)
        return m_index->find(src, type);
    const Reference::Matcher reference(src);
    const auto found = std::ranges::find_if(m_parts, [&](const Part *part) {
        return part->getDispFileType() == type && reference.matches(*part);
    });
    return found != m_parts.end() ? *found : nullptr;
}

Part *MMS_COMP_SMILMultipart::getSmilPart()
{
    if (Part *part = getBodyPartBySrc(m_start, Part::Shown))
        return part;
    Part *first = m_parts.at(0);
    if (!first || !isRelated() || !isSameInLowerCase(first->getMimeFormat(), MediaTypes::smil()))
        return nullptr;
    first->setDispFileType(Part::Shown);
    return first;
}

bool MMS_COMP_SMILMultipart::isPartExist(const QString &name) const
{
    if (!PartNames::isUsable(name))
        return true;
    const Reference::Matcher reference(name);
    return std::ranges::any_of(m_parts, [&](const Part *part) { return reference.matches(*part); });
}

QString MMS_COMP_SMILMultipart::createUniqueAttchmentLocation(const QString &ext) const
{
    return unlessOutOfMemory(
        QString(), [&]() -> QString { return PartNames(*this).uniqueAttachmentLocation(ext); });
}

QString MMS_COMP_SMILMultipart::createUniqueLocation(const QString &name) const
{
    return unlessOutOfMemory(QString(),
                             [&]() -> QString { return PartNames(*this).uniqueLocation(name); });
}

bool MMS_COMP_SMILMultipart::isRelated() const
{
    return isSameInLowerCase(m_mimeType, MediaTypes::application())
        && isSameInLowerCase(m_subType, MediaTypes::related());
}

int MMS_COMP_SMILMultipart::getAttachmentCount() const
{
    return isRelated() ? int(std::ranges::count_if(m_parts, isAttachment)) : getPartCount();
}

Part *MMS_COMP_SMILMultipart::getAttachment(int index) const
{
    if (!isRelated() || index < 0)
        return m_parts.at(index);
    int left = index;
    const auto found = std::ranges::find_if(
        m_parts, [&](const Part *part) { return isAttachment(part) && left-- == 0; });
    return found != m_parts.end() ? *found : nullptr;
}
