#include "commands/message_command.h"

#include "input/file_name.h"
#include "input/sizes.h"
#include "view/message_view.h"

#include <QCommandLineParser>

#include <filesystem>
#include <system_error>

namespace CommandLine {

namespace {

namespace fs = std::filesystem;

QString textOf(const fs::path &path)
{
    return FileName::fromOctets(QByteArray::fromStdString(path));
}

// The path itself, or the nearest folder or file above it that exists.
fs::path existingAbove(const fs::path &path)
{
    std::error_code ignored;
    fs::path above = fs::absolute(path, ignored).lexically_normal();
    while (!fs::exists(above, ignored) && above.has_relative_path())
        above = above.parent_path();
    return above;
}

QString whyNotCreated(const fs::path &above, const std::error_code &error)
{
    std::error_code ignored;
    if (!fs::is_directory(above, ignored))
        return textOf(above) + QLatin1String(" is a file; name another folder");
    if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted
        || error == std::errc::no_such_file_or_directory) // as /proc says it
        return textOf(above) + QLatin1String(" does not allow creating a folder in it");
    return qt_error_string(error.value());
}

} // namespace

qint64 sizeLimit(const QCommandLineParser &arguments)
{
    return sizeFrom(arguments.value(QLatin1String(SizeLimitOption.name)))
        .value_or(StandardSizeLimit);
}

std::function<int(const QCommandLineParser &)> onMessage(RunOnMessage run, ReadMessage read)
{
    return [run, read](const QCommandLineParser &arguments) -> int {
        QString error;
        const ReadOptions options{.sizeLimit = sizeLimit(arguments)};
        if (const auto message = read(arguments.positionalArguments().first(), options, &error))
            return run(*message, arguments);
        printError(error);
        return CannotDo;
    };
}

int refuse(const Message &message)
{
    if (!message.octets.isEmpty())
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

bool createFolder(const QString &directory)
{
    const fs::path path = FileName::toOctets(directory).toStdString();
    const fs::path above = existingAbove(path);
    std::error_code error;
    fs::create_directories(path, error);
    if (!error && fs::is_directory(path, error))
        return true;
    std::error_code ignored;
    if (fs::is_symlink(path, ignored)) {
        printError(directory + QLatin1String(" is a link to no folder; name a folder"));
        return false;
    }
    printError(QLatin1String("cannot create the folder ") + directory + QLatin1String(": ")
               + whyNotCreated(above, error));
    return false;
}

int writeToFolder(const Message &message, const QString &directory, bool hasFiles,
                  const WriteFiles &write)
{
    if (directory.isEmpty()) {
        printError(QStringLiteral("the name of the folder is empty; name a folder"));
        return CannotDo;
    }
    if (hasFiles && !createFolder(directory))
        return CannotDo;
    Report report;
    QString error;
    const bool written = write(directory, &report, &error);
    for (const QString &line : report.written)
        print(stdout, line.toUtf8() + '\n');
    for (const QString &line : report.remarks)
        printError(line);
    if (!written) {
        printError(error);
        return CannotDo;
    }
    return message.isRefused() ? refuse(message) : AllDecoded;
}

} // namespace CommandLine
