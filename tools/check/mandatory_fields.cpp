#include "check/mandatory_fields.h"

#include <qvlsmilparser.h>

#include <algorithm>
#include <array>

namespace Check {

namespace {

using namespace HeaderFieldCode;
using QvlLaterFieldCode::ReadStatus;

/// A type and its mandatory fields; 0 fills the row.
struct Row
{
    int type;
    std::array<unsigned char, 7> codes;
};

constexpr std::array table{
    Row{QvlMessageType::SendReq, {MessageType, TransactionId, MmsVersion, From, ContentType}},
    Row{QvlMessageType::SendConf, {MessageType, TransactionId, MmsVersion, ResponseStatus}},
    Row{QvlMessageType::NotificationInd,
        {MessageType, TransactionId, MmsVersion, MessageClass, MessageSize, Expiry,
         ContentLocation}},
    Row{QvlMessageType::NotifyRespInd, {MessageType, TransactionId, MmsVersion, Status}},
    Row{QvlMessageType::RetrieveConf, {MessageType, MmsVersion, Date, ContentType}},
    Row{QvlMessageType::DeliveryInd, {MessageType, MmsVersion, MessageId, To, Date, Status}},
    Row{QvlMessageType::ReadRecInd, {MessageType, MmsVersion, MessageId, To, From, ReadStatus}},
    Row{QvlMessageType::ReadOrigInd,
        {MessageType, MmsVersion, MessageId, To, From, Date, ReadStatus}},
    Row{QvlMessageType::ForwardReq,
        {MessageType, TransactionId, MmsVersion, From, ContentLocation}},
    Row{QvlMessageType::ForwardConf, {MessageType, TransactionId, MmsVersion, ResponseStatus}},
    Row{QvlMessageType::MboxDescr, {MessageType, MmsVersion}},
};
constexpr Row others{0, {MessageType, TransactionId, MmsVersion}};

} // namespace

std::span<const unsigned char> mandatoryFields(int type)
{
    const auto found = std::ranges::find(table, type, &Row::type);
    const Row &row = found != table.end() ? *found : others;
    const auto end = std::ranges::find(row.codes, 0);
    return {row.codes.begin(), end};
}

} // namespace Check
