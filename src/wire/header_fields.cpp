#include "wire/header_fields.h"

#include "wire/content_type.h"
#include "wire/field_codecs.h"

#include <array>

namespace {

template <typename Codec>
FieldBase *create()
{
    return new Codec;
}

constexpr std::array table{
    HeaderFieldInfo{HeaderFieldCode::Bcc, "Bcc", create<BccField>},
    HeaderFieldInfo{HeaderFieldCode::Cc, "Cc", create<CcField>},
    HeaderFieldInfo{HeaderFieldCode::ContentLocation, "Content-Location",
                    create<ContentLocationField>},
    HeaderFieldInfo{HeaderFieldCode::ContentType, "Content-Type", create<ContentTypeField>},
    HeaderFieldInfo{HeaderFieldCode::Date, "Date", create<MsgDateField>},
    HeaderFieldInfo{HeaderFieldCode::DeliveryReport, "Delivery-Report",
                    create<DeliveryReportField>},
    HeaderFieldInfo{HeaderFieldCode::DeliveryTime, "Delivery-Time", create<DeliveryTimeField>},
    HeaderFieldInfo{HeaderFieldCode::Expiry, "Expiry", create<ExpiryField>},
    HeaderFieldInfo{HeaderFieldCode::From, "From", create<FromField>},
    HeaderFieldInfo{HeaderFieldCode::MessageClass, "Message-Class", create<MsgClassField>},
    HeaderFieldInfo{HeaderFieldCode::MessageId, "Message-ID", create<MsgIDField>},
    HeaderFieldInfo{HeaderFieldCode::MessageType, "Message-Type", create<MsgTypeField>},
    HeaderFieldInfo{HeaderFieldCode::MmsVersion, "MMS-Version", create<VersionField>},
    HeaderFieldInfo{HeaderFieldCode::MessageSize, "Message-Size", create<MsgSizeField>},
    HeaderFieldInfo{HeaderFieldCode::Priority, "Priority", create<PriorityField>},
    HeaderFieldInfo{HeaderFieldCode::ReadReply, "Read-Reply", create<ReadReplyField>},
    HeaderFieldInfo{HeaderFieldCode::ReportAllowed, "Report-Allowed", create<ReportAllowedField>},
    HeaderFieldInfo{HeaderFieldCode::ResponseStatus, "Response-Status",
                    create<ResponseStatusField>},
    HeaderFieldInfo{HeaderFieldCode::ResponseText, "Response-Text", create<ResponseTextField>},
    HeaderFieldInfo{HeaderFieldCode::SenderVisibility, "Sender-Visibility",
                    create<SenderVisibilityField>},
    HeaderFieldInfo{HeaderFieldCode::Status, "Status", create<MsgStatusField>},
    HeaderFieldInfo{HeaderFieldCode::Subject, "Subject", create<SubjectField>},
    HeaderFieldInfo{HeaderFieldCode::To, "To", create<ToField>},
    HeaderFieldInfo{HeaderFieldCode::TransactionId, "Transaction-Id", create<TIDField>},
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
