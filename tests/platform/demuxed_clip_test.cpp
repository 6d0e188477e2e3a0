/*
 * Clips that FFmpeg demuxes, through the platform's player engine: their length, the choice of the
 * reader, and the limits of damaged and hostile clips.
 */
#include "platform/player_engine.h"
#include "support/octets.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <numeric>
#include <random>
#include <tuple>

#include <sys/inotify.h>
#include <unistd.h>

extern "C" {
#include <libavutil/log.h>
}

namespace {

constexpr int NotOpened = -1;
constexpr int Unknown = 0;

struct EngineDestroyer
{
    void operator()(MP_PlayerEngine *engine) const { engine->destroy(); }
};
using EnginePointer = std::unique_ptr<MP_PlayerEngine, EngineDestroyer>;

EnginePointer newEngine()
{
    return EnginePointer(MP_CreatePlayerEngine(nullptr, nullptr));
}

/// Milliseconds of an opened clip; NotOpened if the engine has none.
int lengthIn(MP_PlayerEngine &engine)
{
    StaticStreamInfo info;
    return engine.getStreamInfo(&info) ? info.playDuration : NotOpened;
}

bool open(MP_PlayerEngine &engine, const QByteArray &clip, const char *extension)
{
    return engine.open(clip.constData(), int(clip.size()), extension);
}

/// Milliseconds of a clip in a block of exactly its size; NotOpened if it is refused.
int lengthOf(const QByteArray &clip, const char *extension)
{
    const HeapBlock block(clip);
    const EnginePointer engine = newEngine();
    if (!engine->open(reinterpret_cast<const char *>(block.data()), block.size(), extension))
        return NotOpened;
    const int length = lengthIn(*engine);
    EXPECT_GE(length, 0) << "an opened clip has its information";
    return length;
}

template <typename Integer>
QByteArray big(Integer value)
{
    value = qToBigEndian(value);
    return QByteArray(reinterpret_cast<const char *>(&value), sizeof value);
}

template <typename Integer>
QByteArray little(Integer value)
{
    value = qToLittleEndian(value);
    return QByteArray(reinterpret_cast<const char *>(&value), sizeof value);
}

struct AmrFrame
{
    const char *name;
    int type;
    int size; ///< octets, the first one with the type included
};

constexpr int ComfortNoise = 8;
constexpr int WideComfortNoise = 9;
constexpr int NoData = 15;

constexpr AmrFrame amrFrames[] = {
    {"4.75 kbit/s", 0, 13}, {"5.15 kbit/s", 1, 14}, {"5.90 kbit/s", 2, 16},
    {"6.70 kbit/s", 3, 18}, {"7.40 kbit/s", 4, 20}, {"7.95 kbit/s", 5, 21},
    {"10.2 kbit/s", 6, 27}, {"12.2 kbit/s", 7, 32}, {"comfort noise", ComfortNoise, 6},
    {"no data", NoData, 1},
};

constexpr AmrFrame wideAmrFrames[] = {
    {"6.60 kbit/s", 0, 18},  {"8.85 kbit/s", 1, 24},
    {"12.65 kbit/s", 2, 33}, {"14.25 kbit/s", 3, 37},
    {"15.85 kbit/s", 4, 41}, {"18.25 kbit/s", 5, 47},
    {"19.85 kbit/s", 6, 51}, {"23.05 kbit/s", 7, 59},
    {"23.85 kbit/s", 8, 61}, {"comfort noise", WideComfortNoise, 6},
    {"no data", NoData, 1},
};

QByteArray octetsOf(const AmrFrame &frame)
{
    return octet(frame.type << 3 | 4) + octet(0, frame.size - 1);
}

QByteArray emptyAmr(qsizetype frames)
{
    return "#!AMR\n" + octet(NoData << 3 | 4, frames);
}

void expectAmrFramesLastTwentyMilliseconds(const QByteArray &magic, const auto &frames,
                                           const char *extension)
{
    QByteArray mixture;
    for (const AmrFrame &frame : frames) {
        SCOPED_TRACE(frame.name);
        const QByteArray octets = octetsOf(frame);
        EXPECT_EQ(lengthOf(magic + octets.repeated(117), extension), 2340);
        mixture += octets;
    }
    EXPECT_EQ(lengthOf(magic + mixture.repeated(7), extension), int(std::size(frames)) * 7 * 20);
}

QByteArray riffChunk(const QByteArray &type, const QByteArray &data)
{
    return type + little(quint32(data.size())) + data + octet(0, data.size() % 2);
}

struct PcmFormat
{
    int rate;
    int channels;
    int bits;
};

QByteArray pcmHeader(const PcmFormat &pcm)
{
    const int frameSize = pcm.channels * pcm.bits / 8;
    return little(quint16(1)) + little(quint16(pcm.channels)) + little(quint32(pcm.rate))
        + little(quint32(pcm.rate * frameSize)) + little(quint16(frameSize))
        + little(quint16(pcm.bits));
}

QByteArray pcmSilence(const PcmFormat &pcm, int milliseconds)
{
    const qint64 frames = qint64(pcm.rate) * milliseconds / 1000;
    return octet(0, qsizetype(frames * pcm.channels * pcm.bits / 8));
}

QByteArray wav(const PcmFormat &pcm, int milliseconds)
{
    return riffChunk("RIFF",
                     "WAVE" + riffChunk("fmt ", pcmHeader(pcm))
                         + riffChunk("data", pcmSilence(pcm, milliseconds)));
}

/// A file of QCELP at 13 kbit/s (RFC 3625, 3) with packets of every rate, 20 ms each.
QByteArray qcelp(int packetsOfEachRate)
{
    struct Rate
    {
        int mode; ///< the first octet of a packet
        int size; ///< octets after it
    };
    constexpr Rate rates[] = {{4, 34}, {3, 16}, {2, 7}, {1, 3}};
    QByteArray rateMap;
    QByteArray packets;
    for (const Rate &rate : rates) {
        rateMap += octet(rate.size) + octet(rate.mode);
        packets += (octet(rate.mode) + octet(0, rate.size)).repeated(packetsOfEachRate);
    }
    const QByteArray codec = "41 6D 7F 5E 15 B1 D0 11 BA 91 00 80 5F B4 B9 7E"_octets
        + little(quint16(2)) + octet(0, 80); // its version and name
    // Bits per second, octets and samples of a packet, Hz, bits of a sample.
    const QByteArray sizes = little(quint16(13000)) + little(quint16(35)) + little(quint16(160))
        + little(quint16(8000)) + little(quint16(16));
    const QByteArray format = "01 00"_octets + codec + sizes + little(quint32(std::size(rates)))
        + rateMap.leftJustified(16, '\0') + octet(0, 20);
    const QByteArray rateOfEach =
        little(quint32(1)) + little(quint32(std::size(rates)) * quint32(packetsOfEachRate));
    return riffChunk("RIFF",
                     "QLCM" + riffChunk("fmt ", format) + riffChunk("vrat", rateOfEach)
                         + riffChunk("data", packets));
}

/// Header of an ADTS frame. The content of the frame is never read.
struct AdtsFrame
{
    int rate = 4; ///< index of the sampling rate
    int blocks = 1; ///< of 1024 samples
    int channels = 1;
    bool isMpeg2 = false;
    bool hasChecksum = false;
};

QByteArray octetsOf(const AdtsFrame &frame)
{
    constexpr int LowComplexity = 1;
    const QByteArray content = octet(0, (frame.hasChecksum ? 2 : 0) + 9);
    const int size = 7 + int(content.size());
    return octet(0xFF) + octet(0xF0 | frame.isMpeg2 << 3 | !frame.hasChecksum)
        + octet(LowComplexity << 6 | frame.rate << 2 | frame.channels >> 2)
        + octet((frame.channels & 3) << 6 | size >> 11) + octet(size >> 3 & 0xFF)
        + octet((size & 7) << 5 | 0x1F) + octet(0xFC | (frame.blocks - 1)) + content;
}

QByteArray box(const QByteArray &type, const QByteArray &content)
{
    return big(quint32(8 + content.size())) + type + content;
}

QByteArray fullBox(const QByteArray &type, const QByteArray &content, quint32 flags = 0)
{
    return box(type, big(flags) + content);
}

QByteArray longs(std::initializer_list<quint32> values)
{
    QByteArray octets;
    for (const quint32 value : values)
        octets += big(value);
    return octets;
}

/// A movie of AMR frames, one octet each, at @p positions in the data of the file named by
/// @p reference. Its own data are @p size octets that are valid frames, too.
QByteArray movieOf(const QByteArray &reference, const QList<quint32> &positions, qsizetype size)
{
    const QByteArray type = box("ftyp", "3gp4" + longs({0}) + "3gp4");
    const auto frames = quint32(positions.size());
    QByteArray chunks;
    for (const quint32 position : positions)
        chunks += longs({quint32(type.size()) + 8 + position});
    const QByteArray entry =
        box("samr",
            octet(0, 6) + big(quint16(1)) + octet(0, 8) + "00 01 00 10 00 00 00 00"_octets
                + longs({8000 << 16}) + box("damr", octet(0, 9)));
    const QByteArray samples = fullBox("stsd", longs({1}) + entry)
        + fullBox("stts", longs({1, frames, 160})) + fullBox("stsc", longs({1, 1, 1, 1}))
        + fullBox("stsz", longs({1, frames})) + fullBox("stco", longs({frames}) + chunks);
    const QByteArray media = fullBox("mdhd", longs({0, 0, 8000, frames * 160, 0}))
        + fullBox("hdlr", longs({0}) + "soun" + octet(0, 13))
        + box("minf",
              fullBox("smhd", longs({0})) + box("dinf", fullBox("dref", longs({1}) + reference))
                  + box("stbl", samples));
    const QByteArray track =
        fullBox("tkhd", longs({0, 0, 1, 0, 0, 0, 0, 0, 0x01000000}) + octet(0, 44))
        + box("mdia", media);
    return type + box("mdat", octet(NoData << 3 | 4, size))
        + box("moov",
              fullBox("mvhd", longs({0, 0, 1000, frames * 20, 0x10000}) + octet(0, 76))
                  + box("trak", track));
}

/// 117 consecutive frames.
QByteArray movieOf(const QByteArray &reference)
{
    QList<quint32> positions(117);
    std::iota(positions.begin(), positions.end(), 0U);
    return movieOf(reference, positions, positions.size());
}

const QByteArray SelfContained = fullBox("url ", "", 1);

QByteArray addressOf(const QString &path)
{
    return fullBox("url ", "file://" + path.toLocal8Bit() + octet(0));
}

// An alias in the form of older systems, with only the absolute path filled in.
QByteArray aliasOf(const QString &path)
{
    constexpr quint16 AbsolutePath = 2;
    constexpr quint16 LastField = 0xFFFF;
    QByteArray name = path.toLocal8Bit();
    name += octet(0, name.size() % 2);
    return fullBox("alis",
                   octet(0, 150) + big(AbsolutePath) + big(quint16(name.size())) + name
                       + big(LastField) + big(quint16(0)));
}

/// A film without pictures: a second of sound and a stream of subtitles.
QByteArray filmWithSubtitles(const QByteArray &subtitles)
{
    constexpr PcmFormat Pcm{8000, 1, 8};
    const auto longsOf = [](std::initializer_list<quint32> values) {
        QByteArray octets;
        for (const quint32 value : values)
            octets += little(value);
        return octets;
    };
    const auto streamOf = [&](const QByteArray &type, quint32 rate, const QByteArray &format) {
        const QByteArray header =
            type + longsOf({0, 0, 0, 0, 1, rate, 0, rate, 0, 0, rate == 1 ? 0U : 1U, 0, 0});
        return riffChunk("LIST", "strl" + riffChunk("strh", header) + riffChunk("strf", format));
    };
    const QByteArray packet = "GAB2" + octet(0) + little(quint16(2)) + little(quint32(0))
        + little(quint16(4)) + little(quint32(subtitles.size())) + subtitles;
    return riffChunk(
        "RIFF",
        "AVI "
            + riffChunk("LIST",
                        "hdrl"
                            + riffChunk("avih", longsOf({0, 0, 0, 0, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0}))
                            + streamOf("auds", 8000, pcmHeader(Pcm)) + streamOf("txts", 1, ""))
            + riffChunk("LIST",
                        "movi" + riffChunk("01tx", packet)
                            + riffChunk("00wb", pcmSilence(Pcm, 1000))));
}

/// A folder with a file, which notices when the file is opened.
class WatchedFolder
{
public:
    WatchedFolder()
    {
        QFile file(path());
        if (!file.open(QIODevice::WriteOnly) || file.write(emptyAmr(117)) < 0)
            ADD_FAILURE() << file.errorString().toStdString();
        file.close();
        if (inotify_add_watch(m_events, m_folder.path().toLocal8Bit().constData(), IN_OPEN) < 0)
            ADD_FAILURE() << "the folder cannot be watched";
    }
    WatchedFolder(const WatchedFolder &) = delete;
    WatchedFolder &operator=(const WatchedFolder &) = delete;
    ~WatchedFolder() { ::close(m_events); }

    QString path() const { return m_folder.filePath("sound.amr"); }

    /// Whether something was opened since the last time.
    bool wasVisited()
    {
        std::array<char, 4096> events{};
        return ::read(m_events, events.data(), events.size()) > 0;
    }

private:
    QTemporaryDir m_folder;
    int m_events = inotify_init1(IN_NONBLOCK);
};

constexpr const char *extensions[] = {
    "3g2", "3gp", "3gpp", "3gpp2", "aac",  "amr", "avi",  "awb", "imy", "m4a", "m4v", "mid", "midi",
    "mov", "mp3", "mp4",  "mpe",   "mpeg", "mpg", "mpga", "oga", "ogg", "qcp", "qt",  "wav",
};

struct Fixture
{
    const char *file;
    int length; ///< milliseconds
    int frame; ///< milliseconds, rounded up; a container may put a frame more or less in time
};

// Half a second of sound, a whole one as AMR, and videos of one second and of a fifth. Encoders
// that start with silence and end with a whole frame add to it.
constexpr Fixture fixtures[] = {
    {"sound.aac", 640, 128}, // 5 frames of 1024 samples at 8 kHz
    {"sound.amr", 1000, 20}, // 50 frames
    {"sound.m4a", 500, 1}, // as AAC, but the file has what to skip
    {"sound.mp3", 648, 72}, // 9 frames of 576 samples at 8 kHz
    {"sound.ogg", 500, 32}, // frames of up to 256 samples at 8 kHz, and where the last one ends
    {"sound.wav", 510, 256}, // 2 blocks of 2041 samples at 8 kHz
    {"video.3gp", 1000, 200}, // 5 pictures, and as long a sound
    {"video.avi", 1000, 200}, // 5 pictures
    {"video.mpg", 522, 53}, // its sound: 10 frames of 1152 samples at 22.05 kHz
};

QByteArray contentsOf(const char *fixture)
{
    QFile file(QDir(QVL_FIXTURES "/clips").filePath(fixture));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << fixture;
    return file.readAll();
}

QByteArray contentsOf(const Fixture &fixture)
{
    return contentsOf(fixture.file);
}

QByteArray extensionOf(const Fixture &fixture)
{
    return QFileInfo(fixture.file).suffix().toLatin1();
}

const char DamagedExtension[] = "3gp";

QByteArray damagedClip()
{
    return movieOf(SelfContained).replace("stsz", "????");
}

/// Switches FFmpeg's messages on during its lifetime.
class MediaLog
{
public:
    MediaLog() { QLoggingCategory::setFilterRules("qvl.platform.media.debug=true"); }
    MediaLog(const MediaLog &) = delete;
    MediaLog &operator=(const MediaLog &) = delete;
    ~MediaLog() { QLoggingCategory::setFilterRules(QString()); }
};

std::string saidAbout(const QByteArray &clip, const char *extension)
{
    testing::internal::CaptureStderr();
    lengthOf(clip, extension);
    return testing::internal::GetCapturedStderr();
}

} // namespace

TEST(ClipLength, EveryAmrFrameLastsTwentyMilliseconds)
{
    expectAmrFramesLastTwentyMilliseconds("#!AMR\n", amrFrames, "amr");
}

TEST(ClipLength, EveryWidebandAmrFrameLastsTwentyMilliseconds)
{
    for (const char *extension : {"awb", "amr"})
        expectAmrFramesLastTwentyMilliseconds("#!AMR-WB\n", wideAmrFrames, extension);
}

TEST(ClipLength, PcmIsExact)
{
    constexpr PcmFormat rows[] = {{8000, 1, 8},   {8000, 1, 16},  {11025, 1, 8},  {16000, 1, 16},
                                  {22050, 2, 16}, {44100, 2, 16}, {48000, 6, 24}, {96000, 2, 32}};
    for (const PcmFormat &pcm : rows) {
        for (const int milliseconds : {40, 1240, 60000}) {
            SCOPED_TRACE(testing::Message() << pcm.rate << " Hz, " << milliseconds << " ms");
            EXPECT_EQ(lengthOf(wav(pcm, milliseconds), "wav"), milliseconds);
        }
    }
}

// No frame follows the first one, as it must in a longer clip.
TEST(ClipLength, AdtsMayBeASingleFrame)
{
    const QByteArray frame = octetsOf(AdtsFrame{.rate = 11}); // 8 kHz
    EXPECT_EQ(lengthOf(frame, "aac"), 128);
    EXPECT_EQ(lengthOf(frame.chopped(1), "aac"), 128) << "its end is missing";
    EXPECT_EQ(lengthOf(frame + "x", "aac"), NotOpened);
}

// 441 frames come to whole milliseconds at all rates.
TEST(ClipLength, AdtsIsExactAtEverySamplingRate)
{
    constexpr int rates[] = {96000, 88200, 64000, 48000, 44100, 32000, 24000,
                             22050, 16000, 12000, 11025, 8000,  7350};
    for (int index = 0; index < int(std::size(rates)); ++index) {
        SCOPED_TRACE(rates[index]);
        const QByteArray frames = octetsOf(AdtsFrame{.rate = index}).repeated(441);
        EXPECT_EQ(lengthOf(frames, "aac"), 441LL * 1024 * 1000 / rates[index]);
    }
}

TEST(ClipLength, AdtsFrameWithoutASamplingRateHasNoLength)
{
    for (const int index : {13, 14, 15})
        EXPECT_LE(lengthOf(octetsOf(AdtsFrame{.rate = index}).repeated(441), "aac"), Unknown);
}

TEST(ClipLength, EveryBlockOfAnAdtsFrameCounts)
{
    for (const int blocks : {1, 2, 3, 4}) {
        SCOPED_TRACE(blocks);
        const QByteArray frames = octetsOf(AdtsFrame{.blocks = blocks}).repeated(441);
        EXPECT_EQ(lengthOf(frames, "aac"), blocks * 10240);
    }
}

TEST(ClipLength, OtherFieldsOfAnAdtsHeaderDoNotMatter)
{
    constexpr AdtsFrame rows[] = {
        {.isMpeg2 = true}, {.hasChecksum = true}, {.channels = 2}, {.channels = 7}};
    for (const AdtsFrame &frame : rows)
        EXPECT_EQ(lengthOf(octetsOf(frame).repeated(441), "aac"), 10240);
}

TEST(ClipLength, AdtsFramesOfDifferentRatesAddUp)
{
    const QByteArray frames = octetsOf(AdtsFrame{.rate = 4}).repeated(441)
        + octetsOf(AdtsFrame{.rate = 11}).repeated(441);
    EXPECT_EQ(lengthOf(frames, "aac"), 10240 + 56448);
}

TEST(ClipLength, IsTheLengthOfTheLongestStream)
{
    for (const Fixture &fixture : fixtures) {
        SCOPED_TRACE(fixture.file);
        EXPECT_NEAR(lengthOf(contentsOf(fixture), extensionOf(fixture)), fixture.length,
                    fixture.frame);
    }
}

// As in files with all sound after all pictures: much is read again around every frame.
TEST(ClipLength, CountsFramesFarFromThePreviousOnes)
{
    constexpr quint32 Half = 100'000;
    QList<quint32> positions;
    for (quint32 i = 0; i < 3000; ++i)
        positions += i % 2 * Half + i;
    EXPECT_EQ(lengthOf(movieOf(SelfContained, positions, 2 * Half), "3gp"), 60'000);
}

TEST(ClipLength, IsUnknownBeyondTheLimitOfPackets)
{
    EXPECT_EQ(lengthOf(emptyAmr(499'999), "amr"), 9'999'980);
    EXPECT_EQ(lengthOf(emptyAmr(600'000), "amr"), Unknown);
}

TEST(ClipLength, EveryQcelpPacketLastsTwentyMilliseconds)
{
    EXPECT_EQ(lengthOf(qcelp(1), "qcp"), 80);
    EXPECT_EQ(lengthOf(qcelp(25), "qcp"), 2000);
}

TEST(ClipReader, OpensClipsOfEveryExtension)
{
    struct Row
    {
        const char *extension;
        QByteArray clip;
        int length;
    };
    const QByteArray movie = movieOf(SelfContained);
    const QByteArray film = contentsOf("video.mpg");
    const QByteArray mp3 = contentsOf("sound.mp3");
    const QByteArray ogg = contentsOf("sound.ogg");
    const QByteArray song =
        "4D 54 68 64 00 00 00 06 00 00 00 01 01 F4"_octets // a quarter of 500 ms
        + "4D 54 72 6B 00 00 00 0D 00 90 3C 40 83 74 80 3C 00 00 FF 2F 00"_octets;
    const QByteArray melody = "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\n"
                              "MELODY:c2\r\nEND:IMELODY\r\n";
    const Row rows[] = {
        {"3g2", movie, 2340},
        {"3gp", movie, 2340},
        {"3gpp", movie, 2340},
        {"3gpp2", movie, 2340},
        {"aac", octetsOf(AdtsFrame{}).repeated(441), 10240},
        {"amr", emptyAmr(117), 2340},
        {"avi", filmWithSubtitles("text"), 1000},
        {"awb", "#!AMR-WB\n" + octet(NoData << 3 | 4, 117), 2340},
        {"imy", melody, 500},
        {"m4a", movie, 2340},
        {"m4v", movie, 2340},
        {"mid", song, 500},
        {"midi", song, 500},
        {"mov", movie, 2340},
        {"mp3", mp3, 648},
        {"mp4", movie, 2340},
        {"mpe", film, 522},
        {"mpeg", film, 522},
        {"mpg", film, 522},
        {"mpga", mp3, 648},
        {"oga", ogg, 500},
        {"ogg", ogg, 500},
        {"qcp", qcelp(25), 2000},
        {"qt", movie, 2340},
        {"wav", wav({8000, 1, 8}, 500), 500},
    };
    constexpr int longestFrame = 72; // of the fixtures here
    ASSERT_EQ(std::size(rows), std::size(extensions));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const Row &row = rows[i];
        EXPECT_STREQ(row.extension, extensions[i]);
        EXPECT_NEAR(lengthOf(row.clip, row.extension), row.length, longestFrame) << row.extension;
    }
}

TEST(ClipReader, IsChosenOnlyByTheExtension)
{
    const QByteArray clip = emptyAmr(117);
    for (const char *extension : extensions) {
        SCOPED_TRACE(extension);
        const bool isForAmr = QByteArray(extension) == "amr" || QByteArray(extension) == "awb";
        EXPECT_EQ(lengthOf(clip, extension), isForAmr ? 2340 : NotOpened);
    }
}

TEST(ClipReader, IsFoundForExtensionsInAnyCase)
{
    EXPECT_EQ(lengthOf(emptyAmr(1), "AMR"), 20);
    EXPECT_EQ(lengthOf(emptyAmr(1), "Amr"), 20);
    EXPECT_EQ(lengthOf(movieOf(SelfContained), "3GP"), 2340);
}

TEST(ClipReader, IsMissingForOtherExtensions)
{
    for (const char *extension : {"", ".amr", "amr ", "am", "amrr", "*", "mov,mp4", "txt", "m3u8"})
        EXPECT_EQ(lengthOf(emptyAmr(117), extension), NotOpened) << extension;
}

TEST(ClipReader, IsNotCalledWithoutOctetsOrExtension)
{
    const QByteArray clip = emptyAmr(117);
    const EnginePointer engine = newEngine();
    EXPECT_FALSE(engine->open(nullptr, int(clip.size()), "amr"));
    EXPECT_FALSE(engine->open(clip.constData(), 0, "amr"));
    EXPECT_FALSE(engine->open(clip.constData(), -1, "amr"));
    EXPECT_FALSE(engine->open(clip.constData(), int(clip.size()), nullptr));
    EXPECT_EQ(lengthIn(*engine), NotOpened);
}

TEST(OpenedClip, HasInformationUntilItIsClosed)
{
    const QByteArray clip = emptyAmr(117);
    const EnginePointer engine = newEngine();
    EXPECT_EQ(lengthIn(*engine), NotOpened);
    ASSERT_TRUE(open(*engine, clip, "amr"));
    EXPECT_FALSE(engine->getStreamInfo(nullptr));
    EXPECT_EQ(lengthIn(*engine), 2340);
    EXPECT_EQ(lengthIn(*engine), 2340) << "asked again";
    engine->close();
    EXPECT_EQ(lengthIn(*engine), NotOpened);
    engine->close();
    EXPECT_EQ(lengthIn(*engine), NotOpened);
}

TEST(OpenedClip, IsClosedByOpeningTheNextOne)
{
    const QByteArray clip = emptyAmr(117);
    const QByteArray other = wav({8000, 1, 8}, 500);
    const EnginePointer engine = newEngine();
    ASSERT_TRUE(open(*engine, clip, "amr"));
    ASSERT_TRUE(open(*engine, other, "wav"));
    EXPECT_EQ(lengthIn(*engine), 500);
    EXPECT_FALSE(open(*engine, clip, "wav"));
    EXPECT_EQ(lengthIn(*engine), NotOpened) << "the one before is closed all the same";
}

TEST(MediaLog, IsSilentAboutDamagedClips)
{
    EXPECT_EQ(saidAbout(damagedClip(), DamagedExtension), "");
    for (const Fixture &fixture : fixtures) {
        const QByteArray clip = contentsOf(fixture);
        EXPECT_EQ(saidAbout(clip.first(clip.size() / 2), extensionOf(fixture)), "");
    }
}

TEST(MediaLog, IsUnchangedWhenItsCategoryIsOn)
{
    const MediaLog log;
    EXPECT_NE(saidAbout(damagedClip(), DamagedExtension), "");
}

TEST(MediaLog, GetsItsLevelBackAfterTheLastClip)
{
    const int before = av_log_get_level();
    av_log_set_level(AV_LOG_WARNING);
    const QByteArray clip = emptyAmr(117);
    {
        EnginePointer one = newEngine();
        EnginePointer other = newEngine();
        ASSERT_TRUE(open(*one, clip, "amr"));
        ASSERT_TRUE(open(*other, clip, "amr"));
        EXPECT_EQ(av_log_get_level(), AV_LOG_QUIET);
        one.reset();
        EXPECT_EQ(av_log_get_level(), AV_LOG_QUIET);
    }
    EXPECT_EQ(av_log_get_level(), AV_LOG_WARNING);
    EXPECT_EQ(lengthOf(damagedClip(), DamagedExtension), NotOpened);
    EXPECT_EQ(av_log_get_level(), AV_LOG_WARNING);
    av_log_set_level(before);
}

TEST(HostileClip, DoesNotOpenTheFileThatItRefersTo)
{
    WatchedFolder folder;
    struct Row
    {
        const char *name;
        QByteArray reference;
        int length;
    };
    const Row rows[] = {
        {"itself", SelfContained, 2340},
        {"address", addressOf(folder.path()), 2340}, // which counts for nothing
        {"alias", aliasOf(folder.path()), NotOpened},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(lengthOf(movieOf(row.reference), "mov"), row.length);
        EXPECT_FALSE(folder.wasVisited());
    }
    EXPECT_TRUE(QFile(folder.path()).open(QIODevice::ReadOnly));
    EXPECT_TRUE(folder.wasVisited()) << "the folder notices nothing";
    QFile::remove(folder.path());
    for (const Row &row : rows)
        EXPECT_EQ(lengthOf(movieOf(row.reference), "mov"), row.length) << row.name;
}

TEST(HostileClip, IsNotReadAsAListOfOtherFiles)
{
    WatchedFolder folder;
    const QByteArray path = folder.path().toLocal8Bit();
    const QByteArray lists[] = {
        "#EXTM3U\n#EXT-X-TARGETDURATION:3\n#EXTINF:3,\n" + path + "\n#EXT-X-ENDLIST\n",
        "ffconcat version 1.0\nfile '" + path + "'\n",
        "v=0\no=- 0 0 IN IP4 127.0.0.1\ns=x\nc=IN IP4 127.0.0.1\nt=0 0\nm=audio 5004 RTP/AVP 0\n",
        "[playlist]\nFile1=" + path + "\nLength1=3\nNumberOfEntries=1\nVersion=2\n",
    };
    for (const QByteArray &list : lists) {
        for (const char *extension : extensions)
            EXPECT_EQ(lengthOf(list, extension), NotOpened) << extension;
    }
    EXPECT_FALSE(folder.wasVisited());
}

TEST(HostileClip, IsNotReadForTheSubtitlesInIt)
{
    WatchedFolder folder;
    const QByteArray path = folder.path().toLocal8Bit();
    const QByteArray rows[] = {
        "1\n00:00:00,000 --> 01:00:00,000\nText\n\n",
        "[Script Info]\nScriptType: v4.00\n[Events]\nDialogue: "
        "0,0:00:00.00,1:00:00.00,,,,,,,Text\n",
        "#EXTM3U\n#EXT-X-TARGETDURATION:3\n#EXTINF:3,\n" + path + "\n#EXT-X-ENDLIST\n",
    };
    for (const QByteArray &subtitles : rows)
        EXPECT_EQ(lengthOf(filmWithSubtitles(subtitles), "avi"), 1000) << subtitles.constData();
    EXPECT_FALSE(folder.wasVisited());
}

TEST(DamagedClip, IsNeverLongerWhenTruncated)
{
    for (const Fixture &fixture : fixtures) {
        const QByteArray clip = contentsOf(fixture);
        for (int percent = 0; percent < 100; ++percent) {
            SCOPED_TRACE(testing::Message() << percent << " % of " << fixture.file);
            const QByteArray truncated = clip.first(clip.size() * percent / 100);
            EXPECT_LE(lengthOf(truncated, extensionOf(fixture)), fixture.length + fixture.frame);
        }
    }
}

TEST(DamagedClip, IsRefusedOrHasItsInformationWithAnyOctetChanged)
{
    std::mt19937 random(20); // NOLINT(bugprone-random-generator-seed): the same octets every time
    for (const Fixture &fixture : fixtures) {
        const QByteArray clip = contentsOf(fixture);
        for (int i = 0; i < 200; ++i) {
            const auto position = qsizetype(random() % size_t(clip.size()));
            const char flipped = char(random() % 255 + 1);
            SCOPED_TRACE(testing::Message() << "octet " << position << " of " << fixture.file);
            QByteArray damaged = clip;
            damaged[position] = char(damaged[position] ^ flipped);
            std::ignore = lengthOf(damaged, extensionOf(fixture)); // expects the information
        }
    }
}
