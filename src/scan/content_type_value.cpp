#include "scan/content_type_value.h"

#include "base/no_memory.h"
#include "base/tables.h"
#include "scan/charset_text.h"
#include "scan/field_text.h"
#include "scan/part_content_type.h"
#include "scan/wsp_texts.h"
#include "scan/wsp_values.h"
#include "wire/octets.h"
#include "wire/read.h"
#include "wire/wire_text.h"

#include <algorithm>
#include <limits>
#include <utility>

using namespace WireOctet;

namespace {

enum class Form {
    General, // the first octet says what the value is
    Quality, // uintvar
    Number, // integer, or a text where the standard allows one or senders write one
    MediaType, // media code or text
    Text, // text, whose first octet may be 80 and above although it needs a quote then
    QuotedText, // the same, which may begin with a double quote
    Untyped, // integer, or a text that may begin with a double quote
};

struct Parameter
{
    int code;
    const char *name;
    Form form;
};

// WAP-230-WSP, table 38. Start is no quoted text there, but senders quote it.
constexpr Parameter knownParameters[]{
    {0x00, "q", Form::Quality},
    {0x01, "charset", Form::Number},
    {0x02, "level", Form::Number},
    {0x03, "type", Form::MediaType},
    {0x05, "name", Form::Text},
    {0x06, "filename", Form::Text},
    {0x07, "differences", Form::Number},
    {0x08, "padding", Form::Number},
    {0x09, "type", Form::MediaType},
    {0x0A, "start", Form::QuotedText},
    {0x0B, "start-info", Form::Text},
    {0x0C, "comment", Form::Text},
    {0x0D, "domain", Form::Text},
    {0x0E, "max-age", Form::Number},
    {0x0F, "path", Form::Text},
    {0x10, "secure", Form::General},
    {0x11, "sec", Form::Number},
    {0x12, "mac", Form::QuotedText},
    {0x13, "creation-date", Form::Number},
    {0x14, "modification-date", Form::Number},
    {0x15, "read-date", Form::Number},
    {0x16, "size", Form::Number},
    {0x17, "name", Form::QuotedText},
    {0x18, "filename", Form::QuotedText},
    {0x19, "start", Form::QuotedText},
    {0x1A, "start-info", Form::QuotedText},
    {0x1B, "comment", Form::QuotedText},
    {0x1C, "domain", Form::QuotedText},
    {0x1D, "path", Form::QuotedText},
};

bool isSame(QByteArrayView a, QByteArrayView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

bool isText(Form form)
{
    return form == Form::Text || form == Form::QuotedText;
}

// The octets of @p text up to @p end, which does not count within double quotes, or all of them.
QByteArrayView upTo(QByteArrayView text, char end)
{
    bool isQuoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == end && !isQuoted)
            return text.first(i);
        if (text[i] == '"')
            isQuoted = !isQuoted;
        else if (text[i] == '\\' && isQuoted)
            ++i;
    }
    return text;
}

// quoted ::= '"' ('\' octet | octet) * '"'
QByteArray unquoted(QByteArrayView text)
{
    QByteArray octets;
    if (!text.startsWith('"'))
        return text.toByteArray();
    for (qsizetype i = 1; i < text.size() && text[i] != '"'; ++i) {
        if (text[i] == '\\' && i + 1 < text.size())
            ++i;
        octets += text[i];
    }
    return octets;
}

class ContentTypeReader
{
public:
    explicit ContentTypeReader(QByteArrayView value)
        : m_value(value), m_buffer(WireRead::over(value))
    {
    }

    std::optional<QvlContentType> read(bool mayBeUtf8);

private:
    [[nodiscard]] bool readMedia();
    [[nodiscard]] bool readMediaText();
    void readTextParameters(QByteArrayView text);
    void readParameters();
    [[nodiscard]] bool readParameter(QvlScannedParameter *parameter);
    [[nodiscard]] bool readName(QvlScannedParameter *parameter, Form *form);
    [[nodiscard]] bool skipValue(Form form);
    static void decodeValue(Form form, QvlScannedParameter *parameter);
    void skipUtf8Lead();

    QByteArrayView m_value;
    LinearBuffer m_buffer; // over m_value, up to the end that the value-length gives
    QvlContentType m_type;
    bool m_wasUtf8 = false;
};

constexpr unsigned char Utf8Lead = 0xC2; // of the octets 80 to BF
constexpr unsigned char FirstUtf8Media = 0xA0; // no parameter has this code or a higher one
constexpr unsigned char LastUtf8Media = 0xBF;

// content-type ::= octet >= 80 | text | value-length media parameter *
std::optional<QvlContentType> ContentTypeReader::read(bool mayBeUtf8)
{
    const auto length = WireRead::valueLength(&m_buffer);
    if (length) {
        const int start = m_buffer.getPosition();
        const qsizetype left = m_value.size() - start;
        m_type.isComplete = *length <= left;
        m_value = m_value.sliced(start, std::min<qsizetype>(*length, left));
        m_buffer = WireRead::over(m_value);
        if (mayBeUtf8)
            skipUtf8Lead();
    }
    if (!readMedia())
        return std::nullopt;
    if (length)
        readParameters();
    return std::move(m_type);
}

// Skips C2 before a media octet that a gateway converted to UTF-8.
void ContentTypeReader::skipUtf8Lead()
{
    if (m_value.size() < 2 || static_cast<unsigned char>(m_value[0]) != Utf8Lead)
        return;
    const auto media = static_cast<unsigned char>(m_value[1]);
    m_wasUtf8 = media >= FirstUtf8Media && media <= LastUtf8Media;
    if (m_wasUtf8)
        m_buffer.forward(1);
}

// media ::= integer | text
bool ContentTypeReader::readMedia()
{
    const auto first = WireRead::peek(&m_buffer);
    if (first && beginsText(*first))
        return *first != 0 && readMediaText();
    if (!WspValues::readInteger(&m_buffer, &m_type.code))
        return false;
    m_type.mediaType = WspValues::mediaType(m_type.code);
    return true;
}

// media-text ::= type ["; " parameter] *
bool ContentTypeReader::readMediaText()
{
    const auto text = WireRead::text(&m_buffer);
    if (!text)
        return false;
    const QByteArrayView type = upTo(*text, ';');
    m_type.mediaType = FieldText::decode(type, 0).trimmed().toLower();
    readTextParameters(text->sliced(type.size()));
    return true;
}

// parameter ::= ";" name ["=" (quoted | token)]
void ContentTypeReader::readTextParameters(QByteArrayView text)
{
    while (!text.isEmpty()) {
        const QByteArrayView octets = upTo(text.sliced(1), ';');
        text = text.sliced(1 + octets.size());
        QvlScannedParameter parameter;
        parameter.octets = octets.trimmed();
        const QByteArrayView name = upTo(parameter.octets, '=');
        parameter.letters = name.trimmed();
        if (parameter.letters.isEmpty())
            continue;
        parameter.value =
            parameter.octets.sliced(std::min(name.size() + 1, parameter.octets.size())).trimmed();
        parameter.text = FieldText::decode(unquoted(parameter.value), 0);
        m_type.parameters.push_back(parameter);
    }
}

void ContentTypeReader::readParameters()
{
    while (m_buffer.hasMore()) {
        QvlScannedParameter parameter;
        if (!readParameter(&parameter)) {
            m_type.isComplete = false;
            return;
        }
        m_type.parameters.push_back(std::move(parameter));
    }
}

// parameter ::= (octet >= 80 | text) value
bool ContentTypeReader::readParameter(QvlScannedParameter *parameter)
{
    const int start = m_buffer.getPosition();
    Form form = Form::General;
    if (!readName(parameter, &form))
        return false;
    const int valueStart = m_buffer.getPosition();
    if (!skipValue(form))
        return false;
    const int end = m_buffer.getPosition();
    parameter->octets = m_value.sliced(start, end - start);
    parameter->value = m_value.sliced(valueStart, end - valueStart);

    decodeValue(form, parameter);
    return true;
}

// Leaves number and text as they are when the value has neither.
void ContentTypeReader::decodeValue(Form form, QvlScannedParameter *parameter)
{
    LinearBuffer value = WireRead::over(parameter->value);
    if (form == Form::Quality) {
        parameter->number = WireRead::uintvar(&value).value_or(-1);
        return;
    }
    const auto first = WireRead::peek(&value);
    if (isText(form) || (first && beginsText(*first))) {
        const bool mayBeQuoted = form == Form::QuotedText || form == Form::Untyped;
        parameter->text = mayBeQuoted ? WspTexts::decodeQuoted(parameter->value)
                                      : WspTexts::decode(parameter->value);
    } else if (WspValues::readInteger(&value, &parameter->number) && form == Form::MediaType) {
        parameter->text = WspValues::mediaType(parameter->number);
    }
}

bool ContentTypeReader::readName(QvlScannedParameter *parameter, Form *form)
{
    auto first = WireRead::octet(&m_buffer);
    if (m_wasUtf8 && first == Utf8Lead)
        first = WireRead::octet(&m_buffer);
    if (!first)
        return false;
    if (hasHighBit(*first)) {
        parameter->code = withoutHighBit(*first);
        if (const Parameter *row = rowOf(knownParameters, parameter->code, &Parameter::code)) {
            parameter->name = row->name;
            *form = row->form;
        }
        return true;
    }
    if (*first <= LengthFollows || *first == WireText::Quote)
        return false;
    m_buffer.rewind(1);
    const auto letters = WireRead::text(&m_buffer);
    parameter->letters = letters.value_or(QByteArrayView());
    *form = Form::Untyped;
    return letters.has_value();
}

bool ContentTypeReader::skipValue(Form form)
{
    if (form == Form::Quality)
        return WireRead::uintvar(&m_buffer).has_value();
    const auto first = WireRead::peek(&m_buffer);
    if (isText(form) && first && hasHighBit(*first))
        return WireRead::text(&m_buffer).has_value();
    return WspValues::skip(&m_buffer);
}

QString textOf(const QvlScannedParameter *parameter)
{
    return parameter ? parameter->text : QString();
}

} // namespace

const QvlScannedParameter *QvlContentType::find(QByteArrayView name) const
{
    const auto hasName = [name](const QvlScannedParameter &parameter) {
        return isSame(parameter.name ? QByteArrayView(parameter.name) : parameter.letters, name);
    };
    const auto found = std::find_if(parameters.begin(), parameters.end(), hasName);
    return found == parameters.end() ? nullptr : &*found;
}

int QvlContentType::charset() const
{
    const QvlScannedParameter *parameter = find("charset");
    return parameter ? unlessOutOfMemory(0, [parameter] { return charsetOf(*parameter); }) : 0;
}

QString QvlContentType::name() const
{
    return textOf(find("name"));
}

QString QvlContentType::start() const
{
    return textOf(find("start"));
}

QString QvlContentType::type() const
{
    return textOf(find("type"));
}

std::optional<QvlContentType> qvlReadContentType(QByteArrayView value)
{
    return unlessOutOfMemory({}, [value] { return ContentTypeReader(value).read(true); });
}

std::optional<QvlContentType> readPartContentType(QByteArrayView value)
{
    return ContentTypeReader(value).read(false);
}

int charsetOf(const QvlScannedParameter &parameter)
{
    if (parameter.number < 0)
        return qvlCharsetOf(parameter.text.toLatin1());
    return parameter.number <= std::numeric_limits<int>::max() ? int(parameter.number) : 0;
}
