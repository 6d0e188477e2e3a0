#include "loader/folder_loader.h"

#include "input/message_files.h"

#include <algorithm>

namespace {

// One processor is left for the window.
unsigned int threadCount()
{
    return std::max(2U, std::thread::hardware_concurrency()) - 1;
}

} // namespace

FolderLoader::FolderLoader(const QStringList &names, std::function<void()> notify)
    : m_notify(std::move(notify))
{
    m_threads.emplace_back([this, names] {
        readHeaders(names);
        readMessages();
    });
    for (unsigned int i = 1; i < threadCount(); ++i)
        m_threads.emplace_back([this] { readMessages(); });
}

FolderLoader::~FolderLoader()
{
    cancel();
    for (std::thread &thread : m_threads)
        thread.join();
}

void FolderLoader::cancel()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isCanceled = true;
    }
    m_hasWork.notify_all();
}

void FolderLoader::readHeaders(const QStringList &names)
{
    MessageFiles files(names, {}, false);
    std::deque<QString> found;
    while (!m_isCanceled) {
        const std::optional<QString> name = files.next();
        if (!name)
            break;
        put(loadHeader(*name));
        ++m_headersRead;
        found.push_back(*name);
        m_walked = files.fraction();
    }
    m_skipped = files.skipped();
    {
        const std::lock_guard lock(m_mutex);
        m_total += qsizetype(found.size());
        m_names.insert(m_names.begin(), found.begin(), found.end());
        m_areHeadersRead = true;
    }
    m_hasWork.notify_all();
    m_notify();
}

void FolderLoader::readMessages()
{
    QString name;
    while (nextName(&name)) {
        LoadedMessage message = loadWhole(name);
        ++m_messagesRead;
        put(std::move(message));
    }
}

// Waits for a name. False when the loader ends.
bool FolderLoader::nextName(QString *name)
{
    std::unique_lock lock(m_mutex);
    m_hasWork.wait(lock, [this] { return m_isCanceled || (m_areHeadersRead && !m_names.empty()); });
    if (m_isCanceled)
        return false;
    *name = std::move(m_names.front());
    m_names.pop_front();
    ++m_reading;
    return true;
}

void FolderLoader::put(LoadedMessage &&message)
{
    bool wasEmpty = false;
    {
        const std::lock_guard lock(m_mutex);
        wasEmpty = m_results.empty();
        if (message.isWhole && m_areHeadersRead)
            --m_reading;
        else
            ++m_waitingHeaders;
        m_results.push_back(std::move(message));
    }
    if (wasEmpty)
        m_notify();
}

std::vector<LoadedMessage> FolderLoader::take(std::size_t most)
{
    const std::lock_guard lock(m_mutex);
    const auto end = m_results.begin() + std::ptrdiff_t(std::min(most, m_results.size()));
    std::vector<LoadedMessage> taken(std::move_iterator(m_results.begin()),
                                     std::move_iterator(end));
    m_results.erase(m_results.begin(), end);
    m_waitingHeaders = std::max<qsizetype>(0, m_waitingHeaders - qsizetype(taken.size()));
    return taken;
}

void FolderLoader::reload(const QStringList &files)
{
    {
        const std::lock_guard lock(m_mutex);
        m_names.insert(m_names.end(), files.begin(), files.end());
        m_total += files.size();
    }
    m_hasWork.notify_all();
}

double FolderLoader::fraction() const
{
    if (!m_areHeadersRead)
        return m_walked / 2;
    const std::lock_guard lock(m_mutex);
    const auto left = double(m_names.size()) + m_reading;
    return m_total == 0 ? 1 : 1 - left / double(m_total) / 2;
}

bool FolderLoader::isListed() const
{
    const std::lock_guard lock(m_mutex);
    return m_areHeadersRead && m_waitingHeaders == 0;
}

bool FolderLoader::isDone() const
{
    const std::lock_guard lock(m_mutex);
    const bool isRead = m_isCanceled || (m_areHeadersRead && m_names.empty() && m_reading == 0);
    return isRead && m_results.empty();
}
