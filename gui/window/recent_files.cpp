#include "window/recent_files.h"

#include <QDir>

namespace {

constexpr QLatin1StringView Key("recentFiles");

QString absolute(const QString &name)
{
    return QDir::cleanPath(QDir().absoluteFilePath(name));
}

} // namespace

QStringList RecentFiles::names() const
{
    return m_settings->value(Key).toStringList();
}

void RecentFiles::add(const QString &name)
{
    QStringList all = names();
    all.removeAll(absolute(name));
    all.prepend(absolute(name));
    set(all.first(std::min(all.size(), Most)));
}

void RecentFiles::remove(const QString &name)
{
    QStringList all = names();
    all.removeAll(absolute(name));
    set(all);
}

void RecentFiles::clear()
{
    set({});
}

void RecentFiles::set(const QStringList &names)
{
    m_settings->setValue(Key, names);
}
