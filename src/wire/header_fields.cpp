#include "wire/header_fields.h"

#include "wire/content_type.h"
#include "wire/field_codecs.h"

#include <array>

namespace {

template <typename Codec>
constinit Codec shared;

template <typename Codec>
FieldBase *create()
{
    return new Codec;
}

template <typename Codec>
constexpr HeaderFieldInfo row(unsigned char code, const char *name)
{
    return {code, name, &shared<Codec>, create<Codec>};
}

constexpr std::array table{
    row<BccField>(HeaderFieldCode::Bcc, "Bcc"),
    row<CcField>(HeaderFieldCode::Cc, "Cc"),
    row<ContentLocationField>(HeaderFieldCode::ContentLocation, "Content-Location"),
    row<ContentTypeField>(HeaderFieldCode::ContentType, "Content-Type"),
    row<MsgDateField>(HeaderFieldCode::Date, "Date"),
    row<DeliveryReportField>(HeaderFieldCode::DeliveryReport, "Delivery-Report"),
    row<DeliveryTimeField>(HeaderFieldCode::DeliveryTime, "Delivery-Time"),
    row<ExpiryField>(HeaderFieldCode::Expiry, "Expiry"),
    row<FromField>(HeaderFieldCode::From, "From"),
    row<MsgClassField>(HeaderFieldCode::MessageClass, "Message-Class"),
    row<MsgIDField>(HeaderFieldCode::MessageId, "Message-ID"),
    row<MsgTypeField>(HeaderFieldCode::MessageType, "Message-Type"),
    row<VersionField>(HeaderFieldCode::MmsVersion, "MMS-Version"),
    row<MsgSizeField>(HeaderFieldCode::MessageSize, "Message-Size"),
    row<PriorityField>(HeaderFieldCode::Priority, "Priority"),
    row<ReadReplyField>(HeaderFieldCode::ReadReply, "Read-Reply"),
    row<ReportAllowedField>(HeaderFieldCode::ReportAllowed, "Report-Allowed"),
    row<ResponseStatusField>(HeaderFieldCode::ResponseStatus, "Response-Status"),
    row<ResponseTextField>(HeaderFieldCode::ResponseText, "Response-Text"),
    row<SenderVisibilityField>(HeaderFieldCode::SenderVisibility, "Sender-Visibility"),
    row<MsgStatusField>(HeaderFieldCode::Status, "Status"),
    row<SubjectField>(HeaderFieldCode::Subject, "Subject"),
    row<ToField>(HeaderFieldCode::To, "To"),
    row<TIDField>(HeaderFieldCode::TransactionId, "Transaction-Id"),
};

constexpr bool everyCodeHasItsRow()
{
    for (size_t i = 0; i < table.size(); ++i) {
        if (table[i].code != i + 1)
            return false;
    }
    return table.size() == HeaderFieldCode::TransactionId;
}
static_assert(everyCodeHasItsRow(), "a row stands at its code minus 1");

} // namespace

std::span<const HeaderFieldInfo> headerFields()
{
    return table;
}

const HeaderFieldInfo *headerFieldInfo(int code)
{
    return code >= 1 && code <= int(table.size()) ? &table[size_t(code - 1)] : nullptr;
}
