/*
 * Checks a message by all rules. Each group of rules is in a file of its own.
 */
#pragma once

#include "check/findings.h"

struct Message;

namespace Check {

/// Units of 1,024 octets that relays and handsets usually take.
inline constexpr int UsualKilobytes = 300;

/// What is checked besides the standard.
struct Limits
{
    qint64 octets = UsualKilobytes * 1024; ///< of a message
};

/// Checks @p message, which was read. Decodes its pictures and measures its clips. Linear in the
/// octets of the message.
Findings checkMessage(Message &message, const Limits &limits);

/// @name Groups of rules
/// @{

/// The header: version, fields, recipients, texts.
void checkHeader(const Message &message, Findings *findings);
/// The body, its size, and the names of its parts.
void checkParts(Message &message, const Limits &limits, Findings *findings);
/// What the parts hold.
void checkContent(Message &message, Findings *findings);
/// The SMIL as it was sent, and its references.
void checkPresentation(Message &message, Findings *findings);
/// @}

} // namespace Check
