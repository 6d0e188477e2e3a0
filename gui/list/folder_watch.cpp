#include "list/folder_watch.h"

#include "input/file_name.h"
#include "input/message_files.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFileSystemWatcher>
#include <QHash>
#include <QTimer>

#include <filesystem>

namespace {

// Each needs a place in a table of the system.
constexpr qsizetype MostFolders = 500;
constexpr qsizetype MostFiles = 20'000;

bool isMessage(const QString &file)
{
    return beginsLikeMessage(std::filesystem::path(FileName::toOctets(file).toStdString()));
}

} // namespace

/// Watches and compares. It ends what it does as soon as watch() of the owner is called again.
class FolderWatch::Worker : public QObject
{
public:
    explicit Worker(FolderWatch *owner);
    void watch(const QStringList &names, int turn);

private:
    struct Stamp
    {
        QDateTime time;
        qint64 size;
        bool operator==(const Stamp &other) const = default;
    };
    using Stamps = QHash<QString, Stamp>;
    struct Changes
    {
        QStringList written; ///< added or modified
        QStringList removed;
    };

    bool isReplaced() const { return m_owner->m_turn != m_turn; }
    void touch(const QString &folder);
    void addFolder(const QString &folder, QStringList *found);
    QStringList readFolder(const QString &folder, Stamps *stamps) const;
    void watchFiles(const Stamps &stamps);
    void compare();
    void compareFolder(const QString &folder, Changes *changes);

    FolderWatch *m_owner; ///< waits for the thread's end before its own
    int m_turn = 0;
    QFileSystemWatcher m_watcher{this};
    QTimer m_delay{this};
    QStringList m_touched; ///< folders in which something changed
    QHash<QString, Stamps> m_folders;
    qsizetype m_files = 0; ///< that are watched, at most
};

FolderWatch::Worker::Worker(FolderWatch *owner) : m_owner(owner)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(Delay);
    connect(&m_delay, &QTimer::timeout, this, &Worker::compare);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &Worker::touch);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this,
            [this](const QString &file) { touch(file.left(file.lastIndexOf(u'/'))); });
}

void FolderWatch::Worker::watch(const QStringList &names, int turn)
{
    m_turn = turn;
    m_delay.stop();
    m_touched.clear();
    m_folders.clear();
    m_files = 0;
    if (const QStringList watched = m_watcher.directories() + m_watcher.files(); !watched.isEmpty())
        m_watcher.removePaths(watched);
    for (const QString &name : names) {
        if (QFileInfo(name).isDir())
            addFolder(name, nullptr);
    }
    m_owner->report(turn, [owner = m_owner] { emit owner->watching(); });
    for (const Stamps &stamps : std::as_const(m_folders))
        watchFiles(stamps);
}

void FolderWatch::Worker::touch(const QString &folder)
{
    if (!m_touched.contains(folder))
        m_touched += folder;
    if (!m_delay.isActive())
        m_delay.start();
}

// Adds the files in folders below it to @p found, which may be null.
void FolderWatch::Worker::addFolder(const QString &folder, QStringList *found)
{
    if (isReplaced() || m_folders.size() >= MostFolders || m_folders.contains(folder)
        || !m_watcher.addPath(folder))
        return;
    Stamps &stamps = m_folders[folder];
    const QStringList inner = readFolder(folder, &stamps);
    for (const QString &name : inner) {
        if (m_folders.contains(name))
            continue;
        addFolder(name, found);
        if (found) {
            *found += m_folders.value(name).keys();
            watchFiles(m_folders.value(name));
        }
    }
}

// Returns the folders in @p folder.
QStringList FolderWatch::Worker::readFolder(const QString &folder, Stamps *stamps) const
{
    QStringList inner;
    QDirIterator entries(folder,
                         QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    while (entries.hasNext() && !isReplaced()) {
        entries.next();
        const QFileInfo info = entries.fileInfo();
        if (info.isDir())
            inner += info.filePath();
        else
            stamps->insert(info.filePath(), {info.lastModified(), info.size()});
    }
    return inner;
}

// A folder does not change when a file in it is written in place.
void FolderWatch::Worker::watchFiles(const Stamps &stamps)
{
    if (stamps.isEmpty() || m_files + stamps.size() > MostFiles || isReplaced())
        return;
    m_files += stamps.size();
    m_watcher.addPaths(stamps.keys());
}

void FolderWatch::Worker::compare()
{
    Changes changes;
    for (const QString &folder : std::exchange(m_touched, {}))
        compareFolder(folder, &changes);
    QStringList messages;
    QStringList others;
    for (const QString &file : std::as_const(changes.written))
        (isMessage(file) ? messages : others) += file;
    if (messages.isEmpty() && others.isEmpty() && changes.removed.isEmpty())
        return;
    m_owner->report(m_turn, [owner = m_owner, messages, others, removed = changes.removed] {
        emit owner->changed(messages, others, removed);
    });
}

void FolderWatch::Worker::compareFolder(const QString &folder, Changes *changes)
{
    const Stamps before = m_folders.take(folder);
    m_files -= before.size();
    m_watcher.removePath(folder);
    addFolder(folder, &changes->written);
    const Stamps now = m_folders.value(folder);
    watchFiles(now);
    for (auto stamp = now.begin(); stamp != now.end(); ++stamp) {
        const auto known = before.find(stamp.key());
        if (known == before.end() || *known != *stamp)
            changes->written += stamp.key();
    }
    for (auto stamp = before.begin(); stamp != before.end(); ++stamp) {
        if (!now.contains(stamp.key()))
            changes->removed += stamp.key();
    }
}

FolderWatch::FolderWatch(QObject *parent) : QObject(parent), m_worker(new Worker(this))
{
    m_worker->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    m_thread.start(QThread::LowPriority);
}

FolderWatch::~FolderWatch()
{
    ++m_turn;
    m_thread.quit();
    m_thread.wait();
}

void FolderWatch::watch(const QStringList &names)
{
    const auto begin = [worker = m_worker, names, turn = ++m_turn] { worker->watch(names, turn); };
    QMetaObject::invokeMethod(m_worker, begin, Qt::QueuedConnection);
}

void FolderWatch::report(int turn, std::function<void()> tell)
{
    const auto unlessReplaced = [this, turn, tell = std::move(tell)] {
        if (turn == m_turn)
            tell();
    };
    QMetaObject::invokeMethod(this, unlessReplaced, Qt::QueuedConnection);
}
