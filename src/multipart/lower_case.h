/*
 * Comparison in lower case without making lower-case copies: references are compared with every
 * part of a message, and also while one is taken down, when there may be no memory. Tables find
 * texts so, too.
 */
#pragma once

#include <QStringView>

#include <cstddef>

/// True when the two are equal in lower case, exactly as QString::toLower() gives it.
bool isSameInLowerCase(QStringView a, QStringView b);

/// Equal for texts that isSameInLowerCase() finds equal.
std::size_t hashInLowerCase(QStringView text);
