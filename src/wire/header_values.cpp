#include "wire/header_values.h"

#include <algorithm>
#include <array>

namespace {

const char *nameIn(std::span<const QvlFieldValue> values, unsigned char value)
{
    const auto row = std::ranges::find(values, value, &QvlFieldValue::value);
    return row != values.end() ? row->name : nullptr;
}

} // namespace

std::span<const QvlFieldValue> QvlMessageClass::values()
{
    static constexpr std::array rows{
        QvlFieldValue{Personal, "personal"}, QvlFieldValue{Advertisement, "advertisement"},
        QvlFieldValue{Informational, "informational"}, QvlFieldValue{Auto, "auto"}};
    return rows;
}

const char *QvlMessageClass::nameOf(unsigned char value)
{
    return nameIn(values(), value);
}

std::span<const QvlFieldValue> QvlPriority::values()
{
    static constexpr std::array rows{QvlFieldValue{Low, "low"}, QvlFieldValue{Normal, "normal"},
                                     QvlFieldValue{High, "high"}};
    return rows;
}

const char *QvlPriority::nameOf(unsigned char value)
{
    return nameIn(values(), value);
}

std::span<const QvlFieldValue> QvlStatus::values()
{
    static constexpr std::array rows{
        QvlFieldValue{Expired, "expired"},           QvlFieldValue{Retrieved, "retrieved"},
        QvlFieldValue{Rejected, "rejected"},         QvlFieldValue{Deferred, "deferred"},
        QvlFieldValue{Unrecognised, "unrecognised"}, QvlFieldValue{Indeterminate, "indeterminate"},
        QvlFieldValue{Forwarded, "forwarded"},       QvlFieldValue{Unreachable, "unreachable"}};
    return rows;
}

const char *QvlStatus::nameOf(unsigned char value)
{
    return nameIn(values(), value);
}

std::span<const QvlFieldValue> QvlResponseStatus::values()
{
    static constexpr std::array rows{
        QvlFieldValue{Ok, "ok"},
        QvlFieldValue{ErrorUnspecified, "error-unspecified"},
        QvlFieldValue{ErrorServiceDenied, "error-service-denied"},
        QvlFieldValue{ErrorMessageFormatCorrupt, "error-message-format-corrupt"},
        QvlFieldValue{ErrorSendingAddressUnresolved, "error-sending-address-unresolved"},
        QvlFieldValue{ErrorMessageNotFound, "error-message-not-found"},
        QvlFieldValue{ErrorNetworkProblem, "error-network-problem"},
        QvlFieldValue{ErrorContentNotAccepted, "error-content-not-accepted"},
        QvlFieldValue{ErrorUnsupportedMessage, "error-unsupported-message"},
        QvlFieldValue{ErrorTransientFailure, "error-transient-failure"},
        QvlFieldValue{ErrorTransientSendingAddressUnresolved,
                      "error-transient-sending-address-unresolved"},
        QvlFieldValue{ErrorTransientMessageNotFound, "error-transient-message-not-found"},
        QvlFieldValue{ErrorTransientNetworkProblem, "error-transient-network-problem"},
        QvlFieldValue{ErrorPermanentFailure, "error-permanent-failure"},
        QvlFieldValue{ErrorPermanentServiceDenied, "error-permanent-service-denied"},
        QvlFieldValue{ErrorPermanentMessageFormatCorrupt, "error-permanent-message-format-corrupt"},
        QvlFieldValue{ErrorPermanentSendingAddressUnresolved,
                      "error-permanent-sending-address-unresolved"},
        QvlFieldValue{ErrorPermanentMessageNotFound, "error-permanent-message-not-found"},
        QvlFieldValue{ErrorPermanentContentNotAccepted, "error-permanent-content-not-accepted"}};
    return rows;
}

const char *QvlResponseStatus::nameOf(unsigned char value)
{
    return nameIn(values(), value);
}
