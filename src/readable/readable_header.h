/*
 * The header of a PDU in the form that the decoder reads: without the fields that a record has no
 * place for, and with its values in the forms that the decoder takes.
 *
 * Fields that the decoder takes octet for octet stay as they are, in their order.
 */
#pragma once

#include "readable/change.h"

#include <QByteArray>

#include <optional>
#include <vector>

struct ReadableHeader
{
    /// Nothing when the header needs no change. Ends with the malformed octets, if there are any.
    std::optional<QByteArray> octets;
    /// Octets of the header as it came; all octets of the PDU when the header is malformed.
    qsizetype size = 0;
    std::vector<QvlChange> changes;
};

/// For the header of a @p pdu that the decoder refuses. Linear in the octets of the header.
ReadableHeader readableHeader(const QByteArray &pdu);

/// True if the decoder takes exactly the octets of the value of @p field, a field of @p pdu.
bool decoderTakes(const QvlScannedField &field, QByteArrayView pdu);
