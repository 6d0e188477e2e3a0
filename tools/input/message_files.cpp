#include "input/message_files.h"

#include "input/file_name.h"
#include "input/files.h"

#include <qvlsmilparser.h>

#include <algorithm>
#include <functional>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace {

fs::path pathOf(const QString &name)
{
    return fs::path(FileName::toOctets(name).toStdString());
}

QString nameOf(const fs::path &path)
{
    return FileName::fromOctets(QByteArray::fromStdString(path.native()));
}

bool isFolder(const fs::path &path)
{
    std::error_code error;
    return fs::is_directory(path, error);
}

bool isHidden(const fs::path &name)
{
    return name.native().starts_with('.');
}

// The code of Message-Type and one of the types up to MMS 1.3.
bool beginsLikeMessage(const fs::path &path)
{
    constexpr int StartSize = 2;
    QByteArray start;
    QString ignored;
    return readStart(nameOf(path), StartSize, &start, &ignored) && start.size() == StartSize
        && start[0] == char(HeaderFieldCode::MessageType | 0x80)
        && QvlMessageType::nameOf(static_cast<unsigned char>(start[1]));
}

} // namespace

MessageFiles::MessageFiles(QStringList arguments, bool findsHidden)
    : m_arguments(std::move(arguments)), m_findsHidden(findsHidden),
      m_hasFolders(std::ranges::any_of(
          m_arguments, [](const QString &argument) { return isFolder(pathOf(argument)); }))
{
}

std::optional<QString> MessageFiles::next()
{
    while (true) {
        if (m_folders.empty()) {
            if (m_nextArgument == m_arguments.size())
                return std::nullopt;
            const QString argument = m_arguments[m_nextArgument++];
            if (!isFolder(pathOf(argument)) || !enter(pathOf(argument)))
                return argument;
            continue;
        }
        Folder &folder = m_folders.back();
        if (folder.names.empty()) {
            m_folders.pop_back();
            continue;
        }
        const fs::path path = folder.path / folder.names.back();
        folder.names.pop_back();
        if (finds(path))
            return nameOf(path);
    }
}

// False when the folder cannot be listed.
bool MessageFiles::enter(const fs::path &path)
{
    std::error_code error;
    Folder folder{path, {}};
    for (fs::directory_iterator entry(path, error), end; !error && entry != end;
         entry.increment(error)) {
        fs::path name = entry->path().filename();
        if (m_findsHidden || !isHidden(name))
            folder.names.push_back(std::move(name));
    }
    if (error)
        return false;
    std::ranges::sort(folder.names, std::greater<>());
    m_folders.push_back(std::move(folder));
    return true;
}

// True for a file to read. Enters a folder.
bool MessageFiles::finds(const fs::path &path)
{
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path, error);
    if (fs::is_directory(status))
        return !enter(path);
    if (fs::is_regular_file(status) && beginsLikeMessage(path))
        return true;
    ++m_skipped;
    return false;
}
