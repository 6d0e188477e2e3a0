/*
 * qvlmms: shows multimedia messages, helps to find out why a handset does not display one, and
 * composes messages.
 */
#include "commands/commands.h"

#include <QGuiApplication>
#include <QLoggingCategory>

#include <memory>

using namespace CommandLine;

namespace {

// Rendering needs a GUI application, but no display.
std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv)
{
    const Command *command = Commands::find(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (!command || !command->draws)
        return std::make_unique<QCoreApplication>(argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

int runProgram(const QStringList &arguments)
{
    const QString name = arguments.value(0);
    if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
        print(stdout, Commands::usage());
        return AllDecoded;
    }
    if (name == QLatin1String("--version") || name == QLatin1String("-v")) {
        print(stdout, "qvlmms " QVLMMS_VERSION "\n");
        return AllDecoded;
    }
    if (const Command *command = Commands::find(name))
        return run(*command, arguments);
    if (!name.isEmpty())
        return Commands::refuseUnknown(name);
    print(stderr, Commands::usage());
    return CannotDo;
}

} // namespace

int main(int argc, char **argv)
{
    // Qt warns about the machine's locale and about every picture that it cannot read. Users cannot
    // change that; QT_LOGGING_RULES turns the warnings on again.
    QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    const auto application = makeApplication(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("qvlmms"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QVLMMS_VERSION));
    const int exitCode = runProgram(QCoreApplication::arguments().mid(1));
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return exitCode;
    printError(QStringLiteral("cannot write to standard output; is the disk full?"));
    return CannotDo;
}
