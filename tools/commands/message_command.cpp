#include "commands/message_command.h"

#include "view/message_view.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

namespace CommandLine {

namespace {

// The path itself, or the nearest folder or file above it that exists.
QFileInfo existingAbove(const QString &path)
{
    QFileInfo info(QDir::cleanPath(QDir::current().absoluteFilePath(path)));
    while (!info.exists() && !info.isRoot())
        info.setFile(info.path());
    return info;
}

// Creates a folder unless it exists. Prints an error if that fails.
bool createFolder(const QString &directory)
{
    const QFileInfo above = existingAbove(directory);
    if (QDir(directory).mkpath(QStringLiteral(".")))
        return true;
    printError(QLatin1String("cannot create the folder ") + directory + QLatin1String(": ")
               + above.filePath()
               + QLatin1String(above.isDir() ? " does not allow creating a folder in it"
                                             : " is a file; name another folder"));
    return false;
}

} // namespace

std::function<int(const QCommandLineParser &)> onMessage(RunOnMessage run, ReadMessage read)
{
    return [run, read](const QCommandLineParser &arguments) -> int {
        QString error;
        if (const auto message = read(arguments.positionalArguments().first(), &error))
            return run(*message, arguments);
        printError(error);
        return CannotDo;
    };
}

int refuse(const Message &message)
{
    print(stderr, linesFor(stderr, messageText(message)));
    printAdvice(message);
    return Refused;
}

int refuse(const Message &message, const QString &why)
{
    printError(message.fileName + QLatin1String(": ") + why);
    return Refused;
}

void printAdvice(const Message &message)
{
    const QString advice = whyNoMessage(message);
    if (!advice.isEmpty())
        printError(message.fileName + QLatin1String(": ") + advice);
}

int writeToFolder(const Message &message, const QString &directory, bool hasFiles,
                  const WriteFiles &write)
{
    if (hasFiles && !createFolder(directory))
        return CannotDo;
    QStringList report;
    QString error;
    const bool written = write(directory, &report, &error);
    for (const QString &line : report)
        print(stdout, line.toUtf8() + '\n');
    if (!written) {
        printError(error);
        return CannotDo;
    }
    return message.isRefused() ? refuse(message) : AllDecoded;
}

} // namespace CommandLine
