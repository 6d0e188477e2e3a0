#include "wire/header_values.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

struct ValueName
{
    unsigned char value;
    const char *name;
};

const char *nameIn(std::span<const ValueName> names, unsigned char value)
{
    const auto row = std::ranges::find(names, value, &ValueName::value);
    return row != names.end() ? row->name : nullptr;
}

} // namespace

const char *QvlMessageClass::nameOf(unsigned char value)
{
    static constexpr std::array names{
        ValueName{Personal, "personal"}, ValueName{Advertisement, "advertisement"},
        ValueName{Informational, "informational"}, ValueName{Auto, "auto"}};
    return nameIn(names, value);
}

const char *QvlPriority::nameOf(unsigned char value)
{
    static constexpr std::array names{ValueName{Low, "low"}, ValueName{Normal, "normal"},
                                      ValueName{High, "high"}};
    return nameIn(names, value);
}

const char *QvlStatus::nameOf(unsigned char value)
{
    static constexpr std::array names{
        ValueName{Expired, "expired"},           ValueName{Retrieved, "retrieved"},
        ValueName{Rejected, "rejected"},         ValueName{Deferred, "deferred"},
        ValueName{Unrecognised, "unrecognised"}, ValueName{Indeterminate, "indeterminate"},
        ValueName{Forwarded, "forwarded"},       ValueName{Unreachable, "unreachable"}};
    return nameIn(names, value);
}

const char *QvlResponseStatus::nameOf(unsigned char value)
{
    static constexpr std::array names{
        ValueName{Ok, "ok"},
        ValueName{ErrorUnspecified, "error-unspecified"},
        ValueName{ErrorServiceDenied, "error-service-denied"},
        ValueName{ErrorMessageFormatCorrupt, "error-message-format-corrupt"},
        ValueName{ErrorSendingAddressUnresolved, "error-sending-address-unresolved"},
        ValueName{ErrorMessageNotFound, "error-message-not-found"},
        ValueName{ErrorNetworkProblem, "error-network-problem"},
        ValueName{ErrorContentNotAccepted, "error-content-not-accepted"},
        ValueName{ErrorUnsupportedMessage, "error-unsupported-message"},
        ValueName{ErrorTransientFailure, "error-transient-failure"},
        ValueName{ErrorTransientSendingAddressUnresolved,
                  "error-transient-sending-address-unresolved"},
        ValueName{ErrorTransientMessageNotFound, "error-transient-message-not-found"},
        ValueName{ErrorTransientNetworkProblem, "error-transient-network-problem"},
        ValueName{ErrorPermanentFailure, "error-permanent-failure"},
        ValueName{ErrorPermanentServiceDenied, "error-permanent-service-denied"},
        ValueName{ErrorPermanentMessageFormatCorrupt, "error-permanent-message-format-corrupt"},
        ValueName{ErrorPermanentSendingAddressUnresolved,
                  "error-permanent-sending-address-unresolved"},
        ValueName{ErrorPermanentMessageNotFound, "error-permanent-message-not-found"},
        ValueName{ErrorPermanentContentNotAccepted, "error-permanent-content-not-accepted"}};
    return nameIn(names, value);
}
