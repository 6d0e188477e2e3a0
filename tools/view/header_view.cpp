#include "view/header_view.h"

#include "view/field_values.h"
#include "view/json_writer.h"

#include <qvlsmilparser.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string_view>
#include <type_traits>

namespace {

using namespace FieldValue;
using FieldValue::textOf;
using FieldValue::write;

Named namedBy(unsigned char value, const char *(*nameOf)(unsigned char))
{
    return named(value, nameOf(value));
}

QString textOf(bool flag)
{
    return flag ? QStringLiteral("yes") : QStringLiteral("no");
}

QString textOf(const QString &text)
{
    return text;
}

// For values that JSON can represent directly.
void write(const auto &value, JsonWriter *json)
{
    json->value(value);
}

// The record has the moment of decoding.
struct Date
{
    std::optional<QvlSentTime> sent;
    QDateTime decoded;
};

QString textOf(const Date &date)
{
    const QString decoded = isoDate(date.decoded) + QLatin1String(" (when it was decoded)");
    return date.sent ? textOf(*date.sent) + QLatin1String(" (sent), ") + decoded : decoded;
}

void write(const Date &date, JsonWriter *json)
{
    json->value(isoDate(date.decoded));
}

struct DeliveryTime
{
    std::optional<QvlSentTime> sent;
    QDateTime decoded;
};

QString textOf(const DeliveryTime &time)
{
    return time.sent ? textOf(*time.sent) : isoDate(time.decoded);
}

void write(const DeliveryTime &time, JsonWriter *json)
{
    json->value(isoDate(time.decoded));
}

QString addressKind(unsigned char type)
{
    switch (type) {
    case MMS_UTIL_Entry::Email:
        return QStringLiteral("e-mail");
    case MMS_UTIL_Entry::Plmn:
        return QStringLiteral("phone");
    case MMS_UTIL_Entry::Absent:
        return QStringLiteral("not given");
    default:
        return QStringLiteral("unknown");
    }
}

QString textOf(const MMS_UTIL_Entry &entry)
{
    const QString kind = addressKind(entry.getType());
    QStringList words{entry.getName().trimmed(), entry.getAddress()};
    words.removeAll(QString());
    words += QLatin1Char('(') + kind + QLatin1Char(')');
    return entry.getType() == MMS_UTIL_Entry::Absent ? kind : words.join(QLatin1Char(' '));
}

void write(const MMS_UTIL_Entry &entry, JsonWriter *json)
{
    json->beginObject();
    json->member("address", entry.getAddress());
    json->member("kind", addressKind(entry.getType()));
    json->member("name", entry.getName());
    json->endObject();
}

using Recipients = QPtrList<MMS_UTIL_Entry>;

QString textOf(const Recipients &recipients)
{
    QStringList texts;
    for (const MMS_UTIL_Entry *entry : recipients)
        texts += textOf(*entry);
    return texts.join(QLatin1String(", "));
}

void write(const Recipients &recipients, JsonWriter *json)
{
    json->beginArray();
    for (const MMS_UTIL_Entry *entry : recipients)
        write(*entry, json);
    json->endArray();
}

// A record does not say whether the time is relative, so it looks like a date soon after 1970.
struct Expiry
{
    std::optional<QvlSentTime> sent;
    int stored;
    quint32 seconds;
};

QString textOf(const Expiry &expiry)
{
    const QvlSentTime guessed{expiry.seconds, QvlExpiry::isRelative(expiry.seconds)};
    return textOf(expiry.sent.value_or(guessed));
}

void write(const Expiry &expiry, JsonWriter *json)
{
    json->beginObject();
    json->member("dateTime", isoDate(QDateTime::fromSecsSinceEpoch(expiry.seconds)));
    json->member("seconds", qint64(expiry.seconds));
    json->member("stored", expiry.stored);
    json->endObject();
}

struct ContentType
{
    QString type;
    QString parameters;
};

QString textOf(const ContentType &content)
{
    return content.parameters.isEmpty() ? content.type
                                        : content.type + QLatin1String("; ") + content.parameters;
}

void write(const ContentType &content, JsonWriter *json)
{
    json->beginObject();
    json->member("parameters", content.parameters);
    json->member("type", content.type);
    json->endObject();
}

Named messageType(unsigned char type)
{
    return namedBy(type, QvlMessageType::nameOf);
}

using Msg = MMS_UA_UAMsg;

ContentType contentType(const Msg &header)
{
    return {header.getContentType() + QLatin1Char('/') + header.getContentSubType(),
            header.getContentTypeParams()};
}

// The decoder sets the flag for Hide.
QString visibility(bool hides)
{
    return hides ? QStringLiteral("hide") : QStringLiteral("show");
}

/// A header field as a text and as JSON.
struct FieldRow
{
    unsigned char code;
    QString (*text)(const Msg &, const QvlSentTimes &);
    void (*write)(const Msg &, JsonWriter *);

    const char *name() const { return headerFieldInfo(code)->name; }
    bool isIn(const Msg &header) const { return header.fieldsPresent(headerFieldMask(code)); }
};

// Calls a getter that takes the times of the message only if it shows one.
template <typename Getter>
decltype(auto) got(const Msg &header, const QvlSentTimes &sent)
{
    if constexpr (std::is_invocable_v<Getter, const Msg &>)
        return Getter()(header);
    else
        return Getter()(header, sent);
}

// @p Getter returns a value that textOf() and write() take.
template <typename Getter>
constexpr FieldRow row(unsigned char code, Getter)
{
    return {code,
            [](const Msg &header, const QvlSentTimes &sent) {
                return textOf(got<Getter>(header, sent));
            },
            [](const Msg &header, JsonWriter *json) { write(got<Getter>(header, {}), json); }};
}

constexpr FieldRow fieldRows[] = {
    row(
        HeaderFieldCode::Bcc, [](const Msg &m) -> auto & { return m.getBccRecipients(); }),
    row(
        HeaderFieldCode::Cc, [](const Msg &m) -> auto & { return m.getCcRecipients(); }),
    row(HeaderFieldCode::ContentLocation, [](const Msg &m) { return m.getContentLocation(); }),
    row(HeaderFieldCode::ContentType, [](const Msg &m) { return contentType(m); }),
    row(HeaderFieldCode::Date,
        [](const Msg &m, const QvlSentTimes &sent) {
            return Date{sent.date, m.getDate()};
        }),
    row(HeaderFieldCode::DeliveryReport, [](const Msg &m) { return m.getDeliveryReport(); }),
    row(HeaderFieldCode::DeliveryTime,
        [](const Msg &m, const QvlSentTimes &sent) {
            return DeliveryTime{sent.deliveryTime, m.getDeliveryTime()};
        }),
    row(HeaderFieldCode::Expiry,
        [](const Msg &m, const QvlSentTimes &sent) {
            return Expiry{sent.expiry, m.getExpiry(), QvlExpiry::toSeconds(m.getExpiry())};
        }),
    row(HeaderFieldCode::From, [](const Msg &m) { return m.getFrom(); }),
    row(HeaderFieldCode::MessageClass,
        [](const Msg &m) { return namedBy(m.getMessageClass(), QvlMessageClass::nameOf); }),
    row(HeaderFieldCode::MessageId, [](const Msg &m) { return m.getMessageId(); }),
    row(HeaderFieldCode::MessageType, [](const Msg &m) { return messageType(m.getMessageType()); }),
    row(HeaderFieldCode::MmsVersion, [](const Msg &m) { return version(m.getMMSVersion()); }),
    row(HeaderFieldCode::MessageSize, [](const Msg &m) { return Size{m.getMessageSize()}; }),
    row(HeaderFieldCode::Priority,
        [](const Msg &m) { return namedBy(m.getPriority(), QvlPriority::nameOf); }),
    row(HeaderFieldCode::ReadReply, [](const Msg &m) { return m.getReadReply(); }),
    row(HeaderFieldCode::ReportAllowed, [](const Msg &m) { return m.getReportAllowed(); }),
    row(HeaderFieldCode::ResponseStatus,
        [](const Msg &m) { return namedBy(m.getResponseStatus(), QvlResponseStatus::nameOf); }),
    row(HeaderFieldCode::ResponseText, [](const Msg &m) { return m.getResponseText(); }),
    row(HeaderFieldCode::SenderVisibility,
        [](const Msg &m) { return visibility(m.getSenderVisibility()); }),
    row(HeaderFieldCode::Status,
        [](const Msg &m) { return namedBy(m.getStatus(), QvlStatus::nameOf); }),
    row(HeaderFieldCode::Subject, [](const Msg &m) { return m.getSubject(); }),
    row(
        HeaderFieldCode::To, [](const Msg &m) -> auto & { return m.getToRecipients(); }),
    row(HeaderFieldCode::TransactionId, [](const Msg &m) { return m.getTransactionId(); }),
};
static_assert(std::size(fieldRows) == HeaderFieldCode::TransactionId, "one row for each field");
static_assert(std::ranges::is_sorted(fieldRows, {}, &FieldRow::code), "a row stands at its code");

auto rowsByName()
{
    std::array rows = std::to_array(fieldRows);
    std::ranges::sort(rows, {}, [](const FieldRow &row) { return std::string_view(row.name()); });
    return rows;
}

} // namespace

QList<FieldView> headerView(const MMS_UA_UAMsg &header)
{
    QList<FieldRow> rows;
    std::ranges::copy_if(fieldRows, std::back_inserter(rows),
                         [&](const FieldRow &row) { return row.isIn(header); });
    std::ranges::stable_sort(
        rows, {}, [&](const FieldRow &row) { return header.getFieldPosition(row.code); });
    QList<FieldView> views;
    for (const FieldRow &row : rows)
        views += {QString::fromLatin1(row.name()), row.text(header, {})};
    return views;
}

QString recordText(unsigned char code, const MMS_UA_UAMsg &header, const QvlSentTimes &sent)
{
    return fieldRows[code - 1].text(header, sent);
}

void writeHeader(const MMS_UA_UAMsg &header, JsonWriter *json)
{
    static const auto rows = rowsByName();
    json->key("header");
    json->beginObject();
    for (const FieldRow &row : rows) {
        if (!row.isIn(header))
            continue;
        json->key(row.name());
        row.write(header, json);
    }
    json->endObject();
}

QString messageTypeText(unsigned char type)
{
    return textOf(messageType(type));
}
