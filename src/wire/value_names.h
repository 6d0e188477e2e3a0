/*
 * The names of header field values that are one octet (OMA-MMS-ENC, 7.3), a table for each field
 * or family of fields. Values of MMS 1.0 and of the later versions stand in the same table.
 */
#pragma once

#include "wire/header_values.h"
#include "wire/octets.h"

#include <array>
#include <cstddef>

namespace ValueNames {

inline constexpr std::array messageTypes{
    QvlFieldValue{QvlMessageType::SendReq, "m-send-req"},
    QvlFieldValue{QvlMessageType::SendConf, "m-send-conf"},
    QvlFieldValue{QvlMessageType::NotificationInd, "m-notification-ind"},
    QvlFieldValue{QvlMessageType::NotifyRespInd, "m-notifyresp-ind"},
    QvlFieldValue{QvlMessageType::RetrieveConf, "m-retrieve-conf"},
    QvlFieldValue{QvlMessageType::AcknowledgeInd, "m-acknowledge-ind"},
    QvlFieldValue{QvlMessageType::DeliveryInd, "m-delivery-ind"},
    QvlFieldValue{QvlMessageType::ReadRecInd, "m-read-rec-ind"},
    QvlFieldValue{QvlMessageType::ReadOrigInd, "m-read-orig-ind"},
    QvlFieldValue{QvlMessageType::ForwardReq, "m-forward-req"},
    QvlFieldValue{QvlMessageType::ForwardConf, "m-forward-conf"},
    QvlFieldValue{QvlMessageType::MboxStoreReq, "m-mbox-store-req"},
    QvlFieldValue{QvlMessageType::MboxStoreConf, "m-mbox-store-conf"},
    QvlFieldValue{QvlMessageType::MboxViewReq, "m-mbox-view-req"},
    QvlFieldValue{QvlMessageType::MboxViewConf, "m-mbox-view-conf"},
    QvlFieldValue{QvlMessageType::MboxUploadReq, "m-mbox-upload-req"},
    QvlFieldValue{QvlMessageType::MboxUploadConf, "m-mbox-upload-conf"},
    QvlFieldValue{QvlMessageType::MboxDeleteReq, "m-mbox-delete-req"},
    QvlFieldValue{QvlMessageType::MboxDeleteConf, "m-mbox-delete-conf"},
    QvlFieldValue{QvlMessageType::MboxDescr, "m-mbox-descr"},
    QvlFieldValue{QvlMessageType::DeleteReq, "m-delete-req"},
    QvlFieldValue{QvlMessageType::DeleteConf, "m-delete-conf"},
    QvlFieldValue{QvlMessageType::CancelReq, "m-cancel-req"},
    QvlFieldValue{QvlMessageType::CancelConf, "m-cancel-conf"},
};

constexpr bool everyMessageTypeHasItsRow()
{
    for (std::size_t i = 0; i < messageTypes.size(); ++i) {
        if (messageTypes[i].value != QvlMessageType::SendReq + i)
            return false;
    }
    return messageTypes.back().value == QvlMessageType::CancelConf;
}
static_assert(everyMessageTypeHasItsRow(), "a row stands at its type minus the first type");

/// The name of a QvlMessageType.
constexpr const char *ofMessageType(unsigned char type)
{
    return messageTypes[std::size_t(type - QvlMessageType::SendReq)].name;
}

inline constexpr std::array messageClasses{
    QvlFieldValue{QvlMessageClass::Personal, "personal"},
    QvlFieldValue{QvlMessageClass::Advertisement, "advertisement"},
    QvlFieldValue{QvlMessageClass::Informational, "informational"},
    QvlFieldValue{QvlMessageClass::Auto, "auto"},
};

inline constexpr std::array priorities{
    QvlFieldValue{QvlPriority::Low, "low"},
    QvlFieldValue{QvlPriority::Normal, "normal"},
    QvlFieldValue{QvlPriority::High, "high"},
};

inline constexpr std::array statuses{
    QvlFieldValue{QvlStatus::Expired, "expired"},
    QvlFieldValue{QvlStatus::Retrieved, "retrieved"},
    QvlFieldValue{QvlStatus::Rejected, "rejected"},
    QvlFieldValue{QvlStatus::Deferred, "deferred"},
    QvlFieldValue{QvlStatus::Unrecognised, "unrecognised"},
    QvlFieldValue{QvlStatus::Indeterminate, "indeterminate"},
    QvlFieldValue{QvlStatus::Forwarded, "forwarded"},
    QvlFieldValue{QvlStatus::Unreachable, "unreachable"},
};

inline constexpr std::array responseStatuses{
    QvlFieldValue{QvlResponseStatus::Ok, "ok"},
    QvlFieldValue{QvlResponseStatus::ErrorUnspecified, "error-unspecified"},
    QvlFieldValue{QvlResponseStatus::ErrorServiceDenied, "error-service-denied"},
    QvlFieldValue{QvlResponseStatus::ErrorMessageFormatCorrupt, "error-message-format-corrupt"},
    QvlFieldValue{QvlResponseStatus::ErrorSendingAddressUnresolved,
                  "error-sending-address-unresolved"},
    QvlFieldValue{QvlResponseStatus::ErrorMessageNotFound, "error-message-not-found"},
    QvlFieldValue{QvlResponseStatus::ErrorNetworkProblem, "error-network-problem"},
    QvlFieldValue{QvlResponseStatus::ErrorContentNotAccepted, "error-content-not-accepted"},
    QvlFieldValue{QvlResponseStatus::ErrorUnsupportedMessage, "error-unsupported-message"},
    QvlFieldValue{QvlResponseStatus::ErrorTransientFailure, "error-transient-failure"},
    QvlFieldValue{QvlResponseStatus::ErrorTransientSendingAddressUnresolved,
                  "error-transient-sending-address-unresolved"},
    QvlFieldValue{QvlResponseStatus::ErrorTransientMessageNotFound,
                  "error-transient-message-not-found"},
    QvlFieldValue{QvlResponseStatus::ErrorTransientNetworkProblem,
                  "error-transient-network-problem"},
    QvlFieldValue{QvlResponseStatus::ErrorTransientPartialSuccess,
                  "error-transient-partial-success"},
    QvlFieldValue{QvlResponseStatus::ErrorPermanentFailure, "error-permanent-failure"},
    QvlFieldValue{QvlResponseStatus::ErrorPermanentServiceDenied, "error-permanent-service-denied"},
    QvlFieldValue{QvlResponseStatus::ErrorPermanentMessageFormatCorrupt,
                  "error-permanent-message-format-corrupt"},
    QvlFieldValue{QvlResponseStatus::ErrorPermanentSendingAddressUnresolved,
                  "error-permanent-sending-address-unresolved"},
    QvlFieldValue{QvlResponseStatus::ErrorPermanentMessageNotFound,
                  "error-permanent-message-not-found"},
    QvlFieldValue{QvlResponseStatus::ErrorPermanentContentNotAccepted,
                  "error-permanent-content-not-accepted"},
    QvlFieldValue{QvlResponseStatus::ErrorPermanentReplyChargingLimitationsNotMet,
                  "error-permanent-reply-charging-limitations-not-met"},
    QvlFieldValue{QvlResponseStatus::ErrorPermanentReplyChargingRequestNotAccepted,
                  "error-permanent-reply-charging-request-not-accepted"},
    QvlFieldValue{QvlResponseStatus::ErrorPermanentReplyChargingForwardingDenied,
                  "error-permanent-reply-charging-forwarding-denied"},
    QvlFieldValue{QvlResponseStatus::ErrorPermanentReplyChargingNotSupported,
                  "error-permanent-reply-charging-not-supported"},
    QvlFieldValue{QvlResponseStatus::ErrorPermanentAddressHidingNotSupported,
                  "error-permanent-address-hiding-not-supported"},
    QvlFieldValue{QvlResponseStatus::ErrorPermanentLackOfPrepaid,
                  "error-permanent-lack-of-prepaid"},
};

inline constexpr std::array yesNo{
    QvlFieldValue{128, "yes"},
    QvlFieldValue{129, "no"},
};

inline constexpr std::array visibilities{
    QvlFieldValue{128, "hide"},
    QvlFieldValue{129, "show"},
};

inline constexpr std::array senders{
    QvlFieldValue{WireToken::AddressPresent, "address-present"},
    QvlFieldValue{WireToken::InsertAddress, "insert-address"},
};

inline constexpr std::array times{
    QvlFieldValue{WireToken::AbsoluteTime, "absolute"},
    QvlFieldValue{WireToken::RelativeTime, "relative"},
};

inline constexpr std::array retrieveStatuses{
    QvlFieldValue{128, "ok"},
    QvlFieldValue{192, "error-transient-failure"},
    QvlFieldValue{193, "error-transient-message-not-found"},
    QvlFieldValue{194, "error-transient-network-problem"},
    QvlFieldValue{224, "error-permanent-failure"},
    QvlFieldValue{225, "error-permanent-service-denied"},
    QvlFieldValue{226, "error-permanent-message-not-found"},
    QvlFieldValue{227, "error-permanent-content-unsupported"},
};

inline constexpr std::array readStatuses{
    QvlFieldValue{128, "read"},
    QvlFieldValue{129, "deleted-without-being-read"},
};

inline constexpr std::array replyCharging{
    QvlFieldValue{128, "requested"},
    QvlFieldValue{129, "requested-text-only"},
    QvlFieldValue{130, "accepted"},
    QvlFieldValue{131, "accepted-text-only"},
};

inline constexpr std::array mmStates{
    QvlFieldValue{128, "draft"},     QvlFieldValue{129, "sent"},      QvlFieldValue{130, "new"},
    QvlFieldValue{131, "retrieved"}, QvlFieldValue{132, "forwarded"},
};

inline constexpr std::array mmFlags{
    QvlFieldValue{128, "add"},
    QvlFieldValue{129, "remove"},
    QvlFieldValue{130, "filter"},
};

inline constexpr std::array storeStatuses{
    QvlFieldValue{128, "success"},
    QvlFieldValue{192, "error-transient-failure"},
    QvlFieldValue{193, "error-transient-network-problem"},
    QvlFieldValue{224, "error-permanent-failure"},
    QvlFieldValue{225, "error-permanent-service-denied"},
    QvlFieldValue{226, "error-permanent-message-format-corrupt"},
    QvlFieldValue{227, "error-permanent-message-not-found"},
    QvlFieldValue{228, "error-permanent-mmbox-full"},
};

inline constexpr std::array mboxUnits{
    QvlFieldValue{128, "messages"},
    QvlFieldValue{129, "octets"},
};

inline constexpr std::array retrievalModes{
    QvlFieldValue{128, "manual"},
};

inline constexpr std::array contentClasses{
    QvlFieldValue{128, "text"},          QvlFieldValue{129, "image-basic"},
    QvlFieldValue{130, "image-rich"},    QvlFieldValue{131, "video-basic"},
    QvlFieldValue{132, "video-rich"},    QvlFieldValue{133, "megapixel"},
    QvlFieldValue{134, "content-basic"}, QvlFieldValue{135, "content-rich"},
};

inline constexpr std::array cancelStatuses{
    QvlFieldValue{128, "cancel-request-successfully-received"},
    QvlFieldValue{129, "cancel-request-corrupted"},
};

} // namespace ValueNames
