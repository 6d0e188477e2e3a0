/** @file
 * Published type names that today's Qt no longer has, under which callers' source still compiles.
 */
#pragma once

#include "ptr_list.h"

#include <QByteArray>

/// What the published names stand for.
namespace QvlQtNames {
/// The array of T. Only char has one.
template <typename T>
struct ArrayOf;
/// The array of octets.
template <>
struct ArrayOf<char>
{
    using Type = QByteArray; ///< today's name of the array
};
} // namespace QvlQtNames

/// Array of octets: `QArray<char>` is QByteArray. No other element type is used.
template <typename T>
using QArray = typename QvlQtNames::ArrayOf<T>::Type;

/// Text in an 8-bit encoding.
using QCString = QByteArray;
