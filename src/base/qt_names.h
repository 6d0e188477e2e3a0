/** @file
 * Published type names that today's Qt no longer has, so that callers' source still compiles.
 */
#pragma once

#include "ptr_list.h"

#include <QByteArray>

/// Details of the names.
namespace QvlQtNames {
/// The array of T, defined for char only.
template <typename T>
struct ArrayOf;
/// The array of octets.
template <>
struct ArrayOf<char>
{
    using Type = QByteArray; ///< today's name of the type
};
} // namespace QvlQtNames

/// Array of octets: `QArray<char>` is QByteArray. Other element types do not compile.
template <typename T>
using QArray = typename QvlQtNames::ArrayOf<T>::Type;

/// Text in an 8-bit encoding.
using QCString = QByteArray;
