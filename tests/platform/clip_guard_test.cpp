/*
 * Clips that announce more than they contain, octet by octet: they are refused before a demuxer
 * allocates memory for it. Clips that contain what they announce are opened.
 */
#include "support/octets.h"
#include "support/play_length.h"

#include <QFile>
#include <QtEndian>

#include <gtest/gtest.h>

namespace {

QByteArray bigEndian(const QList<quint32> &numbers)
{
    QByteArray octets(numbers.size() * 4, '\0');
    for (qsizetype i = 0; i < numbers.size(); ++i)
        qToBigEndian(numbers[i], octets.data() + 4 * i);
    return octets;
}

QByteArray box(const QByteArray &type, const QByteArray &content)
{
    return bigEndian({quint32(content.size() + 8)}) + type + content;
}

// With version and flags.
QByteArray fullBox(const QByteArray &type, const QByteArray &content)
{
    return box(type, QByteArray(4, '\0') + content);
}

/// What an MP4 file with one track of AMR frames announces; each frame is an octet.
struct Announced
{
    quint32 samples = 3;
    quint32 sampleSize = 1;
    quint32 chunks = 1;
    quint32 samplesPerChunk = 3;
    quint32 edits = 0;
    int tracks = 1;
    QByteArray codec = "samr";
};

QByteArray sampleDescription(const QByteArray &codec)
{
    // Reserved octets and the index of the data, then channels, bits, and the rate as 16.16.
    const QByteArray entry = "00 00 00 00 00 00 00 01 00 00 00 00 00 00 00 00"
                             " 00 01 00 10 00 00 00 00 1F 40 00 00"_octets;
    const QByteArray amr = box("damr", QByteArray(9, '\0'));
    return fullBox("stsd", bigEndian({1}) + box(codec, codec == "samr" ? entry + amr : entry));
}

QByteArray track(const Announced &announced)
{
    const QByteArray header =
        fullBox("tkhd", bigEndian({0, 0, 1, 0, 0, 0, 0, 0, 0x0100'0000}) + QByteArray(44, '\0'));
    const QByteArray mediaHeader = fullBox("mdhd", bigEndian({0, 0, 8000, 480, 0}));
    const QByteArray handler = fullBox("hdlr", bigEndian({0}) + "soun" + QByteArray(13, '\0'));
    const QByteArray table = sampleDescription(announced.codec)
        + fullBox("stts", bigEndian({1, announced.samples, 160}))
        + fullBox("stsc", bigEndian({1, 1, announced.samplesPerChunk, 1}))
        + fullBox("stsz", bigEndian({announced.sampleSize, announced.samples}))
        + fullBox("stco",
                  bigEndian({announced.chunks}) + bigEndian(QList<quint32>(announced.chunks, 40)));
    const QByteArray dataReference =
        box("dinf", fullBox("dref", bigEndian({1}) + fullBox("url ", {})));
    const QByteArray media =
        box("minf", fullBox("smhd", bigEndian({0})) + dataReference + box("stbl", table));
    QByteArray edits;
    for (quint32 i = 0; i < announced.edits; ++i)
        edits += bigEndian({60, 0, 0x1'0000});
    if (announced.edits > 0)
        edits = box("edts", fullBox("elst", bigEndian({announced.edits}) + edits));
    return box("trak", header + edits + box("mdia", mediaHeader + handler + media));
}

QByteArray movie(const QByteArray &content)
{
    const QByteArray header =
        fullBox("mvhd", bigEndian({0, 0, 1000, 60, 0x1'0000}) + QByteArray(76, '\0'));
    return box("ftyp", "3gp4" + bigEndian({0}) + "3gp4") + box("moov", header + content)
        + box("mdat", "\x7C\x7C\x7C" + QByteArray(1000, '\0'));
}

QByteArray movie(const Announced &announced)
{
    QByteArray tracks;
    for (int i = 0; i < announced.tracks; ++i)
        tracks += track(announced);
    return movie(tracks);
}

struct AnnouncedRow
{
    const char *name;
    Announced announced;
    bool isOpened;
};

// A tag of ID3v2.4 whose size has seven bits per octet.
QByteArray tag(qsizetype size)
{
    const char digits[] = {char(size >> 21 & 0x7F), char(size >> 14 & 0x7F), char(size >> 7 & 0x7F),
                           char(size & 0x7F)};
    return "49 44 33 04 00 00"_octets + QByteArray(digits, 4) + QByteArray(size, '\x55');
}

QByteArray clipOf(const char *name)
{
    QFile file(QStringLiteral(QVL_FIXTURES "/clips/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray frames(qsizetype count)
{
    return "#!AMR\n" + QByteArray(count, '\x7C'); // no data, an octet each
}

} // namespace

TEST(ClipGuard, OpensAnMp4ThatContainsWhatItAnnounces)
{
    EXPECT_EQ(playLength(movie(Announced()), "3gp"), 60);
    EXPECT_EQ(playLength(movie({.edits = 1}), "3gp"), 60);
    EXPECT_EQ(playLength(movie({.tracks = 2}), "3gp"), 60);
}

TEST(ClipGuard, RefusesAnMp4ThatAnnouncesTooMuch)
{
    const AnnouncedRow rows[] = {
        {"samples at the limit", {.samples = 500'000, .samplesPerChunk = 1}, true},
        {"samples beyond the limit", {.samples = 500'001, .samplesPerChunk = 1}, false},
        {"all samples that a number takes", {.samples = 0xFFFF'FFFF, .samplesPerChunk = 1}, false},
        {"tracks together at the limit",
         {.samples = 125'000, .samplesPerChunk = 1, .tracks = 4},
         true},
        {"tracks together beyond the limit",
         {.samples = 125'001, .samplesPerChunk = 1, .tracks = 4},
         false},
        {"chunks that hold more than the file",
         {.samplesPerChunk = 1'000'000, .codec = "sowt"},
         false},
        {"many chunks that hold more than the file",
         {.chunks = 2'000, .samplesPerChunk = 100'000, .codec = "sowt"},
         false},
        {"edits at the limit", {.samples = 1000, .samplesPerChunk = 1000, .edits = 500}, true},
        {"edits beyond the limit", {.samples = 1000, .samplesPerChunk = 1000, .edits = 501}, false},
    };
    for (const AnnouncedRow &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(playLength(movie(row.announced), "3gp").has_value(), row.isOpened);
    }
}

TEST(ClipGuard, RefusesNestedTables)
{
    const QByteArray table = "stsc" + bigEndian({0, 4096}); // its entries are the tables after it
    EXPECT_EQ(playLength(movie(track(Announced())) + box("free", table), "3gp"), 60);
    EXPECT_EQ(playLength(movie(track(Announced())) + box("free", table.repeated(3000)), "3gp"),
              std::nullopt);
}

TEST(ClipGuard, RefusesCompressedMovieHeaders)
{
    const QByteArray compressed =
        box("cmov", box("dcom", "zlib") + box("cmvd", bigEndian({100}) + "octets"));
    EXPECT_EQ(playLength(movie(compressed + track(Announced())), "3gp"), std::nullopt);
}

TEST(ClipGuard, RefusesFragmentsThatAnnounceTooMuch)
{
    const auto fragmented = [](quint32 samples) {
        const QByteArray defaults = box("mvex", fullBox("trex", bigEndian({1, 1, 160, 1, 0})));
        const QByteArray run =
            fullBox("tfhd", bigEndian({1})) + fullBox("trun", bigEndian({samples}));
        const QByteArray fragment = fullBox("mfhd", bigEndian({1})) + box("traf", run);
        return movie(track(Announced()) + defaults) + box("moof", fragment)
            + box("mdat", "\x7C\x7C");
    };
    EXPECT_TRUE(playLength(fragmented(1), "3gp").has_value());
    EXPECT_EQ(playLength(fragmented(50'000'000), "3gp"), std::nullopt);
}

// Compressed media may hold any octets.
TEST(ClipGuard, ChecksTheMediaOfAnMp4OnlyIfAnIndexCanPointThere)
{
    const QByteArray looksLikeABox = fullBox("stsz", bigEndian({1, 80'000'000}));
    const QByteArray clip = movie(Announced());
    EXPECT_EQ(playLength(clip + box("mdat", looksLikeABox), "3gp"), 60);
    EXPECT_EQ(playLength(clip + box("mdat", looksLikeABox) + box("sidx", {}), "3gp"), std::nullopt);
    EXPECT_EQ(playLength(clip + box("mdat", looksLikeABox) + box("tfra", {}), "3gp"), std::nullopt);
    EXPECT_EQ(playLength(clip + box("free", looksLikeABox), "3gp"), std::nullopt);
    const QByteArray longSize = bigEndian({1}) + "mdat" + bigEndian({0, 36}) + looksLikeABox;
    EXPECT_EQ(playLength(clip + longSize, "3gp"), 60);
    EXPECT_EQ(playLength(clip + bigEndian({0}) + "xxxx" + looksLikeABox, "3gp"), std::nullopt);
}

TEST(ClipGuard, SkipsTagsBeforeAClip)
{
    const QByteArray mp3 = clipOf("sound.mp3");
    const QByteArray aac = clipOf("sound.aac");
    ASSERT_FALSE(mp3.isEmpty());
    ASSERT_FALSE(aac.isEmpty());
    for (const QByteArray &tags : {tag(0), tag(300), tag(100'000), tag(20) + tag(30)}) {
        SCOPED_TRACE(tags.size());
        EXPECT_EQ(playLength(tags + mp3, "mp3"), playLength(mp3, "mp3"));
        EXPECT_EQ(playLength(tags + aac, "aac"), playLength(aac, "aac"));
    }
}

// ID3v2.4, 3.1 and 3.4: a flag announces the footer, which repeats the header after "3DI". The size
// counts neither of them.
TEST(ClipGuard, SkipsTheFooterOfATag)
{
    const QByteArray withFooter =
        "49 44 33 04 00 10 00 00 00 03"_octets + "abc" + "33 44 49 04 00 10 00 00 00 03"_octets;
    for (const char *extension : {"mp3", "aac"}) {
        SCOPED_TRACE(extension);
        const QByteArray clip = clipOf(qPrintable(QStringLiteral("sound.") + extension));
        ASSERT_FALSE(clip.isEmpty());
        EXPECT_EQ(playLength(withFooter + clip, extension), playLength(clip, extension));
        EXPECT_EQ(playLength(withFooter + withFooter + tag(5) + clip, extension),
                  playLength(clip, extension));
    }
    EXPECT_EQ(playLength(withFooter.chopped(1), "aac"), std::nullopt);
}

TEST(ClipGuard, TagLongerThanItsClipLeavesNothing)
{
    EXPECT_EQ(playLength(tag(300).chopped(1), "mp3"), std::nullopt);
    EXPECT_EQ(playLength("ID3", "mp3"), std::nullopt);
    EXPECT_EQ(playLength(tag(0), "aac"), std::nullopt);
}

TEST(ClipGuard, RefusesAWavWithALargeTag)
{
    const QByteArray wav = clipOf("sound.wav");
    ASSERT_FALSE(wav.isEmpty());
    const auto with = [&](const QByteArray &name, quint32 size) {
        QByteArray number(4, '\0');
        qToLittleEndian(size, number.data());
        return wav + name + number;
    };
    EXPECT_EQ(playLength(with("id3 ", 4096), "wav"), playLength(wav, "wav"));
    EXPECT_EQ(playLength(with("id3 ", 4097), "wav"), std::nullopt);
    EXPECT_EQ(playLength(with("ID3 ", 4097), "wav"), std::nullopt);
    EXPECT_EQ(playLength(with("junk", 4097), "wav"), playLength(wav, "wav"));
}

TEST(ClipGuard, CountsNoMorePacketsThanItsLimit)
{
    EXPECT_EQ(playLength(frames(500'000), "amr"), 10'000'000);
    EXPECT_EQ(playLength(frames(500'001), "amr"), 0);
}
