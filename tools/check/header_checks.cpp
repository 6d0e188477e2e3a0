#include "check/charset_fit.h"
#include "check/check.h"
#include "check/mandatory_fields.h"
#include "input/message.h"
#include "view/field_values.h"
#include "view/message_fields.h"
#include "view/scanned_field_view.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace Check {

namespace {

constexpr std::array recipientCodes{HeaderFieldCode::To, HeaderFieldCode::Cc, HeaderFieldCode::Bcc};

bool isRecipient(int code)
{
    return std::ranges::find(recipientCodes, code) != recipientCodes.end();
}

Place placeOf(const QvlScannedField &field)
{
    const bool hasName =
        field.known || field.code != QvlScannedField::NoCode || !field.letters.isEmpty();
    return {.octet = field.offset, .name = hasName ? fieldName(field) : QString()};
}

// Where the field with @p code is; only its name when the scanner does not find it.
Place placeOf(unsigned char code, const std::vector<MessageField> &fields)
{
    for (const MessageField &field : fields) {
        if (field.scanned && field.scanned->code == code)
            return placeOf(*field.scanned);
    }
    return {.name = QString::fromLatin1(headerFieldInfo(code)->name)};
}

void checkRefusal(const Message &message, Findings *findings)
{
    if (message.headerResult == WireResult::Read)
        return;
    if (const auto refused = refusedField(message))
        findings->add(Rule::HeaderRefused, placeOf(refused->field),
                      QString::fromLatin1(refused->reason));
    else
        findings->add(Rule::HeaderRefused, {.octet = 0},
                      QString::fromLatin1(WireResult::meaning(message.headerResult)));
}

void checkVersion(const MMS_UA_UAMsg &header, const std::vector<MessageField> &fields,
                  Findings *findings)
{
    if (!header.fieldsPresent(headerFieldMask(HeaderFieldCode::MmsVersion)))
        return findings->add(Rule::WrongVersion, {}, u"the message has no version"_s);
    const Place place = placeOf(HeaderFieldCode::MmsVersion, fields);
    const QString problem = u"the version is "_s + FieldValue::version(header.getMMSVersion());
    if (!header.isMMSVersionCorrect())
        findings->add(Rule::WrongVersion, place, problem);
    else if (!header.isMMSMinorVersionCorrect())
        findings->add(Rule::LaterVersion, place, problem);
}

bool isPresent(unsigned char code, const MMS_UA_UAMsg &header,
               const std::vector<MessageField> &fields)
{
    return (headerFieldInfo(code) && header.fieldsPresent(headerFieldMask(code)))
        || std::ranges::any_of(fields, [code](const MessageField &field) {
               return field.scanned && field.scanned->code == code;
           });
}

void checkMandatoryFields(const MMS_UA_UAMsg &header, const std::vector<MessageField> &fields,
                          Findings *findings)
{
    const int type = header.getMessageType();
    const QString name =
        QString::fromLatin1(QvlMessageType::nameOf(static_cast<unsigned char>(type)));
    if (name.isEmpty())
        return findings->add(Rule::UnknownType, placeOf(HeaderFieldCode::MessageType, fields),
                             u"no version of MMS has the message type %1"_s.arg(type));
    for (unsigned char code : mandatoryFields(type)) {
        if (!isPresent(code, header, fields))
            findings->add(
                Rule::MissingField, {},
                u"%1 has no field %2"_s.arg(name, QString::fromLatin1(qvlKnownField(code)->name)));
    }
}

// False if the decoder divides the header in another way than the standard.
bool isDivided(const std::vector<MessageField> &fields)
{
    return std::ranges::any_of(fields,
                               [](const MessageField &field) { return field.scanned.has_value(); });
}

// The first field that is not where it belongs; null when the order is right.
const QvlScannedField *misplaced(const std::vector<MessageField> &fields)
{
    constexpr std::array first{HeaderFieldCode::MessageType, HeaderFieldCode::TransactionId,
                               HeaderFieldCode::MmsVersion};
    std::size_t rank = 0; // of the next field that may be one of the first
    for (const MessageField &field : fields) {
        if (!field.scanned)
            return nullptr;
        const auto found = std::ranges::find(first, field.scanned->code);
        const auto place = std::size_t(found - first.begin());
        if (place < rank)
            return &*field.scanned;
        rank = found == first.end() ? first.size() : place + 1;
        const bool isLast = &field == &fields.back();
        if (field.scanned->code == HeaderFieldCode::ContentType && !isLast)
            return &*field.scanned;
    }
    return nullptr;
}

void checkOrder(const MMS_UA_UAMsg &header, const std::vector<MessageField> &fields,
                Findings *findings)
{
    if (const QvlScannedField *field = misplaced(fields))
        findings->add(Rule::FieldOrder, placeOf(*field), u"the field is not at its place"_s);
    else if (!isDivided(fields) && !header.pduOrderCheck())
        findings->add(Rule::FieldOrder, {.octet = 0}, u"the fields are not in order"_s);
}

// MMS 1.0 if the message does not say.
unsigned char declaredVersion(const MMS_UA_UAMsg &header)
{
    return header.fieldsPresent(headerFieldMask(HeaderFieldCode::MmsVersion))
        ? header.getMMSVersion()
        : QvlMmsVersion::Version10;
}

void checkKind(const QvlScannedField &field, unsigned char declared, Findings *findings)
{
    if (!field.known)
        findings->add(Rule::UnknownField, placeOf(field), u"no version of MMS has this field"_s);
    else if (field.known->version > declared)
        findings->add(
            Rule::LaterField, placeOf(field),
            u"MMS %1 introduced this field, and the message is of %2"_s.arg(
                FieldValue::version(field.known->version), FieldValue::version(declared)));
}

bool hasToken(QvlFieldForm form)
{
    constexpr std::array forms{QvlFieldForm::Token, QvlFieldForm::TokenOrText,
                               QvlFieldForm::TokenAndInteger, QvlFieldForm::TokenAndText,
                               QvlFieldForm::Sender};
    return std::ranges::find(forms, form) != forms.end();
}

void checkValue(const QvlScannedField &field, Findings *findings)
{
    if (!field.known || field.known->form == QvlFieldForm::Opaque)
        return;
    const QvlScannedValue value = field.decoded();
    if (!value.isReadable)
        return findings->add(Rule::MalformedField, placeOf(field), u"the value is malformed"_s);
    const bool isNamed = value.token < 0 || value.tokenName;
    if (!isNamed && hasToken(field.known->form) && field.code != HeaderFieldCode::MessageType)
        findings->add(Rule::UnknownValue, placeOf(field),
                      u"no version of MMS has the value %1"_s.arg(value.token));
}

// Octets that are left out have a rule of their own.
bool hasForeignEnd(const Message &message)
{
    return std::ranges::any_of(message.changes(), [](const QvlChange &change) {
        return change.place == QvlChange::HeaderEnd;
    });
}

void checkDivision(const Message &message, const std::vector<MessageField> &fields,
                   Findings *findings)
{
    // Then the decoder divides the header in another way than the standard's rule for lengths.
    if (!fields.empty() && !isDivided(fields))
        return findings->add(
            Rule::MalformedField, {.octet = 0},
            u"a value has a wrong length, so the header can be read in two ways"_s);
    QvlHeaderScanner scanner(message.octets);
    QvlScannedField field;
    while (scanner.next(&field)) { }
    if (!scanner.isComplete() && !hasForeignEnd(message))
        findings->add(Rule::MalformedField, {.octet = scanner.position()},
                      QString::fromLatin1(scanner.meaning()));
}

void checkRepetition(const std::vector<MessageField> &fields, Findings *findings)
{
    std::array<bool, HeaderFieldCode::TransactionId + 1> seen{};
    for (const MessageField &field : fields) {
        if (!field.scanned || !headerFieldInfo(field.scanned->code)
            || isRecipient(field.scanned->code))
            continue;
        bool &wasSeen = seen[std::size_t(field.scanned->code)];
        if (wasSeen)
            findings->add(Rule::RepeatedField, placeOf(*field.scanned),
                          u"the field occurs a second time"_s);
        wasSeen = true;
    }
}

// Fields that are left out have rules of their own.
void checkForms(const Message &message, Findings *findings)
{
    for (const QvlChange &change : message.changes()) {
        const bool isField = change.place == QvlChange::HeaderField;
        if (isField && change.kind == QvlChange::Rewritten)
            findings->add(Rule::HeaderForm, placeOf(changedField(change)),
                          QString::fromLatin1(change.reason));
        else if (change.place == QvlChange::HeaderEnd)
            findings->add(Rule::HeaderForm, {.octet = change.offset},
                          QString::fromLatin1(change.reason));
    }
}

bool isEmptyRecipient(const QvlScannedField &field)
{
    const QvlScannedValue value = field.decoded();
    return isRecipient(field.code) && value.isReadable
        && value.text.section(u'/', 0, 0).trimmed().isEmpty();
}

void checkRecipients(const MMS_UA_UAMsg &header, const std::vector<MessageField> &fields,
                     Findings *findings)
{
    for (const MessageField &field : fields) {
        if (field.scanned && isEmptyRecipient(*field.scanned))
            findings->add(Rule::EmptyRecipient, placeOf(*field.scanned),
                          u"the recipient has no address"_s);
    }
    const bool isSent = header.getMessageType() == QvlMessageType::SendReq;
    const bool hasAny = std::ranges::any_of(recipientCodes, [&](unsigned char code) {
        return header.fieldsPresent(headerFieldMask(code));
    });
    if (isSent && !hasAny)
        findings->add(Rule::NoRecipient, {}, u"nobody receives the message"_s);
}

// The octets of an encoded text: after value-length, charset and quote.
QByteArrayView textOctets(const QvlScannedField &field, int charset)
{
    QByteArrayView octets = field.value;
    if (charset != 0) {
        auto buffer = LinearBuffer::forReading(
            reinterpret_cast<const unsigned char *>(octets.data()), int(octets.size()));
        int number = 0;
        std::ignore = ValueLengthBinary::readFrom(&buffer, &number);
        std::ignore = CharsetBinary::readFrom(&buffer, &number);
        octets = octets.sliced(std::min<qsizetype>(buffer.getPosition(), octets.size()));
    }
    if (octets.startsWith('\x7F'))
        octets = octets.sliced(1);
    const qsizetype end = octets.indexOf('\0');
    return end < 0 ? octets : octets.first(end);
}

void checkCharset(const QvlScannedField &field, Findings *findings)
{
    if (!field.known || field.known->form != QvlFieldForm::EncodedText)
        return;
    const QvlScannedValue value = field.decoded();
    if (!value.isReadable || fitsCharset(textOctets(field, value.charset), value.charset))
        return;
    findings->add(Rule::HeaderCharset, placeOf(field),
                  value.charset == 0
                      ? u"the text has octets above 7F and no charset"_s
                      : u"the text is not in %1"_s.arg(FieldValue::charsetName(value.charset)));
}

// Texts, such as headers of HTTP, can be read as fields with names in letters.
bool isNoMessage(const Message &message)
{
    return !isPdu(message.octets)
        && (message.headerResult != WireResult::Read || uchar(message.octets[0]) < 0x80);
}

} // namespace

void checkHeader(const Message &message, Findings *findings)
{
    if (isNoMessage(message)) {
        findings->add(Rule::NoMessage, {},
                      message.octets.isEmpty() ? u"the file is empty"_s
                                               : u"the file does not begin with the octet 8C"_s);
        return;
    }
    const std::vector<MessageField> fields = messageFields(message);
    const unsigned char declared = declaredVersion(message.header());
    for (const MessageField &field : fields) {
        if (field.scanned) {
            checkKind(*field.scanned, declared, findings);
            checkValue(*field.scanned, findings);
            checkCharset(*field.scanned, findings);
        }
    }
    checkRepetition(fields, findings);
    checkForms(message, findings);
    checkRefusal(message, findings);
    if (message.headerResult != WireResult::Read)
        return;
    checkDivision(message, fields, findings);
    checkVersion(message.header(), fields, findings);
    checkMandatoryFields(message.header(), fields, findings);
    checkOrder(message.header(), fields, findings);
    checkRecipients(message.header(), fields, findings);
}

} // namespace Check
