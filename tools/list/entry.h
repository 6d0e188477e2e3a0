/*
 * What a list says of one message.
 */
#pragma once

#include "input/message.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace MessageList {

/// The kinds of parts.
enum class PartKind : unsigned char { Image, Audio, Video, Text, Smil, Other };

/// How many kinds there are.
inline constexpr std::size_t PartKinds = std::size_t(PartKind::Other) + 1;

/// Names of the kinds in conditions, in JSON and in CSV.
inline constexpr std::array<const char *, PartKinds> kindNames{"image", "audio", "video",
                                                               "text",  "smil",  "other"};

/// One message of a list.
struct Entry
{
    QString file; ///< as the user named it
    QString error; ///< why the file could not be read; nothing else counts then
    std::optional<qint64> date; ///< the sender's, in seconds since 1970
    int type = 0; ///< a QvlMessageType, or 0
    QString from; ///< empty when it is not given
    QStringList to; ///< recipients of To, Cc and Bcc
    QString subject;
    int slides = 0;
    std::array<int, PartKinds> parts{};
    qint64 octets = 0;
    MessageState state = MessageState::Ok;

    int count(PartKind kind) const { return parts[std::size_t(kind)]; }
};

/// The entry of a message that was read.
Entry entryOf(const Message &message);

/// The name of a message type as the standard spells it, such as "m-send-req", or its number.
QString typeText(int type);

} // namespace MessageList
