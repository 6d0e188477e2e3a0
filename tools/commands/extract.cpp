#include "commands/commands.h"

#include "commands/command_line.h"
#include "extract.h"
#include "message.h"

#include <QCommandLineParser>

using namespace CommandLine;

int Commands::extract(const QStringList &arguments)
{
    QCommandLineParser parser;
    describe(
        &parser, "extract",
        "Writes every part of a message to a new file in a folder, under its location's name.\n"
        "Exit code: 0 decoded, 1 the message was refused, 2 wrong usage or a file that cannot be\n"
        "read or written.",
        {{"FILE", "File with one PDU; - is standard input."}, {"DIR", "Folder for the parts."}});
    int exitCode = AllDecoded;
    if (!parse(parser, arguments, 2, 2, &exitCode))
        return exitCode;

    const QStringList positional = parser.positionalArguments();
    QString error;
    const auto message = openMessage(positional[1]);
    if (!message)
        return CannotDo;
    QStringList report;
    const bool written = extractParts(*message, positional[2], &report, &error);
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
    if (report.isEmpty())
        print(stdout, "the message has no parts\n");
    return AllDecoded;
}
