#include "list/folder_watch.h"

#include <QDir>
#include <QDirIterator>

namespace {

constexpr qsizetype MostFolders = 500; // each needs a place in a table of the system

} // namespace

FolderWatch::FolderWatch(QObject *parent) : QObject(parent)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(Delay);
    connect(&m_delay, &QTimer::timeout, this, &FolderWatch::compare);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, [this](const QString &folder) {
        if (!m_touched.contains(folder))
            m_touched += folder;
        if (!m_delay.isActive())
            m_delay.start();
    });
}

void FolderWatch::watch(const QStringList &names)
{
    m_delay.stop();
    m_touched.clear();
    m_folders.clear();
    if (const QStringList watched = m_watcher.directories(); !watched.isEmpty())
        m_watcher.removePaths(watched);
    for (const QString &name : names) {
        if (QFileInfo(name).isDir())
            addFolder(name, nullptr);
    }
}

// Adds the files in folders below it to @p found, which may be null.
void FolderWatch::addFolder(const QString &folder, QStringList *found)
{
    if (m_folders.size() >= MostFolders || m_folders.contains(folder) || !m_watcher.addPath(folder))
        return;
    Stamps &stamps = m_folders[folder];
    QStringList inner;
    QDirIterator entries(folder,
                         QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    while (entries.hasNext()) {
        entries.next();
        const QFileInfo info = entries.fileInfo();
        if (info.isDir())
            inner += info.filePath();
        else
            stamps.insert(info.filePath(), {info.lastModified(), info.size()});
    }
    for (const QString &name : inner) {
        if (m_folders.contains(name))
            continue;
        addFolder(name, found);
        if (found)
            *found += m_folders.value(name).keys();
    }
}

void FolderWatch::compare()
{
    QStringList added;
    QStringList modified;
    QStringList removed;
    for (const QString &folder : std::exchange(m_touched, {}))
        compareFolder(folder, &added, &modified, &removed);
    if (!added.isEmpty() || !modified.isEmpty() || !removed.isEmpty())
        emit changed(added, modified, removed);
}

void FolderWatch::compareFolder(const QString &folder, QStringList *added, QStringList *modified,
                                QStringList *removed)
{
    const Stamps before = m_folders.take(folder);
    m_watcher.removePath(folder);
    addFolder(folder, added);
    const Stamps now = m_folders.value(folder);
    for (auto stamp = now.begin(); stamp != now.end(); ++stamp) {
        const auto known = before.find(stamp.key());
        if (known == before.end())
            *added += stamp.key();
        else if (*known != *stamp)
            *modified += stamp.key();
    }
    for (auto stamp = before.begin(); stamp != before.end(); ++stamp) {
        if (!now.contains(stamp.key()))
            *removed += stamp.key();
    }
}
