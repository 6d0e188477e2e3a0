/*
 * Values of header fields for a reader: as texts and as JSON, one pair of functions for each type
 * of value. docs/json.md documents the JSON.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QByteArrayView>
#include <QDateTime>
#include <QString>

class JsonWriter;

namespace FieldValue {

/// An octet and its name in the standard; "" if it has none.
struct Named
{
    int value;
    const char *name;
};
Named named(int value, const char *name); ///< null for no name
QString textOf(const Named &named);
void write(const Named &named, JsonWriter *json);

/// A number of octets.
struct Size
{
    qint64 octets;
};
QString textOf(Size size);
void write(Size size, JsonWriter *json);

/// A time as the sender wrote it.
QString textOf(const QvlSentTime &time);
void write(const QvlSentTime &time, JsonWriter *json);

/// A content type as the sender wrote it.
QString textOf(const QvlContentType &content);
void write(const QvlContentType &content, JsonWriter *json);

/// A time in ISO 8601 with its offset from UTC; "" for a time that has no such form.
QString isoDate(const QDateTime &time);
/// A number of seconds since 1970 as a date, or in words if it is too large for that.
QString dateText(qint64 seconds);
/// The same to the minute, such as "2026-05-01 12:00".
QString minuteText(qint64 seconds);
/// A version such as "1.3", from an octet without its high bit.
QString version(int octet);
/// The preferred MIME name of a charset, or its number if it has none here.
QString charsetName(qint64 charset);
/// The octets in hexadecimal, such as "3 octets: 0A 01 02", shortened after some.
QString octetsText(QByteArrayView octets);
/// The name in the standard of the octet that has @p code without its high bit.
QString hexCode(int code);

} // namespace FieldValue
