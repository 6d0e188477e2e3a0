#include "message/message_times.h"

#include <algorithm>
#include <limits>

namespace {

// A header has times of 32 bits.
QDateTime moment(qint64 seconds)
{
    return QDateTime::fromSecsSinceEpoch(
        std::min<qint64>(seconds, std::numeric_limits<quint32>::max()));
}

} // namespace

MessageTimes MessageTimes::of(const MMS_UA_UAMsg &header)
{
    return {header.getDate(), header.getDeliveryTime(), header.getExpiry()};
}

MessageTimes MessageTimes::asSent(const QvlSentTimes &sent) const
{
    MessageTimes times = *this;
    const QDateTime now = date.isValid() ? date : QDateTime::currentDateTime();
    const QDateTime start = sent.date ? moment(sent.date->seconds) : now;
    if (sent.date)
        times.date = start;
    if (const auto &delivery = sent.deliveryTime) {
        times.deliveryTime = delivery->isRelative
            ? moment(start.toSecsSinceEpoch() + delivery->seconds)
            : moment(delivery->seconds);
    }
    if (const auto &given = sent.expiry) {
        const qint64 seconds =
            given->isRelative ? given->seconds : given->seconds - start.toSecsSinceEpoch();
        times.expiry = int(std::clamp<qint64>(seconds, 0, std::numeric_limits<int>::max()));
    }
    return times;
}

MessageTimes MessageTimes::replaced(const MessageTimes &old, const MessageTimes &by) const
{
    return {date == old.date ? by.date : date,
            deliveryTime == old.deliveryTime ? by.deliveryTime : deliveryTime,
            expiry == old.expiry ? by.expiry : expiry};
}

void MessageTimes::storeIn(MMS_UA_UAMsg *header) const
{
    header->setDate(date);
    header->setDeliveryTime(deliveryTime);
    header->setExpiry(expiry);
}
