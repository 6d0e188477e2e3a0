/*
 * The seeds of the targets that take bodies are bodies: the parser reads them. A seed that is none
 * would reach nothing, and no other test would notice.
 */
#include <qvlsmilparser.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Seed
{
    const char *name;
    int parts;
};

constexpr Seed seeds[] = {
    {"tests_fixtures_messages_mixed.mms", 3},
    {"tests_fixtures_messages_related.mms", 4},
    {"tests_fixtures_show_hostile-names.mms", 13},
};

class SeedsOfBodies : public testing::Test
{
protected:
    void fill(const char *target)
    {
        const QStringList arguments{QString::fromLatin1(target), m_folder.path(),
                                    QStringLiteral(QVL_FUZZ_PROGRAMS)};
        ASSERT_EQ(QProcess::execute(QStringLiteral(QVL_FUZZ_SEED), arguments), 0);
    }

    void expectParts()
    {
        for (const Seed &seed : seeds) {
            SCOPED_TRACE(seed.name);
            EXPECT_EQ(parsedParts(QString::fromLatin1(seed.name)), seed.parts);
        }
        const QStringList messages = QDir(m_folder.path()).entryList({QStringLiteral("*.mms")});
        for (const QString &name : messages)
            EXPECT_GT(parsedParts(name), 0) << qPrintable(name);
    }

private:
    int parsedParts(const QString &name)
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            return -1;
        MMS_UTIL_MsgHeaderBase header;
        MMS_COMP_SMILMultipart body;
        const int result = MMS_COMP_SMILMultipartParser::parse(file.readAll(), &header, &body);
        return result == MultipartResult::Ok ? body.getPartCount() : -1;
    }

    QTemporaryDir m_folder;
};

TEST_F(SeedsOfBodies, ForMultipartHaveThePartsOfTheirMessages)
{
    fill("multipart");
    expectParts();
}

TEST_F(SeedsOfBodies, ForPartsHaveThePartsOfTheirMessages)
{
    fill("parts");
    expectParts();
}

} // namespace
