#include "commands/command_line.h"

#include "commands/nearest.h"
#include "commands/progress.h"
#include "input/files.h"
#include "input/sizes.h"
#include "output/write_file.h"
#include "view/file_view.h"
#include "view/highlight.h"
#include "view/terminal_text.h"

#include <QCommandLineParser>
#include <QStringList>

#include <cerrno>
#include <optional>

namespace CommandLine {

namespace {

int outputError = 0; // the first one

QString standardValue(const Option &option)
{
    if (option.isSize)
        return sizeText(StandardSizeLimit);
    return option.numbers.standard > 0 ? QString::number(option.numbers.standard) : QString();
}

void addOptions(QCommandLineParser *parser, const Description &description)
{
    parser->addOption({{QStringLiteral("h"), QStringLiteral("help")}, QString()});
    for (const Option &option : allOptions(description))
        parser->addOption({QString::fromLatin1(option.name), QString(),
                           QString::fromLatin1(option.value), standardValue(option)});
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

// The first needed option or argument that was not given.
QString missing(const QCommandLineParser &parser, const Description &description)
{
    for (const Option &option : allOptions(description)) {
        if (option.isNeeded && !parser.isSet(QLatin1String(option.name)))
            return withValue(option);
    }
    for (const Option &option : allOptions(description)) {
        if (option.replacesArguments && parser.isSet(QLatin1String(option.name)))
            return QString();
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

// Describes what the option takes instead of the value @p given; "" if it takes that.
QString expectation(const Option &option, const QString &given)
{
    if (option.isSize)
        return sizeFrom(given)
            ? QString()
            : QStringLiteral("a size from 1 to %1 such as 100M").arg(sizeText(LargestSizeLimit));
    const auto [standard, least, most] = option.numbers;
    const int number = given.toInt(); // 0 when it is not a number
    return number >= least && number <= most
        ? QString()
        : QStringLiteral("a number from %1 to %2").arg(least).arg(most);
}

// Describes the first option whose value is not one of its numbers or no size, or nothing.
QString wrongValue(const QCommandLineParser &parser, const Description &description)
{
    for (const Option &option : allOptions(description)) {
        if (!option.isNumber() && !option.isSize)
            continue; // newer Qt ends the process when an option takes no value
        const QString name = QString::fromLatin1(option.name);
        if (!parser.isSet(name))
            continue;
        const QString given = parser.value(name);
        if (const QString expected = expectation(option, given); !expected.isEmpty())
            return dashed(name) + QLatin1Char(' ') + given + QLatin1String(": ") + expected
                + QLatin1String(" is expected");
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
    if (const QString wrong = wrongValue(parser, description); !wrong.isEmpty()) {
        printError(wrong);
        return CannotDo;
    }
    return command.run(parser);
}

void print(FILE *stream, QByteArrayView octets)
{
    Progress::makeWayFor(stream);
    const size_t written = std::fwrite(octets.data(), 1, size_t(octets.size()), stream);
    if (stream == stdout && written < size_t(octets.size()) && outputError == 0)
        outputError = errno;
}

int flushOutput()
{
    if (std::fflush(stdout) != 0 && outputError == 0)
        outputError = errno;
    return outputError;
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
    if (!isStandardOutput(fileName))
        print(stdout, writtenFileText(fileName, details).toUtf8() + '\n');
    return AllDecoded;
}

} // namespace CommandLine
