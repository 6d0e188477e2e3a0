#include "view/field_values.h"

#include "view/json_writer.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype MostShownOctets = 16;

QString parameterName(const QvlScannedParameter &parameter)
{
    if (parameter.name)
        return QString::fromLatin1(parameter.name);
    return parameter.letters.isEmpty() ? FieldValue::hexCode(parameter.code)
                                       : qvlDecodeText(parameter.letters, 0);
}

QString parameterValue(const QvlScannedParameter &parameter)
{
    if (!parameter.text.isNull())
        return parameter.text;
    if (parameter.number < 0)
        return FieldValue::octetsText(parameter.value);
    const bool isCharset = parameterName(parameter).compare("charset"_L1, Qt::CaseInsensitive) == 0;
    return isCharset ? FieldValue::charsetName(parameter.number)
                     : QString::number(parameter.number);
}

} // namespace

FieldValue::Named FieldValue::named(int value, const char *name)
{
    return {value, name ? name : ""};
}

QString FieldValue::textOf(const Named &named)
{
    const QString name = QString::fromLatin1(*named.name ? named.name : "unknown");
    return u"%1 (%2)"_s.arg(name).arg(named.value);
}

void FieldValue::write(const Named &named, JsonWriter *json)
{
    json->beginObject();
    json->member("name", named.name);
    json->member("value", named.value);
    json->endObject();
}

QString FieldValue::textOf(Size size)
{
    return QString::number(size.octets) + " octets"_L1;
}

void FieldValue::write(Size size, JsonWriter *json)
{
    json->value(size.octets);
}

QString FieldValue::textOf(const QvlSentTime &time)
{
    return time.isRelative ? u"%1 s after it was sent"_s.arg(time.seconds) : dateText(time.seconds);
}

void FieldValue::write(const QvlSentTime &time, JsonWriter *json)
{
    json->beginObject();
    json->member("relative", time.isRelative);
    json->member("seconds", time.seconds);
    json->endObject();
}

QString FieldValue::textOf(const QvlContentType &content)
{
    QStringList parameters;
    for (const QvlScannedParameter &parameter : content.parameters)
        parameters += parameterName(parameter) + u'=' + parameterValue(parameter);
    const QString type =
        content.mediaType.isEmpty() ? u"unknown (%1)"_s.arg(content.code) : content.mediaType;
    return parameters.isEmpty() ? type : type + "; "_L1 + parameters.join(u';');
}

void FieldValue::write(const QvlContentType &content, JsonWriter *json)
{
    json->beginObject();
    json->key("parameters");
    json->beginArray();
    for (const QvlScannedParameter &parameter : content.parameters) {
        json->beginObject();
        json->member("name", parameterName(parameter));
        json->member("value", parameterValue(parameter));
        json->endObject();
    }
    json->endArray();
    json->member("type", content.mediaType);
    json->endObject();
}

QString FieldValue::isoDate(const QDateTime &time)
{
    return time.toOffsetFromUtc(time.offsetFromUtc()).toString(Qt::ISODate);
}

QString FieldValue::dateText(qint64 seconds)
{
    constexpr qint64 Year9999 = 253'370'764'800; // ISO 8601 has years of four digits
    return seconds < Year9999 ? isoDate(QDateTime::fromSecsSinceEpoch(seconds))
                              : u"%1 s after 1970-01-01"_s.arg(seconds);
}

QString FieldValue::minuteText(qint64 seconds)
{
    const QString text = dateText(seconds);
    const bool isDate = text.indexOf(u'T') == QLatin1StringView("2026-05-01").size();
    return isDate ? text.first(QLatin1StringView("2026-05-01T12:00").size()).replace(u'T', u' ')
                  : text;
}

QString FieldValue::version(int octet)
{
    return QString::number(octet >> 4) + u'.' + QString::number(octet & 0x0F);
}

QString FieldValue::charsetName(qint64 charset)
{
    const bool fits = std::in_range<int>(charset);
    const char *name = fits ? qvlCharsetName(int(charset)) : nullptr;
    return name ? QString::fromLatin1(name) : QString::number(charset);
}

QString FieldValue::octetsText(QByteArrayView octets)
{
    const QByteArrayView shown = octets.first(std::min(octets.size(), MostShownOctets));
    QString text = octets.size() == 1 ? u"1 octet: "_s : u"%1 octets: "_s.arg(octets.size());
    text += QString::fromLatin1(shown.toByteArray().toHex(' ').toUpper());
    return shown.size() < octets.size() ? text + u" …"_s : text;
}

QString FieldValue::hexCode(int code)
{
    return QString::number(code | 0x80, 16).toUpper();
}
