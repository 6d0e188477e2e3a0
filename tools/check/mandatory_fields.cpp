#include "check/mandatory_fields.h"

#include <qvlsmilparser.h>

#include <algorithm>
#include <array>

namespace Check {

namespace {

using namespace HeaderFieldCode;
using QvlLaterFieldCode::ReadStatus;

/// A type and its mandatory fields besides MMS-Version; 0 fills the row.
struct Row
{
    int type;
    std::array<unsigned char, 6> codes;
};

constexpr std::array table{
    Row{QvlMessageType::SendReq, {MessageType, TransactionId, From, ContentType}},
    Row{QvlMessageType::SendConf, {MessageType, TransactionId, ResponseStatus}},
    Row{QvlMessageType::NotificationInd,
        {MessageType, TransactionId, MessageClass, MessageSize, Expiry, ContentLocation}},
    Row{QvlMessageType::NotifyRespInd, {MessageType, TransactionId, Status}},
    Row{QvlMessageType::RetrieveConf, {MessageType, Date, ContentType}},
    Row{QvlMessageType::DeliveryInd, {MessageType, MessageId, To, Date, Status}},
    Row{QvlMessageType::ReadRecInd, {MessageType, MessageId, To, From, ReadStatus}},
    Row{QvlMessageType::ReadOrigInd, {MessageType, MessageId, To, From, Date, ReadStatus}},
    Row{QvlMessageType::ForwardReq, {MessageType, TransactionId, From, ContentLocation}},
    Row{QvlMessageType::ForwardConf, {MessageType, TransactionId, ResponseStatus}},
    Row{QvlMessageType::MboxDescr, {MessageType}},
};
constexpr Row others{0, {MessageType, TransactionId}};

} // namespace

std::span<const unsigned char> mandatoryFields(int type)
{
    const auto found = std::ranges::find(table, type, &Row::type);
    const Row &row = found != table.end() ? *found : others;
    const auto end = std::ranges::find(row.codes, 0);
    return {row.codes.begin(), end};
}

} // namespace Check
