#include "wire/message_types.h"

#include "wire/header_fields.h"

#include <array>

namespace {

using namespace HeaderFieldCode;

constexpr unsigned int masks(std::initializer_list<unsigned char> codes)
{
    unsigned int sum = 0;
    for (unsigned char code : codes)
        sum |= headerFieldMask(code);
    return sum;
}

constexpr std::array<unsigned char, 17> sendReqOrder{MessageType,
                                                     TransactionId,
                                                     MmsVersion,
                                                     Date,
                                                     From,
                                                     To,
                                                     Cc,
                                                     Bcc,
                                                     Subject,
                                                     MessageClass,
                                                     Expiry,
                                                     DeliveryTime,
                                                     Priority,
                                                     SenderVisibility,
                                                     DeliveryReport,
                                                     ReadReply,
                                                     ContentType};
constexpr std::array<unsigned char, 6> sendConfOrder{MessageType,    TransactionId, MmsVersion,
                                                     ResponseStatus, ResponseText,  MessageId};
constexpr std::array<unsigned char, 9> notificationIndOrder{
    MessageType,  TransactionId, MmsVersion, From,           Subject,
    MessageClass, MessageSize,   Expiry,     ContentLocation};
constexpr std::array<unsigned char, 5> notifyRespIndOrder{MessageType, TransactionId, MmsVersion,
                                                          Status, ReportAllowed};
constexpr std::array<unsigned char, 15> retrieveConfOrder{
    MessageType, TransactionId, MmsVersion,   MessageId, Date,           From,      To,         Cc,
    Bcc,         Subject,       MessageClass, Priority,  DeliveryReport, ReadReply, ContentType};
constexpr std::array<unsigned char, 4> acknowledgeIndOrder{MessageType, TransactionId, MmsVersion,
                                                           ReportAllowed};
// Transaction-Id where a Message-ID is mandatory for the reader. Kept: relays that take delivery
// reports from this handset match them by transaction.
constexpr std::array<unsigned char, 6> deliveryIndOrder{MessageType, MmsVersion, TransactionId,
                                                        To,          Date,       Status};

constexpr unsigned char FirstType = 128;
constexpr std::array table{
    MessageTypeInfo{128, "m-send-req", 0, sendReqOrder},
    MessageTypeInfo{129, "m-send-conf",
                    masks({MessageType, MmsVersion, ResponseStatus, TransactionId}), sendConfOrder},
    MessageTypeInfo{130, "m-notification-ind",
                    masks({ContentLocation, Expiry, MessageClass, MessageType, MmsVersion,
                           MessageSize, TransactionId}),
                    notificationIndOrder},
    MessageTypeInfo{131, "m-notifyresp-ind", 0, notifyRespIndOrder},
    MessageTypeInfo{132, "m-retrieve-conf", masks({ContentType, Date, MessageType, MmsVersion}),
                    retrieveConfOrder},
    MessageTypeInfo{133, "m-acknowledge-ind", 0, acknowledgeIndOrder},
    MessageTypeInfo{134, "m-delivery-ind",
                    masks({Date, MessageId, MessageType, MmsVersion, Status, To}),
                    deliveryIndOrder},
};

constexpr bool everyTypeHasItsRow()
{
    for (size_t i = 0; i < table.size(); ++i) {
        if (table[i].type != FirstType + i)
            return false;
    }
    return true;
}
static_assert(everyTypeHasItsRow(), "a row stands at its type minus the first type");

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
