#include "readable/readable_header.h"

#include "readable/field_forms.h"
#include "readable/media_type_forms.h"
#include "scan/header_scanner.h"
#include "wire/field_base.h"
#include "wire/header_field_codes.h"
#include "wire/header_fields.h"
#include "wire/header_record.h"
#include "wire/header_values.h"
#include "wire/message_types.h"
#include "wire/octets.h"
#include "wire/read.h"
#include "wire/wire_result.h"

#include <algorithm>

namespace {

// Some relays append a few octets to messages without a body.
constexpr qsizetype LongestEnd = 16;

// True also for types that no version has.
bool mayHaveBody(int type)
{
    const auto octet = static_cast<unsigned char>(type);
    return !QvlMessageType::nameOf(octet) || messageTypeHasBody(octet);
}

// integer ::= octet >= 80 | count octet *
bool skipInteger(LinearBuffer *buffer)
{
    const auto first = WireRead::octet(buffer);
    return first && (WireOctet::hasHighBit(*first) || buffer->readView(*first));
}

// encoded-text ::= text | length integer octet *, where a length may be any octet but those of
// texts
bool skipEncodedText(LinearBuffer *buffer)
{
    const auto first = WireRead::octet(buffer);
    if (!first)
        return false;
    if (WireOctet::beginsText(*first)) {
        buffer->rewind(1);
        return WireRead::text(buffer).has_value();
    }
    const bool isLong = *first == WireOctet::LengthFollows;
    const auto length = isLong ? WireRead::uintvar(buffer) : std::optional<int>(*first);
    const auto octets = length ? buffer->readView(*length) : std::nullopt;
    if (!octets)
        return false;
    LinearBuffer content = WireRead::over(*octets);
    return skipInteger(&content);
}

// Some codecs ignore that an inner value is longer than the data. They would read on in the fields
// that follow.
bool areLengthsWithin(const QvlScannedField &field)
{
    LinearBuffer buffer = WireRead::over(field.value);
    const auto skipToken = [&buffer] {
        return WireRead::octet(&buffer) == WireToken::AddressPresent;
    };
    switch (field.known->form) {
    case QvlFieldForm::EncodedText:
    case QvlFieldForm::Address:
        return skipEncodedText(&buffer);
    case QvlFieldForm::Sender:
        return WireRead::valueLength(&buffer) && (!skipToken() || skipEncodedText(&buffer));
    case QvlFieldForm::Time:
        return WireRead::valueLength(&buffer) && WireRead::octet(&buffer) && skipInteger(&buffer);
    default:
        return true;
    }
}

// The decoder passes over parameters in letters.
bool losesParameters(const QvlScannedField &field)
{
    return field.code == HeaderFieldCode::ContentType
        && !MediaTypeForms::haveSameParameters(field.value, MediaTypeForms::readable(field.value));
}

class HeaderRewriter
{
public:
    explicit HeaderRewriter(const QByteArray &pdu) : m_pdu(pdu) { }

    ReadableHeader rewrite();

private:
    void handle(const QvlScannedField &field);
    void handleEnd(const QvlHeaderScanner &scanner);
    void keep(QByteArrayView octets);
    void beginCopy(qsizetype size);
    void replace(const QvlScannedField &field, const QByteArray &octets);
    void leaveOut(const QvlScannedField &field, const char *reason);
    void note(QvlChange::Kind kind, const QvlScannedField &field, const char *reason);

    const QByteArray &m_pdu;
    QByteArray m_octets;
    std::vector<QvlChange> m_changes;
    bool m_mayHaveBody = true;
};

// Nothing is copied before the first change.
void HeaderRewriter::keep(QByteArrayView octets)
{
    if (!m_changes.empty())
        m_octets.append(octets);
}

// The octets before the first change, with room for those after it.
void HeaderRewriter::beginCopy(qsizetype size)
{
    QvlHeaderScanner scanner(m_pdu);
    QvlScannedField field;
    while (scanner.next(&field)) { }
    m_octets.reserve(scanner.isComplete() ? scanner.position() : m_pdu.size());
    m_octets.append(QByteArrayView(m_pdu).first(size));
}

void HeaderRewriter::note(QvlChange::Kind kind, const QvlScannedField &field, const char *reason)
{
    if (m_changes.empty())
        beginCopy(field.offset);
    m_changes.push_back({.kind = kind,
                         .place = QvlChange::HeaderField,
                         .code = field.code,
                         .octets = field.octets,
                         .offset = field.offset,
                         .reason = reason});
}

void HeaderRewriter::leaveOut(const QvlScannedField &field, const char *reason)
{
    note(QvlChange::LeftOut, field, reason);
}

void HeaderRewriter::replace(const QvlScannedField &field, const QByteArray &octets)
{
    note(QvlChange::Rewritten, field, "the value came in a form that MMS 1.0 does not have");
    keep(octets);
}

void HeaderRewriter::handle(const QvlScannedField &field)
{
    if (field.code == HeaderFieldCode::MessageType)
        m_mayHaveBody = mayHaveBody(field.decoded().token);
    if (field.code == QvlScannedField::NoCode)
        return leaveOut(field, "the record has no place for names in letters");
    if (!field.known)
        return leaveOut(field, "no version of MMS has this field");
    if (!headerFieldInfo(field.code))
        return leaveOut(field, "MMS 1.0 does not have this field");
    if (decoderTakes(field, m_pdu) && !losesParameters(field))
        return keep(field.octets);
    const QByteArray octets = FieldForms::rewritten(field);
    if (octets.isEmpty())
        return leaveOut(field, "the value is malformed");
    replace(field, octets);
}

// A malformed header stays as it came from the malformed field on, so that the decoder fails there.
void HeaderRewriter::handleEnd(const QvlHeaderScanner &scanner)
{
    const QByteArrayView rest = QByteArrayView(m_pdu).sliced(scanner.position());
    if (m_mayHaveBody || rest.size() > LongestEnd)
        return keep(rest);
    if (m_changes.empty())
        beginCopy(scanner.position());
    m_changes.push_back({.kind = QvlChange::LeftOut,
                         .place = QvlChange::HeaderEnd,
                         .octets = rest,
                         .offset = scanner.position(),
                         .reason = "these octets after the last field are no field"});
}

ReadableHeader HeaderRewriter::rewrite()
{
    QvlHeaderScanner scanner(m_pdu);
    QvlScannedField field;
    while (scanner.next(&field))
        handle(field);
    if (!scanner.isComplete())
        handleEnd(scanner);
    ReadableHeader header;
    header.size = scanner.isComplete() ? scanner.position() : m_pdu.size();
    if (!m_changes.empty())
        header.octets = m_octets;
    header.changes = std::move(m_changes);
    return header;
}

} // namespace

bool decoderTakes(const QvlScannedField &field, QByteArrayView pdu)
{
    const HeaderFieldInfo *info = headerFieldInfo(field.code);
    if (!info || !areLengthsWithin(field))
        return false;
    // The reader of Content-Type looks at the octet after the value.
    const qsizetype size = field.code == HeaderFieldCode::ContentType
        ? std::min(field.value.size() + 1, pdu.size() - field.valueOffset())
        : field.value.size();
    LinearBuffer buffer = WireRead::over(pdu.sliced(field.valueOffset(), size));
    MMS_UA_UAMsg record;
    return info->codec->readField(&buffer, &record) == WireResult::Read
        && buffer.getPosition() == field.value.size();
}

ReadableHeader readableHeader(const QByteArray &pdu)
{
    return HeaderRewriter(pdu).rewrite();
}
