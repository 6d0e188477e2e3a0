/*
 * Result codes of the SMIL reader, named once.
 */
#pragma once

#include "platform/export.h"

/// Results of reading SMIL: 0 for success, negative for failure, positive for what was skipped.
namespace SmilResult {
inline constexpr int Ok = 0;
inline constexpr int NotAMedia = 1; ///< the element is no media element
inline constexpr int RegionRefused = 2; ///< a region could not be added
inline constexpr int MetaRefused = 2; ///< warning: a meta could not be added
inline constexpr int NotInMessage = 3; ///< the element's content is not in the message
inline constexpr int FileUnreadable = -1;
inline constexpr int NullArgument = -6; ///< null or empty input
inline constexpr int RootLayoutRefused = -7;
inline constexpr int NotWellFormed = -8; ///< no XML, or nested or expanding beyond the limits
inline constexpr int NotSmil = -9; ///< the document element is not smil
inline constexpr int HeadAfterBody = -10;
inline constexpr int SecondBody = -11;
inline constexpr int SecondHead = -12;
inline constexpr int OutOfMemory = -15;
inline constexpr int NestedTooDeep = -16; ///< more than ten levels of par and seq

/// The meaning of @p code in words, in English and without a full stop; never null.
QVL_EXPORT const char *meaning(int code);
} // namespace SmilResult
