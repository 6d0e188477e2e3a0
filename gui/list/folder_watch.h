/*
 * Notices files that are added to folders, changed or removed.
 */
#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

class FolderWatch : public QObject
{
    Q_OBJECT

public:
    /// From the first sign of a change to changed(), so that many changes become one.
    static constexpr int Delay = 300; // milliseconds

    explicit FolderWatch(QObject *parent = nullptr);

    /// Watches the folders among @p names and those in them, instead of others. A folder that the
    /// system cannot watch, because it watches many, is left out.
    void watch(const QStringList &names);

signals:
    /// Files that are there now, have other contents, or are gone. Any file may be among them, also
    /// one that is no message.
    void changed(const QStringList &added, const QStringList &modified, const QStringList &removed);

private:
    struct Stamp
    {
        QDateTime time;
        qint64 size;
        bool operator==(const Stamp &other) const = default;
    };
    using Stamps = QHash<QString, Stamp>;

    void addFolder(const QString &folder, QStringList *found);
    void compare();
    void compareFolder(const QString &folder, QStringList *added, QStringList *modified,
                       QStringList *removed);

    QFileSystemWatcher m_watcher;
    QTimer m_delay;
    QStringList m_touched; ///< folders in which something changed
    QHash<QString, Stamps> m_folders;
};
