#include "view/scanned_field_view.h"

#include "view/field_values.h"
#include "view/json_writer.h"

#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

using namespace FieldValue;
using FieldValue::textOf;
using FieldValue::write;

constexpr QLatin1StringView PhoneSuffix("/TYPE=PLMN");

// Tokens, see QvlFieldForm.
constexpr int AddressPresent = 128;
constexpr int RelativeTime = 129;

QString textOf(const QString &text)
{
    return text;
}

// For values that JSON can represent directly.
void write(const auto &value, JsonWriter *json)
{
    json->value(value);
}

struct Number
{
    qint64 number;
};

QString textOf(Number number)
{
    return QString::number(number.number);
}

void write(Number number, JsonWriter *json)
{
    json->value(number.number);
}

struct Date
{
    qint64 seconds;
};

QString textOf(Date date)
{
    return dateText(date.seconds);
}

void write(Date date, JsonWriter *json)
{
    json->value(date.seconds);
}

struct Address
{
    QString text;
};

QString textOf(const Address &address)
{
    return address.text.endsWith(PhoneSuffix)
        ? address.text.chopped(PhoneSuffix.size()) + " (phone)"_L1
        : address.text;
}

void write(const Address &address, JsonWriter *json)
{
    json->value(address.text);
}

struct Sender
{
    bool isGiven;
    Address address;
};

QString textOf(const Sender &sender)
{
    return sender.isGiven ? textOf(sender.address) : u"not given"_s;
}

void write(const Sender &sender, JsonWriter *json)
{
    write(sender.address, json);
}

struct Amount
{
    qint64 number;
    Named unit;
};

QString textOf(const Amount &amount)
{
    return QString::number(amount.number) + u' ' + textOf(amount.unit);
}

void write(const Amount &amount, JsonWriter *json)
{
    json->beginObject();
    json->member("name", amount.unit.name);
    json->member("number", amount.number);
    json->member("value", amount.unit.value);
    json->endObject();
}

struct Keyword
{
    Named action;
    QString text;
};

QString textOf(const Keyword &keyword)
{
    return textOf(keyword.action) + u' ' + keyword.text;
}

void write(const Keyword &keyword, JsonWriter *json)
{
    json->beginObject();
    json->member("name", keyword.action.name);
    json->member("text", keyword.text);
    json->member("value", keyword.action.value);
    json->endObject();
}

// A value of one forwarding; the first one has the count 1.
template <typename Value>
struct Counted
{
    qint64 count;
    const char *key;
    Value value;
};

template <typename Value>
QString textOf(const Counted<Value> &counted)
{
    return u"%1: "_s.arg(counted.count) + textOf(counted.value);
}

template <typename Value>
void write(const Counted<Value> &counted, JsonWriter *json)
{
    json->beginObject();
    json->member("count", counted.count);
    json->key(counted.key);
    write(counted.value, json);
    json->endObject();
}

struct FieldNames
{
    QByteArrayView codes;
};

QString nameOf(char octet)
{
    const int code = static_cast<unsigned char>(octet) & 0x7F;
    const QvlKnownField *known = qvlKnownField(code);
    return known ? QString::fromLatin1(known->name) : hexCode(code);
}

QString textOf(FieldNames names)
{
    QStringList texts;
    for (char octet : names.codes)
        texts += nameOf(octet);
    return texts.join(", "_L1);
}

void write(FieldNames names, JsonWriter *json)
{
    json->beginArray();
    for (char octet : names.codes)
        json->value(nameOf(octet));
    json->endArray();
}

struct TextAndMore
{
    QString text;
    QByteArrayView octets;
};

QString textOf(const TextAndMore &value)
{
    return value.text + " ("_L1 + octetsText(value.octets) + u')';
}

void write(const TextAndMore &value, JsonWriter *json)
{
    json->value(value.text);
}

// Octets that are not decoded have no value in JSON, but their member "hex".
struct Octets
{
    QByteArrayView octets;
};

QString textOf(Octets value)
{
    return octetsText(value.octets);
}

bool isSize(int code)
{
    return code == HeaderFieldCode::MessageSize || code == QvlLaterFieldCode::ReplyChargingSize;
}

void useContentType(const QvlScannedField &field, const auto &use)
{
    if (const auto content = qvlReadContentType(field.value))
        use(*content);
    else
        use(Octets{field.value});
}

// Calls @p use with the value of @p field in its type.
void withValue(const QvlScannedField &field, const auto &use)
{
    const QvlScannedValue value = field.decoded();
    const Named token = named(value.token, value.tokenName);
    if (!value.isReadable)
        return use(Octets{field.value});
    if (!field.known)
        return use(value.text);
    switch (field.known->form) {
    case QvlFieldForm::Opaque:
        return use(Octets{field.value});
    case QvlFieldForm::Token:
        return use(token);
    case QvlFieldForm::TokenOrText:
        return value.token < 0 ? use(value.text) : use(token);
    case QvlFieldForm::Version:
        return value.number < 0x80 ? use(version(int(value.number))) : use(Number{value.number});
    case QvlFieldForm::Integer:
        return isSize(field.code) ? use(Size{value.number}) : use(Number{value.number});
    case QvlFieldForm::Date:
        return use(Date{value.number});
    case QvlFieldForm::Text:
    case QvlFieldForm::EncodedText:
        return use(value.text);
    case QvlFieldForm::Address:
        return use(Address{value.text});
    case QvlFieldForm::Sender:
        return use(Sender{value.token == AddressPresent, {value.text}});
    case QvlFieldForm::Time:
        return use(QvlSentTime{value.number, value.token == RelativeTime});
    case QvlFieldForm::TokenAndInteger:
        return use(Amount{value.number, token});
    case QvlFieldForm::TokenAndText:
        return use(Keyword{token, value.text});
    case QvlFieldForm::CountAndAddress:
        return use(Counted<Address>{value.count, "text", {value.text}});
    case QvlFieldForm::CountAndDate:
        return use(Counted<Date>{value.count, "seconds", {value.number}});
    case QvlFieldForm::Tokens:
        return use(FieldNames{field.value.last(value.count)});
    case QvlFieldForm::TextAndMore:
        return use(TextAndMore{value.text, field.value});
    case QvlFieldForm::ContentType:
        return useContentType(field, use);
    }
}

} // namespace

QString fieldName(const QvlScannedField &field)
{
    if (field.known)
        return QString::fromLatin1(field.known->name);
    return field.code == QvlScannedField::NoCode
        ? u'"' + qvlDecodeText(field.letters, 0) + u'"'
        : u"field %1 (%2)"_s.arg(field.code).arg(hexCode(field.code));
}

QString fieldTitle(const QvlScannedField &field)
{
    return field.known ? hexCode(field.code) + u' ' + fieldName(field) + " (MMS "_L1
            + version(field.known->version) + u')'
                       : fieldName(field);
}

QString fieldText(const QvlScannedField &field)
{
    QString text;
    withValue(field, [&](const auto &value) { text = textOf(value); });
    return text;
}

void writeField(const QvlScannedField &field, JsonWriter *json)
{
    withValue(field, [&]<typename Value>(const Value &value) {
        constexpr bool isDecoded = !std::is_same_v<Value, Octets>;
        json->beginObject();
        if (field.code != QvlScannedField::NoCode)
            json->member("code", field.code);
        if (!isDecoded || std::is_same_v<Value, TextAndMore>)
            json->member("hex", field.value.toByteArray().toHex().constData());
        writeFieldName(field, json);
        json->member("octets", field.octets.size());
        json->member("offset", field.offset);
        if constexpr (isDecoded) {
            json->key("value");
            write(value, json);
        }
        writeFieldVersion(field, json);
        json->endObject();
    });
}

void writeField(unsigned char code, JsonWriter *json)
{
    QvlScannedField field;
    field.known = qvlKnownField(code);
    json->beginObject();
    json->member("code", code);
    writeFieldName(field, json);
    writeFieldVersion(field, json);
    json->endObject();
}

void writeFieldName(const QvlScannedField &field, JsonWriter *json)
{
    if (field.known)
        json->member("name", field.known->name);
    else
        json->member("name", qvlDecodeText(field.letters, 0));
}

// A QString would take much of the time for showing a short message.
void writeFieldVersion(const QvlScannedField &field, JsonWriter *json)
{
    if (!field.known)
        return;
    const auto digit = [](int number) { return static_cast<char>('0' + number); };
    const int version = field.known->version; // 0x10 to 0x13
    const char text[]{digit(version >> 4), '.', digit(version & 0x0F), '\0'};
    json->member("version", &text[0]);
}
