#include "scan/sent_times.h"

#include "scan/header_scanner.h"
#include "wire/header_field_codes.h"
#include "wire/octets.h"

namespace {

// The time of a field, or the one before when it cannot be read.
std::optional<QvlSentTime> timeOf(const QvlScannedField &field, std::optional<QvlSentTime> before)
{
    const QvlScannedValue value = field.decoded();
    if (!value.isReadable)
        return before;
    return QvlSentTime{value.number, value.token == WireToken::RelativeTime};
}

} // namespace

QvlSentTimes qvlSentTimes(QByteArrayView pdu)
{
    QvlSentTimes times;
    QvlHeaderScanner scanner(pdu);
    QvlScannedField field;
    while (scanner.next(&field)) {
        if (field.code == HeaderFieldCode::Date)
            times.date = timeOf(field, times.date);
        else if (field.code == HeaderFieldCode::Expiry)
            times.expiry = timeOf(field, times.expiry);
        else if (field.code == HeaderFieldCode::DeliveryTime)
            times.deliveryTime = timeOf(field, times.deliveryTime);
    }
    return times;
}
