#include "presentation/smil_values.h"

#include "base/durations.h"
#include "base/tables.h"
#include "presentation/color.h"
#include "presentation/smil_time.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <span>

using namespace Qt::StringLiterals;

namespace {

std::optional<int> toInt(qint64 value)
{
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
        return std::nullopt;
    return int(value);
}

std::optional<int> strictInt(QStringView text, int base = 10)
{
    bool ok = false;
    const int value = text.toInt(&ok, base);
    return ok ? std::optional(value) : std::nullopt;
}

// Fast path: up to seven digits are exact in a float and need no float parser. Benchmark
// smil/read/100.
float toFloat(QStringView number, bool *ok)
{
    constexpr qsizetype exactDigits = 7;
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    const bool whole =
        !number.isEmpty() && number.size() <= exactDigits && std::ranges::all_of(number, isDigit);
    return whole ? float(number.toInt(ok)) : number.toFloat(ok);
}

// Multiplies step by step in single precision, so "0.01min" is 599. Kept.
std::optional<int> scaled(QStringView number, std::span<const float> factors)
{
    bool ok = false;
    float value = toFloat(number, &ok);
    for (float factor : factors)
        value *= factor;
    constexpr float limit = 2147483648.0F;
    if (!ok || !std::isfinite(value) || value < -limit || value >= limit)
        return std::nullopt;
    return int(value);
}

struct Unit
{
    QLatin1StringView suffix;
    std::span<const float> factors;
};

constexpr std::array MinuteFactors{60.0F, 1000.0F};
constexpr std::array SecondFactors{1000.0F};
constexpr std::array HourFactors{60.0F, 60.0F, 1000.0F};
constexpr std::array Units{// in order of search: "ms" before "s"
                           Unit{"min"_L1, MinuteFactors}, Unit{"ms"_L1, {}},
                           Unit{"s"_L1, SecondFactors}, Unit{"h"_L1, HourFactors}};

// timecount ::= number ("min" | "ms" | "s" | "h")
// A number without a unit is unreadable.
std::optional<int> readTimecount(QStringView text)
{
    for (const Unit &unit : Units) {
        if (text.endsWith(unit.suffix))
            return scaled(text.chopped(unit.suffix.size()), unit.factors);
    }
    return std::nullopt;
}

// clock ::= minutes ":" seconds "." milliseconds
// The first three digits of the fraction count as milliseconds: ".5" is 5 ms.
std::optional<int> readClock(QStringView text)
{
    const qsizetype colon = text.indexOf(u':');
    const QStringView rest = text.sliced(colon + 1);
    const qsizetype point = rest.indexOf(u'.');
    if (point < 0)
        return std::nullopt;
    const auto minutes = strictInt(text.first(colon));
    const auto seconds = strictInt(rest.first(point));
    const auto fraction = strictInt(rest.sliced(point + 1).left(3));
    if (!minutes || !seconds || !fraction)
        return std::nullopt;
    return toInt(*fraction + (*seconds + qint64(*minutes) * 60) * 1000);
}

// A clock with hours is unreadable, because it has two colons. Kept.
std::optional<int> readMilliseconds(QStringView text)
{
    switch (text.count(u':')) {
    case 0:
        return readTimecount(text);
    case 1:
        return readClock(text);
    default:
        return std::nullopt;
    }
}

// event ::= "id(" id ")" any ("begin" | "end" | milliseconds) any
std::optional<int> readEvent(const QString &text, QString *id)
{
    constexpr int idStart = 3;
    const qsizetype close = text.indexOf(u')', idStart);
    *id = text.mid(idStart, close < 0 ? -1 : close - idStart);
    const QStringView rest = close < 0 ? QStringView() : QStringView(text).sliced(close + 1);
    if (rest.contains("begin"_L1))
        return MMS_COMP_SMIL_TIME::AtBegin;
    if (rest.contains("end"_L1))
        return MMS_COMP_SMIL_TIME::AtEnd;
    return rest.size() < 2 ? std::nullopt : readMilliseconds(rest.sliced(1).chopped(1));
}

struct NamedColor
{
    QLatin1StringView name;
    QRgb rgb;
};

constexpr std::array NamedColors{
    NamedColor{"aqua"_L1, 0x00FFFF},   NamedColor{"black"_L1, 0x000000},
    NamedColor{"blue"_L1, 0x0000FF},   NamedColor{"fuchsia"_L1, 0xFF00FF},
    NamedColor{"gray"_L1, 0x808080},   NamedColor{"green"_L1, 0x008000},
    NamedColor{"lime"_L1, 0x00FF00},   NamedColor{"maroon"_L1, 0x800000},
    NamedColor{"navy"_L1, 0x000080},   NamedColor{"olive"_L1, 0x808000},
    NamedColor{"purple"_L1, 0x800080}, NamedColor{"red"_L1, 0xFF0000},
    NamedColor{"silver"_L1, 0xC0C0C0}, NamedColor{"teal"_L1, 0x008080},
    NamedColor{"white"_L1, 0xFFFFFF},  NamedColor{"yellow"_L1, 0xFFFF00}};

// hexadecimal ::= "#" 3 * digit | "#" 3 * (digit digit)
// A single digit is not doubled: "#fff" is nearly black.
std::optional<QColor> readHexadecimal(QStringView digits)
{
    const qsizetype width = digits.size() / 3;
    std::array<int, 3> components{};
    for (size_t i = 0; i < components.size(); ++i) {
        const auto value = strictInt(digits.sliced(qsizetype(i) * width, width), 16);
        if (!value || *value < 0)
            return std::nullopt;
        components[i] = *value;
    }
    return QColor(components[0], components[1], components[2]);
}

// number ::= ["+" | "-"] digits ["." digits] [("e" | "E") ["+" | "-"] digits]
// Reads the longest number; 0 when there is none and when a float cannot hold it.
float leadingNumber(const QString &text)
{
    const QByteArray octets = text.toLatin1();
    const char *begin = octets.constData();
    const char *end = begin + octets.size();
    if (begin != end && *begin == '+' && begin + 1 != end && begin[1] != '-')
        ++begin;
    double value = 0;
    const auto result = std::from_chars(begin, end, value);
    const bool readable = result.ec == std::errc() && std::isfinite(value)
        && std::abs(value) <= double(std::numeric_limits<float>::max());
    return readable ? float(value) : 0.0F;
}

} // namespace

void SmilValues::readTime(const QString &text, MMS_COMP_SMIL_TIME *time)
{
    if (text.isEmpty()) {
        time->timeType = SMIL_TIME_NONE;
        return;
    }
    std::optional<int> value;
    if (text.startsWith("id("_L1)) {
        time->timeType = SMIL_TIME_EVENT;
        value = readEvent(text, &time->eventId);
    } else {
        time->timeType = SMIL_TIME_OFFSET;
        time->eventId = ""_L1;
        value = readMilliseconds(text);
    }
    if (value)
        time->timeValue = *value;
    else
        time->timeType = SMIL_TIME_INVALID;
}

int SmilValues::readDuration(const QString &text)
{
    if (text.isEmpty())
        return QvlDuration::NotGiven;
    if (text == "indefinite"_L1)
        return QvlDuration::Indefinite;
    return readMilliseconds(text).value_or(QvlDuration::Default);
}

void SmilValues::readColor(const QString &text, MMS_COMP_COLOR &color)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty()) {
        color.kind = SMIL_COLOR_NONE;
        return;
    }
    if (const NamedColor *named = rowOf(NamedColors, trimmed, &NamedColor::name)) {
        color = {SMIL_COLOR_NAMED, named->name, QColor(named->rgb)};
        return;
    }
    color.kind = SMIL_COLOR_INVALID;
    const bool hexadecimal =
        trimmed.startsWith(u'#') && (trimmed.size() == 4 || trimmed.size() == 7);
    // The functional form never gives a color but still stores the name. Kept.
    const bool functional = trimmed.startsWith("rgb("_L1) && !trimmed.contains(u'%');
    if (!hexadecimal && !functional)
        return;
    color.name = ""_L1;
    if (!hexadecimal)
        return;
    if (const auto rgb = readHexadecimal(QStringView(trimmed).sliced(1))) {
        color.kind = SMIL_COLOR_RGB;
        color.color = *rgb;
    }
}

QString SmilValues::withoutPixelUnit(const QString &text)
{
    const QString size = text.trimmed().toLower();
    return size.contains("px"_L1) ? size.chopped(2) : size;
}

int SmilValues::pixelsOf(const QString &text)
{
    const QString size = withoutPixelUnit(text);
    return size.isEmpty() ? -1 : size.toInt();
}

float SmilValues::regionNumber(const QString &text, float ifEmpty)
{
    const QString number = withoutPixelUnit(text);
    return number.isEmpty() ? ifEmpty : leadingNumber(number);
}
