/*
 * The files that a user names: arguments, folders and lists.
 */
#include "input/message_files.h"

#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

class NamedMessages : public testing::Test
{
protected:
    QString path(const QString &name) const { return m_folder.path(name); }
    QString write(const QString &name, const QByteArray &octets = "\x8C\x84")
    {
        return m_folder.write(name, octets);
    }
    // The names below the folder of the test.
    QStringList namesFrom(MessageFiles *files)
    {
        QStringList names;
        while (const auto name = files->next()) {
            names += QDir(m_folder.path()).relativeFilePath(*name);
            m_fractions += files->fraction();
        }
        return names;
    }
    QStringList namesIn(const QStringList &arguments, bool findsHidden = false)
    {
        MessageFiles files(arguments, std::nullopt, findsHidden);
        const QStringList names = namesFrom(&files);
        m_skipped = files.skipped();
        return names;
    }

    QList<double> m_fractions;
    qsizetype m_skipped = 0;

private:
    ScratchFolder m_folder;
};

} // namespace

TEST_F(NamedMessages, KeepTheOrderOfTheArguments)
{
    EXPECT_EQ(namesIn({write("b"), write("a"), path("missing")}),
              (QStringList{"b", "a", "missing"}));
}

TEST_F(NamedMessages, AreSortedByNameInFolders)
{
    for (const char *name : {"f/c", "f/b/z", "f/b/y", "f/a"})
        write(name);
    EXPECT_EQ(namesIn({path("f")}), (QStringList{"f/a", "f/b/y", "f/b/z", "f/c"}));
}

TEST_F(NamedMessages, BeginLikeMessagesInFoldersAndTheOthersAreCounted)
{
    write("f/message", "\x8C\x97");
    write("f/unknown-type", "\x8C\x98");
    write("f/text", "text");
    write("f/empty", "");
    write("f/message.status", "\x8C");
    EXPECT_EQ(namesIn({path("f")}), QStringList{"f/message"});
    EXPECT_EQ(m_skipped, 4);
}

TEST_F(NamedMessages, AreTakenAsTheyAreWhenTheUserNamesThem)
{
    EXPECT_EQ(namesIn({write("text", "text")}), QStringList{"text"});
    EXPECT_EQ(m_skipped, 0);
}

TEST_F(NamedMessages, AreHiddenOnlyIfAsked)
{
    write("f/.a");
    write("f/.b/c");
    EXPECT_EQ(namesIn({path("f")}), QStringList());
    EXPECT_EQ(m_skipped, 0);
    EXPECT_EQ(namesIn({path("f")}, true), (QStringList{"f/.a", "f/.b/c"}));
}

TEST_F(NamedMessages, AreNotFoundThroughLinks)
{
    write("elsewhere/a");
    QDir().mkpath(path("f"));
    ASSERT_TRUE(QFile::link(path("elsewhere"), path("f/folder")));
    ASSERT_TRUE(QFile::link(path("elsewhere/a"), path("f/file")));
    ASSERT_TRUE(QFile::link(path("f"), path("f/loop")));
    EXPECT_EQ(namesIn({path("f")}), QStringList());
    EXPECT_EQ(m_skipped, 3);
}

TEST_F(NamedMessages, AreNoPipes)
{
    QDir().mkpath(path("f"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("f/pipe")).constData(), 0600), 0);
    EXPECT_EQ(namesIn({path("f")}), QStringList());
    EXPECT_EQ(m_skipped, 1);
}

TEST_F(NamedMessages, FollowTheArgumentsWhenAListNamesThem)
{
    write("f/a");
    const QString list = write("list", (path("f") + '\n' + path("b") + '\n').toUtf8());
    MessageFiles files({path("c")}, NameList(list, '\n'), false);
    EXPECT_EQ(namesFrom(&files), (QStringList{"c", "f/a", "b"}));
}

TEST_F(NamedMessages, SayHowMuchWasWalked)
{
    for (const char *name : {"f/a", "f/g/b", "f/g/c", "f/h", "f/i"})
        write(name);
    namesIn({path("f"), path("last")});
    EXPECT_EQ(m_fractions, (QList<double>{0, 0.125, 0.1875, 0.25, 0.375, 1}));
}

TEST_F(NamedMessages, AreOneOnlyWithoutFoldersAndLists)
{
    const QString message = write("f/a");
    EXPECT_TRUE(MessageFiles({message}, std::nullopt, false).isOneFile());
    EXPECT_FALSE(MessageFiles({message, message}, std::nullopt, false).isOneFile());
    EXPECT_FALSE(MessageFiles({path("f")}, std::nullopt, false).isOneFile());
    EXPECT_FALSE(MessageFiles({}, NameList(message, '\n'), false).isOneFile());
}
