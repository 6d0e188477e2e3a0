#include "commands/commands.h"

#include <QCommandLineParser>

using namespace CommandLine;

namespace {

int printHelp(const QCommandLineParser &arguments)
{
    const QString name = arguments.positionalArguments().value(0);
    if (const Command *command = Commands::find(name))
        return run(*command, {name, QStringLiteral("--help")});
    if (!name.isEmpty())
        return Commands::refuseUnknown(name);
    print(stdout, Commands::usage());
    return AllDecoded;
}

} // namespace

Command Commands::help()
{
    return {
        .description = {.name = "help",
                        .summary = "explain a command and its arguments",
                        .purpose = "Explains a command and its arguments, or lists the commands.",
                        .exitCodes = "0 printed, 2 wrong usage or no such command.",
                        .arguments = {{"[COMMAND]", "name of a command"}}},
        .run = printHelp,
    };
}
