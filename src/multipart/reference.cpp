#include "multipart/reference.h"

#include "multipart/multipart.h"

QString Reference::contentIdKey(const QString &text)
{
    return MMS_COMP_SMILMultipart::parseCid(text.trimmed()).toLower();
}

Reference::Matcher::Matcher(const QString &reference)
    : m_contentIdKey(contentIdKey(reference)), m_location(reference.toLower())
{
}

bool Reference::Matcher::matches(const MMS_COMP_SMILMultipartBodypart &part) const
{
    return (!m_contentIdKey.isEmpty() && m_contentIdKey == contentIdKey(part.getContentID()))
        || m_location == part.getContentLocation().toLower();
}
