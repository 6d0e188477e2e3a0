#include "commands/commands.h"

#include "commands/message_command.h"
#include "extract/extract.h"

#include <QCommandLineParser>

using namespace CommandLine;

namespace {

int extractToFolder(Message &message, const QCommandLineParser &arguments)
{
    const bool hasParts = message.parts().getPartCount() > 0;
    const auto write = [&](const QString &directory, Report *report, QString *error) {
        return extractParts(message, directory, report, error);
    };
    const int exitCode =
        writeToFolder(message, arguments.positionalArguments().at(1), hasParts, write);
    if (exitCode != AllDecoded)
        return exitCode;
    printAdvice(message);
    if (!hasParts)
        print(stdout, "the message has no parts\n");
    return AllDecoded;
}

} // namespace

Command Commands::extract()
{
    return {
        .description =
            {.name = "extract",
             .summary = "write the parts of a message to files",
             .purpose = "Writes every part of a message to a folder, as a new file named after the "
                        "part's location.",
             .exitCodes = "0 decoded, 1 the message was refused, 2 wrong usage or a file that "
                          "cannot be read or written.",
             .arguments = {{"FILE", "file with one message; - is standard input"},
                           {"DIR", "folder for the parts; created if it does not exist"}},
             .groups = {{"Options", {SizeLimitOption}}}},
        .run = onMessage(extractToFolder),
    };
}
