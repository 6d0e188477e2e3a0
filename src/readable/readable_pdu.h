/** @file
 * A PDU of any version of MMS in the form that the decoder and the body codec read.
 */
#pragma once

#include "../base/export.h"
#include "change.h"

#include <QByteArray>

#include <optional>
#include <vector>

class MMS_UA_UAMsg;

/**
 * Prepares a PDU for MMS_UA_Decoder and MMS_UA_MultiPart_CODEC, which read MMS 1.0 only, and
 * reports each change.
 *
 * @code
 * QvlReadablePdu readable(pdu);
 * MMS_UA_UAMsg header;
 * if (readable.decodeHeader(&header) == WireResult::Read)
 *     show(header, readable.changes());
 * @endcode
 *
 * Fields that a record has no place for are left out; QvlHeaderScanner finds them in the PDU as it
 * came. The other fields stay octet for octet in their order if the decoder takes exactly the
 * octets of their values. Otherwise they are written in the form that the decoder reads, or left
 * out. A content type becomes one octet, or related with Type and Start. Up to 16 octets that are
 * no field are left out at the end of a message type without a body.
 *
 * A PDU that the decoder reads comes out as it went in, unless its body is multipart and the codec
 * would misread the count of parts or a header of a part. The part of the header from a malformed
 * field on is not changed, so the decoder fails there.
 *
 * Shares the octets when nothing has to change. Otherwise it makes one copy of the header, or of
 * the body, or of both. Linear in the octets. Without memory header and body are empty, and
 * decodeHeader() and pdu() report that.
 */
class QVL_EXPORT QvlReadablePdu
{
public:
    /// Prepares @p pdu, which is shared and not copied.
    explicit QvlReadablePdu(const QByteArray &pdu);
    /// Shares the octets with the other object.
    QvlReadablePdu(const QvlReadablePdu &) = default;
    /// Shares the octets with the other object.
    QvlReadablePdu &operator=(const QvlReadablePdu &) = default;
    /// Views of header and body become invalid.
    ~QvlReadablePdu();

    /// What was changed, in the order of the octets; empty when nothing was.
    const std::vector<QvlChange> &changes() const { return m_changes; }
    /// The header; exists as long as this object.
    QByteArrayView header() const;
    /// The octets after the header; exist as long as this object.
    QByteArrayView body() const;
    /// Octets before the body in the PDU as it came; all of them if the decoder refuses the header.
    qsizetype bodyOffset() const { return m_headerSize; }
    /// Header and body in one array; the PDU as it came when nothing was changed; null when there
    /// is no memory.
    QByteArray pdu() const;

    /**
     * Decodes the header as MMS_UA_Decoder::decodeHeader() does, with its results. Returns
     * WireResult::BadArgument also when there was no memory to prepare the PDU. The body of @p msg
     * points into body(), so keep this object as long as it is used.
     */
    [[nodiscard]] unsigned char decodeHeader(MMS_UA_UAMsg *msg) const;

private:
    QVL_INTERNAL bool isPrepared() const;
    QVL_INTERNAL void prepareHeader();
    QVL_INTERNAL void prepareBody(const MMS_UA_UAMsg &header);

    QByteArray m_pdu; // as it came; the changes point into it
    qsizetype m_headerSize = 0; // as it came
    std::optional<QByteArray> m_header; // if it was changed
    std::optional<QByteArray> m_body; // if it was changed
    std::vector<QvlChange> m_changes;
};
