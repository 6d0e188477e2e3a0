#include "view/highlight.h"

#include <QRegularExpression>
#include <QStringList>

#include <unistd.h>

namespace {

struct Highlight
{
    QRegularExpression lines; // highlights the first group of this expression
    const char *attributes; // numbers of ECMA-48's SGR
};

constexpr const char *Bold = "1";
constexpr const char *Faint = "2";
constexpr const char *BoldRed = "1;31";

// The first match in a line counts. Values from a message never match, because they follow a name
// in their line; names from a message are in quotes.
const QList<Highlight> &highlights()
{
    static const QList<Highlight> rows{
        {QRegularExpression(QStringLiteral("^(\\S.*)")), Bold},
        {QRegularExpression(QStringLiteral("^  (REFUSED .*)")), BoldRed},
        {QRegularExpression(QStringLiteral("^  (Checks .*FAILED.*)")), BoldRed},
        {QRegularExpression(QStringLiteral("^  (Body|Presentation|Checks|Changes) ")), Bold},
        {QRegularExpression(QStringLiteral("^    (slide \\d+:)")), Bold},
        {QRegularExpression(QStringLiteral("^ {4,}(#  Content type .*|Media  .*)")), Faint},
    };
    return rows;
}

QString highlightedLine(const QString &line)
{
    for (const Highlight &highlight : highlights()) {
        const QRegularExpressionMatch match = highlight.lines.match(line);
        if (match.hasMatch())
            return QString(line).replace(
                match.capturedStart(1), match.capturedLength(1),
                QLatin1String("\x1B[") + QLatin1String(highlight.attributes) + QLatin1Char('m')
                    + match.captured(1) + QLatin1String("\x1B[0m"));
    }
    return line;
}

} // namespace

bool isCapableTerminal(FILE *stream)
{
    const QByteArray terminal = qgetenv("TERM");
    return isatty(fileno(stream)) && !terminal.isEmpty() && terminal != "dumb";
}

bool takesColors(FILE *stream)
{
    return isCapableTerminal(stream) && qEnvironmentVariableIsEmpty("NO_COLOR");
}

QString highlighted(const QString &text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = highlightedLine(line);
    return lines.join(QLatin1Char('\n'));
}
