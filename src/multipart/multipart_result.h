/** @file
 * Result codes of the multipart message, named once.
 */
#pragma once

#include "../base/export.h"

/// Results of the multipart message's operations: 0 for success, negative for failure.
namespace MultipartResult {
inline constexpr int Ok = 0; ///< done
inline constexpr int NullArgument = -6; ///< null header or null multipart
inline constexpr int OutOfMemory = -15; ///< everything done before stays
inline constexpr int CannotEncode = -18; ///< the codec could not write
inline constexpr int CannotDecode = -19; ///< the codec could not read
inline constexpr int UnknownCodecResult = -20; ///< a code that is no WireResult
inline constexpr int InsertionRefused = -21; ///< null part, or no memory
inline constexpr int RemovalRefused = -22; ///< bad index, empty reference or failed removal

/// The meaning of @p code in words, in English and without a full stop; never null.
QVL_EXPORT const char *meaning(int code);
} // namespace MultipartResult
