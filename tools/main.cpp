/*
 * qvlmms: shows what is in multimedia messages, for whoever has to find out why one does not show,
 * and makes some.
 */
#include "commands/command_line.h"
#include "commands/commands.h"

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

constexpr Command commands[] = {
    {"show", "show header, checks, parts and slides of messages", Commands::show},
    {"extract", "write the parts of a message to files", Commands::extract},
    {"smil", "print the normalised SMIL of a message or document", Commands::smil},
    {"render", "draw the slides of a message as the handset shows them", Commands::render, true},
    {"compose", "make a message to send out of texts and files", Commands::compose},
    {"rewrite", "write a message again as the library would send it", Commands::rewrite},
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
    // Qt remarks on the machine and on every picture that it cannot read.
    QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    return std::make_unique<QGuiApplication>(argc, argv);
}

QByteArray usage()
{
    QByteArray text = "Usage: qvlmms COMMAND [ARGUMENT...]\n\nCommands:\n";
    for (const Command &command : commands)
        text += "  " + QByteArray(command.name).leftJustified(10) + command.summary + '\n';
    return text + "\nqvlmms COMMAND --help tells more; qvlmms --version tells the version.\n";
}

} // namespace

int main(int argc, char **argv)
{
    const auto application = makeApplication(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("qvlmms"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QVLMMS_VERSION));
    const QStringList arguments = QCoreApplication::arguments();
    const QString name = arguments.value(1);
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
        printError(QStringLiteral("there is no command ") + name);
    print(stderr, usage());
    return CannotDo;
}
