/** @file
 * Result codes of the wire codec, named once.
 */
#pragma once

#include "../base/export.h"

/// Results that the wire codec's operations return, as unsigned 8-bit numbers.
namespace WireResult {
inline constexpr unsigned char Read = 0; ///< read; the header decoder's success
inline constexpr unsigned char BadArgument = 2; ///< no buffer, no record, or no memory
inline constexpr unsigned char UnknownField = 3; ///< header field code outside 1..24
inline constexpr unsigned char UnsupportedContentType = 7; ///< content type of no known shape
inline constexpr unsigned char OutOfData = 9; ///< data ran out, or a length is impossible
inline constexpr unsigned char Written = 10; ///< written; the encoders' success
inline constexpr unsigned char CannotWrite = 16; ///< no codec, unwritable value or output full

/// The meaning of @p code in words, in English and without a full stop; never null.
QVL_EXPORT const char *meaning(unsigned char code);
} // namespace WireResult
