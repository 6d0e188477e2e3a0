/** @file
 * The message types of MMS (OMA-MMS-ENC, 6): one table for the checks of a received header, for the
 * encoder's order of fields, and for programs that show a message.
 */
#pragma once

#include "../base/export.h"

#include <span>

/// One message type.
struct MessageTypeInfo
{
    unsigned char type; ///< a QvlMessageType
    const char *name; ///< as the standard spells it, such as "m-send-req"
    unsigned int mandatoryFields; ///< presence bits required in a received header; 0 for none
    std::span<const unsigned char> writeOrder; ///< field codes in the order of writing
};

/// The seven message types, in the order of their values 128 to 134.
QVL_EXPORT std::span<const MessageTypeInfo> messageTypes();

/// The row of @p type, or null for any other type.
QVL_EXPORT const MessageTypeInfo *messageTypeInfo(unsigned char type);

/// True if messages of @p type, one of all types up to MMS 1.3, end with Content-Type and a body.
QVL_EXPORT bool messageTypeHasBody(unsigned char type);
