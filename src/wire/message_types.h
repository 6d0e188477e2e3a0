/** @file
 * The message types of MMS (OMA-MMS-ENC, 6): one table for the checks of a received header, for the
 * order in which the encoder writes fields, and for whoever shows a message.
 */
#pragma once

#include "../base/export.h"

#include <span>

/// One message type.
struct MessageTypeInfo
{
    unsigned char type; ///< a QvlMessageType
    const char *name; ///< as the standard spells it, such as "m-send-req"
    unsigned int mandatoryFields; ///< presence bits that a received header must have; 0 asks none
    std::span<const unsigned char> writeOrder; ///< field codes in the order of writing
};

/// The seven message types in the order of their values, 128 to 134.
QVL_EXPORT std::span<const MessageTypeInfo> messageTypes();

/// The row of @p type, or null for a type that is not among the seven.
QVL_EXPORT const MessageTypeInfo *messageTypeInfo(unsigned char type);
