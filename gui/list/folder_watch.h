/*
 * Notices messages that are added to folders, changed or removed.
 */
#pragma once

#include <QObject>
#include <QStringList>
#include <QThread>

#include <atomic>
#include <functional>

class FolderWatch : public QObject
{
    Q_OBJECT

public:
    /// From the first sign of a change to changed(), so that many changes become one.
    static constexpr int Delay = 300; // milliseconds

    explicit FolderWatch(QObject *parent = nullptr);
    ~FolderWatch() override;

    /// Watches the folders among @p names and those in them, instead of others. Files and folders
    /// that the system cannot watch, because it watches many, are left out. All work is done in a
    /// thread, because folders may be large or far away.
    void watch(const QStringList &names);

signals:
    /// From now on, every change is noticed.
    void watching();
    /// Messages that were added or written, other files that were written, and files that are gone.
    void changed(const QStringList &messages, const QStringList &others,
                 const QStringList &removed);

private:
    class Worker;

    /// Does @p tell in the thread of this object, unless watch() is called before.
    void report(int turn, std::function<void()> tell);

    QThread m_thread;
    Worker *m_worker; ///< lives in the thread
    std::atomic<int> m_turn = 0; ///< counts the calls of watch()
};
