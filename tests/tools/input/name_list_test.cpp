/*
 * Names in a file: lines, or names that end with NUL.
 */
#include "input/name_list.h"

#include "support/scratch_folder.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <climits>

namespace {

class NamesInAList : public testing::Test
{
protected:
    QString listOf(const QByteArray &octets) { return m_folder.write("list", octets); }
    QStringList namesIn(const QByteArray &octets, char end)
    {
        NameList list(listOf(octets), end);
        QStringList names;
        while (const auto name = list.next())
            names += *name;
        m_error = list.error();
        return names;
    }

    QString m_error;

private:
    ScratchFolder m_folder;
};

} // namespace

TEST_F(NamesInAList, AreLines)
{
    EXPECT_EQ(namesIn("a.mms\nb c.mms\n", '\n'), (QStringList{"a.mms", "b c.mms"}));
    EXPECT_EQ(m_error, QString());
}

TEST_F(NamesInAList, MayContainLineFeedsWhenTheyEndWithNul)
{
    EXPECT_EQ(namesIn(QByteArray("a\nb\0c\0", 6), '\0'), (QStringList{"a\nb", "c"}));
}

TEST_F(NamesInAList, NeedNoEndAfterTheLastOne)
{
    EXPECT_EQ(namesIn("a\nb", '\n'), (QStringList{"a", "b"}));
}

TEST_F(NamesInAList, AreNeverEmpty)
{
    EXPECT_EQ(namesIn("\n\na\n\nb\n\n", '\n'), (QStringList{"a", "b"}));
    EXPECT_EQ(namesIn("", '\n'), QStringList());
}

TEST_F(NamesInAList, NeverNameStandardInput)
{
    EXPECT_EQ(namesIn("-\n", '\n'), QStringList{"./-"});
}

TEST_F(NamesInAList, KeepOctetsThatAreNotUtf8)
{
    EXPECT_EQ(namesIn("\xE9\n", '\n'), QStringList{QString(QChar(0xDCE9))});
}

TEST_F(NamesInAList, AreAtMostAsLongAsThoseOfTheSystem)
{
    const QByteArray longest(PATH_MAX - 1, 'a');
    EXPECT_EQ(namesIn(longest + '\n', '\n').size(), 1);
    EXPECT_EQ(namesIn("b\n" + longest + "a\nc\n", '\n'), QStringList{"b"});
    EXPECT_TRUE(m_error.endsWith("a name is longer than 4095 octets; is this a list of names?"))
        << m_error.toStdString();
}

TEST_F(NamesInAList, GiveTheReasonWhenTheyCannotBeRead)
{
    NameList missing("/missing/list", '\n');
    EXPECT_EQ(missing.next(), std::nullopt);
    EXPECT_EQ(missing.error(),
              QString("cannot read the names in /missing/list: No such file or directory"));
    NameList folder("/", '\n');
    EXPECT_EQ(folder.next(), std::nullopt);
    EXPECT_EQ(folder.error(), QString("cannot read the names in /: Is a directory"));
}

TEST_F(NamesInAList, SayHowMuchWasRead)
{
    NameList list(listOf("abc\ndef\n"), '\n');
    EXPECT_EQ(list.fraction(), 0);
    list.next();
    EXPECT_EQ(list.fraction(), 0.5);
    list.next();
    EXPECT_EQ(list.fraction(), 1);
    list.next();
    EXPECT_EQ(list.fraction(), 1);
}
