#include "readable/readable_pdu.h"

#include "base/no_memory.h"
#include "multipart/media_types.h"
#include "readable/readable_body.h"
#include "readable/readable_header.h"
#include "wire/header_decoder.h"
#include "wire/header_record.h"
#include "wire/wire_result.h"

#include <limits>

namespace {

unsigned char decode(QByteArrayView octets, MMS_UA_UAMsg *msg)
{
    if (octets.size() > std::numeric_limits<int>::max())
        return WireResult::OutOfData;
    const char *first = octets.isNull() ? "" : octets.data(); // the decoder takes no null
    auto *data = reinterpret_cast<unsigned char *>(const_cast<char *>(first));
    auto size = static_cast<unsigned int>(octets.size());
    return MMS_UA_Decoder().decodeHeader(data, size, msg);
}

} // namespace

QvlReadablePdu::QvlReadablePdu(const QByteArray &pdu) : m_pdu(pdu), m_headerSize(pdu.size())
{
    const bool isDone = unlessOutOfMemory(false, [this]() -> bool {
        prepareHeader();
        return true;
    });
    if (isDone)
        return;
    // The codecs might misread octets that are not prepared.
    m_header.emplace();
    m_body.emplace();
    m_headerSize = m_pdu.size();
    m_changes.clear();
}

QvlReadablePdu::~QvlReadablePdu() = default;

void QvlReadablePdu::prepareHeader()
{
    {
        MMS_UA_UAMsg header;
        if (decode(m_pdu, &header) == WireResult::Read) {
            m_headerSize = m_pdu.size() - header.getBodyLength();
            return prepareBody(header);
        }
    }
    ReadableHeader readable = readableHeader(m_pdu);
    m_headerSize = readable.size;
    m_header = std::move(readable.octets);
    m_changes = std::move(readable.changes);
    MMS_UA_UAMsg header;
    if (!m_header || decode(*m_header, &header) != WireResult::Read)
        return;
    // The decoder may find an end in octets that are malformed for the scanner.
    m_header->chop(header.getBodyLength());
    m_headerSize -= header.getBodyLength();
    prepareBody(header);
}

void QvlReadablePdu::prepareBody(const MMS_UA_UAMsg &header)
{
    if (!MediaTypes::isMultipart(header.getContentType(), header.getContentSubType()))
        return;
    ReadableBody readable = readableBody(body(), m_headerSize);
    m_body = std::move(readable.body);
    m_changes.insert(m_changes.end(), readable.changes.begin(), readable.changes.end());
}

// Without memory the header is another one although nothing was changed.
bool QvlReadablePdu::isPrepared() const
{
    return !m_header || !m_changes.empty();
}

QByteArrayView QvlReadablePdu::header() const
{
    return m_header ? QByteArrayView(*m_header) : QByteArrayView(m_pdu).first(m_headerSize);
}

QByteArrayView QvlReadablePdu::body() const
{
    return m_body ? QByteArrayView(*m_body) : QByteArrayView(m_pdu).sliced(m_headerSize);
}

QByteArray QvlReadablePdu::pdu() const
{
    if (!isPrepared())
        return QByteArray();
    if (!m_header && !m_body)
        return m_pdu;
    return unlessOutOfMemory(QByteArray(), [this] {
        QByteArray octets;
        octets.reserve(header().size() + body().size());
        octets.append(header());
        octets.append(body());
        return octets;
    });
}

unsigned char QvlReadablePdu::decodeHeader(MMS_UA_UAMsg *msg) const
{
    if (!isPrepared())
        return WireResult::BadArgument;
    const unsigned char result = decode(header(), msg);
    if (result == WireResult::Read) {
        msg->setBody(reinterpret_cast<unsigned char *>(const_cast<char *>(body().data())));
        msg->setBodyLength(int(body().size()));
    }
    return result;
}
