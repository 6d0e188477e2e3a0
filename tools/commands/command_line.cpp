#include "commands/command_line.h"

#include "commands/nearest.h"
#include "input/files.h"
#include "view/file_view.h"
#include "view/highlight.h"
#include "view/terminal_text.h"

#include <QCommandLineParser>
#include <QStringList>

#include <optional>

namespace CommandLine {

namespace {

void addOptions(QCommandLineParser *parser, const Description &description)
{
    parser->addOption({{QStringLiteral("h"), QStringLiteral("help")}, QString()});
    for (const Option &option : allOptions(description))
        parser->addOption(
            {QString::fromLatin1(option.name), QString(), QString::fromLatin1(option.value),
             option.isNumber() ? QString::number(option.numbers.standard) : QString()});
}

bool isOptional(const Argument &argument)
{
    return *argument.name == '[';
}

bool mayRepeat(const Argument &argument)
{
    return QLatin1String(argument.name).endsWith(QLatin1String("..."));
}

QString unknownOption(const QString &option, const Description &description)
{
    QStringList names{QStringLiteral("--help")};
    for (const Option &known : allOptions(description))
        names += dashed(QString::fromLatin1(known.name));
    return QLatin1String(description.name) + QLatin1String(" has no option ") + dashed(option)
        + suggestion(dashed(option), names);
}

// The first needed option, with its value, or needed argument that was not given.
QString missing(const QCommandLineParser &parser, const Description &description)
{
    for (const Option &option : allOptions(description)) {
        if (option.isNeeded && parser.value(QLatin1String(option.name)).isEmpty())
            return withValue(option);
    }
    const qsizetype given = parser.positionalArguments().size();
    if (given >= description.arguments.size() || isOptional(description.arguments[given]))
        return QString();
    return QString::fromLatin1(description.arguments[given].name).remove(QLatin1String("..."));
}

// The first argument that the command does not take.
std::optional<QString> superfluous(const QStringList &given, const QList<Argument> &wanted)
{
    const bool takesMore = !wanted.isEmpty() && mayRepeat(wanted.last());
    if (given.size() <= wanted.size() || takesMore)
        return std::nullopt;
    return given[wanted.size()];
}

// Describes the first mistake in the arguments, or nothing.
QString mistake(const QCommandLineParser &parser, const Description &description, bool understood)
{
    if (!parser.unknownOptionNames().isEmpty())
        return unknownOption(parser.unknownOptionNames().first(), description);
    if (!understood)
        return parser.errorText();
    if (const QString name = missing(parser, description); !name.isEmpty())
        return QStringLiteral("too few arguments: %1 is missing").arg(name);
    if (const auto one = superfluous(parser.positionalArguments(), description.arguments))
        return QLatin1String("too many arguments: \"") + *one
            + QLatin1String("\" is superfluous; quote a text with blanks");
    return QString();
}

// Describes the first option whose value is not one of its numbers, or nothing.
QString wrongNumber(const QCommandLineParser &parser, const Description &description)
{
    for (const Option &option : allOptions(description)) {
        if (!option.isNumber()) // newer Qt ends the process when an option takes no value
            continue;
        const QString name = QString::fromLatin1(option.name);
        const int number = parser.value(name).toInt(); // 0 when it is not a number
        if (number < 1 || number > option.numbers.most)
            return dashed(name) + QLatin1Char(' ') + parser.value(name)
                + QStringLiteral(": a number from 1 to %1 is expected").arg(option.numbers.most);
    }
    return QString();
}

} // namespace

int run(const Command &command, const QStringList &arguments)
{
    const Description &description = command.description;
    QCommandLineParser parser;
    addOptions(&parser, description);
    const bool understood = parser.parse(arguments);
    if (understood && parser.isSet(QStringLiteral("help"))) {
        print(stdout, helpText(description).toUtf8());
        return AllDecoded;
    }
    if (const QString wrong = mistake(parser, description, understood); !wrong.isEmpty()) {
        printError(wrong);
        print(stderr,
              usageLine(description).toUtf8() + "See qvlmms help " + description.name + ".\n");
        return CannotDo;
    }
    if (const QString wrong = wrongNumber(parser, description); !wrong.isEmpty()) {
        printError(wrong);
        return CannotDo;
    }
    return command.run(parser);
}

void print(FILE *stream, QByteArrayView octets)
{
    std::fwrite(octets.data(), 1, size_t(octets.size()), stream);
}

QByteArray linesFor(FILE *stream, const QString &text)
{
    return (takesColors(stream) ? highlighted(text) : text).toUtf8();
}

void printError(const QString &text)
{
    print(stderr, QByteArrayLiteral("qvlmms: ") + TerminalText::visible(text).toUtf8() + '\n');
}

QString suggestion(const QString &word, const QStringList &names)
{
    const QString name = nearest(word, names);
    return name.isEmpty() ? name : QLatin1String("; did you mean ") + name + QLatin1Char('?');
}

int writeOutput(const QByteArray &octets, const QString &fileName, const QString &details)
{
    QString error;
    if (!writeFile(octets, fileName, &error)) {
        printError(error);
        return CannotDo;
    }
    if (fileName != QLatin1String("-"))
        print(stdout, writtenFileText(fileName, details).toUtf8() + '\n');
    return AllDecoded;
}

} // namespace CommandLine
