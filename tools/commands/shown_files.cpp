#include "commands/shown_files.h"

#include <algorithm>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

ShownFiles::ShownFiles(QStringList names, Show show, Print print)
    : m_names(std::move(names)), m_show(std::move(show)), m_print(std::move(print))
{
}

void ShownFiles::printAll(int jobs)
{
    m_mostAhead = 4 * qsizetype(jobs);
    std::vector<std::jthread> others;
    try {
        for (qsizetype i = 1; i < std::min<qsizetype>(jobs, m_names.size()); ++i)
            others.emplace_back([this] { work(); });
    } catch (const std::system_error &) {
        // The system allows no more threads; those that exist show all files.
    }
    work();
}

void ShownFiles::work()
{
    std::unique_lock lock(m_mutex);
    while (m_started < m_names.size()) {
        const qsizetype index = m_started++;
        // Limits the output that waits in memory while an earlier file is still being shown.
        m_printedMore.wait(lock, [&] { return index < m_printed + m_mostAhead; });
        lock.unlock();
        ShownFile shown = m_show(m_names[index]);
        lock.lock();
        m_ready.emplace(index, std::move(shown));
        printReady();
    }
}

void ShownFiles::printReady()
{
    while (!m_ready.empty() && m_ready.begin()->first == m_printed) {
        m_print(m_names[m_printed++], m_ready.begin()->second);
        m_ready.erase(m_ready.begin());
    }
    m_printedMore.notify_all();
}
