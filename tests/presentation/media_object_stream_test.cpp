/*
 * Records of params and media objects in streams, octet by octet, in every version of stored
 * messages; and streams that are truncated or announce too much.
 */
#include "presentation/media_object.h"

#include <gtest/gtest.h>

#include "presentation/stream_records.h"

#include <memory>

namespace {

// Objects never delete the part that they read.
class ReadObject
{
public:
    explicit ReadObject(Multipart *multipart = nullptr) : m_object(multipart) { }
    ~ReadObject() { m_object.clear(); }
    ReadObject(const ReadObject &) = delete;
    ReadObject &operator=(const ReadObject &) = delete;

    Object *operator->() { return &m_object; }
    Object &operator*() { return m_object; }

private:
    Object m_object;
};

Part recordedPart()
{
    Part part;
    part.setContentType("a");
    part.setContentSubType("b");
    part.setContentLocation("l");
    part.setDescription(QString());
    part.setDispFileType(Part::Shown);
    part.setBodyData("01 00 FF"_octets);
    return part;
}

void fillAsRecorded(Object &object, Part *part)
{
    object.setSrc("s");
    object.setAlt("x");
    object.setMediaElementType(SMIL_MEDIA_TEXT);
    object.setMediaType("m");
    object.setRegionId("r");
    object.setBeginTimeType(SMIL_TIME_EVENT);
    object.setBeginTimeEvent("b");
    object.setBeginTimeLength(1000);
    object.setEndTimeType(SMIL_TIME_OFFSET);
    object.setEndTimeLength(-1);
    object.setData(part);
    object.appendParamElem("n", QChar(0x20AC), SMIL_PARAM_VALUE_OBJECT, QString());
}

} // namespace

TEST(ParamStream, RecordIsNameValueValueTypeAndType)
{
    for (const int version : StreamVersions) {
        SCOPED_TRACE(version);
        const Param param("n", QChar(0x20AC), SMIL_PARAM_VALUE_OBJECT, QString());
        EXPECT_EQ(written(param, version), paramFields().join());
        Param read("old", "old", SMIL_PARAM_VALUE_REF, "old");
        EXPECT_EQ(readFrom(paramFields().join(), &read, version), QDataStream::Ok);
        EXPECT_EQ(factsOf(read), factsOf(param));
        EXPECT_TRUE(read.getRefValueType().isNull());
    }
}

TEST(ParamStream, NewParamIsEmptyTextsAndZero)
{
    for (const int version : StreamVersions)
        EXPECT_EQ(written(Param(), version), octet(0, 16)) << version;
}

TEST(ParamStream, ValueTypeIsAnyNumber)
{
    for (const int number : {-1, 4, 0x7FFFFFFF}) {
        const auto type = MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE(number);
        Param read;
        readFrom(written(Param("n", "v", type, "t")), &read);
        EXPECT_EQ(factsOf(read), QString("n|v|%1|t").arg(number));
    }
}

TEST(ParamStream, TruncatedRecordKeepsCompleteFields)
{
    const QByteArray record = paramFields().join();
    for (qsizetype size = 0; size < record.size(); ++size) {
        SCOPED_TRACE(size);
        Param read("old", "old", SMIL_PARAM_VALUE_REF, "old");
        EXPECT_EQ(readFrom(record.first(size), &read), QDataStream::ReadPastEnd);
        EXPECT_EQ(read.getName(), size >= 6 ? "n" : "");
        EXPECT_EQ(read.getValue(), size >= 12 ? QString(QChar(0x20AC)) : "");
        EXPECT_EQ(read.getValueType(), size >= 16 ? 2 : 0);
        EXPECT_EQ(read.getRefValueType(), "");
    }
}

TEST(ParamStream, HostileLengthYieldsAnEmptyText)
{
    for (const QByteArray &length : HostileLengths) {
        SCOPED_TRACE(length.toHex().toStdString());
        Param read("old", "old", SMIL_PARAM_VALUE_REF, "old");
        EXPECT_NE(readFrom(length, &read), QDataStream::Ok);
        EXPECT_EQ(factsOf(read), "||0|");
    }
}

TEST(MediaObjectStream, NewObjectEndsWithTwoZeros)
{
    for (const int version : StreamVersions)
        EXPECT_EQ(written(Object(nullptr), version), newObjectRecord()) << version;
}

TEST(MediaObjectStream, RecordIsAttributesTimesPartAndParams)
{
    for (const int version : StreamVersions) {
        SCOPED_TRACE(version);
        Part part = recordedPart();
        Object object(nullptr);
        fillAsRecorded(object, &part);
        EXPECT_EQ(factsOf(object), recordedFacts());
        EXPECT_EQ(written(object, version), objectFields().join());
    }
}

TEST(MediaObjectStream, RecordIsReadBackAsWritten)
{
    for (const int version : StreamVersions) {
        SCOPED_TRACE(version);
        ReadObject read;
        EXPECT_EQ(readFrom(objectFields().join(), &*read, version), QDataStream::Ok);
        EXPECT_EQ(factsOf(*read), recordedFacts());
        EXPECT_TRUE(read->getEndTimeEvent().isNull());
        ASSERT_TRUE(read->getData());
        EXPECT_EQ(factsOf(*read->getData()), factsOf(recordedPart()));
        EXPECT_TRUE(read->getData()->getDescription().isNull());
        EXPECT_EQ(written(*read, version), objectFields().join());
    }
}

TEST(MediaObjectStream, ReadingReplacesEveryAttribute)
{
    Object object(nullptr);
    fillAsRecorded(object, nullptr);
    object.setMimeType("old");
    EXPECT_EQ(readFrom(newObjectRecord(), &object), QDataStream::Ok);
    EXPECT_EQ(factsOf(object), (ObjectFacts{.params = recordedFacts().params}));
}

TEST(MediaObjectStream, ReadingDoesNotUseTheSetters)
{
    Object source(nullptr);
    source.setMediaElementType(SMIL_MEDIA_TEXT);
    source.setMediaType("m");
    source.setSrc("s");
    source.setAlt("");
    Object read(nullptr);
    readFrom(written(source), &read);
    EXPECT_EQ(read.getMediaType(), "m");
    EXPECT_EQ(read.getAlt(), "");
}

TEST(MediaObjectStream, ReadParamsAreAppended)
{
    ReadObject read;
    read->appendParamElem("own", "0", SMIL_PARAM_VALUE_DATA, "");
    readFrom(objectFields().join(), &*read);
    readFrom(objectFields().join(), &*read);
    const QStringList param = recordedFacts().params;
    EXPECT_EQ(paramsOf(*read), QStringList("own|0|0|") + param + param);
}

TEST(MediaObjectStream, AnyFlagExceptOneMeansNoPart)
{
    for (const QByteArray &flag :
         {"00 00 00 00"_octets, "00 00 00 02"_octets, "FF FF FF FF"_octets, "01 00 00 00"_octets}) {
        Object read(nullptr);
        EXPECT_EQ(
            readFrom(attributeFields().join() + flag + "00 00 00 01"_octets + paramFields().join(),
                     &read),
            QDataStream::Ok);
        EXPECT_EQ(read.getData(), nullptr);
        EXPECT_EQ(factsOf(read), recordedFacts());
    }
}

TEST(MediaObjectStream, MessageIsNotReadAndDoesNotGetThePart)
{
    Multipart multipart;
    ReadObject read(&multipart);
    readFrom(objectFields().join(), &*read);
    EXPECT_EQ(read->getMultiPart(), &multipart);
    EXPECT_EQ(multipart.getPartCount(), 0);
    ASSERT_TRUE(read->getData());
    EXPECT_FALSE(read->getData()->isHeldByMultipart());
    EXPECT_EQ(read->getData()->getRefCount(), 1);
}

TEST(MediaObjectStream, UsesTheByteOrderOfTheStream)
{
    QByteArray octets;
    QDataStream out(&octets, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    Object source(nullptr);
    fillAsRecorded(source, nullptr);
    source.writeToStream(out);
    EXPECT_EQ(octets.first(10), "02 00 00 00 02 00 00 00 6D 00"_octets);
    QDataStream in(octets);
    in.setByteOrder(QDataStream::LittleEndian);
    Object read(nullptr);
    EXPECT_TRUE(read.readFromStream(in));
    EXPECT_EQ(factsOf(read), recordedFacts());
}

TEST(MediaObjectStream, TruncatedRecordKeepsTheStartedPartAndParam)
{
    const QList<QByteArray> fields = objectFields();
    const QByteArray record = fields.join();
    const qsizetype flagEnd = sizeOfFirst(fields, 13);
    const qsizetype countEnd = sizeOfFirst(fields, 24);
    for (const int version : StreamVersions) {
        for (qsizetype size = 0; size < record.size(); ++size) {
            SCOPED_TRACE(size);
            ReadObject read;
            EXPECT_EQ(readFrom(record.first(size), &*read, version), QDataStream::ReadPastEnd);
            EXPECT_EQ(read->getData() != nullptr, size >= flagEnd);
            EXPECT_EQ(read->getParamCount(), size >= countEnd ? 1 : 0);
        }
    }
}

TEST(MediaObjectStream, TruncatedRecordKeepsCompleteAttributes)
{
    const QList<QByteArray> fields = attributeFields();
    for (qsizetype count = 0; count < fields.size(); ++count) {
        SCOPED_TRACE(count);
        Object read(nullptr);
        readFrom(fields.first(count).join(), &read);
        EXPECT_EQ(read.getMediaElementType(), count > 0 ? 2 : 0);
        EXPECT_EQ(read.getMediaType(), count > 1 ? "m" : "");
        EXPECT_EQ(read.getSrc(), count > 2 ? "s" : "");
        EXPECT_EQ(read.getRegionId(), count > 3 ? "r" : "");
        EXPECT_EQ(factsOf(read.getBegin()),
                  (TimeFacts{count > 5 ? 1 : 0, count > 6 ? "b" : "", count > 7 ? 1000 : 0}));
        EXPECT_EQ(read.getEndTimeLength(), count > 10 ? -1 : 0);
        EXPECT_EQ(read.getAlt(), "");
    }
}

TEST(MediaObjectStream, HostileParamCountStopsAtTheEndOfTheStream)
{
    for (const auto &[count, begun] : HostileCounts) {
        SCOPED_TRACE(count.toHex().toStdString());
        const QByteArray head = attributeFields().join() + octet(0, 4) + count;
        Object read(nullptr);
        readFrom(head, &read);
        EXPECT_EQ(read.getParamCount(), begun);
        Object withTwo(nullptr);
        readFrom(head + paramFields().join() + paramFields().join(), &withTwo);
        EXPECT_EQ(withTwo.getParamCount(), begun ? 3 : 0);
    }
}

TEST(MediaObjectStream, HostileLengthOfAnyTextTerminates)
{
    const QList<QByteArray> fields = objectFields();
    for (const QByteArray &length : HostileLengths) {
        for (qsizetype place = 0; place < fields.size(); ++place) {
            SCOPED_TRACE(length.toHex().toStdString() + " at " + std::to_string(place));
            QList<QByteArray> hostile = fields;
            hostile[place] = length;
            ReadObject read;
            readFrom(hostile.join(), &*read);
            EXPECT_LE(read->getParamCount(), 1 + 3); // at most as many as there are octets
        }
    }
}

TEST(MediaObjectStream, CountIsIgnoredOnceTheStreamHasFailed)
{
    QDataStream stream(objectFields().join());
    stream.setStatus(QDataStream::ReadCorruptData);
    ReadObject read;
    EXPECT_TRUE(read->readFromStream(stream));
    EXPECT_EQ(read->getParamCount(), 0);
}

TEST(MediaObjectStream, StreamWithoutDeviceTerminates)
{
    QDataStream stream;
    ReadObject read;
    EXPECT_TRUE(read->readFromStream(stream));
    EXPECT_EQ(read->getData(), nullptr);
    EXPECT_EQ(read->getParamCount(), 0);
}
