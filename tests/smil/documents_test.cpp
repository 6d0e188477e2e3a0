/*
 * Documents in the styles of many phones and gateways, all of one message, whose parts are in
 * parts.txt. A document NNN-name.smil and the files beside it are a test without code. .model is
 * the result of reading it and the presentation as text. .out is the written presentation; a
 * refused document has none. .again is .out read and written again, or the result if it is refused;
 * it is absent if it equals .out.
 */
#include "view/model_text.h"

#include <qvlsmilparser.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

const QDir folder(QStringLiteral(QVL_FIXTURES "/smil"));

// Nothing for a missing file.
QByteArray octetsOf(const QString &name)
{
    QFile file(folder.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// part ::= media type "|" Content-Location "|" Content-ID "|" octets
MMS_COMP_SMILMultipartBodypart *makePart(const QString &line)
{
    const QStringList fields = line.split(QLatin1Char('|'));
    const QString format = fields.value(0).trimmed();
    auto *part = new MMS_COMP_SMILMultipartBodypart;
    part->setContentType(MMS_COMP_SMILMultipartBodypart::getTypePartFromFormat(format));
    part->setContentSubType(MMS_COMP_SMILMultipartBodypart::getSubTypePartFromFormat(format));
    part->setContentLocation(fields.value(1).trimmed());
    part->setContentID(fields.value(2).trimmed());
    part->setBodyData(fields.value(3).trimmed().toUtf8());
    return part;
}

void appendParts(MMS_COMP_SMILMultipart *multipart)
{
    const QString list = QString::fromUtf8(octetsOf(QStringLiteral("parts.txt")));
    for (const QString &line : list.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (!line.startsWith(QLatin1Char('#')))
            multipart->appendBodypart(makePart(line));
    }
}

struct Reading
{
    std::string result; // "result N", the first line
    std::string model;
    QByteArray written; // empty when the document was refused
};

Reading read(const QByteArray &document)
{
    MMS_COMP_SMILMultipart multipart;
    appendParts(&multipart);
    MMS_COMP_SMILData data(&multipart);
    const int result = MMS_COMP_SMILParser().parse(document, &multipart, &data);
    Reading reading{
        "result " + std::to_string(result) + '\n', ModelText::presentation(data).toStdString(), {}};
    if (result == SmilResult::Ok)
        reading.written = MMS_COMP_SMILParser::convertToSMILLang(&data).toUtf8();
    return reading;
}

std::string readAndWrittenAgain(const QByteArray &written)
{
    const Reading again = read(written);
    return again.written.isEmpty() ? again.result : again.written.toStdString();
}

std::vector<std::string> documents()
{
    std::vector<std::string> names;
    for (const QFileInfo &file : folder.entryInfoList({QStringLiteral("*.smil")}, QDir::Files))
        names.push_back(file.completeBaseName().toStdString());
    return names;
}

std::string testName(const testing::TestParamInfo<std::string> &info)
{
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

class Documents : public testing::TestWithParam<std::string>
{
protected:
    static QByteArray file(const char *suffix)
    {
        return octetsOf(QString::fromStdString(GetParam()) + QLatin1String(suffix));
    }
};

} // namespace

TEST_P(Documents, AreReadAndWritten)
{
    const Reading reading = read(file(".smil"));
    EXPECT_EQ(reading.result + reading.model, file(".model").toStdString());
    EXPECT_EQ(reading.written.toStdString(), file(".out").toStdString());
    if (reading.written.isEmpty())
        return;
    const QByteArray again = file(".again");
    EXPECT_EQ(readAndWrittenAgain(reading.written),
              (again.isEmpty() ? reading.written : again).toStdString());
}

INSTANTIATE_TEST_SUITE_P(, Documents, testing::ValuesIn(documents()), testName);
