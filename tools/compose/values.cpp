#include "compose/values.h"

#include <QRegularExpression>

#include <algorithm>
#include <limits>

namespace {

constexpr int LargestInt = std::numeric_limits<int>::max();

int secondsOf(QStringView unit)
{
    if (unit == QLatin1String("d"))
        return 24 * 60 * 60;
    if (unit == QLatin1String("h"))
        return 60 * 60;
    return unit == QLatin1String("m") ? 60 : 1;
}

bool fitsOnLine(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return character != QChar::ReplacementCharacter;
    }
}

bool changesDirection(QChar character)
{
    switch (character.direction()) {
    case QChar::DirLRE:
    case QChar::DirLRO:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirPDF:
    case QChar::DirLRI:
    case QChar::DirRLI:
    case QChar::DirFSI:
    case QChar::DirPDI:
        return true;
    default:
        return false;
    }
}

} // namespace

bool ComposeValues::isLine(QStringView text)
{
    return text.isValidUtf16() && std::ranges::all_of(text, fitsOnLine);
}

bool ComposeValues::isName(QStringView text)
{
    return isLine(text) && std::ranges::none_of(text, changesDirection);
}

std::optional<MMS_UTIL_Entry> ComposeValues::address(const QString &text)
{
    static const QRegularExpression phone(QStringLiteral("\\A\\+?[0-9]+\\z"));
    static const QRegularExpression mail(
        QStringLiteral("\\A[^@<>\\x00-\\x20\\x7F]+@[^@<>\\x00-\\x20\\x7F]+\\z"));
    if (phone.match(text).hasMatch())
        return MMS_UTIL_Entry(QString(), MMS_UTIL_Entry::Plmn, text);
    if (mail.match(text).hasMatch())
        return MMS_UTIL_Entry(QString(), MMS_UTIL_Entry::Email, text);
    return std::nullopt;
}

// expiry ::= digits ["d" | "h" | "m" | "s"]
std::optional<int> ComposeValues::seconds(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("\\A([0-9]{1,10})([dhms]?)\\z"));
    const QRegularExpressionMatch match = form.match(text);
    const qint64 seconds = match.captured(1).toLongLong() * secondsOf(match.capturedView(2));
    if (seconds < 1 || seconds > LargestInt)
        return std::nullopt;
    return int(seconds);
}

std::optional<int> ComposeValues::milliseconds(const QString &text)
{
    bool isNumber = false;
    std::ignore = text.toDouble(&isNumber); // the value is read below, with a unit
    MMS_COMP_SMIL_TIME time;
    // Not parseDur(), which returns five seconds for malformed texts.
    MMS_COMP_SMILParser::parseTime(isNumber ? text + QLatin1Char('s') : text, &time);
    if (time.timeType != SMIL_TIME_OFFSET || time.timeValue < 1)
        return std::nullopt;
    return time.timeValue;
}

std::optional<QDateTime> ComposeValues::dateTime(const QString &text)
{
    const QDateTime time = QDateTime::fromString(text, Qt::ISODate).toLocalTime();
    // The wire format cannot represent later dates.
    if (!time.isValid() || time.toSecsSinceEpoch() < 0 || time.toSecsSinceEpoch() > LargestInt)
        return std::nullopt;
    return time;
}

std::optional<MMS_COMP_COLOR> ComposeValues::color(const QString &text)
{
    // Not parseColor() alone, which reads "#fff" as a color that is nearly black.
    static const QRegularExpression sixDigits(QStringLiteral("\\A#[0-9A-Fa-f]{6}\\z"));
    MMS_COMP_COLOR color;
    MMS_COMP_SMILParser::parseColor(text, color);
    if (color.kind == SMIL_COLOR_NAMED || sixDigits.match(text).hasMatch())
        return color;
    return std::nullopt;
}

QString ComposeValues::locationFor(const QString &fileName)
{
    // No surrogate pairs: the library may shorten a name in the middle of one.
    static const QRegularExpression unfit(QStringLiteral("[&<>\"\\x{FFFE}-\\x{10FFFF}]"));
    // SMIL readers drop blanks around a value.
    return MMS_COMP_Util::stripePath(fileName).replace(unfit, QStringLiteral("_")).trimmed();
}
