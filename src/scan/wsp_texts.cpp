#include "scan/wsp_texts.h"

#include "scan/field_text.h"
#include "scan/scanned_field.h"
#include "wire/octets.h"

QString WspTexts::decode(QByteArrayView value)
{
    constexpr int noCharset = 0;
    if (!value.isEmpty() && WireOctet::hasHighBit(static_cast<unsigned char>(value.front())))
        return FieldText::decode(value, noCharset);
    constexpr QvlKnownField encodedText{0, "", 0, QvlFieldForm::EncodedText, {}};
    QvlScannedField field;
    field.code = encodedText.code;
    field.known = &encodedText;
    field.value = value;
    return field.decoded().text;
}

QString WspTexts::decodeQuoted(QByteArrayView value)
{
    constexpr char quote = '"';
    if (!value.startsWith(quote))
        return decode(value);
    const QString text = FieldText::decode(value.sliced(1), 0);
    return text.endsWith(QLatin1Char(quote)) ? text.chopped(1) : text;
}
