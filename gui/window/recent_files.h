/*
 * The files and folders that were opened last.
 */
#pragma once

#include <QSettings>
#include <QStringList>

class RecentFiles
{
public:
    static constexpr qsizetype Most = 10;

    /// @p settings must outlive the object.
    explicit RecentFiles(QSettings *settings) : m_settings(settings) { }

    /// The names, the last one first.
    QStringList names() const;
    /// Puts @p name, a file or folder, first.
    void add(const QString &name);
    /// Forgets @p name, which cannot be opened any more.
    void remove(const QString &name);
    void clear();

private:
    void set(const QStringList &names);

    QSettings *m_settings;
};
