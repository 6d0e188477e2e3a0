#include "check/sent_body.h"

#include "input/message.h"

namespace Check {

SentBody::SentBody(const Message &message) : m_message(message), m_parts(sentParts(message)) { }

const QvlScannedPart *SentBody::part(int index) const
{
    return std::size_t(index) < m_parts.size() ? &m_parts[std::size_t(index)] : nullptr;
}

Place SentBody::placeOf(int index) const
{
    const QvlScannedPart *sent = part(index);
    const QString name = m_message.parts().getBodypartByIndex(index)->getContentLocation();
    return {.octet = m_message.sentBodyOffset() + (sent ? sent->offset : 0),
            .part = index,
            .name = name};
}

} // namespace Check
