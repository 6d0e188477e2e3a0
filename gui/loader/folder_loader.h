/*
 * Reads the messages of folders in threads, for the list.
 */
#pragma once

#include "loader/loaded_message.h"

#include <QStringList>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

/**
 * First reads only the headers of all messages, so that a list of thousands is there at once. Then
 * reads each message as a whole. The results wait in one queue.
 *
 * Only the thread that made the loader uses it.
 */
class FolderLoader
{
public:
    /// Begins to read the files and the messages in the folders @p names. A thread calls
    /// @p notify when there are results and the queue was empty before, and at the end.
    FolderLoader(const QStringList &names, std::function<void()> notify);
    /// Cancels, and waits for the threads.
    ~FolderLoader();
    FolderLoader(const FolderLoader &) = delete;
    FolderLoader &operator=(const FolderLoader &) = delete;

    /// The oldest results, at most @p most.
    std::vector<LoadedMessage> take(std::size_t most);
    /// Reads files again, or for the first time, as whole messages.
    void reload(const QStringList &files);

    /// Each thread ends as soon as it has read the message that it is reading. Any thread may call
    /// this.
    void cancel();

    /// The part of the work that is done, from 0 to 1.
    double fraction() const;
    /// Whether the headers of all messages were read and their results taken.
    bool isListed() const;
    /// Whether everything was read, or reading was canceled, and all results were taken.
    bool isDone() const;
    /// Files that were passed over because they are no messages.
    qsizetype skipped() const { return m_skipped; }

    /// How many headers alone and how many whole messages were read.
    int headersRead() const { return m_headersRead; }
    int messagesRead() const { return m_messagesRead; }

private:
    void readHeaders(const QStringList &names);
    void readMessages();
    bool nextName(QString *name);
    void put(LoadedMessage &&message);

    const std::function<void()> m_notify;
    std::atomic<bool> m_isCanceled = false;
    std::atomic<bool> m_areHeadersRead = false;
    std::atomic<double> m_walked = 0;
    std::atomic<qsizetype> m_skipped = 0;
    std::atomic<int> m_headersRead = 0;
    std::atomic<int> m_messagesRead = 0;

    mutable std::mutex m_mutex; ///< of the members up to the next empty line
    std::condition_variable m_hasWork;
    std::deque<LoadedMessage> m_results;
    std::deque<QString> m_names; ///< of messages to read as a whole
    qsizetype m_total = 0; ///< names that were ever in m_names
    int m_reading = 0; ///< threads that read a message
    qsizetype m_waitingHeaders = 0; ///< results that are not whole

    std::vector<std::thread> m_threads; ///< last, because they use the rest
};
