/*
 * Records of slides in streams: their content, and streams that are truncated or announce too much.
 */
#include "presentation/slide.h"

#include <gtest/gtest.h>

#include "presentation/stream_records.h"

#include <memory>

namespace {

// dur 3000 and two objects, the first with a part and a param.
QByteArray slideRecord()
{
    return "00 00 0B B8 00 00 00 02"_octets + objectFields().join() + newObjectRecord();
}

} // namespace

TEST(SlideStream, NewSlideIsItsDurationAndZero)
{
    for (const int version : StreamVersions)
        EXPECT_EQ(written(Slide(nullptr), version), "00 00 13 88 00 00 00 00"_octets) << version;
}

TEST(SlideStream, RecordIsDurationCountAndObjects)
{
    for (const int version : StreamVersions) {
        SCOPED_TRACE(version);
        Slide read(nullptr);
        EXPECT_EQ(readFrom(slideRecord(), &read, version), QDataStream::Ok);
        EXPECT_EQ(read.getDur(), 3000);
        ASSERT_EQ(read.getMediaObjectCount(), 2U);
        EXPECT_EQ(factsOf(*read.getMediaObject(0)), recordedFacts());
        EXPECT_EQ(factsOf(*read.getMediaObject(1)), ObjectFacts());
        EXPECT_EQ(written(read, version), slideRecord());
    }
}

TEST(SlideStream, DurationIsAnyNumber)
{
    for (const int dur : {-1, -2, 0, 1, 2147483647, -2147483647 - 1}) {
        Slide slide(nullptr);
        slide.setDur(dur);
        Slide read(nullptr);
        EXPECT_EQ(readFrom(written(slide), &read), QDataStream::Ok);
        EXPECT_EQ(read.getDur(), dur);
    }
}

TEST(SlideStream, FlagColorsAndTextSizeAreNotInTheRecord)
{
    Slide slide(nullptr);
    slide.setSetDurManually(true);
    slide.setPageColor({SMIL_COLOR_NAMED, "red", Qt::red});
    slide.setTextColor({SMIL_COLOR_NAMED, "red", Qt::red});
    slide.setTextSize("large");
    EXPECT_EQ(written(slide), written(Slide(nullptr)));
    readFrom(written(Slide(nullptr)), &slide);
    EXPECT_TRUE(slide.getSetDurManually());
    EXPECT_EQ(slide.getPageColor().name, "red");
    EXPECT_EQ(slide.getTextColor().name, "red");
    EXPECT_EQ(slide.getTextSize(), "large");
}

TEST(SlideStream, ReadObjectsAreAppendedAndHaveNoMessage)
{
    Multipart multipart;
    Slide slide(&multipart);
    appendKinds(slide, "ti");
    readFrom(slideRecord(), &slide);
    EXPECT_EQ(sourcesOf(slide), (QStringList{"t0", "i1", "s", ""}));
    EXPECT_EQ(slide.getMediaObject(2)->getMultiPart(), nullptr);
    EXPECT_EQ(slide.getMultiPart(), &multipart);
    EXPECT_EQ(multipart.getPartCount(), 0);
}

TEST(SlideStream, ReadingKeepsTheStoredDuration)
{
    Slide read(nullptr);
    QByteArray record = newObjectRecord();
    record[3] = 0; // an audio
    readFrom("00 00 04 D2 00 00 00 01"_octets + record, &read);
    EXPECT_EQ(kindsOf(read), "a");
    EXPECT_EQ(read.getDur(), 1234);
}

TEST(SlideStream, TruncatedRecordKeepsStartedObjects)
{
    const QByteArray record = slideRecord();
    const qsizetype firstEnd = 8 + objectFields().join().size();
    for (const int version : StreamVersions) {
        for (qsizetype size = 0; size < record.size(); ++size) {
            SCOPED_TRACE(size);
            Slide read(nullptr);
            EXPECT_EQ(readFrom(record.first(size), &read, version), QDataStream::ReadPastEnd);
            EXPECT_EQ(read.getDur(), size >= 4 ? 3000 : 0);
            EXPECT_EQ(read.getMediaObjectCount(), size < 8 ? 0U : size < firstEnd ? 1U : 2U);
        }
    }
}

TEST(SlideStream, HostileObjectCountStopsAtTheEndOfTheStream)
{
    for (const auto &[count, begun] : HostileCounts) {
        SCOPED_TRACE(count.toHex().toStdString());
        Slide read(nullptr);
        readFrom(octet(0, 4) + count, &read);
        EXPECT_EQ(read.getMediaObjectCount(), unsigned(begun));
        Slide withTwo(nullptr);
        readFrom(octet(0, 4) + count + objectFields().join() + newObjectRecord(), &withTwo);
        EXPECT_EQ(withTwo.getMediaObjectCount(), begun ? 3U : 0U);
    }
}

TEST(SlideStream, HostileLengthInAnObjectStopsTheObjectsAfterIt)
{
    for (const QByteArray &length : HostileLengths) {
        SCOPED_TRACE(length.toHex().toStdString());
        QList<QByteArray> fields = objectFields();
        fields[1] = length;
        Slide read(nullptr);
        EXPECT_NE(
            readFrom("00 00 00 00 7F FF FF FF"_octets + fields.join() + octet(0, 5000), &read),
            QDataStream::Ok);
        EXPECT_EQ(read.getMediaObjectCount(), 1U);
    }
}

TEST(SlideStream, CountIsIgnoredOnceTheStreamHasFailed)
{
    QDataStream stream(slideRecord());
    stream.setStatus(QDataStream::ReadPastEnd);
    Slide read(nullptr);
    EXPECT_TRUE(read.readFromStream(stream));
    EXPECT_EQ(read.getMediaObjectCount(), 0U);
}

TEST(SlideStream, ReadPartIsDeletedWithTheSlide)
{
    Multipart multipart;
    auto slide = std::make_unique<Slide>(&multipart);
    readFrom(slideRecord(), slide.get());
    const QvlWeakPointer<Part> part(slide->getMediaObject(0)->getData());
    ASSERT_TRUE(part.get());
    slide.reset();
    EXPECT_FALSE(part.get());
}
