/** @file
 * Params of media objects: the kinds of their values, and the params that the library itself uses.
 */
#pragma once

#include <QString>

#include <array>

/// Kinds of value of a param. Stored messages contain the numbers.
enum MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE : int {
    SMIL_PARAM_VALUE_DATA = 0, ///< the value itself; written without its kind
    SMIL_PARAM_VALUE_REF = 1, ///< an address of the value, such as a URI
    SMIL_PARAM_VALUE_OBJECT = 2, ///< the id of another object
    SMIL_PARAM_VALUE_UNKNOWN = 3, ///< any other keyword, or none
};

/// Keywords of the attribute valuetype, indexed by their kind.
inline constexpr std::array qvlParamValueTypes{QLatin1StringView("data"), QLatin1StringView("ref"),
                                               QLatin1StringView("object")};
static_assert(qvlParamValueTypes.size() == SMIL_PARAM_VALUE_UNKNOWN);

/// Names of the params with the colors and the text size of a slide. Their texts are constants, so
/// that using one allocates nothing.
namespace QvlParamName {
/// The page color, in the first text, picture and audio.
inline QString pageColor()
{
    return QStringLiteral("background-color");
}

/// The text color, in the first text.
inline QString textColor()
{
    return QStringLiteral("foreground-color");
}

/// The text size, in the first text.
inline QString textSize()
{
    return QStringLiteral("textsize");
}
} // namespace QvlParamName
