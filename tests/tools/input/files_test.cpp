/*
 * Reading files: never more than the limit and one octet.
 */
#include "input/files.h"

#include "support/scratch_folder.h"

#include <gtest/gtest.h>

namespace {

class ReadFile : public testing::Test
{
protected:
    QString fileOf(const QByteArray &octets) { return m_folder.write("file", octets); }
    QString sparseFileOf(qint64 size)
    {
        const QString name = fileOf("start");
        EXPECT_TRUE(QFile::resize(name, size));
        return name;
    }

    QByteArray m_octets;
    QString m_error;

private:
    ScratchFolder m_folder;
};

} // namespace

TEST_F(ReadFile, ReadsAFileOfExactlyTheLimit)
{
    ASSERT_TRUE(readFile(fileOf("1234567"), 7, &m_octets, &m_error)) << m_error.toStdString();
    EXPECT_EQ(m_octets, "1234567");
}

TEST_F(ReadFile, RefusesAFileOfOneOctetMore)
{
    const QString name = fileOf("12345678");
    EXPECT_FALSE(readFile(name, 7, &m_octets, &m_error));
    EXPECT_EQ(m_error,
              "cannot read " + name
                  + ": it has more than 7 octets; set a higher limit with --max-size");
}

TEST_F(ReadFile, ReadsNothingOfARegularFileThatIsTooLarge)
{
    constexpr qint64 FourGigabytes = qint64(4) << 30;
    EXPECT_FALSE(readFile(sparseFileOf(FourGigabytes + 5), StandardSizeLimit, &m_octets, &m_error));
    EXPECT_TRUE(m_octets.isEmpty());
    EXPECT_TRUE(m_error.contains("it has more than 64M octets; ")) << m_error.toStdString();
}

TEST_F(ReadFile, ReadsOneOctetMoreThanTheLimitOfADevice)
{
    constexpr qint64 limit = 1'000'000;
    EXPECT_FALSE(readFile("/dev/zero", limit, &m_octets, &m_error));
    EXPECT_EQ(m_octets.size(), limit + 1);
    EXPECT_TRUE(m_error.startsWith("cannot read /dev/zero: it has more than 1000000 octets; "));
}

TEST_F(ReadFile, ReadsAFileOfManySteps)
{
    QByteArray octets;
    for (int i = 0; i < 100'000; ++i)
        octets += QByteArray::number(i);
    ASSERT_TRUE(readFile(fileOf(octets), StandardSizeLimit, &m_octets, &m_error));
    EXPECT_TRUE(m_octets == octets);
}

TEST_F(ReadFile, ReadsAFileThatIsLargerThanItsSize)
{
    ASSERT_TRUE(readFile("/proc/self/status", StandardSizeLimit, &m_octets, &m_error));
    EXPECT_TRUE(m_octets.startsWith("Name:"));
}

TEST_F(ReadFile, ReadsAStartThatEndsWithTheFile)
{
    ASSERT_TRUE(readStart(fileOf("123"), 5, &m_octets, &m_error));
    EXPECT_EQ(m_octets, "123");
    m_octets.clear();
    ASSERT_TRUE(readStart(fileOf("1234567"), 5, &m_octets, &m_error));
    EXPECT_EQ(m_octets, "12345");
}
