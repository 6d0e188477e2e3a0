#include "view/message_fields.h"

#include "input/message.h"

#include <algorithm>
#include <array>
#include <limits>
#include <tuple>

namespace {

using Fields = std::vector<MessageField>;

bool isOfHeader(const QvlChange &change)
{
    return change.place == QvlChange::HeaderField || change.place == QvlChange::HeaderEnd;
}

bool isInHeader(int code, const MMS_UA_UAMsg &header)
{
    return headerFieldInfo(code)
        && header.fieldsPresent(headerFieldMask(static_cast<unsigned char>(code)));
}

bool isRecipient(int code)
{
    return code == HeaderFieldCode::To || code == HeaderFieldCode::Cc
        || code == HeaderFieldCode::Bcc;
}

// True if the decoder divides the scanned part of the header in the same way: if the scanner finds
// fields of the record only, and all of them unless it ends early.
bool areDecoded(const Fields &fields, bool isComplete, const MMS_UA_UAMsg &header)
{
    unsigned int mask = 0;
    for (const MessageField &field : fields) {
        if (!isInHeader(field.scanned->code, header))
            return false;
        mask |= headerFieldMask(static_cast<unsigned char>(field.scanned->code));
    }
    return !isComplete || mask == header.getFieldsPresent();
}

// None if the decoder divides the header in another way. If the header was refused or changed, the
// scanner is right.
Fields scannedFields(const Message &message)
{
    Fields fields;
    QvlHeaderScanner scanner(message.octets);
    QvlScannedField field;
    while (scanner.next(&field))
        fields.push_back({.scanned = field});
    const bool isRight = message.headerResult != WireResult::Read
        || std::ranges::any_of(message.changes(), isOfHeader);
    return isRight || areDecoded(fields, scanner.isComplete(), message.header()) ? fields
                                                                                 : Fields();
}

// In ascending order. A rewritten content type often replaces one that a record cannot have.
std::vector<qsizetype> offsetsMissingInRecord(const Message &message)
{
    std::vector<qsizetype> offsets;
    for (const QvlChange &change : message.changes()) {
        if (isOfHeader(change)
            && (change.kind == QvlChange::LeftOut || change.code == HeaderFieldCode::ContentType))
            offsets.push_back(change.offset);
    }
    return offsets;
}

// The decoder alone does not read the fields from the refused one on.
void eraseUnreached(Fields *fields, const Message &message)
{
    if (const auto refused = refusedField(message)) {
        std::erase_if(*fields, [&](const MessageField &field) {
            return field.scanned->offset >= refused->field.offset;
        });
    }
}

// A record lists all recipients, and has the last value of other fields that are repeated.
void assignRecord(Fields *fields, const Message &message)
{
    const auto refused = refusedField(message);
    const qsizetype end = refused ? refused->field.offset : std::numeric_limits<qsizetype>::max();
    const std::vector<qsizetype> missing = offsetsMissingInRecord(message);
    std::array<MessageField *, HeaderFieldCode::TransactionId + 1> assigned{};
    for (MessageField &field : *fields) {
        const int code = field.scanned->code;
        const qsizetype offset = field.scanned->offset;
        if (!isInHeader(code, message.header()) || offset >= end
            || std::ranges::binary_search(missing, offset))
            continue;
        MessageField *&before = assigned[std::size_t(code)];
        field.isListed = before && isRecipient(code);
        if (field.isListed)
            continue;
        if (before)
            before->recordCode = 0;
        field.recordCode = static_cast<unsigned char>(code);
        before = &field;
    }
}

// Fields that the scanner does not find. Of a refused field the record has a part at most.
void addFieldsOfRecord(Fields *fields, const Message &message)
{
    const auto refused = refusedField(message);
    const auto isAdded = [&](unsigned char code) {
        return isInHeader(code, message.header()) && !(refused && refused->field.code == code)
            && std::ranges::none_of(*fields, [code](const MessageField &field) {
                   return field.scanned->code == code;
               });
    };
    std::vector<unsigned char> codes;
    for (const HeaderFieldInfo &info : headerFields()) {
        if (isAdded(info.code))
            codes.push_back(info.code);
    }
    std::ranges::stable_sort(
        codes, {}, [&](unsigned char code) { return message.header().getFieldPosition(code); });
    for (unsigned char code : codes)
        fields->push_back({.recordCode = code});
}

// A field whose value is malformed.
QvlScannedField fieldAt(QByteArrayView octets, qsizetype offset)
{
    QvlScannedField field;
    field.offset = offset;
    field.octets = octets.sliced(offset);
    const auto first = static_cast<unsigned char>(octets[offset]);
    if (first >= 0x80) {
        field.code = first - 0x80;
        field.known = qvlKnownField(field.code);
    }
    return field;
}

} // namespace

QvlScannedField changedField(const QvlChange &change)
{
    QvlScannedField field;
    QvlHeaderScanner scanner(change.octets);
    std::ignore = scanner.next(&field); // finds none in octets after the last field
    field.offset = change.offset;
    return field;
}

std::vector<MessageField> messageFields(const Message &message)
{
    Fields fields = scannedFields(message);
    if (message.reading == QvlMessage::Strict)
        eraseUnreached(&fields, message);
    assignRecord(&fields, message);
    addFieldsOfRecord(&fields, message);
    return fields;
}

// The decoder alone refuses the first field that has to change. Otherwise the field is malformed.
std::optional<RefusedField> refusedField(const Message &message)
{
    if (message.headerResult == WireResult::Read)
        return std::nullopt;
    if (message.reading == QvlMessage::Strict) {
        const QvlReadablePdu readable(message.octets);
        const auto change = std::ranges::find_if(readable.changes(), isOfHeader);
        if (change != readable.changes().end())
            return RefusedField{changedField(*change), change->reason};
    }
    QvlHeaderScanner scanner(message.octets);
    QvlScannedField field;
    while (scanner.next(&field)) { }
    if (scanner.isComplete())
        return std::nullopt;
    return RefusedField{fieldAt(message.octets, scanner.position()), scanner.meaning()};
}
