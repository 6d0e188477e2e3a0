#include "output/unfinished_file.h"

#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

constexpr mode_t EveryoneMayWrite = 0666; // the umask restricts it
constexpr const char *OpenFiles = "/proc/self/fd";

int errorOf(int result)
{
    return result < 0 ? errno : 0;
}

// Calls @p use with new temporary names until one of them is free.
template <typename NewName, typename Use>
int withFreeName(NewName newName, Use use)
{
    constexpr int MostTries = 100;
    int error = EEXIST;
    for (int i = 0; i < MostTries && error == EEXIST; ++i)
        error = use(newName());
    return error;
}

// A file without a name gets one by its entry in /proc.
int linkOpenFile(int file, const QByteArray &path)
{
    const QByteArray entry = OpenFiles + QByteArray("/") + QByteArray::number(file);
    return errorOf(
        ::linkat(AT_FDCWD, entry.constData(), AT_FDCWD, path.constData(), AT_SYMLINK_FOLLOW));
}

} // namespace

UnfinishedFile::UnfinishedFile(QByteArray folder, Kind kind)
    : m_folder(std::move(folder)), m_kind(kind)
{
}

UnfinishedFile::~UnfinishedFile()
{
    if (!m_name.isEmpty())
        ::unlink(m_name.constData());
}

QByteArray UnfinishedFile::newTemporaryName() const
{
    return m_folder + "/.qvlmms-"
        + QByteArray::number(QRandomGenerator::system()->generate64(), 16);
}

int UnfinishedFile::createNamed()
{
    return withFreeName([this] { return newTemporaryName(); },
                        [this](const QByteArray &name) {
                            m_file.reset(
                                ::open(name.constData(),
                                       O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                       EveryoneMayWrite));
                            const int error = errorOf(m_file.number());
                            if (error == 0)
                                m_name = name;
                            return error;
                        });
}

int UnfinishedFile::create()
{
    if (m_kind == Nameless && ::access(OpenFiles, X_OK) == 0)
        m_file.reset(
            ::open(m_folder.constData(), O_WRONLY | O_TMPFILE | O_CLOEXEC, EveryoneMayWrite));
    return m_file.isOpen() ? 0 : createNamed();
}

int UnfinishedFile::write(const QByteArray &octets)
{
    return write(writerOf(octets));
}

int UnfinishedFile::write(const WriteTo &writeTo)
{
    if (const int error = create())
        return error;
    if (const int error = writeTo(m_file.number()))
        return error;
    const int error = errorOf(::fsync(m_file.number())); // a full disk may only show here
    return error == EINVAL || error == ENOTSUP ? 0 : error; // the file system cannot
}

int UnfinishedFile::nameTemporarily()
{
    return withFreeName([this] { return newTemporaryName(); },
                        [this](const QByteArray &name) {
                            const int error = linkOpenFile(m_file.number(), name);
                            if (error == 0)
                                m_name = name;
                            return error;
                        });
}

int UnfinishedFile::moveTo(const QByteArray &path, Existing existing)
{
    return existing == Keep ? moveWithoutReplacing(path) : replace(path);
}

int UnfinishedFile::moveWithoutReplacing(const QByteArray &path)
{
    if (m_name.isEmpty())
        return linkOpenFile(m_file.number(), path);
    int error = errorOf(
        ::renameat2(AT_FDCWD, m_name.constData(), AT_FDCWD, path.constData(), RENAME_NOREPLACE));
    if (error == EINVAL || error == ENOSYS) // the file system has no such operation
        error = errorOf(::link(m_name.constData(), path.constData()));
    else if (error == 0)
        m_name.clear();
    return error;
}

int UnfinishedFile::replace(const QByteArray &path)
{
    struct stat info;
    const bool exists = ::lstat(path.constData(), &info) == 0;
    if (!exists) {
        const int error = moveWithoutReplacing(path);
        if (error != EEXIST)
            return error;
    } else if (S_ISREG(info.st_mode)) {
        std::ignore = ::fchmod(m_file.number(), info.st_mode & ACCESSPERMS); // others may own it
    }
    if (m_name.isEmpty()) {
        if (const int error = nameTemporarily())
            return error;
    }
    const int error = errorOf(std::rename(m_name.constData(), path.constData()));
    if (error == 0)
        m_name.clear();
    return error;
}
