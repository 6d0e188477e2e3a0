/** @file
 * The address value of From, To, Cc and Bcc.
 */
#pragma once

#include "../platform/entry.h"

class LinearBuffer;

/**
 * Address value of From, To, Cc and Bcc: an Encoded-string-value.
 *
 * On the wire "/TYPE=PLMN" follows a phone number. An e-mail address may be enclosed in "<" and ">"
 * after a display name; the codec reads this form but never writes it.
 */
class QVL_EXPORT AddressBinary
{
public:
    /// Always returns WireResult::Read: a truncated address keeps the text that was read. A phone
    /// number leaves the name in @p entry unchanged.
    static unsigned char readFrom(LinearBuffer *buffer, MMS_UTIL_Entry *entry);
    /// Returns WireResult::CannotWrite and writes nothing for an entry that is neither phone nor
    /// e-mail, else WireResult::Written.
    static unsigned char writeTo(LinearBuffer *buffer, const MMS_UTIL_Entry &entry);
    /// Octets that writeTo() appends.
    static int sizeOf(const MMS_UTIL_Entry &entry);
};
