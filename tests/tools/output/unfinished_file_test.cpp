/*
 * Files that get their names once they are complete, with and without a temporary name.
 */
#include "output/unfinished_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>

#include <sys/stat.h>

namespace {

class UnfinishedFiles : public testing::TestWithParam<UnfinishedFile::Kind>
{
protected:
    QByteArray folder() const { return m_directory.path().toLocal8Bit(); }
    QByteArray path(const char *name) const { return folder() + '/' + name; }
    QStringList names() const
    {
        return QDir(m_directory.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    QByteArray contentOf(const char *name) const
    {
        QFile file(QString::fromLocal8Bit(path(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }
    void put(const char *name, const QByteArray &octets) const
    {
        QFile file(QString::fromLocal8Bit(path(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(octets), octets.size());
    }
    mode_t permissionsOf(const char *name) const
    {
        struct stat info = {};
        EXPECT_EQ(::stat(path(name).constData(), &info), 0);
        return info.st_mode & ACCESSPERMS;
    }
    void link(const char *target, const char *name) const
    {
        ASSERT_EQ(::symlink(target, path(name).constData()), 0);
    }

private:
    const QTemporaryDir m_directory;
};

using enum UnfinishedFile::Existing;

} // namespace

INSTANTIATE_TEST_SUITE_P(Kinds, UnfinishedFiles,
                         testing::Values(UnfinishedFile::Nameless, UnfinishedFile::Named));

TEST_P(UnfinishedFiles, GetTheirNamesWhenMoved)
{
    UnfinishedFile file(folder(), GetParam());
    ASSERT_EQ(file.write("octets"), 0);
    EXPECT_FALSE(names().contains("name"));
    ASSERT_EQ(file.moveTo(path("name"), Keep), 0);
    EXPECT_EQ(names(), QStringList("name"));
    EXPECT_EQ(contentOf("name"), "octets");
}

TEST_P(UnfinishedFiles, VanishUnlessMoved)
{
    {
        UnfinishedFile file(folder(), GetParam());
        ASSERT_EQ(file.write("octets"), 0);
        EXPECT_EQ(names().size(), GetParam() == UnfinishedFile::Named ? 1 : 0);
    }
    EXPECT_TRUE(names().isEmpty());
}

TEST_P(UnfinishedFiles, KeepAFileAndTakeAnotherName)
{
    put("name", "mine");
    {
        UnfinishedFile file(folder(), GetParam());
        ASSERT_EQ(file.write("octets"), 0);
        EXPECT_EQ(file.moveTo(path("name"), Keep), EEXIST);
        EXPECT_EQ(file.moveTo(path("other"), Keep), 0);
    }
    EXPECT_EQ(contentOf("name"), "mine");
    EXPECT_EQ(contentOf("other"), "octets");
    EXPECT_EQ(names(), QStringList({"name", "other"}));
}

TEST_P(UnfinishedFiles, KeepALinkAndDoNotFollowIt)
{
    link("elsewhere", "name");
    UnfinishedFile file(folder(), GetParam());
    ASSERT_EQ(file.write("octets"), 0);
    EXPECT_EQ(file.moveTo(path("name"), Keep), EEXIST);
    EXPECT_FALSE(names().contains("elsewhere"));
}

TEST_P(UnfinishedFiles, ReplaceAFileWithItsPermissions)
{
    put("name", "old");
    ASSERT_EQ(::chmod(path("name").constData(), 0640), 0);
    {
        UnfinishedFile file(folder(), GetParam());
        ASSERT_EQ(file.write("octets"), 0);
        EXPECT_EQ(file.moveTo(path("name"), Replace), 0);
    }
    EXPECT_EQ(names(), QStringList("name"));
    EXPECT_EQ(contentOf("name"), "octets");
    EXPECT_EQ(permissionsOf("name"), mode_t(0640));
}

TEST_P(UnfinishedFiles, ReplaceALinkAndDoNotFollowIt)
{
    put("elsewhere", "mine");
    link("elsewhere", "name");
    UnfinishedFile file(folder(), GetParam());
    ASSERT_EQ(file.write("octets"), 0);
    EXPECT_EQ(file.moveTo(path("name"), Replace), 0);
    EXPECT_EQ(contentOf("elsewhere"), "mine");
    EXPECT_EQ(contentOf("name"), "octets");
    EXPECT_FALSE(QFileInfo(QString::fromLocal8Bit(path("name"))).isSymLink());
}

TEST_P(UnfinishedFiles, DoNotReplaceAFolder)
{
    ASSERT_EQ(::mkdir(path("name").constData(), 0700), 0);
    {
        UnfinishedFile file(folder(), GetParam());
        ASSERT_EQ(file.write("octets"), 0);
        EXPECT_EQ(file.moveTo(path("name"), Replace), EISDIR);
        EXPECT_EQ(file.moveTo(path("name"), Keep), EEXIST);
    }
    EXPECT_EQ(names(), QStringList("name"));
}

TEST_P(UnfinishedFiles, HaveThePermissionsOfTheUmask)
{
    const mode_t before = ::umask(027);
    UnfinishedFile file(folder(), GetParam());
    ASSERT_EQ(file.write("octets"), 0);
    ASSERT_EQ(file.moveTo(path("name"), Replace), 0);
    ::umask(before);
    EXPECT_EQ(permissionsOf("name"), mode_t(0640));
}

TEST_P(UnfinishedFiles, ReportAMissingFolder)
{
    UnfinishedFile file(path("missing"), GetParam());
    EXPECT_EQ(file.write("octets"), ENOENT);
}

TEST_P(UnfinishedFiles, ReportAnotherFileSystem)
{
    UnfinishedFile file(folder(), GetParam());
    ASSERT_EQ(file.write("octets"), 0);
    EXPECT_NE(file.moveTo("/proc/name", Keep), 0);
}
