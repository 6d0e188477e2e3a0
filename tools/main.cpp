/*
 * qvlmms: shows multimedia messages, helps to find out why a handset does not display one, and
 * composes messages.
 */
#include "commands/commands.h"
#include "commands/out_of_memory.h"
#include "convert/child.h"
#include "input/file_name.h"

#include <QGuiApplication>
#include <QLoggingCategory>

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <tuple>
#include <utility>

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

// Qt's own list has no octets that are not UTF-8.
QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += FileName::fromOctets(argv[i]);
    return arguments;
}

// Texts of a message, such as those in FFmpeg's log, may be in a message of Qt.
void printLogged(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    printError(qFormatLogMessage(type, context, text));
    if (type == QtFatalMsg)
        std::_Exit(CannotDo); // Qt would abort
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

// Without this, a file that the command opens could get the number of a closed standard stream, and
// what is printed would land in it. Reading and writing report "Bad file descriptor", as they
// would.
void keepStandardStreamsApart()
{
    for (const auto &[stream, mode] : {std::pair(STDIN_FILENO, O_WRONLY),
                                       {STDOUT_FILENO, O_RDONLY},
                                       {STDERR_FILENO, O_RDONLY}}) {
        if (::fcntl(stream, F_GETFD) < 0)
            std::ignore = ::open("/dev/null", mode); // gets the lowest free number, this one
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1 && std::strcmp(argv[1], ConvertChild::Argument) == 0)
        return ConvertChild::run(argc - 2, argv + 2);
    keepStandardStreamsApart();
    endWhenOutOfMemory();
    std::ignore = std::signal(SIGXFSZ, SIG_IGN); // a write past `ulimit -f` reports an error
    qInstallMessageHandler(printLogged);
    // Qt warns about the machine's locale and about every picture that it cannot read. Users cannot
    // change that; QT_LOGGING_RULES turns the warnings on again.
    QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    const auto application = makeApplication(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("qvlmms"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QVLMMS_VERSION));
    const int exitCode = runProgram(argumentsOf(argc, argv));
    const int error = flushOutput();
    if (error == 0)
        return exitCode;
    printError(QLatin1String("cannot write to standard output: ") + qt_error_string(error));
    return CannotDo;
}
