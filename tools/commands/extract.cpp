#include "extract/extract.h"

#include "commands/command_line.h"
#include "commands/commands.h"
#include "message/message.h"

#include <QCommandLineParser>

using namespace CommandLine;

int Commands::extract(const QStringList &arguments)
{
    const Description description{
        .name = "extract",
        .purpose = "Writes every part of a message to a new file in a folder, under its location's "
                   "name.",
        .exitCodes = "0 decoded, 1 the message was refused, 2 wrong usage or a file that cannot be "
                     "read or written.",
        .arguments = {{"FILE", "file with one message; - is standard input"},
                      {"DIR", "folder for the parts; it is made when it is not there"}}};
    QCommandLineParser parser;
    int exitCode = AllDecoded;
    if (!parse(&parser, description, arguments, &exitCode))
        return exitCode;

    const QStringList positional = parser.positionalArguments();
    QString error;
    const auto message = openMessage(positional[0]);
    if (!message)
        return CannotDo;
    if (message->body.getPartCount() > 0 && !makeFolder(positional[1]))
        return CannotDo;
    QStringList report;
    const bool written = extractParts(*message, positional[1], &report, &error);
    for (const QString &line : report)
        print(stdout, line.toUtf8() + '\n');
    if (!written) {
        printError(error);
        return CannotDo;
    }
    if (message->isRefused()) {
        printRefusal(*message);
        return Refused;
    }
    printAdvice(*message);
    if (report.isEmpty())
        print(stdout, "the message has no parts\n");
    return AllDecoded;
}
