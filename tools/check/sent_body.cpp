#include "check/sent_body.h"

#include "input/message.h"

namespace Check {

SentBody::SentBody(const Message &message) : m_message(message), m_parts(sentParts(message))
{
    for (const QvlScannedPart &part : m_parts) {
        const QString location = part.location();
        m_names += location.isEmpty() ? part.id() : location;
    }
}

const QvlScannedPart *SentBody::part(int index) const
{
    return std::size_t(index) < m_parts.size() ? &m_parts[std::size_t(index)] : nullptr;
}

Place SentBody::placeOf(int index) const
{
    const QvlScannedPart *sent = part(index);
    if (!sent)
        return {.octet = m_message.sentBodyOffset(),
                .part = index,
                .name = m_message.parts().getBodypartByIndex(index)->getContentLocation()};
    return {
        .octet = m_message.sentBodyOffset() + sent->offset, .part = index, .name = m_names[index]};
}

} // namespace Check
