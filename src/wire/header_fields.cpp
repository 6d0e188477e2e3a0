#include "wire/header_fields.h"

#include "wire/content_type.h"
#include "wire/field_codecs.h"
#include "wire/known_field_table.h"

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
constexpr HeaderFieldInfo row(unsigned char code)
{
    return {code, KnownFields::find(code)->name, &shared<Codec>, create<Codec>};
}

constexpr std::array table{
    row<BccField>(HeaderFieldCode::Bcc),
    row<CcField>(HeaderFieldCode::Cc),
    row<ContentLocationField>(HeaderFieldCode::ContentLocation),
    row<ContentTypeField>(HeaderFieldCode::ContentType),
    row<MsgDateField>(HeaderFieldCode::Date),
    row<DeliveryReportField>(HeaderFieldCode::DeliveryReport),
    row<DeliveryTimeField>(HeaderFieldCode::DeliveryTime),
    row<ExpiryField>(HeaderFieldCode::Expiry),
    row<FromField>(HeaderFieldCode::From),
    row<MsgClassField>(HeaderFieldCode::MessageClass),
    row<MsgIDField>(HeaderFieldCode::MessageId),
    row<MsgTypeField>(HeaderFieldCode::MessageType),
    row<VersionField>(HeaderFieldCode::MmsVersion),
    row<MsgSizeField>(HeaderFieldCode::MessageSize),
    row<PriorityField>(HeaderFieldCode::Priority),
    row<ReadReplyField>(HeaderFieldCode::ReadReply),
    row<ReportAllowedField>(HeaderFieldCode::ReportAllowed),
    row<ResponseStatusField>(HeaderFieldCode::ResponseStatus),
    row<ResponseTextField>(HeaderFieldCode::ResponseText),
    row<SenderVisibilityField>(HeaderFieldCode::SenderVisibility),
    row<MsgStatusField>(HeaderFieldCode::Status),
    row<SubjectField>(HeaderFieldCode::Subject),
    row<ToField>(HeaderFieldCode::To),
    row<TIDField>(HeaderFieldCode::TransactionId),
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
