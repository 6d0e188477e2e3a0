#include "commands/command_line.h"

#include "commands/nearest.h"
#include "message/message.h"
#include "view/highlight.h"
#include "view/message_view.h"
#include "view/terminal_text.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace CommandLine {

namespace {

void addOptions(QCommandLineParser *parser, const Description &description)
{
    parser->addOption({{QStringLiteral("h"), QStringLiteral("help")}, QString()});
    for (const Option &option : optionsOf(description))
        parser->addOption({QString::fromLatin1(option.name), QString(),
                           option.value ? QString::fromLatin1(option.value) : QString()});
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
    for (const Option &known : optionsOf(description))
        names += dashed(QString::fromLatin1(known.name));
    return QLatin1String(description.name) + QLatin1String(" has no option ") + dashed(option)
        + suggestion(dashed(option), names);
}

// What has to be given and is not: an option with its value, or an argument.
QString missing(const QCommandLineParser &parser, const Description &description)
{
    for (const Option &option : optionsOf(description)) {
        if (option.isNeeded && parser.value(QLatin1String(option.name)).isEmpty())
            return withValue(option);
    }
    const qsizetype given = parser.positionalArguments().size();
    if (given >= description.arguments.size() || isOptional(description.arguments[given]))
        return QString();
    return QString::fromLatin1(description.arguments[given].name).remove(QLatin1String("..."));
}

// The first argument for which there is no use.
std::optional<QString> superfluous(const QStringList &given, const QList<Argument> &wanted)
{
    const bool takesMore = !wanted.isEmpty() && mayRepeat(wanted.last());
    if (given.size() <= wanted.size() || takesMore)
        return std::nullopt;
    return given[wanted.size()];
}

// What is wrong with what was given, or nothing.
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
            + QLatin1String("\" is one too many; a text with blanks takes quotes");
    return QString();
}

// The path itself or the nearest above it of which there is something.
QFileInfo existingAbove(const QString &path)
{
    QFileInfo info(QDir::cleanPath(QDir::current().absoluteFilePath(path)));
    while (!info.exists() && !info.isRoot())
        info.setFile(info.path());
    return info;
}

} // namespace

void print(FILE *stream, const QByteArray &octets)
{
    std::fwrite(octets.constData(), 1, size_t(octets.size()), stream);
}

QByteArray linesFor(FILE *stream, const QString &text)
{
    return (takesColours(stream) ? highlighted(text) : text).toUtf8();
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

bool parse(QCommandLineParser *parser, const Description &description, const QStringList &arguments,
           int *exitCode)
{
    addOptions(parser, description);
    const bool understood = parser->parse(arguments);
    if (understood && parser->isSet(QStringLiteral("help"))) {
        print(stdout, helpOf(description).toUtf8());
        *exitCode = AllDecoded;
        return false;
    }
    const QString wrong = mistake(*parser, description, understood);
    if (wrong.isEmpty())
        return true;
    printError(wrong);
    print(stderr,
          usageOf(description).toUtf8() + "qvlmms help " + description.name + " tells more.\n");
    *exitCode = CannotDo;
    return false;
}

std::optional<int> numberOf(const QCommandLineParser &parser, const char *option, int standard,
                            int most)
{
    const QString name = QString::fromLatin1(option);
    if (!parser.isSet(name))
        return standard;
    const int number = parser.value(name).toInt(); // 0 for what is none
    if (number >= 1 && number <= most)
        return number;
    printError(dashed(name) + QLatin1Char(' ') + parser.value(name)
               + QStringLiteral(": a number from 1 to %1 is expected").arg(most));
    return std::nullopt;
}

std::unique_ptr<Message> openMessage(const QString &fileName)
{
    QString error;
    auto message = readMessage(fileName, &error);
    if (!message)
        printError(error);
    return message;
}

void printRefusal(const Message &message)
{
    print(stderr, linesFor(stderr, messageText(message)));
    printAdvice(message);
}

void printAdvice(const Message &message)
{
    const QString advice = whyNoMessage(message);
    if (!advice.isEmpty())
        printError(message.fileName + QLatin1String(": ") + advice);
}

bool makeFolder(const QString &directory)
{
    const QFileInfo above = existingAbove(directory);
    if (QDir(directory).mkpath(QStringLiteral(".")))
        return true;
    printError(QLatin1String("cannot make the folder ") + directory + QLatin1String(": ")
               + above.filePath()
               + QLatin1String(above.isDir() ? " lets no folder be made in it"
                                             : " is a file; name another folder"));
    return false;
}

} // namespace CommandLine
