#include "output/write_file.h"

#include "input/descriptor.h"
#include "input/file_name.h"
#include "output/unfinished_file.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

constexpr QLatin1String StandardOutput("-");

fs::path pathOf(const QString &fileName)
{
    return FileName::toOctets(fileName).toStdString();
}

// The file that the links at @p path refer to, existing or not. Too many links are left to stat(),
// which refused them before.
fs::path targetOf(fs::path path)
{
    constexpr int MostLinks = 40;
    std::error_code error;
    for (int i = 0; i < MostLinks && fs::is_symlink(path, error); ++i)
        path = path.parent_path() / fs::read_symlink(path, error);
    return path;
}

QByteArray folderOf(const fs::path &path)
{
    return path.has_parent_path() ? QByteArray::fromStdString(path.parent_path()) : ".";
}

int replace(const fs::path &path, const WriteTo &writeTo)
{
    UnfinishedFile file(folderOf(path));
    const int error = file.write(writeTo);
    return error != 0 ? error
                      : file.moveTo(QByteArray::fromStdString(path), UnfinishedFile::Replace);
}

QString whyNotWritten(const fs::path &path, int error)
{
    std::error_code ignored;
    const QByteArray folder = folderOf(path);
    if (!fs::is_directory(folder.toStdString(), ignored))
        return QLatin1String("there is no folder ") + FileName::fromOctets(folder)
            + QLatin1String("; create it first");
    return qt_error_string(error);
}

bool isTerminal(int file)
{
    return ::isatty(file) == 1;
}

QString terminalRefused()
{
    return QStringLiteral("a message would act on the terminal; redirect the output, or name a "
                          "file");
}

bool writeDirectly(const WriteTo &writeTo, int file, const QString &what, QString *error)
{
    if (isTerminal(file)) {
        *error = cannotWrite(what, terminalRefused());
        return false;
    }
    const int failure = writeTo(file);
    if (failure != 0)
        *error = cannotWrite(what, qt_error_string(failure));
    return failure == 0;
}

bool writeToDevice(const WriteTo &writeTo, const QString &fileName, QString *error)
{
    const Descriptor file(
        ::open(FileName::toOctets(fileName).constData(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
    if (file.isOpen())
        return writeDirectly(writeTo, file.number(), fileName, error);
    *error = cannotWrite(fileName, qt_error_string(errno));
    return false;
}

bool isSame(const struct stat &one, const struct stat &other)
{
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

} // namespace

bool writeFile(const QByteArray &octets, const QString &fileName, QString *error)
{
    return writeFile(writerOf(octets), fileName, error);
}

bool writeFile(const WriteTo &writeTo, const QString &fileName, QString *error)
{
    if (fileName.isEmpty()) {
        *error = QStringLiteral("the name of the file to write is empty; name a file, or - for "
                                "standard output");
        return false;
    }
    if (isStandardOutput(fileName))
        return writeDirectly(writeTo, STDOUT_FILENO, QStringLiteral("standard output"), error);
    const fs::path named = pathOf(fileName);
    struct stat info;
    const int absence = ::stat(named.c_str(), &info) == 0 ? 0 : errno;
    if (absence == 0 && S_ISDIR(info.st_mode)) {
        *error = cannotWrite(
            fileName, QStringLiteral("it is a folder; name a file, or - for standard output"));
        return false;
    }
    if (absence == 0 && !S_ISREG(info.st_mode))
        return writeToDevice(writeTo, fileName, error);
    const fs::path path = targetOf(named);
    const int failure = absence == 0 || absence == ENOENT ? replace(path, writeTo) : absence;
    if (failure != 0)
        *error = cannotWrite(fileName, whyNotWritten(path, failure));
    return failure == 0;
}

bool replaceFile(const QByteArray &octets, const QString &fileName, QString *error)
{
    return replaceFile(writerOf(octets), fileName, error);
}

bool replaceFile(const WriteTo &writeTo, const QString &fileName, QString *error)
{
    const fs::path path = pathOf(fileName);
    std::error_code ignored;
    const fs::file_status status = fs::symlink_status(path, ignored);
    const bool isReplaceable =
        !fs::exists(status) || fs::is_regular_file(status) || fs::is_symlink(status);
    const int failure = isReplaceable ? replace(path, writeTo) : EEXIST;
    if (!isReplaceable)
        *error = cannotWrite(fileName, QStringLiteral("a folder or a device has this name"));
    else if (failure != 0)
        *error = cannotWrite(fileName, whyNotWritten(path, failure));
    return failure == 0;
}

bool isStandardOutput(const QString &fileName)
{
    if (fileName == StandardOutput)
        return true;
    struct stat named;
    struct stat output;
    return ::stat(pathOf(fileName).c_str(), &named) == 0 && ::fstat(STDOUT_FILENO, &output) == 0
        && isSame(named, output);
}

QString cannotWrite(const QString &fileName, const QString &why)
{
    return QLatin1String("cannot write ") + fileName + QLatin1String(": ") + why;
}
