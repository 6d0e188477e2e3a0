#include "multipart/reference.h"

#include "multipart/body_part.h"
#include "multipart/lower_case.h"

QStringView Reference::withoutBrackets(QStringView reference)
{
    constexpr QStringView scheme(u"cid:");
    if (reference.startsWith(u'<'))
        reference = reference.sliced(1);
    if (reference.endsWith(u'>'))
        reference.chop(1);
    const bool hasScheme = reference.size() >= scheme.size()
        && isSameInLowerCase(reference.first(scheme.size()), scheme);
    return hasScheme ? reference.sliced(scheme.size()) : reference;
}

QStringView Reference::contentIdKey(QStringView text)
{
    return withoutBrackets(text.trimmed());
}

Reference::PartKeys::PartKeys(const MMS_COMP_SMILMultipartBodypart &part)
    : location(part.getContentLocation()), contentId(part.getContentID())
{
    if (contentIdKey(contentId).isEmpty())
        contentId.clear();
}

bool Reference::Matcher::matches(const MMS_COMP_SMILMultipartBodypart &part) const
{
    if (isSameInLowerCase(m_reference, part.getContentLocation()))
        return true;
    const QString contentId = part.getContentID();
    return !m_contentIdKey.isEmpty() && !contentId.isEmpty()
        && isSameInLowerCase(m_contentIdKey, contentIdKey(contentId));
}
