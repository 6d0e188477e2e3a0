#include "view/changes_view.h"

#include "input/message.h"
#include "view/field_values.h"
#include "view/json_writer.h"
#include "view/message_fields.h"
#include "view/scanned_field_view.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t MostLines = 30; // some bodies have hundreds of changes

/// Names of what was changed.
struct PlaceRow
{
    QvlChange::Place place;
    const char *key; // for a program
    const char *name; // for a person, of a place without a code
};

constexpr std::array places{
    PlaceRow{QvlChange::HeaderField, "field", ""},
    PlaceRow{QvlChange::HeaderEnd, "headerEnd", ""},
    PlaceRow{QvlChange::PartCount, "partCount", "count of the parts"},
    PlaceRow{QvlChange::PartHeader, "partHeader", ""},
    PlaceRow{QvlChange::PartParameter, "partParameter", ""},
    PlaceRow{QvlChange::PartType, "partType", "media type"},
    PlaceRow{QvlChange::PartBody, "partBody", "content"},
    PlaceRow{QvlChange::Parts, "parts", "and all after it"},
};
static_assert(places.size() == QvlChange::Parts + 1
                  && std::ranges::is_sorted(places, {}, &PlaceRow::place),
              "a row stands at its place");

const char *kindText(const QvlChange &change)
{
    return change.kind == QvlChange::LeftOut ? "left out" : "rewritten";
}

/// A header or a parameter of a part.
struct ItemName
{
    QString name; // in the standard, or in letters
    bool isInLetters = false;
};

template <typename Item>
ItemName nameOf(const Item &item)
{
    return item.name ? ItemName{QString::fromLatin1(item.name)}
                     : ItemName{qvlDecodeText(item.letters, 0), !item.letters.isEmpty()};
}

ItemName headerName(const QvlChange &change)
{
    QvlPartHeaderScanner scanner(change.octets);
    QvlScannedHeader header;
    return scanner.next(&header) ? nameOf(header) : ItemName{};
}

// Reads the parameter alone, as that of a text of unknown length: a content type may have
// thousands.
ItemName parameterName(const QvlChange &change)
{
    const QByteArray octets = "\x1F\xFF\xFF\xFF\x7F\x83" + change.octets.toByteArray();
    const auto contentType = qvlReadContentType(octets);
    return contentType && !contentType->parameters.empty() ? nameOf(contentType->parameters[0])
                                                           : ItemName{};
}

ItemName partItemName(const QvlChange &change)
{
    return change.place == QvlChange::PartHeader ? headerName(change) : parameterName(change);
}

// Such as "header AE Content-Disposition".
QString partItemTitle(const QvlChange &change)
{
    const ItemName item = partItemName(change);
    if (change.code == QvlScannedField::NoCode && item.name.isEmpty())
        return u"page of headers"_s;
    QStringList words{change.place == QvlChange::PartHeader ? u"header"_s : u"parameter"_s};
    if (change.code != QvlScannedField::NoCode)
        words += FieldValue::hexCode(change.code);
    if (!item.name.isEmpty())
        words += item.isInLetters ? u'"' + item.name + u'"' : item.name;
    return words.join(u' ');
}

bool hasName(const QvlChange &change)
{
    return change.place == QvlChange::HeaderField || change.place == QvlChange::PartParameter
        || change.place == QvlChange::PartHeader;
}

QString titleOf(const QvlChange &change)
{
    if (change.place == QvlChange::HeaderField)
        return fieldTitle(changedField(change));
    if (change.place == QvlChange::HeaderEnd)
        return u"%1 octets"_s.arg(change.octets.size());
    const QString part = change.part < 0 ? QString() : u"part %1, "_s.arg(change.part);
    return part
        + (hasName(change) ? partItemTitle(change)
                           : QString::fromLatin1(places[change.place].name));
}

QString lineOf(const QvlChange &change)
{
    return u"octet %1: "_s.arg(change.offset) + titleOf(change) + u' '
        + QLatin1StringView(kindText(change)) + ": "_L1 + QLatin1StringView(change.reason);
}

// Decoded parts are reported after all other changes.
std::vector<QvlChange> changesInOrder(const Message &message)
{
    std::vector<QvlChange> changes = message.changes();
    std::ranges::stable_sort(changes, {}, &QvlChange::offset);
    return changes;
}

void writeName(const QvlChange &change, JsonWriter *json)
{
    if (change.place == QvlChange::HeaderField)
        writeFieldName(changedField(change), json);
    else if (hasName(change))
        json->member("name", partItemName(change).name);
}

void writeChange(const QvlChange &change, JsonWriter *json)
{
    json->beginObject();
    if (change.code != QvlScannedField::NoCode)
        json->member("code", change.code);
    json->member("kind", kindText(change));
    writeName(change, json);
    json->member("octets", change.octets.size());
    json->member("offset", change.offset);
    if (change.part >= 0)
        json->member("part", change.part);
    json->member("place", places[change.place].key);
    json->member("reason", QString::fromLatin1(change.reason));
    if (change.place == QvlChange::HeaderField)
        writeFieldVersion(changedField(change), json);
    json->endObject();
}

} // namespace

QString changesSummary(const Message &message)
{
    const auto leftOut =
        std::ranges::count(message.changes(), QvlChange::LeftOut, &QvlChange::kind);
    const auto rewritten = qsizetype(message.changes().size()) - leftOut;
    QStringList counts;
    if (leftOut > 0)
        counts += u"%1 left out"_s.arg(leftOut);
    if (rewritten > 0)
        counts += u"%1 rewritten"_s.arg(rewritten);
    return counts.join(", "_L1);
}

QStringList changeLines(const Message &message)
{
    const std::vector<QvlChange> changes = changesInOrder(message);
    QStringList lines;
    for (std::size_t i = 0; i < std::min(changes.size(), MostLines); ++i)
        lines += "    "_L1 + lineOf(changes[i]);
    if (changes.size() > MostLines)
        lines += u"    and %1 more, see show --json"_s.arg(changes.size() - MostLines);
    return lines;
}

void writeChanges(const Message &message, JsonWriter *json)
{
    json->key("changes");
    json->beginArray();
    for (const QvlChange &change : changesInOrder(message))
        writeChange(change, json);
    json->endArray();
}

QString refusedFieldText(const RefusedField &refused)
{
    const QvlScannedField &field = refused.field;
    const bool isNamed = field.code != QvlScannedField::NoCode || !field.letters.isEmpty();
    const QString title = isNamed ? fieldTitle(field) + ": "_L1 : QString();
    return u"octet %1: "_s.arg(field.offset) + title + QString::fromLatin1(refused.reason);
}

void writeRefusedField(const RefusedField &refused, JsonWriter *json)
{
    const QvlScannedField &field = refused.field;
    json->key("refusedField");
    json->beginObject();
    if (field.code != QvlScannedField::NoCode)
        json->member("code", field.code);
    writeFieldName(field, json);
    json->member("offset", field.offset);
    json->member("reason", QString::fromLatin1(refused.reason));
    writeFieldVersion(field, json);
    json->endObject();
}
