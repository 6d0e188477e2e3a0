#include "wire/message_types.h"

#include "wire/header_field_codes.h"
#include "wire/header_values.h"
#include "wire/value_names.h"

#include <algorithm>
#include <array>

namespace {

using namespace HeaderFieldCode;

constexpr auto sendReqOrder = std::to_array<unsigned char>(
    {MessageType, TransactionId, MmsVersion, Date, From, To, Cc, Bcc, Subject, MessageClass, Expiry,
     DeliveryTime, Priority, SenderVisibility, DeliveryReport, ReadReply, ContentType});
constexpr auto sendConfOrder = std::to_array<unsigned char>(
    {MessageType, TransactionId, MmsVersion, ResponseStatus, ResponseText, MessageId});
constexpr auto notificationIndOrder =
    std::to_array<unsigned char>({MessageType, TransactionId, MmsVersion, From, Subject,
                                  MessageClass, MessageSize, Expiry, ContentLocation});
constexpr auto notifyRespIndOrder =
    std::to_array<unsigned char>({MessageType, TransactionId, MmsVersion, Status, ReportAllowed});
constexpr auto retrieveConfOrder = std::to_array<unsigned char>(
    {MessageType, TransactionId, MmsVersion, MessageId, Date, From, To, Cc, Bcc, Subject,
     MessageClass, Priority, DeliveryReport, ReadReply, ContentType});
constexpr auto acknowledgeIndOrder =
    std::to_array<unsigned char>({MessageType, TransactionId, MmsVersion, ReportAllowed});
// Has Transaction-Id, while received reports must have Message-ID. Kept: relays that get delivery
// reports from this handset match them by transaction.
constexpr auto deliveryIndOrder =
    std::to_array<unsigned char>({MessageType, MmsVersion, TransactionId, To, Date, Status});

constexpr MessageTypeInfo row(unsigned char type, std::initializer_list<unsigned char> mandatory,
                              std::span<const unsigned char> writeOrder)
{
    unsigned int mandatoryFields = 0;
    for (unsigned char code : mandatory)
        mandatoryFields |= headerFieldMask(code);
    return {type, ValueNames::ofMessageType(type), mandatoryFields, writeOrder};
}

constexpr unsigned char FirstType = QvlMessageType::SendReq;
constexpr std::array table{
    row(QvlMessageType::SendReq, {}, sendReqOrder),
    row(QvlMessageType::SendConf, {MessageType, MmsVersion, ResponseStatus, TransactionId},
        sendConfOrder),
    row(QvlMessageType::NotificationInd,
        {ContentLocation, Expiry, MessageClass, MessageType, MmsVersion, MessageSize,
         TransactionId},
        notificationIndOrder),
    row(QvlMessageType::NotifyRespInd, {}, notifyRespIndOrder),
    row(QvlMessageType::RetrieveConf, {ContentType, Date, MessageType, MmsVersion},
        retrieveConfOrder),
    row(QvlMessageType::AcknowledgeInd, {}, acknowledgeIndOrder),
    row(QvlMessageType::DeliveryInd, {Date, MessageId, MessageType, MmsVersion, Status, To},
        deliveryIndOrder),
};

constexpr bool everyTypeHasItsRow()
{
    for (size_t i = 0; i < table.size(); ++i) {
        if (table[i].type != FirstType + i)
            return false;
    }
    return table.back().type == QvlMessageType::DeliveryInd;
}
static_assert(everyTypeHasItsRow(), "a row stands at its type minus the first type");

constexpr std::array typesWithBody{
    QvlMessageType::SendReq,       QvlMessageType::RetrieveConf, QvlMessageType::MboxViewConf,
    QvlMessageType::MboxUploadReq, QvlMessageType::MboxDescr,
};

} // namespace

std::span<const MessageTypeInfo> messageTypes()
{
    return table;
}

const MessageTypeInfo *messageTypeInfo(unsigned char type)
{
    const int row = type - FirstType;
    return row >= 0 && row < int(table.size()) ? &table[size_t(row)] : nullptr;
}

bool messageTypeHasBody(unsigned char type)
{
    return std::ranges::find(typesWithBody, type) != typesWithBody.end();
}
