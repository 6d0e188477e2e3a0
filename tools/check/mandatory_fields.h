/*
 * The header fields that the standard requires. The library's own table has fewer: it decides what
 * is written and refused, and handsets write messages that lack some.
 */
#pragma once

#include <span>

namespace Check {

/// The codes of the fields that a message of @p type must have besides MMS-Version; those of every
/// message for other types.
std::span<const unsigned char> mandatoryFields(int type);

} // namespace Check
