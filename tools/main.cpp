/*
 * qvlmms: shows what is in multimedia messages, for whoever has to find out why one does not show,
 * and makes some.
 */
#include "commands/command_line.h"
#include "commands/commands.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QLoggingCategory>

#include <algorithm>
#include <memory>

using namespace CommandLine;

namespace {

struct Command
{
    const char *name;
    const char *summary;
    int (*run)(const QStringList &arguments);
    bool draws = false;
};

int help(const QStringList &arguments);

constexpr Command commands[] = {
    {"show", "show header, checks, parts and slides of messages", Commands::show},
    {"extract", "write the parts of a message to files", Commands::extract},
    {"smil", "print the normalised SMIL of a message or document", Commands::smil},
    {"render", "draw the slides of a message as the handset shows them", Commands::render, true},
    {"compose", "make a message to send out of texts and files", Commands::compose},
    {"rewrite", "write a message again as the library would send it", Commands::rewrite},
    {"help", "tell what a command does and takes", help},
};

const Command *findCommand(const QString &name)
{
    const auto found =
        std::find_if(std::begin(commands), std::end(commands),
                     [&](const Command &row) { return name == QLatin1String(row.name); });
    return found != std::end(commands) ? found : nullptr;
}

// Drawing takes a GUI application, but no display.
std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv)
{
    const Command *command = findCommand(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (!command || !command->draws)
        return std::make_unique<QCoreApplication>(argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

QByteArray usage()
{
    QList<Argument> rows;
    for (const Command &command : commands)
        rows += Argument{command.name, command.summary};
    const QString text = QLatin1String("Usage: qvlmms COMMAND [ARGUMENT...]\n\n"
                                       "Shows, takes apart, draws and makes multimedia messages "
                                       "(MMS).\n")
        + helpList("Commands", rows)
        + helpList("Options",
                   {{"-h, --help", "print this; behind a command, what help COMMAND prints"},
                    {"-v, --version", "print the version"}})
        + QLatin1String("\nqvlmms help COMMAND tells more.\n");
    return text.toUtf8();
}

int refuseCommand(const QString &name)
{
    QStringList names;
    for (const Command &command : commands)
        names += QString::fromLatin1(command.name);
    printError(QLatin1String("there is no command ") + name + suggestion(name, names));
    print(stderr, "qvlmms help lists the commands.\n");
    return CannotDo;
}

int help(const QStringList &arguments)
{
    QCommandLineParser parser;
    int exitCode = AllDecoded;
    if (!parse(&parser,
               {.name = "help",
                .purpose = "Tells what a command does and takes, or which commands there are.",
                .exitCodes = "0 told, 2 wrong usage or there is no such command.",
                .arguments = {{"[COMMAND]", "name of a command"}}},
               arguments, &exitCode))
        return exitCode;
    const QString name = parser.positionalArguments().value(0);
    if (const Command *command = findCommand(name))
        return command->run({name, QStringLiteral("--help")});
    if (!name.isEmpty())
        return refuseCommand(name);
    print(stdout, usage());
    return AllDecoded;
}

int run(const QStringList &arguments)
{
    const QString name = arguments.value(0);
    if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
        print(stdout, usage());
        return AllDecoded;
    }
    if (name == QLatin1String("--version") || name == QLatin1String("-v")) {
        print(stdout, "qvlmms " QVLMMS_VERSION "\n");
        return AllDecoded;
    }
    if (const Command *command = findCommand(name))
        return command->run(arguments);
    if (!name.isEmpty())
        return refuseCommand(name);
    print(stderr, usage());
    return CannotDo;
}

} // namespace

int main(int argc, char **argv)
{
    // Qt warns of the machine's locale and of every picture that it cannot read. Users can do nothing
    // about it; QT_LOGGING_RULES turns the warnings on again.
    QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    const auto application = makeApplication(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("qvlmms"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QVLMMS_VERSION));
    const int exitCode = run(QCoreApplication::arguments().mid(1));
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return exitCode;
    printError(QStringLiteral("cannot write to standard output; is the disk full?"));
    return CannotDo;
}
