/*
 * The header fields of a message in the order of its octets: those of the record, and those that it
 * has no place for.
 */
#pragma once

#include <qvlsmilparser.h>

#include <optional>
#include <vector>

struct Message;

/// A header field of one message.
struct MessageField
{
    /// The field as it came; nothing if the decoder divides the header in another way than the
    /// scanner, as it may if a value is malformed.
    std::optional<QvlScannedField> scanned = std::nullopt;
    /// The code of the field if the record has its value, else 0.
    unsigned char recordCode = 0;
    /// True for a recipient whom the record lists with the first one.
    bool isListed = false;
};

/// The fields in the order of the octets, then those that only the decoder finds.
std::vector<MessageField> messageFields(const Message &message);

/// The header field of @p change; without a code and a name if octets after the last field changed.
QvlScannedField changedField(const QvlChange &change);

/// Where and why the header of a message was refused.
struct RefusedField
{
    QvlScannedField field; ///< without a value; also without a name if no field begins there
    const char *reason; ///< in words
};

/// Nothing if the header was not refused, or for lack of memory.
std::optional<RefusedField> refusedField(const Message &message);
