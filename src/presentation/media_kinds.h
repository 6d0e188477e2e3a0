/** @file
 * The kinds of media and their names.
 */
#pragma once

#include "../platform/email_util.h"
#include "media_element_type.h"

#include <QString>

#include <algorithm>
#include <array>

/// A kind of media.
struct QvlMediaKind
{
    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type; ///< the kind's number
    QLatin1StringView tag; ///< element name, such as "img"
    QLatin1StringView mainType; ///< main type of the parts, such as "image"; empty for any
    int mainTypeCode; ///< EMAIL_Util code of the main type for new parts
};

/// The kinds, indexed by their number.
inline constexpr std::array qvlMediaKinds{
    QvlMediaKind{SMIL_MEDIA_AUDIO, QLatin1StringView("audio"), QLatin1StringView("audio"),
                 EMAIL_Util::Audio},
    QvlMediaKind{SMIL_MEDIA_VIDEO, QLatin1StringView("video"), QLatin1StringView("video"),
                 EMAIL_Util::Video},
    QvlMediaKind{SMIL_MEDIA_TEXT, QLatin1StringView("text"), QLatin1StringView("text"),
                 EMAIL_Util::Text},
    QvlMediaKind{SMIL_MEDIA_IMAGE, QLatin1StringView("img"), QLatin1StringView("image"),
                 EMAIL_Util::Image},
    QvlMediaKind{SMIL_MEDIA_REF, QLatin1StringView("ref"), QLatin1StringView(""),
                 EMAIL_Util::Application}};
static_assert(qvlMediaKinds.size() == SMIL_MEDIA_UNKNOWN);
static_assert(std::ranges::all_of(qvlMediaKinds, [number = 0](const QvlMediaKind &kind) mutable {
    return kind.type == number++;
}));

/// The kind with the number @p type, or null for any other number, such as SMIL_MEDIA_UNKNOWN.
constexpr const QvlMediaKind *qvlMediaKind(int type)
{
    return type >= 0 && type < SMIL_MEDIA_UNKNOWN ? &qvlMediaKinds[std::size_t(type)] : nullptr;
}
