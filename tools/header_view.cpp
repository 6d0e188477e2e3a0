#include "header_view.h"

#include <qvlsmilparser.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QTimeZone>

#include <algorithm>
#include <span>

namespace {

struct ValueName
{
    unsigned char value;
    const char *name;
};

// Values as OMA-MMS-ENC names them.
constexpr ValueName classNames[] = {
    {128, "personal"}, {129, "advertisement"}, {130, "informational"}, {131, "auto"}};
constexpr ValueName priorityNames[] = {{128, "low"}, {129, "normal"}, {130, "high"}};
constexpr ValueName statusNames[] = {
    {128, "expired"},      {129, "retrieved"},     {130, "rejected"},  {131, "deferred"},
    {132, "unrecognised"}, {133, "indeterminate"}, {134, "forwarded"}, {135, "unreachable"}};
constexpr ValueName responseStatusNames[] = {{128, "ok"},
                                             {129, "error-unspecified"},
                                             {130, "error-service-denied"},
                                             {131, "error-message-format-corrupt"},
                                             {132, "error-sending-address-unresolved"},
                                             {133, "error-message-not-found"},
                                             {134, "error-network-problem"},
                                             {135, "error-content-not-accepted"},
                                             {136, "error-unsupported-message"},
                                             {192, "error-transient-failure"},
                                             {193, "error-transient-sending-address-unresolved"},
                                             {194, "error-transient-message-not-found"},
                                             {195, "error-transient-network-problem"},
                                             {224, "error-permanent-failure"},
                                             {225, "error-permanent-service-denied"},
                                             {226, "error-permanent-message-format-corrupt"},
                                             {227, "error-permanent-sending-address-unresolved"},
                                             {228, "error-permanent-message-not-found"},
                                             {229, "error-permanent-content-not-accepted"}};

struct Value
{
    QString text;
    QJsonValue json;
};

Value named(unsigned char value, const QString &name)
{
    const QString shown = name.isEmpty() ? QStringLiteral("unknown") : name;
    return {QStringLiteral("%1 (%2)").arg(shown).arg(value),
            QJsonObject{{QStringLiteral("name"), name}, {QStringLiteral("value"), value}}};
}

Value named(unsigned char value, std::span<const ValueName> names)
{
    const auto row = std::find_if(names.begin(), names.end(),
                                  [value](const ValueName &name) { return name.value == value; });
    return named(value, row != names.end() ? QString::fromLatin1(row->name) : QString());
}

Value yesNo(bool flag)
{
    return {flag ? QStringLiteral("yes") : QStringLiteral("no"), flag};
}

Value plain(const QString &text)
{
    return {text, text};
}

Value octets(int count)
{
    return {QString::number(count) + QLatin1String(" octets"), count};
}

QString isoDate(const QDateTime &time)
{
    return time.toOffsetFromUtc(time.offsetFromUtc()).toString(Qt::ISODate);
}

Value dateTime(const QDateTime &time)
{
    return {isoDate(time), isoDate(time)};
}

Value version(unsigned char octet)
{
    const QString text = QStringLiteral("%1.%2").arg(octet >> 4).arg(octet & 0x0F);
    return {text, text};
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

Value address(const MMS_UTIL_Entry &entry)
{
    const QString kind = addressKind(entry.getType());
    QStringList words{entry.getName().trimmed(), entry.getAddress()};
    words.removeAll(QString());
    words += QLatin1Char('(') + kind + QLatin1Char(')');
    return {entry.getType() == MMS_UTIL_Entry::Absent ? kind : words.join(QLatin1Char(' ')),
            QJsonObject{{QStringLiteral("name"), entry.getName()},
                        {QStringLiteral("kind"), kind},
                        {QStringLiteral("address"), entry.getAddress()}}};
}

Value addresses(const QPtrList<MMS_UTIL_Entry> &entries)
{
    QStringList texts;
    QJsonArray array;
    for (const MMS_UTIL_Entry *entry : entries) {
        const Value value = address(*entry);
        texts += value.text;
        array += value.json;
    }
    return {texts.join(QLatin1String(", ")), array};
}

// The record holds the local date as seconds from a day that does not exist; this is the way back.
// Phones send relative times as well, which come out as dates of the first years after 1970.
Value expiry(int stored)
{
    constexpr quint32 storedAt1970 = 413405696;
    constexpr qint64 tenYears = 10LL * 365 * 24 * 60 * 60;
    const qint64 localSeconds = quint32(stored) - storedAt1970;
    const QDateTime wall = QDateTime::fromSecsSinceEpoch(localSeconds, QTimeZone::utc());
    const QDateTime local(wall.date(), wall.time());
    const qint64 seconds = local.toSecsSinceEpoch();
    const bool relative = seconds < tenYears;
    return {relative ? QStringLiteral("%1 s after it was sent").arg(seconds) : isoDate(local),
            QJsonObject{{QStringLiteral("stored"), stored},
                        {QStringLiteral("seconds"), seconds},
                        {QStringLiteral("dateTime"), isoDate(local)}}};
}

Value contentType(const MMS_UA_UAMsg &header)
{
    const QString type = header.getContentType() + QLatin1Char('/') + header.getContentSubType();
    const QString parameters = header.getContentTypeParams();
    return {
        parameters.isEmpty() ? type : type + QLatin1String("; ") + parameters,
        QJsonObject{{QStringLiteral("type"), type}, {QStringLiteral("parameters"), parameters}}};
}

Value messageType(unsigned char type)
{
    const MessageTypeInfo *info = messageTypeInfo(type);
    return named(type, info ? QString::fromLatin1(info->name) : QString());
}

using Msg = MMS_UA_UAMsg;

struct FieldRow
{
    unsigned char code;
    Value (*view)(const Msg &);
};

constexpr FieldRow fieldRows[] = {
    {HeaderFieldCode::Bcc, [](const Msg &m) { return addresses(m.getBccRecipients()); }},
    {HeaderFieldCode::Cc, [](const Msg &m) { return addresses(m.getCcRecipients()); }},
    {HeaderFieldCode::ContentLocation, [](const Msg &m) { return plain(m.getContentLocation()); }},
    {HeaderFieldCode::ContentType, contentType},
    {HeaderFieldCode::Date,
     [](const Msg &m) {
         return Value{isoDate(m.getDate()) + QLatin1String(" (when it was decoded)"),
                      isoDate(m.getDate())};
     }},
    {HeaderFieldCode::DeliveryReport, [](const Msg &m) { return yesNo(m.getDeliveryReport()); }},
    {HeaderFieldCode::DeliveryTime, [](const Msg &m) { return dateTime(m.getDeliveryTime()); }},
    {HeaderFieldCode::Expiry, [](const Msg &m) { return expiry(m.getExpiry()); }},
    {HeaderFieldCode::From, [](const Msg &m) { return address(m.getFrom()); }},
    {HeaderFieldCode::MessageClass,
     [](const Msg &m) { return named(m.getMessageClass(), classNames); }},
    {HeaderFieldCode::MessageId, [](const Msg &m) { return plain(m.getMessageId()); }},
    {HeaderFieldCode::MessageType, [](const Msg &m) { return messageType(m.getMessageType()); }},
    {HeaderFieldCode::MmsVersion, [](const Msg &m) { return version(m.getMMSVersion()); }},
    {HeaderFieldCode::MessageSize, [](const Msg &m) { return octets(m.getMessageSize()); }},
    {HeaderFieldCode::Priority, [](const Msg &m) { return named(m.getPriority(), priorityNames); }},
    {HeaderFieldCode::ReadReply, [](const Msg &m) { return yesNo(m.getReadReply()); }},
    {HeaderFieldCode::ReportAllowed, [](const Msg &m) { return yesNo(m.getReportAllowed()); }},
    {HeaderFieldCode::ResponseStatus,
     [](const Msg &m) { return named(m.getResponseStatus(), responseStatusNames); }},
    {HeaderFieldCode::ResponseText, [](const Msg &m) { return plain(m.getResponseText()); }},
    // The flag is set by a field that says Hide.
    {HeaderFieldCode::SenderVisibility,
     [](const Msg &m) {
         return plain(m.getSenderVisibility() ? QStringLiteral("hide") : QStringLiteral("show"));
     }},
    {HeaderFieldCode::Status, [](const Msg &m) { return named(m.getStatus(), statusNames); }},
    {HeaderFieldCode::Subject, [](const Msg &m) { return plain(m.getSubject()); }},
    {HeaderFieldCode::To, [](const Msg &m) { return addresses(m.getToRecipients()); }},
    {HeaderFieldCode::TransactionId, [](const Msg &m) { return plain(m.getTransactionId()); }},
};
static_assert(std::size(fieldRows) == HeaderFieldCode::TransactionId, "one row for each field");

} // namespace

QList<FieldView> headerView(const MMS_UA_UAMsg &header)
{
    QList<FieldRow> rows;
    std::copy_if(
        std::begin(fieldRows), std::end(fieldRows), std::back_inserter(rows),
        [&](const FieldRow &row) { return header.fieldsPresent(headerFieldMask(row.code)); });
    std::stable_sort(rows.begin(), rows.end(), [&](const FieldRow &a, const FieldRow &b) {
        return header.getFieldPosition(a.code) < header.getFieldPosition(b.code);
    });
    QList<FieldView> views;
    for (const FieldRow &row : rows) {
        const Value value = row.view(header);
        views += {QString::fromLatin1(headerFieldInfo(row.code)->name), value.text, value.json};
    }
    return views;
}

QString messageTypeText(unsigned char type)
{
    return messageType(type).text;
}
