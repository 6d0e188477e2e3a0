/*
 * The presentations of real messages, if their folder exists: the number of slides and objects,
 * which parts stay attachments, and whether the text of the writer can be read again.
 */
#include <qvlsmilparser.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <iterator>
#include <ostream>
#include <string>

namespace {

struct Expectation
{
    qint64 octets; // of the whole message; no two have the same length
    int result; // of reading the SMIL part
    unsigned int slides;
    int boundObjects;
    int attachments; // parts that no object refers to
    int resultAgain; // of reading the text of the writer
};

constexpr int NoSmilPart = 1000;

// A root layout with a color is written in a form that cannot be read again.
constexpr Expectation expectations[] = {
    {88, NoSmilPart, 0, 0, 1, NoSmilPart}, // mixed
    {121, NoSmilPart, 0, 0, 1, NoSmilPart},
    {542, SmilResult::Ok, 1, 1, 0, SmilResult::Ok},
    {758, SmilResult::Ok, 1, 2, 0, SmilResult::Ok},
    {2498, SmilResult::Ok, 1, 2, 0, SmilResult::Ok},
    {9345, SmilResult::Ok, 1, 3, 0, SmilResult::Ok},
    {15326, SmilResult::Ok, 2, 4, 0, SmilResult::Ok},
    {19028, SmilResult::Ok, 1, 2, 0, SmilResult::Ok},
    {20799, SmilResult::Ok, 2, 3, 0, SmilResult::Ok},
    {27807, SmilResult::Ok, 7, 8, 0, SmilResult::NotWellFormed},
    {43553, SmilResult::Ok, 5, 7, 0, SmilResult::NotWellFormed},
    {88762, SmilResult::Ok, 1, 1, 0, SmilResult::Ok},
    {214033, SmilResult::Ok, 1, 1, 0, SmilResult::Ok},
};

void PrintTo(const Expectation &expectation, std::ostream *stream)
{
    *stream << expectation.octets << " octets";
}

const QString corpus = QStringLiteral(QVL_CORPUS);
constexpr const char *NoMessages = "QVL_CORPUS names no folder of real messages: '" QVL_CORPUS "'";

QFileInfoList messages()
{
    if (corpus.isEmpty())
        return {};
    return QDir(corpus).entryInfoList({"*.mms", "*.MMS"}, QDir::Files);
}

QByteArray messageOf(qint64 octets)
{
    for (const QFileInfo &info : messages()) {
        QFile file(info.filePath());
        if (info.size() == octets && file.open(QIODevice::ReadOnly))
            return file.readAll();
    }
    return {};
}

std::string testName(const testing::TestParamInfo<Expectation> &info)
{
    return std::to_string(info.param.octets) + "_octets";
}

void decode(const QByteArray &pdu, MMS_COMP_SMILMultipart *multipart)
{
    MMS_UA_UAMsg msg;
    ASSERT_EQ(MMS_UA_Decoder().decodeHeader(pdu, &msg), WireResult::Read);
    multipart->setMimeType(msg.getContentType());
    multipart->setSubType(msg.getContentSubType());
    ASSERT_EQ(MMS_COMP_SMILMultipartParser::parse(msg.getBodyOctets(), &msg, multipart),
              MultipartResult::Ok);
}

int read(const QByteArray &smil, MMS_COMP_SMILMultipart *multipart, MMS_COMP_SMILData *data)
{
    return MMS_COMP_SMILParser().parse(smil, multipart, data);
}

int readAgain(MMS_COMP_SMILMultipart *multipart, MMS_COMP_SMILData *data)
{
    MMS_COMP_SMILData again(multipart);
    return read(MMS_COMP_SMILParser::convertToSMILLang(data).toUtf8(), multipart, &again);
}

int countBoundObjects(const MMS_COMP_SMILData &data)
{
    int count = 0;
    for (unsigned int slide = 0; slide < data.getTotalSlidesNum(); ++slide) {
        for (unsigned int i = 0; i < data.getMediaObjectCount(slide); ++i)
            count += data.getMediaObject(slide, i)->getData() ? 1 : 0;
    }
    return count;
}

class CorpusSmil : public testing::TestWithParam<Expectation>
{
};

} // namespace

TEST_P(CorpusSmil, GivesItsSlides)
{
    if (messages().isEmpty())
        GTEST_SKIP() << NoMessages;
    const QByteArray pdu = messageOf(GetParam().octets);
    ASSERT_FALSE(pdu.isEmpty());
    MMS_COMP_SMILMultipart multipart;
    decode(pdu, &multipart);
    MMS_COMP_SMILData data(&multipart);
    const MMS_COMP_SMILMultipartBodypart *smil = multipart.getSmilPart();
    const int result = smil ? read(smil->getBodyData(), &multipart, &data) : NoSmilPart;
    EXPECT_EQ(result, GetParam().result);
    EXPECT_EQ(data.getTotalSlidesNum(), GetParam().slides);
    EXPECT_EQ(countBoundObjects(data), GetParam().boundObjects);
    EXPECT_EQ(multipart.getAttachmentCount(), GetParam().attachments);
    EXPECT_EQ(smil ? readAgain(&multipart, &data) : NoSmilPart, GetParam().resultAgain);
}

INSTANTIATE_TEST_SUITE_P(, CorpusSmil, testing::ValuesIn(expectations), testName);

TEST(CorpusSmilFolder, HasAnExpectationForEveryMessage)
{
    if (messages().isEmpty())
        GTEST_SKIP() << NoMessages;
    EXPECT_EQ(messages().size(), qsizetype(std::size(expectations)));
}
