#include "view/json_writer.h"

#include "view/terminal_text.h"

#include <QByteArray>
#include <QJsonValue>
#include <QLocale>
#include <QVariant>

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>

namespace {

bool isPlain(QChar unit)
{
    return unit >= QLatin1Char(' ') && unit <= QLatin1Char('~') && unit != QLatin1Char('"')
        && unit != QLatin1Char('\\');
}

// The letter of the short escape for @p character, or 0.
char escapeLetter(char32_t character)
{
    switch (character) {
    case '"':
    case '\\':
        return static_cast<char>(character);
    case '\b':
        return 'b';
    case '\f':
        return 'f';
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    case '\t':
        return 't';
    default:
        return 0;
    }
}

// A pair of surrogates, or one unit.
QStringView firstCharacter(QStringView text)
{
    const bool isPair = text.size() > 1 && text[0].isHighSurrogate() && text[1].isLowSurrogate();
    return text.first(isPair ? 2 : 1);
}

QByteArray escaped(QStringView character)
{
    const char32_t code = character.size() == 2 ? QChar::surrogateToUcs4(character[0], character[1])
                                                : character[0].unicode();
    if (const char letter = escapeLetter(code))
        return QByteArray{"\\"} + letter;
    if (TerminalText::hasVisibleForm(code))
        return character.toUtf8();
    QByteArray sequences;
    for (QChar unit : character)
        sequences += "\\u" + QByteArray::number(unit.unicode(), 16).rightJustified(4, '0');
    return sequences;
}

} // namespace

// Looks at the last octet. Texts end in a quote, so only a bracket or a colon can be one of these.
void JsonWriter::separate()
{
    const char last = m_json.empty() ? '[' : m_json.back();
    if (last != '{' && last != '[' && last != ':')
        m_json += ',';
}

void JsonWriter::begin(char bracket)
{
    separate();
    m_json += bracket;
}

void JsonWriter::element(QByteArrayView octets)
{
    separate();
    m_json.append(octets.data(), size_t(octets.size()));
}

void JsonWriter::key(const char *name)
{
    value(name);
    m_json += ':';
}

void JsonWriter::value(const char *text)
{
    separate();
    m_json += '"';
    m_json += text;
    m_json += '"';
}

void JsonWriter::value(QStringView text)
{
    separate();
    m_json += '"';
    for (QStringView rest = appendPlain(text); !rest.isEmpty();) {
        const QStringView character = firstCharacter(rest);
        m_json += escaped(character).toStdString();
        rest = appendPlain(rest.sliced(character.size()));
    }
    m_json += '"';
}

// QJsonValue stores a whole number as an integer if it fits.
void JsonWriter::value(double number)
{
    const QJsonValue held(number);
    if (held.toVariant().typeId() == QMetaType::LongLong)
        value(held.toInteger());
    else if (std::isfinite(number))
        element(QByteArray::number(number, 'g', QLocale::FloatingPointShortest));
    else
        element("null");
}

QStringView JsonWriter::appendPlain(QStringView text)
{
    const auto end = std::ranges::find_if_not(text, isPlain);
    std::transform(text.begin(), end, std::back_inserter(m_json), std::mem_fn(&QChar::toLatin1));
    return QStringView(end, text.end());
}
