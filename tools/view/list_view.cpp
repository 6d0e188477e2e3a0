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

/// A column of the list. Its width grows from the least one to the good one, and to more if it
/// shares what is left. Narrow terminals have no room for the columns with a rank; the lowest rank
/// is left out first.
struct Column
{
    const char *title;
    int least;
    int good;
    bool shares = false;
    bool alignRight = false;
    bool endMatters = false; ///< more than the beginning, as for paths
    int rank = 0;
};

constexpr int WholeDate = 16; // columns of a date with its time
constexpr int DayOnly = 10;

constexpr std::array columns{
    Column{.title = "Date", .least = DayOnly, .good = WholeDate},
    Column{.title = "Type", .least = 8, .good = 17, .rank = 3},
    Column{.title = "From or to", .least = 8, .good = 15, .shares = true},
    Column{.title = "Subject", .least = 8, .good = 15, .shares = true},
    Column{.title = "Slides", .least = 6, .good = 6, .alignRight = true, .rank = 2},
    Column{.title = "Parts", .least = 5, .good = 12, .rank = 1},
    Column{.title = "Octets", .least = 8, .good = 8, .alignRight = true, .rank = 5},
    Column{.title = "State", .least = 7, .good = 7},
    Column{.title = "File", .least = 8, .good = 15, .shares = true, .endMatters = true, .rank = 4},
};
constexpr int Ranks = 5;

constexpr int WideGap = 2; // columns between two cells
constexpr int NarrowGap = 1;
constexpr int UsualWidth = 150;

using Widths = std::array<int, columns.size()>;

int total(const Widths &widths, int gap)
{
    int sum = -gap;
    for (int width : widths)
        sum += width > 0 ? width + gap : 0;
    return sum;
}

Widths widthsOf(int Column::*width)
{
    Widths widths{};
    std::ranges::transform(columns, widths.begin(), width);
    return widths;
}

// The least widths that fit.
Widths leastWidths(int most)
{
    Widths widths = widthsOf(&Column::least);
    for (int rank = 1; rank <= Ranks && total(widths, NarrowGap) > most; ++rank)
        widths[std::size_t(std::ranges::find(columns, rank, &Column::rank) - columns.begin())] = 0;
    return widths;
}

// Gives the columns what is left, first to those that share it.
void grow(Widths *widths, int left)
{
    for (bool shares : {true, false}) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if ((*widths)[i] == 0 || columns[i].shares != shares)
                continue;
            const int more = std::clamp(columns[i].good - (*widths)[i], 0, left);
            (*widths)[i] += more;
            left -= more;
        }
    }
    const auto sharing = int(std::ranges::count(columns, true, &Column::shares));
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if ((*widths)[i] > 0 && columns[i].shares)
            (*widths)[i] += left / sharing;
    }
}

QString dateColumn(const Entry &entry, int width)
{
    return entry.date ? FieldValue::minuteText(*entry.date).left(width) : QString();
}

// "retrieve-conf" of "m-retrieve-conf".
QString typeColumn(const Entry &entry)
{
    if (entry.type == 0)
        return QString();
    const QString name = typeText(entry.type);
    return name.startsWith("m-"_L1) ? name.sliced(2) : name;
}

// The sender; without one, the first recipient and how many others there are.
QString addressColumn(const Entry &entry)
{
    if (!entry.from.isEmpty() || entry.to.isEmpty())
        return entry.from;
    return entry.to.size() == 1
        ? entry.to.first()
        : u"%1 +%2"_s.arg(entry.to.first(), QString::number(entry.to.size() - 1));
}

// Such as "2i 1t".
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

// Spreadsheets compute with other punctuation.
bool isPhoneNumber(const QString &text)
{
    const auto isPart = [](QChar character) {
        return character.isDigit() || QStringView(u" ()").contains(character);
    };
    return std::ranges::any_of(text, [](QChar character) { return character.isDigit(); })
        && std::ranges::all_of(text.cbegin() + text.startsWith(u'+'), text.cend(), isPart);
}

// Spreadsheets would run a text that begins like a formula.
QString disarmed(const QString &text)
{
    const bool isFormula = !text.isEmpty() && QStringView(u"=+-@").contains(text.front());
    return isFormula && !isPhoneNumber(text) ? u'\'' + text : text;
}

QByteArray csvField(const QString &text)
{
    const QString safe = visible(text);
    const bool needsQuotes = std::ranges::any_of(
        safe, [](QChar character) { return QStringView(u",\"\r\n").contains(character); });
    return needsQuotes ? ('"' + QString(safe).replace(u'"', "\"\""_L1) + '"').toUtf8()
                       : safe.toUtf8();
}

// Some programs take a semicolon for a separator, so each recipient is disarmed.
QString recipientsText(const QStringList &addresses)
{
    QStringList texts;
    for (const QString &address : addresses)
        texts += disarmed(address);
    return texts.join("; "_L1);
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

ListLines::ListLines(int width) : m_truncates(width > 0)
{
    const int most = m_truncates ? width : UsualWidth;
    m_gap = total(widthsOf(&Column::good), WideGap) <= most ? WideGap : NarrowGap;
    m_widths = leastWidths(most);
    grow(&m_widths, std::max(0, most - total(m_widths, m_gap)));
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
    return line({dateColumn(entry, m_widths.front() < WholeDate ? DayOnly : WholeDate),
                 typeColumn(entry), visible(addressColumn(entry)), visible(entry.subject),
                 entry.slides > 0 ? QString::number(entry.slides) : QString(), partsColumn(entry),
                 QString::number(entry.octets), QString::fromLatin1(stateName(entry.state)),
                 visible(entry.file)});
}

QString ListLines::line(const QStringList &cells) const
{
    QString text;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int width = m_widths[i];
        if (width == 0)
            continue;
        QString cell = cells[qsizetype(i)];
        if (m_truncates)
            cell = columns[i].endMatters ? TerminalText::endOf(cell, width)
                                         : TerminalText::truncated(cell, width);
        text += TerminalText::padded(cell, width, columns[i].alignRight) + QString(m_gap, u' ');
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
    QList<QByteArray> fields{csvField(disarmed(entry.file)),
                             csvField(isoDate(entry)),
                             csvField(entry.type == 0 ? QString() : typeText(entry.type)),
                             csvField(disarmed(entry.from)),
                             csvField(recipientsText(entry.to)),
                             csvField(disarmed(entry.subject)),
                             QByteArray::number(entry.slides)};
    for (int count : entry.parts)
        fields += QByteArray::number(count);
    return csvLine(fields
                   + QList<QByteArray>{QByteArray::number(entry.octets), stateName(entry.state)});
}
