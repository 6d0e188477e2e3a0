/*
 * Works on files with several threads and passes the results on in the order of the files. The
 * thread that finishes a file also passes on all results that are ready then, so that no other
 * thread has to be woken up for that.
 */
#pragma once

#include <QString>

#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

template <typename Result>
class FilesInOrder
{
public:
    using Next = std::function<std::optional<QString>()>; // nothing after the last file
    using Work = std::function<Result(const QString &name)>;
    using Take = std::function<void(const QString &name, Result result)>;

    /// Several threads call @p work at the same time; only one at a time calls @p next, and only
    /// one calls @p take.
    FilesInOrder(Next next, Work work, Take take)
        : m_next(std::move(next)), m_work(std::move(work)), m_take(std::move(take))
    {
    }

    /// Works on all files, with @p jobs threads.
    void run(int jobs)
    {
        m_mostAhead = 4 * qsizetype(jobs);
        std::vector<std::jthread> others;
        try {
            for (int i = 1; i < jobs; ++i)
                others.emplace_back([this] { workOnAll(); });
        } catch (const std::system_error &) {
            // The system allows no more threads; those that exist do all files.
        }
        workOnAll();
    }

private:
    struct Numbered
    {
        qsizetype index;
        QString name;
    };

    void workOnAll()
    {
        while (const std::optional<Numbered> file = next()) {
            std::unique_lock lock(m_mutex);
            // Limits the results that wait in memory while an earlier file still takes time.
            m_tookMore.wait(lock, [&] { return file->index < m_taken + m_mostAhead; });
            lock.unlock();
            Result result = m_work(file->name);
            lock.lock();
            m_ready.emplace(file->index, std::pair(file->name, std::move(result)));
            takeReady();
        }
    }

    // Apart from the results, which can be taken while the next name is awaited.
    std::optional<Numbered> next()
    {
        const std::lock_guard lock(m_nextMutex);
        std::optional<QString> name = m_next();
        return name ? std::optional<Numbered>({m_started++, std::move(*name)}) : std::nullopt;
    }

    void takeReady()
    {
        while (!m_ready.empty() && m_ready.begin()->first == m_taken) {
            auto node = m_ready.extract(m_ready.begin());
            m_take(node.mapped().first, std::move(node.mapped().second));
            ++m_taken;
        }
        m_tookMore.notify_all();
    }

    const Next m_next;
    const Work m_work;
    const Take m_take;
    qsizetype m_mostAhead = 0;

    std::mutex m_nextMutex; // protects m_next and m_started
    qsizetype m_started = 0;

    std::mutex m_mutex; // protects the members below
    std::condition_variable m_tookMore;
    std::map<qsizetype, std::pair<QString, Result>> m_ready; // by index
    qsizetype m_taken = 0;
};
