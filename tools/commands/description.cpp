#include "commands/description.h"

#include "input/files.h"
#include "input/sizes.h"

#include <QStringList>

#include <algorithm>

namespace CommandLine {

namespace {

constexpr qsizetype LineLength = 80;

// Breaks lines at blanks. Indents all lines except the first by @p indent columns.
QString wrapped(const QString &text, qsizetype indent)
{
    QString lines;
    qsizetype column = indent - 1;
    for (const QString &word : text.split(QLatin1Char(' '))) {
        const bool fits = column + 1 + word.size() <= LineLength;
        if (!lines.isEmpty())
            lines +=
                fits ? QStringLiteral(" ") : QLatin1Char('\n') + QString(indent, QLatin1Char(' '));
        column = (fits ? column + 1 : indent) + word.size();
        lines += word;
    }
    return lines + QLatin1Char('\n');
}

struct Row
{
    QString name;
    QString help;
};

qsizetype widest(const QList<Row> &rows)
{
    qsizetype width = 0;
    for (const Row &row : rows)
        width = std::max(width, row.name.size());
    return width;
}

QString list(const char *title, const QList<Row> &rows, qsizetype width)
{
    QString text = QLatin1Char('\n') + QLatin1String(title) + QLatin1String(":\n");
    for (const Row &row : rows)
        text += QLatin1String("  ") + row.name.leftJustified(width) + QLatin1String("  ")
            + wrapped(row.help, width + 4);
    return text;
}

QList<Row> rowsOf(const QList<Argument> &arguments)
{
    QList<Row> rows;
    for (const Argument &argument : arguments)
        rows += {QString::fromLatin1(argument.name).remove(QLatin1String("...")),
                 QString::fromLatin1(argument.help)};
    return rows;
}

QString numbersText(const Option &option)
{
    if (option.isSize)
        return QStringLiteral("; at most %1 (default %2)")
            .arg(sizeText(LargestSizeLimit), sizeText(StandardSizeLimit));
    if (!option.isNumber())
        return QString();
    const auto [standard, least, most] = option.numbers;
    const QString range = QStringLiteral(", %1 to %2").arg(least).arg(most);
    return standard > 0 ? range + QStringLiteral(" (default %1)").arg(standard) : range;
}

QList<Row> rowsOf(const QList<Option> &options)
{
    QList<Row> rows;
    for (const Option &option : options)
        rows += {withValue(option), QString::fromLatin1(option.help) + numbersText(option)};
    return rows;
}

} // namespace

QList<Option> allOptions(const Description &description)
{
    QList<Option> options;
    for (const OptionGroup &group : description.groups)
        options += group.options;
    return options;
}

QString dashed(const QString &name)
{
    return QLatin1String(name.size() == 1 ? "-" : "--") + name;
}

QString withValue(const Option &option)
{
    const QString name = dashed(QString::fromLatin1(option.name));
    return option.value ? name + QLatin1Char(' ') + QLatin1String(option.value) : name;
}

QString usageLine(const Description &description)
{
    const QList<Option> options = allOptions(description);
    QStringList words{QStringLiteral("Usage: qvlmms"), QString::fromLatin1(description.name)};
    if (!options.isEmpty())
        words += QStringLiteral("[OPTION...]");
    for (const Option &option : options) {
        if (option.isNeeded)
            words += withValue(option);
    }
    for (const Argument &argument : description.arguments)
        words += QString::fromLatin1(argument.name);
    return words.join(QLatin1Char(' ')) + QLatin1Char('\n');
}

QString helpText(const Description &description)
{
    const qsizetype width = std::max(widest(rowsOf(allOptions(description))),
                                     widest(rowsOf(description.arguments + description.values)));
    QString text = usageLine(description) + QLatin1Char('\n')
        + wrapped(QString::fromLatin1(description.purpose), 0);
    if (!description.arguments.isEmpty())
        text += list("Arguments", rowsOf(description.arguments), width);
    for (const OptionGroup &group : description.groups)
        text += list(group.title, rowsOf(group.options), width);
    if (!description.values.isEmpty())
        text += list("Values", rowsOf(description.values), width);
    if (description.example)
        text += QLatin1String("\nExample:\n") + QLatin1String(description.example);
    return text + QLatin1Char('\n')
        + wrapped(QLatin1String("Exit code: ") + QLatin1String(description.exitCodes), 0);
}

QString helpList(const char *title, const QList<Argument> &rows)
{
    return list(title, rowsOf(rows), widest(rowsOf(rows)));
}

} // namespace CommandLine
