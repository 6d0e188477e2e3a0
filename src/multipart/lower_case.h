/*
 * Comparison in lower case without lower-case copies. References are compared with every part of a
 * message, also in destructors, when there may be no memory; tables look texts up likewise.
 */
#pragma once

#include <QStringView>

#include <cstddef>

/// True when QString::toLower() gives the same text for both.
bool isSameInLowerCase(QStringView a, QStringView b);

/// Hash for isSameInLowerCase().
std::size_t hashInLowerCase(QStringView text);
