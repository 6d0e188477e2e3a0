/** @file
 * Limits of SMIL documents. A document beyond them is refused as one that is not well-formed.
 */
#pragma once

#include <QtGlobal>

/// Limits that keep the cost of any document linear in its size.
namespace QvlDocumentLimits {
inline constexpr unsigned DeepestNesting = 256; ///< elements within one another
inline constexpr int DeepestEntities = 64; ///< entities that refer to one another
inline constexpr qint64 ExpansionFactor = 16; ///< how often its own size a document may grow to
inline constexpr qint64 ExpansionAllowance = 65536; ///< characters that it may grow to beyond that
} // namespace QvlDocumentLimits
