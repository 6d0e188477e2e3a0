/*
 * The records of a clip: whatever a child writes, no record is above the limits or out of order.
 */
#include "clips/clip_record.h"
#include "convert/limits.h"

#include <QTest>

#include <algorithm>
#include <cstring>
#include <limits>

using ClipStream::Header;
using ClipStream::Kind;

namespace {

constexpr qint64 LastMs = qint64(ConvertLimits::Minutes) * 60 * 1000;

Header picture(qint64 ms, int width = 2, int height = 2)
{
    return {.kind = Kind::Picture,
            .octets = width * height * 3,
            .ms = ms,
            .width = width,
            .height = height};
}

Header sound(int octets = 4, int rate = 8000, int channels = 1)
{
    return {.kind = Kind::Sound, .octets = octets, .rate = rate, .channels = channels};
}

QByteArray octetsOf(const Header &header)
{
    return QByteArray(reinterpret_cast<const char *>(&header), sizeof header)
        + QByteArray(std::max(header.octets, 0), 'x');
}

/// Gives the reader octets in pieces and returns the records.
QList<ClipRecord> read(RecordReader *reader, QByteArrayView octets, qsizetype piece)
{
    QList<ClipRecord> records;
    while (!octets.isEmpty() && !reader->isMalformed()) {
        const std::span<char> space = reader->space();
        const qsizetype count = std::min({piece, octets.size(), qsizetype(space.size())});
        std::memcpy(space.data(), octets.data(), std::size_t(count));
        reader->filled(count);
        octets = octets.sliced(count);
        if (auto record = reader->take())
            records += *record;
    }
    return records;
}

/// True if the reader takes all records.
bool isTaken(const QList<Header> &headers)
{
    RecordReader reader;
    for (const Header &header : headers)
        read(&reader, octetsOf(header), 1 << 20);
    return !reader.isMalformed();
}

} // namespace

class ClipRecordTest : public QObject
{
    Q_OBJECT

private slots:
    void readsRecordsInPieces_data();
    void readsRecordsInPieces();
    void refusesWhatIsAboveTheLimits_data();
    void refusesWhatIsAboveTheLimits();
    void takesPicturesWhoseTimesAscend();
    void takesSoundOfOneForm();
    void takesTenMinutesOfSound();
    void takesNothingAfterTheEnd();
    void takesTheNameOfACodecOnce();
    void readsNothingAfterMalformedOctets();
};

void ClipRecordTest::readsRecordsInPieces_data()
{
    QTest::addColumn<qsizetype>("piece");
    for (const qsizetype piece : {1, 7, 32, 1000})
        QTest::addRow("%d", int(piece)) << piece;
}

void ClipRecordTest::readsRecordsInPieces()
{
    QFETCH(const qsizetype, piece);
    RecordReader reader;
    const QByteArray octets = octetsOf(picture(0)) + octetsOf(sound())
        + octetsOf({.kind = Kind::NoSoundDecoder, .octets = 4})
        + octetsOf({.kind = Kind::End, .ms = 40});
    const QList<ClipRecord> records = read(&reader, octets, piece);
    QCOMPARE(records.size(), 4);
    QCOMPARE(records[0].header.width, 2);
    QCOMPARE(records[0].octets, QByteArray(12, 'x'));
    QCOMPARE(records[1].header.rate, 8000);
    QCOMPARE(records[2].octets, "xxxx");
    QCOMPARE(records[3].header.ms, 40);
    QVERIFY(!reader.isMalformed());
}

void ClipRecordTest::refusesWhatIsAboveTheLimits_data()
{
    constexpr int Side = ConvertLimits::PictureSide;
    QTest::addColumn<Header>("header");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("no kind") << Header() << false;
    QTest::newRow("unknown kind") << Header{.kind = Kind(6)} << false;
    QTest::newRow("hostile kind") << Header{.kind = Kind(-1)} << false;
    QTest::newRow("before the begin") << picture(-1) << false;
    QTest::newRow("latest picture") << picture(LastMs) << true;
    QTest::newRow("later picture") << picture(LastMs + 1) << false;
    QTest::newRow("largest picture") << picture(0, Side, Side) << true;
    QTest::newRow("wider picture") << picture(0, Side + 1, 1) << false;
    QTest::newRow("higher picture") << picture(0, 1, Side + 1) << false;
    QTest::newRow("no width") << picture(0, 0, 5) << false;
    QTest::newRow("negative sides") << picture(0, -2, -2) << false;
    QTest::newRow("sides that overflow")
        << Header{.kind = Kind::Picture, .octets = 12, .width = 65536, .height = 65536} << false;
    QTest::newRow("too few pixels")
        << Header{.kind = Kind::Picture, .octets = 11, .width = 2, .height = 2} << false;
    QTest::newRow("largest sound") << sound(ConvertLimits::RecordOctets) << true;
    QTest::newRow("larger sound") << sound(ConvertLimits::RecordOctets + 2) << false;
    QTest::newRow("half a sample") << sound(3) << false;
    QTest::newRow("no sample") << sound(0) << false;
    QTest::newRow("negative size") << sound(-4) << false;
    QTest::newRow("fastest") << sound(4, ConvertLimits::SampleRate) << true;
    QTest::newRow("faster") << sound(4, ConvertLimits::SampleRate + 1) << false;
    QTest::newRow("no rate") << sound(4, 0) << false;
    QTest::newRow("all channels") << sound(16, 8000, 8) << true;
    QTest::newRow("more channels") << sound(18, 8000, 9) << false;
    QTest::newRow("no channel") << sound(4, 8000, 0) << false;
    QTest::newRow("long name") << Header{.kind = Kind::NoSoundDecoder, .octets = 65} << false;
}

void ClipRecordTest::refusesWhatIsAboveTheLimits()
{
    QFETCH(const Header, header);
    QFETCH(const bool, isTaken);
    QCOMPARE(::isTaken({header}), isTaken);
}

void ClipRecordTest::takesPicturesWhoseTimesAscend()
{
    QVERIFY(isTaken({picture(0), picture(1), picture(40)}));
    QVERIFY(!isTaken({picture(40), picture(40)}));
    QVERIFY(!isTaken({picture(40), picture(0)}));
}

void ClipRecordTest::takesSoundOfOneForm()
{
    QVERIFY(isTaken({sound(), sound()}));
    QVERIFY(!isTaken({sound(), sound(4, 16000)}));
    QVERIFY(!isTaken({sound(), sound(4, 8000, 2)}));
}

void ClipRecordTest::takesTenMinutesOfSound()
{
    const QList<Header> minutes(ConvertLimits::Minutes, sound(60 * 8000 * 2));
    QVERIFY(isTaken(minutes));
    QVERIFY(!isTaken(minutes + QList{sound(2)}));
}

void ClipRecordTest::takesNothingAfterTheEnd()
{
    const Header end{.kind = Kind::End};
    QVERIFY(isTaken({sound(), end}));
    QVERIFY(!isTaken({sound(), end, sound()}));
    QVERIFY(!isTaken({end, end}));
}

void ClipRecordTest::takesTheNameOfACodecOnce()
{
    const Header noSound{.kind = Kind::NoSoundDecoder, .octets = 3};
    const Header noPicture{.kind = Kind::NoPictureDecoder, .octets = 3};
    QVERIFY(isTaken({noSound, noPicture}));
    QVERIFY(!isTaken({noSound, noSound}));
}

void ClipRecordTest::readsNothingAfterMalformedOctets()
{
    RecordReader reader;
    read(&reader, QByteArray(100, 'x'), 100);
    QVERIFY(reader.isMalformed());
    QVERIFY(reader.space().empty());
    QVERIFY(!reader.take());
}

QTEST_APPLESS_MAIN(ClipRecordTest)
#include "clip_record_test.moc"
