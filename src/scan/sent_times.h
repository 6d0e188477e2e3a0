/** @file
 * The times of a header as the sender wrote them.
 */
#pragma once

#include "../base/export.h"

#include <QByteArrayView>

#include <optional>

/// A time that may be relative.
struct QvlSentTime
{
    qint64 seconds = 0; ///< since 1970, or since the message was sent
    bool isRelative = false; ///< counted from the sending of the message
};

/**
 * The times of a header as the sender wrote them. A decoded header has the moment of decoding as
 * its date and an Expiry in a form of its own, so applications sort messages by these times.
 */
struct QvlSentTimes
{
    std::optional<QvlSentTime> date; ///< Date, which is never relative
    std::optional<QvlSentTime> expiry; ///< when the message is given up
    std::optional<QvlSentTime> deliveryTime; ///< when the message may be delivered
};

/// The times in the header of @p pdu; those after a malformed field are missing. A field that
/// occurs twice counts with its last readable value. Linear in the octets of the header.
QVL_EXPORT QvlSentTimes qvlSentTimes(QByteArrayView pdu);
