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

bool isHidden(const fs::path &name)
{
    return name.native().starts_with('.');
}

} // namespace

bool isFolder(const fs::path &path)
{
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

bool beginsLikeMessage(const fs::path &path)
{
    constexpr int StartSize = 2;
    QByteArray start;
    QString ignored;
    if (!readStart(nameOf(path), StartSize, &start, &ignored))
        return true;
    return start.size() == StartSize && start[0] == char(HeaderFieldCode::MessageType | 0x80)
        && QvlMessageType::nameOf(static_cast<unsigned char>(start[1]));
}

MessageFiles::MessageFiles(QStringList arguments, std::optional<NameList> list, bool findsHidden)
    : m_arguments(std::move(arguments)), m_list(std::move(list)), m_findsHidden(findsHidden)
{
}

std::optional<QString> MessageFiles::next()
{
    while (true) {
        if (m_folders.empty()) {
            const std::optional<QString> name = nextName();
            if (!name || !isFolder(pathOf(*name)) || !enter(pathOf(*name)))
                return name;
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

bool MessageFiles::isOneFile() const
{
    return !m_list && m_arguments.size() == 1 && !isFolder(pathOf(m_arguments.first()));
}

double MessageFiles::fraction() const
{
    double ofLast = m_folders.empty() ? 1 : 0; // of the file or folder that was given last
    for (auto folder = m_folders.rbegin(); folder != m_folders.rend(); ++folder) {
        const auto entered = double(folder->count - folder->names.size());
        ofLast = std::max(0.0, entered - 1 + ofLast) / double(folder->count);
    }
    const double ofList = m_list ? m_list->fraction() : 0;
    const double walked = double(m_nextArgument) + (ofList > 0 ? ofList : ofLast - 1);
    return std::max(0.0, walked) / double(m_arguments.size() + (m_list ? 1 : 0));
}

// The next argument or name of the list.
std::optional<QString> MessageFiles::nextName()
{
    if (m_nextArgument < m_arguments.size())
        return m_arguments[m_nextArgument++];
    return m_list ? m_list->next() : std::nullopt;
}

// False when the folder cannot be listed.
bool MessageFiles::enter(const fs::path &path)
{
    std::error_code error;
    Folder folder{path, {}, 0};
    for (fs::directory_iterator entry(path, error), end; !error && entry != end;
         entry.increment(error)) {
        fs::path name = entry->path().filename();
        if (m_findsHidden || !isHidden(name))
            folder.names.push_back(std::move(name));
    }
    if (error)
        return false;
    std::ranges::sort(folder.names, std::greater<>());
    folder.count = folder.names.size();
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
