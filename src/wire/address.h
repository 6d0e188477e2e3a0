/** @file
 * The address value of From, To, Cc and Bcc.
 */
#pragma once

#include "../platform/entry.h"

class LinearBuffer;

/**
 * Address value of From, To, Cc and Bcc: an Encoded-string-value.
 *
 * A phone number is followed by "/TYPE=PLMN" on the wire; an e-mail address may stand in "<" and
 * ">" behind a display name, which is read but never written.
 */
class QVL_EXPORT AddressBinary
{
public:
    /// Always returns WireResult::Read: an address that was cut off is taken as far as it goes. A
    /// phone number leaves the name in @p entry alone.
    static unsigned char readFrom(LinearBuffer *buffer, MMS_UTIL_Entry *entry);
    /// WireResult::CannotWrite, and nothing written, for an entry that is neither phone nor e-mail,
    /// else WireResult::Written.
    static unsigned char writeTo(LinearBuffer *buffer, const MMS_UTIL_Entry &entry);
    /// Octets that writeTo() appends.
    static int sizeOf(const MMS_UTIL_Entry &entry);
};
