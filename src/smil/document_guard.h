/*
 * What a document may cost: the tree builder takes quadratic time in the nesting depth and expands
 * entities without a bound on their sum, so a document is measured by one linear scan before it
 * gets to build a tree.
 */
#pragma once

#include <QStringView>

namespace DocumentGuard {

/// Levels of elements that a document may have, its root being the first.
inline constexpr int DeepestNesting = 256;

/**
 * True when @p document is nested no deeper than DeepestNesting and, with entities and default
 * attributes put in, is not longer than 16 times its own size and 65,536 characters.
 *
 * Says nothing about whether the document is well-formed: one that is not may pass, and is then
 * refused by the tree builder. Documents do not pass whose entities refer to one another in a
 * circle or more than 64 deep, or whose declarations hide what they come to behind other
 * references.
 */
bool isWithinLimits(QStringView document);

} // namespace DocumentGuard
