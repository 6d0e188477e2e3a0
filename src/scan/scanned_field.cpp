#include "scan/scanned_field.h"

#include "base/no_memory.h"
#include "base/tables.h"
#include "scan/field_text.h"
#include "scan/wsp_values.h"
#include "wire/octets.h"
#include "wire/read.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

namespace {

constexpr int NoCharset = 0;

// The readers give false when the octets do not have the form. Each begins at the cursor.
class ValueReader
{
public:
    explicit ValueReader(const QvlScannedField &field)
        : m_field(field), m_buffer(WireRead::over(field.value))
    {
    }

    QvlScannedValue read();

private:
    [[nodiscard]] bool readForm(QvlFieldForm form);
    [[nodiscard]] bool readToken();
    [[nodiscard]] bool readTime();
    [[nodiscard]] bool readSender();
    [[nodiscard]] bool readText();
    [[nodiscard]] bool readEncodedText();
    [[nodiscard]] bool readContentType();
    [[nodiscard]] bool storeText(QByteArrayView octets, int charset);
    [[nodiscard]] bool countTokens();
    [[nodiscard]] bool readLength() { return WireRead::valueLength(&m_buffer).has_value(); }
    [[nodiscard]] bool readNumber() { return WspValues::readInteger(&m_buffer, &m_value.number); }
    [[nodiscard]] bool readCount() { return WspValues::readInteger(&m_buffer, &m_value.count); }
    [[nodiscard]] bool isAtText();
    void skipLength();

    const QvlScannedField &m_field;
    LinearBuffer m_buffer; // over the value
    QvlScannedValue m_value;
};

QvlScannedValue ValueReader::read()
{
    const bool isInLetters = m_field.code == QvlScannedField::NoCode;
    m_value.isReadable = isInLetters ? storeText(m_field.value, NoCharset)
                                     : m_field.known && readForm(m_field.known->form);
    if (!m_value.isReadable)
        return {};
    return std::move(m_value);
}

bool ValueReader::readForm(QvlFieldForm form)
{
    switch (form) {
    case QvlFieldForm::Opaque:
        return false;
    case QvlFieldForm::Token:
        skipLength();
        return readToken();
    case QvlFieldForm::TokenOrText:
        skipLength();
        return isAtText() ? readText() : readToken();
    case QvlFieldForm::Version:
    case QvlFieldForm::Integer:
    case QvlFieldForm::Date:
        return readNumber();
    case QvlFieldForm::Text:
        return readText();
    case QvlFieldForm::EncodedText:
    case QvlFieldForm::Address:
        return readEncodedText();
    case QvlFieldForm::Sender:
        return readLength() && readSender();
    case QvlFieldForm::Time:
        return readLength() && readTime();
    case QvlFieldForm::TokenAndInteger:
        return readLength() && readToken() && readNumber();
    case QvlFieldForm::TokenAndText:
        return readLength() && readToken() && readEncodedText();
    case QvlFieldForm::CountAndAddress:
        return readLength() && readCount() && readEncodedText();
    case QvlFieldForm::CountAndDate:
        return readLength() && readCount() && readNumber();
    case QvlFieldForm::Tokens:
        skipLength();
        return countTokens();
    case QvlFieldForm::TextAndMore:
        return readLength() && readText();
    case QvlFieldForm::ContentType:
        skipLength();
        return readContentType();
    }
    return false;
}

bool ValueReader::isAtText()
{
    const auto next = WireRead::peek(&m_buffer);
    return next && WireOctet::beginsText(*next);
}

void ValueReader::skipLength()
{
    std::ignore = WireRead::valueLength(&m_buffer); // the value may have none
}

bool ValueReader::readToken()
{
    const auto token = WireRead::octet(&m_buffer);
    if (!token || !WireOctet::hasHighBit(*token))
        return false;
    m_value.token = *token;
    const QvlFieldValue *row = rowOf(m_field.known->tokens, *token, &QvlFieldValue::value);
    m_value.tokenName = row ? row->name : nullptr;
    return true;
}

bool ValueReader::readTime()
{
    return readToken()
        && (m_value.token == WireToken::AbsoluteTime || m_value.token == WireToken::RelativeTime)
        && readNumber();
}

bool ValueReader::readSender()
{
    return readToken() && (m_value.token != WireToken::AddressPresent || readEncodedText());
}

bool ValueReader::readText()
{
    return isAtText() && storeText(m_buffer.readUntilZero(), NoCharset);
}

// encoded-text ::= text | value-length [charset] text
bool ValueReader::readEncodedText()
{
    if (isAtText())
        return readText();
    const auto length = WireRead::valueLength(&m_buffer);
    const auto octets = length ? m_buffer.readView(*length) : std::nullopt;
    if (!octets)
        return false;
    LinearBuffer content = WireRead::over(*octets);
    const auto first = WireRead::peek(&content);
    qint64 charset = NoCharset;
    if (first && !WireOctet::beginsText(*first) && !WspValues::readInteger(&content, &charset))
        return false;
    m_value.charset = int(std::min<qint64>(charset, std::numeric_limits<int>::max()));
    return storeText(WireRead::rest(&content), m_value.charset);
}

bool ValueReader::storeText(QByteArrayView octets, int charset)
{
    return unlessOutOfMemory(false, [&]() -> bool {
        m_value.text = FieldText::decode(octets, charset);
        return true;
    });
}

bool ValueReader::readContentType()
{
    if (isAtText())
        return readText();
    return readNumber() && unlessOutOfMemory(false, [this]() -> bool {
               m_value.text = WspValues::mediaType(m_value.number);
               return true;
           });
}

bool ValueReader::countTokens()
{
    m_value.count = WireRead::rest(&m_buffer).size();
    return m_value.count > 0;
}

} // namespace

QvlScannedValue QvlScannedField::decoded() const
{
    return ValueReader(*this).read();
}
