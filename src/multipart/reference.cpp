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

bool Reference::Matcher::matches(const QString &contentId, const QString &location) const
{
    return (!m_contentIdKey.isEmpty() && m_contentIdKey == contentIdKey(contentId))
        || m_location == location.toLower();
}
