/*
 * A folder that exists as long as a test.
 */
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

class ScratchFolder
{
public:
    QString path() const { return m_directory.path(); }
    QString path(const QString &name) const { return m_directory.filePath(name); }
    /// Writes a file, and the folders above it. Returns its path.
    QString write(const QString &name, const QByteArray &octets) const
    {
        EXPECT_TRUE(QDir().mkpath(QFileInfo(path(name)).path()));
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(octets), octets.size());
        return file.fileName();
    }

private:
    const QTemporaryDir m_directory;
};
