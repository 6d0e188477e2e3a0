#include "input/sizes.h"

#include "input/files.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace {

struct Unit
{
    QLatin1String letter;
    int bits;
};

constexpr std::array units{Unit{QLatin1String("G"), 30}, Unit{QLatin1String("M"), 20},
                           Unit{QLatin1String("k"), 10}, Unit{QLatin1String(""), 0}};

} // namespace

// size ::= digits ["k" | "M" | "G"]
std::optional<qint64> sizeFrom(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("\\A([0-9]{1,10})([kMG]?)\\z"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const qint64 number = match.captured(1).toLongLong();
    const auto unit = std::ranges::find_if(
        units, [&](const Unit &known) { return match.capturedView(2) == known.letter; });
    if (number < 1 || number > LargestSizeLimit >> unit->bits)
        return std::nullopt;
    return number << unit->bits;
}

QString sizeText(qint64 octets)
{
    const auto unit = std::ranges::find_if(
        units, [=](const Unit &candidate) { return octets % (qint64(1) << candidate.bits) == 0; });
    return QString::number(octets >> unit->bits) + unit->letter;
}
