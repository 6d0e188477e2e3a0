#include "multipart/reference.h"

#include "multipart/body_part.h"
#include "multipart/lower_case.h"

QStringView Reference::withoutBrackets(QStringView reference)
{
    constexpr QLatin1StringView scheme("cid:");
    if (reference.startsWith(u'<'))
        reference = reference.sliced(1);
    if (reference.endsWith(u'>'))
        reference.chop(1);
    return reference.startsWith(scheme, Qt::CaseInsensitive) ? reference.sliced(scheme.size())
                                                             : reference;
}

QStringView Reference::contentIdKey(QStringView text)
{
    return withoutBrackets(text.trimmed());
}

bool Reference::Matcher::matches(const MMS_COMP_SMILMultipartBodypart &part) const
{
    const QString contentId = part.getContentID();
    return (!m_contentIdKey.isEmpty() && isSameInLowerCase(m_contentIdKey, contentIdKey(contentId)))
        || isSameInLowerCase(m_reference, part.getContentLocation());
}
