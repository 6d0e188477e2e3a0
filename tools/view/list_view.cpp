#include "view/list_view.h"

#include "view/field_values.h"
#include "view/file_view.h"
#include "view/json_writer.h"
#include "view/terminal_text.h"

#include <QDateTime>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using namespace MessageList;
using TerminalText::visible;

/// A column of the list.
struct Column
{
    const char *title;
    int width; ///< 0 for columns that share what is left
    bool alignRight;
};

constexpr std::array columns{
    Column{"Date", 16, false},   Column{"Type", 17, false}, Column{"From or to", 0, false},
    Column{"Subject", 0, false}, Column{"Slides", 6, true}, Column{"Parts", 12, false},
    Column{"Octets", 8, true},   Column{"State", 7, false}, Column{"File", 0, false},
};

constexpr int Gap = 2;
constexpr int NarrowestShared = 8;
constexpr int UsualWidth = 150;

int sharedWidth(int width)
{
    int shared = 0;
    int left = width - Gap * (int(columns.size()) - 1);
    for (const Column &column : columns) {
        left -= column.width;
        shared += column.width == 0;
    }
    return std::max(left / shared, NarrowestShared);
}

QString dateColumn(const Entry &entry)
{
    return entry.date ? FieldValue::dateText(*entry.date).left(16).replace(u'T', u' ') : QString();
}

// "retrieve-conf" of "m-retrieve-conf".
QString typeColumn(const Entry &entry)
{
    if (entry.type == 0)
        return QString();
    const QString name = typeText(entry.type);
    return name.startsWith("m-"_L1) ? name.sliced(2) : name;
}

QString addressColumn(const Entry &entry)
{
    return entry.from.isEmpty() ? entry.to.join(", "_L1) : entry.from;
}

// Such as "2 img, 1 txt".
QString partsColumn(const Entry &entry)
{
    constexpr std::array<const char *, PartKinds> letters{"i", "a", "v", "t", "s", "o"};
    QStringList words;
    for (std::size_t kind = 0; kind < PartKinds; ++kind) {
        if (entry.parts[kind] > 0)
            words += QString::number(entry.parts[kind]) + QLatin1StringView(letters[kind]);
    }
    return words.join(u' ');
}

QString isoDate(const Entry &entry)
{
    return entry.date ? FieldValue::dateText(*entry.date) : QString();
}

bool isPhoneNumber(const QString &text)
{
    return text.size() > 1
        && std::ranges::all_of(text.cbegin() + text.startsWith(u'+'), text.cend(),
                               [](QChar character) { return character.isDigit(); });
}

// Spreadsheets would run a text that begins like a formula.
QString disarmed(const QString &text)
{
    const bool isFormula = !text.isEmpty() && QStringView(u"=+-@").contains(text.front());
    return isFormula && !isPhoneNumber(text) ? u'\'' + text : text;
}

QByteArray csvField(const QString &text)
{
    const QString safe = visible(disarmed(text));
    const bool needsQuotes = std::ranges::any_of(
        safe, [](QChar character) { return QStringView(u",\"\r\n").contains(character); });
    return needsQuotes ? ('"' + QString(safe).replace(u'"', "\"\""_L1) + '"').toUtf8()
                       : safe.toUtf8();
}

void writeType(int type, JsonWriter *json)
{
    json->key("type");
    FieldValue::write(
        FieldValue::named(type, QvlMessageType::nameOf(static_cast<unsigned char>(type))), json);
}

void writeParts(const Entry &entry, JsonWriter *json)
{
    json->key("parts");
    json->beginObject();
    for (PartKind kind : {PartKind::Audio, PartKind::Image, PartKind::Other, PartKind::Smil,
                          PartKind::Text, PartKind::Video})
        json->member(kindNames[std::size_t(kind)], entry.count(kind));
    json->endObject();
}

void writeEntry(const Entry &entry, JsonWriter *json)
{
    if (entry.date)
        json->member("date", isoDate(entry));
    json->member("file", entry.file);
    json->member("from", entry.from);
    json->member("octets", entry.octets);
    writeParts(entry, json);
    json->member("slides", entry.slides);
    json->member("state", stateName(entry.state));
    json->member("subject", entry.subject);
    json->key("to");
    json->beginArray();
    for (const QString &address : entry.to)
        json->value(address);
    json->endArray();
    if (entry.type != 0)
        writeType(entry.type, json);
}

QByteArray csvLine(const QList<QByteArray> &fields)
{
    return fields.join(',') + "\r\n";
}

} // namespace

ListLines::ListLines(int width)
    : m_width(sharedWidth(width == 0 ? UsualWidth : width)), m_truncates(width > 0)
{
}

QString ListLines::title() const
{
    QStringList cells;
    for (const Column &column : columns)
        cells += QString::fromLatin1(column.title);
    return line(cells);
}

QString ListLines::lineOf(const Entry &entry) const
{
    if (!entry.error.isEmpty())
        return QString();
    return line({dateColumn(entry), typeColumn(entry), visible(addressColumn(entry)),
                 visible(entry.subject),
                 entry.slides > 0 ? QString::number(entry.slides) : QString(), partsColumn(entry),
                 QString::number(entry.octets), QString::fromLatin1(stateName(entry.state)),
                 visible(entry.file)});
}

QString ListLines::line(const QStringList &cells) const
{
    QString text;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int width = columns[i].width > 0 ? columns[i].width : m_width;
        const bool isLast = i + 1 == columns.size();
        const QString &cell = cells[qsizetype(i)];
        text += TerminalText::padded(m_truncates ? TerminalText::truncated(cell, width) : cell,
                                     width, columns[i].alignRight)
            + (isLast ? QString() : QString(Gap, u' '));
    }
    while (text.endsWith(u' '))
        text.chop(1);
    return text + u'\n';
}

std::string listJson(const Entry &entry)
{
    if (!entry.error.isEmpty())
        return errorJson(entry.file, entry.error);
    JsonWriter json;
    json.beginObject();
    writeEntry(entry, &json);
    json.endObject();
    return json.takeJson() + '\n';
}

QByteArray csvTitle()
{
    QList<QByteArray> fields{"file", "date", "type", "from", "to", "subject", "slides"};
    for (const char *name : kindNames)
        fields += name;
    return csvLine(fields + QList<QByteArray>{"octets", "state"});
}

QByteArray csvRow(const Entry &entry)
{
    QList<QByteArray> fields{csvField(entry.file),
                             csvField(isoDate(entry)),
                             csvField(entry.type == 0 ? QString() : typeText(entry.type)),
                             csvField(entry.from),
                             csvField(entry.to.join("; "_L1)),
                             csvField(entry.subject),
                             QByteArray::number(entry.slides)};
    for (int count : entry.parts)
        fields += QByteArray::number(count);
    return csvLine(fields
                   + QList<QByteArray>{QByteArray::number(entry.octets), stateName(entry.state)});
}
