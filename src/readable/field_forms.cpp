#include "readable/field_forms.h"

#include "readable/append_octets.h"
#include "readable/media_type_forms.h"
#include "wire/header_field_codes.h"
#include "wire/octets.h"
#include "wire/primitive_values.h"

#include <QtEndian>

#include <limits>

namespace {

template <typename Codec, typename Value>
QByteArray encoded(const Value &value)
{
    QByteArray octets;
    AppendOctets::value<Codec>(&octets, value);
    return octets;
}

// Always a long integer of four octets: the library's writer takes an int.
QByteArray integer(qint64 number)
{
    if (number < 0 || number > std::numeric_limits<quint32>::max())
        return {};
    QByteArray octets(sizeof(quint32), '\0');
    qToBigEndian(quint32(number), octets.data());
    return char(octets.size()) + octets;
}

QByteArray octet(qint64 value)
{
    return QByteArray(1, char(value));
}

QByteArray withLength(const QByteArray &octets)
{
    return encoded<ValueLengthBinary>(int(octets.size())) + octets;
}

bool isText(const QvlScannedField &field)
{
    return WireOctet::beginsText(static_cast<unsigned char>(field.value.front()));
}

// The value read by the form of another field.
QvlScannedValue readAs(unsigned char code, QvlScannedField field)
{
    field.known = qvlKnownField(code);
    return field.decoded();
}

// The text of a value that has the form of a text, whatever the field is.
QString textOf(const QvlScannedField &field)
{
    return readAs(HeaderFieldCode::TransactionId, field).text;
}

// Some handsets write the name of a token in letters.
QByteArray tokenOf(const QvlScannedField &field, const QvlScannedValue &value)
{
    if (value.token >= 0)
        return octet(value.token);
    if (!isText(field))
        return {};
    const QString name = textOf(field);
    for (const QvlFieldValue &token : field.known->tokens) {
        if (name.compare(QLatin1StringView(token.name), Qt::CaseInsensitive) == 0)
            return octet(token.value);
    }
    return {};
}

// version ::= "major.minor", as WSP allows besides the integer
QByteArray versionOf(const QvlScannedField &field, const QvlScannedValue &value)
{
    qint64 version = value.number;
    if (!value.isReadable && isText(field)) {
        const QStringList numbers = textOf(field).split(QLatin1Char('.'));
        bool areNumbers[2] = {};
        if (numbers.size() != 2)
            return {};
        const uint major = numbers[0].toUInt(&areNumbers[0]);
        const uint minor = numbers[1].toUInt(&areNumbers[1]);
        if (!areNumbers[0] || !areNumbers[1] || major > 7 || minor > 14)
            return {};
        version = major << 4 | minor;
    }
    if (version < 0 || version > WireOctet::LowSevenBits)
        return {};
    return octet(version | WireOctet::HighBit);
}

QByteArray encodedText(const QString &text)
{
    return text.isEmpty() ? QByteArray() : encoded<EncodedStringBinary>(text);
}

// Some relays write the address alone.
QByteArray senderOf(const QvlScannedField &field, const QvlScannedValue &value)
{
    if (value.token == WireToken::InsertAddress)
        return withLength(octet(value.token));
    const QByteArray address = encodedText(isText(field) ? textOf(field) : value.text);
    return address.isEmpty() ? address : withLength(octet(WireToken::AddressPresent) + address);
}

// Some relays write a charset where the standard has none.
QByteArray plainTextOf(const QvlScannedField &field)
{
    const QString text = readAs(HeaderFieldCode::Subject, field).text;
    QByteArray octets;
    if (!text.isEmpty())
        AppendOctets::text(&octets, text.toUtf8());
    return octets;
}

QByteArray timeOf(const QvlScannedValue &value)
{
    const QByteArray seconds = integer(value.number);
    return seconds.isEmpty() ? QByteArray() : withLength(octet(value.token) + seconds);
}

QByteArray valueOf(const QvlScannedField &field)
{
    const QvlScannedValue value = field.decoded();
    switch (field.known->form) {
    case QvlFieldForm::Token:
    case QvlFieldForm::TokenOrText:
        return tokenOf(field, value);
    case QvlFieldForm::Version:
        return versionOf(field, value);
    case QvlFieldForm::Integer:
    case QvlFieldForm::Date:
        return integer(value.number);
    case QvlFieldForm::Text:
        return plainTextOf(field);
    case QvlFieldForm::EncodedText:
    case QvlFieldForm::Address:
        return encodedText(value.text);
    case QvlFieldForm::Sender:
        return senderOf(field, value);
    case QvlFieldForm::Time:
        return timeOf(value);
    case QvlFieldForm::ContentType:
        return MediaTypeForms::readable(field.value);
    default: // forms of later versions
        return {};
    }
}

} // namespace

QByteArray FieldForms::rewritten(const QvlScannedField &field)
{
    const QByteArray value = valueOf(field);
    return value.isEmpty() ? value : octet(field.code | WireOctet::HighBit) + value;
}
