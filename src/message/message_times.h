/*
 * The times of a header: as the decoder stores them, and as the sender meant them. The decoder
 * stores the moment of decoding as the date, takes relative times as absolute ones, and has a form
 * of its own for Expiry, which the encoder writes as a relative time.
 */
#pragma once

#include "scan/sent_times.h"
#include "wire/header_record.h"

#include <QDateTime>

struct MessageTimes
{
    /// The times in @p header.
    static MessageTimes of(const MMS_UA_UAMsg &header);

    /// These times of a decoded header as the sender meant them, in the form that the encoder
    /// takes. Times that @p sent does not have stay.
    MessageTimes asSent(const QvlSentTimes &sent) const;

    /// These times, with those of @p by in place of the times that are equal to those of @p old.
    MessageTimes replaced(const MessageTimes &old, const MessageTimes &by) const;

    /// Stores the times in @p header.
    void storeIn(MMS_UA_UAMsg *header) const;

    QDateTime date;
    QDateTime deliveryTime;
    int expiry = 0;
};
