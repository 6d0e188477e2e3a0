#include "commands/command_line.h"

#include "message.h"
#include "show.h"
#include "terminal_text.h"

#include <QCommandLineParser>

namespace CommandLine {

void print(FILE *stream, const QByteArray &octets)
{
    std::fwrite(octets.constData(), 1, size_t(octets.size()), stream);
}

void printError(const QString &text)
{
    print(stderr, QByteArrayLiteral("qvlmms: ") + TerminalText::visible(text).toUtf8() + '\n');
}

void describe(QCommandLineParser *parser, const char *name, const char *description,
              std::initializer_list<Argument> arguments)
{
    parser->setApplicationDescription(QString::fromLatin1(description));
    parser->addPositionalArgument(QString::fromLatin1(name), QStringLiteral("The command."),
                                  QString::fromLatin1(name));
    for (const Argument &argument : arguments) {
        const QString shown = QString::fromLatin1(argument.name);
        parser->addPositionalArgument(QString(shown).remove(QLatin1String("...")),
                                      QString::fromLatin1(argument.help), shown);
    }
}

bool parse(QCommandLineParser &parser, const QStringList &arguments, qsizetype fewest,
           qsizetype most, int *exitCode)
{
    const QCommandLineOption help = parser.addHelpOption();
    const bool understood = parser.parse(arguments);
    if (understood && parser.isSet(help)) {
        print(stdout, parser.helpText().toUtf8());
        *exitCode = AllDecoded;
        return false;
    }
    const qsizetype given = parser.positionalArguments().size() - 1; // the command itself is first
    if (understood && given >= fewest && given <= most)
        return true;
    printError(understood ? (given < fewest ? QStringLiteral("too few arguments")
                                            : QStringLiteral("too many arguments"))
                          : parser.errorText());
    print(stderr,
          "Try: " + parser.helpText().section(QLatin1Char('\n'), 0, 0).mid(7).toUtf8() + '\n');
    *exitCode = CannotDo;
    return false;
}

std::unique_ptr<Message> openMessage(const QString &fileName)
{
    QString error;
    auto message = readMessage(fileName, &error);
    if (!message)
        printError(fileName + QLatin1String(": ") + error);
    return message;
}

void printRefusal(const Message &message)
{
    print(stderr, messageText(message).toUtf8());
}

} // namespace CommandLine
