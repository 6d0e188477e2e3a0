/*
 * The table of all header fields. header_fields.cpp takes the names of its 24 rows from here.
 */
#pragma once

#include "wire/header_field_codes.h"
#include "wire/known_fields.h"
#include "wire/value_names.h"

#include <array>
#include <cstddef>

namespace KnownFields {

using namespace HeaderFieldCode;
using namespace QvlLaterFieldCode;
using namespace ValueNames;
using Form = QvlFieldForm;

constexpr unsigned char versionOf(unsigned char code)
{
    if (code <= TransactionId)
        return QvlMmsVersion::Version10;
    if (code <= PreviouslySentDate)
        return QvlMmsVersion::Version11;
    return code <= StatusText ? QvlMmsVersion::Version12 : QvlMmsVersion::Version13;
}

constexpr QvlKnownField row(unsigned char code, const char *name, Form form,
                            std::span<const QvlFieldValue> tokens = {})
{
    return {code, name, versionOf(code), form, tokens};
}

inline constexpr std::array table{
    row(Bcc, "Bcc", Form::Address),
    row(Cc, "Cc", Form::Address),
    row(ContentLocation, "Content-Location", Form::Text),
    row(ContentType, "Content-Type", Form::ContentType),
    row(Date, "Date", Form::Date),
    row(DeliveryReport, "Delivery-Report", Form::Token, yesNo),
    row(DeliveryTime, "Delivery-Time", Form::Time, times),
    row(Expiry, "Expiry", Form::Time, times),
    row(From, "From", Form::Sender, senders),
    row(MessageClass, "Message-Class", Form::TokenOrText, messageClasses),
    row(MessageId, "Message-ID", Form::Text),
    row(MessageType, "Message-Type", Form::Token, messageTypes),
    row(MmsVersion, "MMS-Version", Form::Version),
    row(MessageSize, "Message-Size", Form::Integer),
    row(Priority, "Priority", Form::Token, priorities),
    row(ReadReply, "Read-Reply", Form::Token, yesNo),
    row(ReportAllowed, "Report-Allowed", Form::Token, yesNo),
    row(ResponseStatus, "Response-Status", Form::Token, responseStatuses),
    row(ResponseText, "Response-Text", Form::EncodedText),
    row(SenderVisibility, "Sender-Visibility", Form::Token, visibilities),
    row(Status, "Status", Form::Token, statuses),
    row(Subject, "Subject", Form::EncodedText),
    row(To, "To", Form::Address),
    row(TransactionId, "Transaction-Id", Form::Text),
    row(RetrieveStatus, "Retrieve-Status", Form::Token, retrieveStatuses),
    row(RetrieveText, "Retrieve-Text", Form::EncodedText),
    row(ReadStatus, "Read-Status", Form::Token, readStatuses),
    row(ReplyCharging, "Reply-Charging", Form::Token, replyCharging),
    row(ReplyChargingDeadline, "Reply-Charging-Deadline", Form::Time, times),
    row(ReplyChargingId, "Reply-Charging-ID", Form::Text),
    row(ReplyChargingSize, "Reply-Charging-Size", Form::Integer),
    row(PreviouslySentBy, "Previously-Sent-By", Form::CountAndAddress),
    row(PreviouslySentDate, "Previously-Sent-Date", Form::CountAndDate),
    row(Store, "Store", Form::Token, yesNo),
    row(MmState, "MM-State", Form::Token, mmStates),
    row(MmFlags, "MM-Flags", Form::TokenAndText, mmFlags),
    row(StoreStatus, "Store-Status", Form::Token, storeStatuses),
    row(StoreStatusText, "Store-Status-Text", Form::EncodedText),
    row(Stored, "Stored", Form::Token, yesNo),
    row(Attributes, "Attributes", Form::Tokens),
    row(Totals, "Totals", Form::Token, yesNo),
    row(MboxTotals, "Mbox-Totals", Form::TokenAndInteger, mboxUnits),
    row(Quotas, "Quotas", Form::Token, yesNo),
    row(MboxQuotas, "Mbox-Quotas", Form::TokenAndInteger, mboxUnits),
    row(MessageCount, "Message-Count", Form::Integer),
    row(Content, "Content", Form::Opaque),
    row(Start, "Start", Form::Integer),
    row(AdditionalHeaders, "Additional-Headers", Form::Opaque),
    row(DistributionIndicator, "Distribution-Indicator", Form::Token, yesNo),
    row(ElementDescriptor, "Element-Descriptor", Form::TextAndMore),
    row(Limit, "Limit", Form::Integer),
    row(RecommendedRetrievalMode, "Recommended-Retrieval-Mode", Form::Token, retrievalModes),
    row(RecommendedRetrievalModeText, "Recommended-Retrieval-Mode-Text", Form::EncodedText),
    row(StatusText, "Status-Text", Form::EncodedText),
    row(ApplicId, "Applic-ID", Form::Text),
    row(ReplyApplicId, "Reply-Applic-ID", Form::Text),
    row(AuxApplicInfo, "Aux-Applic-Info", Form::Text),
    row(ContentClass, "Content-Class", Form::Token, contentClasses),
    row(DrmContent, "DRM-Content", Form::Token, yesNo),
    row(AdaptationAllowed, "Adaptation-Allowed", Form::Token, yesNo),
    row(ReplaceId, "Replace-ID", Form::Text),
    row(CancelId, "Cancel-ID", Form::Text),
    row(CancelStatus, "Cancel-Status", Form::Token, cancelStatuses),
};

constexpr bool everyCodeHasItsRow()
{
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (table[i].code != i + 1)
            return false;
    }
    return table.size() == CancelStatus;
}
static_assert(everyCodeHasItsRow(), "a row stands at its code minus 1");

/// The row of @p code, or null for an unassigned one.
constexpr const QvlKnownField *find(int code)
{
    return code >= 1 && code <= int(table.size()) ? &table[std::size_t(code - 1)] : nullptr;
}

} // namespace KnownFields
