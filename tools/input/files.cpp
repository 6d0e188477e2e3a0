#include "input/files.h"

#include "input/descriptor.h"
#include "input/file_name.h"
#include "input/sizes.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

QString cannotRead(const QString &what, const QString &why)
{
    return QLatin1String("cannot read ") + what + QLatin1String(": ") + why;
}

QString whyNotRead(int error)
{
    if (error == EISDIR)
        return QStringLiteral("it is a folder; name the files in it");
    if (error == ENOENT || error == ENOTDIR)
        return QStringLiteral("there is no such file; check its name");
    return qt_error_string(error);
}

bool openForReading(const QString &fileName, Descriptor *file, QString *error)
{
    if (fileName.isEmpty()) {
        *error = QStringLiteral("the name of the file to read is empty; name a file");
        return false;
    }
    const QByteArray path = FileName::toOctets(fileName);
    file->reset(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
    if (!file->isOpen())
        *error = cannotRead(fileName, whyNotRead(errno));
    return file->isOpen();
}

// The size of a regular file; 0 for everything that has no size.
qint64 sizeOf(int file)
{
    struct stat info;
    return ::fstat(file, &info) == 0 && S_ISREG(info.st_mode) ? qint64(info.st_size) : 0;
}

bool readOctets(int file, const QString &what, qint64 most, QByteArray *octets, QString *error)
{
    constexpr qint64 LeastRoom = 64 * 1024;
    octets->reserve(qsizetype(std::min(std::max(sizeOf(file) + 1, LeastRoom), most)));
    while (octets->size() < most) {
        const qsizetype before = octets->size();
        // Doubles the array of an endless input, so that the copying stays linear.
        const qint64 room = before < octets->capacity() ? octets->capacity() : 2 * before;
        octets->resize(qsizetype(std::min(room, most)));
        const ssize_t count =
            ::read(file, octets->data() + before, size_t(octets->size() - before));
        const int failure = count < 0 ? errno : 0;
        octets->resize(before + std::max<ssize_t>(count, 0));
        if (count == 0)
            return true;
        if (failure == 0 || failure == EINTR)
            continue;
        *error = cannotRead(what, whyNotRead(failure));
        return false;
    }
    return true;
}

bool readWithin(int file, const QString &what, qint64 limit, QByteArray *octets, QString *error)
{
    const bool mayFit = sizeOf(file) <= limit;
    if (mayFit && !readOctets(file, what, limit + 1, octets, error))
        return false;
    if (mayFit && octets->size() <= limit)
        return true;
    *error = cannotRead(what,
                        QLatin1String("it has more than ") + sizeText(limit)
                            + QLatin1String(" octets; set a higher limit with --max-size"));
    return false;
}

} // namespace

bool readFile(const QString &fileName, qint64 limit, QByteArray *octets, QString *error)
{
    if (fileName == QLatin1String("-"))
        return readWithin(STDIN_FILENO, QStringLiteral("standard input"), limit, octets, error);
    Descriptor file;
    return openForReading(fileName, &file, error)
        && readWithin(file.number(), fileName, limit, octets, error);
}

bool readStart(const QString &fileName, qint64 most, QByteArray *octets, QString *error)
{
    Descriptor file;
    return openForReading(fileName, &file, error)
        && readOctets(file.number(), fileName, most, octets, error);
}

QString withExtension(const QString &base, const QString &extension)
{
    return extension.isEmpty() ? base : base + QLatin1Char('.') + extension;
}
