/** @file
 * Result codes of the SMIL reader, named once.
 */
#pragma once

#include "../base/export.h"

/// Results of reading SMIL: 0 for success, negative for failure, positive for something skipped.
namespace SmilResult {
inline constexpr int Ok = 0; ///< read
inline constexpr int NotAMedia = 1; ///< the element is no media element
inline constexpr int RegionRefused = 2; ///< a region could not be added
inline constexpr int MetaRefused = 2; ///< warning: a meta could not be added
inline constexpr int NotInMessage = 3; ///< the message does not contain the element's content
inline constexpr int FileUnreadable = -1; ///< the file cannot be opened
inline constexpr int NullArgument = -6; ///< null or empty input
inline constexpr int RootLayoutRefused = -7; ///< the root layout was null
inline constexpr int NotWellFormed = -8; ///< not XML, or nested or expanding beyond the limits
inline constexpr int NotSmil = -9; ///< the document element is not smil
inline constexpr int HeadAfterBody = -10; ///< a head comes after the body
inline constexpr int SecondBody = -11; ///< there are two bodies
inline constexpr int SecondHead = -12; ///< there are two heads
inline constexpr int OutOfMemory = -15; ///< everything read before stays
inline constexpr int NestedTooDeep = -16; ///< more than ten levels of par and seq

/// The meaning of @p code in words, in English and without a full stop; never null.
QVL_EXPORT const char *meaning(int code);
} // namespace SmilResult
