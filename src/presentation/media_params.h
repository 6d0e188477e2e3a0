/** @file
 * Params of media objects: the kinds of their values, and the params that the library itself uses.
 */
#pragma once

#include <QString>

#include <array>

/// Kinds of value of a param. The numbers stand in stored messages.
enum MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE : int {
    SMIL_PARAM_VALUE_DATA = 0, ///< the value itself; written without its kind
    SMIL_PARAM_VALUE_REF = 1, ///< an address of the value
    SMIL_PARAM_VALUE_OBJECT = 2, ///< the id of another object
    SMIL_PARAM_VALUE_UNKNOWN = 3, ///< any other keyword, or none
};

/// Keywords of the attribute valuetype, each at the number of its kind.
inline constexpr std::array qvlParamValueTypes{QLatin1StringView("data"), QLatin1StringView("ref"),
                                               QLatin1StringView("object")};
static_assert(qvlParamValueTypes.size() == SMIL_PARAM_VALUE_UNKNOWN);

/// Names of the params that carry the colors and the text size of a slide. The texts are part of
/// the library, so that naming a param takes no memory.
namespace QvlParamName {
/// The color of the page, in the first text, picture and audio.
inline QString pageColor()
{
    return QStringLiteral("background-color");
}

/// The color of the text, in the first text.
inline QString textColor()
{
    return QStringLiteral("foreground-color");
}

/// The size of the text, in the first text.
inline QString textSize()
{
    return QStringLiteral("textsize");
}
} // namespace QvlParamName
