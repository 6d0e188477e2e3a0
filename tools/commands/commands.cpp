#include "commands/commands.h"

#include <algorithm>

using namespace CommandLine;

const QList<Command> &Commands::all()
{
    static const QList<Command> commands{list(),   show(), check(),   extract(), smil(),
                                         render(), html(), compose(), rewrite(), help()};
    return commands;
}

const Command *Commands::find(const QString &name)
{
    const auto found = std::ranges::find_if(all(), [&](const Command &command) {
        return name == QLatin1String(command.description.name);
    });
    return found != all().end() ? &*found : nullptr;
}

QByteArray Commands::usage()
{
    QList<Argument> rows;
    for (const Command &command : all())
        rows += Argument{command.description.name, command.description.summary};
    const QString text = QLatin1String("Usage: qvlmms COMMAND [ARGUMENT...]\n\n"
                                       "Shows, extracts, renders and composes multimedia messages "
                                       "(MMS).\n")
        + helpList("Commands", rows)
        + helpList("Options",
                   {{"-h, --help", "print this help; after a command, the help of that command"},
                    {"-v, --version", "print the version"}})
        + QLatin1String("\nSee qvlmms help COMMAND.\n");
    return text.toUtf8();
}

int Commands::refuseUnknown(const QString &name)
{
    QStringList names;
    for (const Command &command : all())
        names += QString::fromLatin1(command.description.name);
    printError(QLatin1String("there is no command ") + name + suggestion(name, names));
    print(stderr, "qvlmms help lists the commands.\n");
    return CannotDo;
}
