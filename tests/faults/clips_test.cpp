/*
 * Memory runs out while a clip is measured: its length is the same as without that, or unknown.
 * FFmpeg's demuxer of Ogg ends the process then, and is left out.
 */
#include "faults/each_allocation.h"
#include "multipart/body_part.h"
#include "platform/player_engine.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <memory>

namespace {

struct EngineDestroyer
{
    void operator()(MP_PlayerEngine *engine) const { engine->destroy(); }
};

/// The exact length, by the player engine.
class Measurement : public Work
{
public:
    Measurement(const QByteArray &clip, const QByteArray &extension)
        : m_clip(clip), m_extension(extension)
    {
    }

    bool go() override
    {
        const std::unique_ptr<MP_PlayerEngine, EngineDestroyer> engine(
            MP_CreatePlayerEngine(nullptr, nullptr));
        StaticStreamInfo info;
        if (!engine
            || !engine->open(m_clip.constData(), int(m_clip.size()), m_extension.constData())
            || !engine->getStreamInfo(&info) || info.playDuration <= 0)
            return false;
        keep([&] { return std::to_string(info.playDuration); });
        return true;
    }

private:
    QByteArray m_clip;
    QByteArray m_extension;
};

/// The probes of a part before a viewer shows it.
class Probes : public Work
{
public:
    Probes(const QByteArray &clip, const char *name)
    {
        m_part.setContentType(QStringLiteral("audio"));
        m_part.setContentLocation(QLatin1String(name));
        m_part.setBodyData(clip);
    }

    bool go() override
    {
        const int length = m_part.getPlayDur();
        if (length <= 0 || !m_part.isMediaObjectSupported())
            return false;
        keep([&] { return std::to_string(length); });
        return true;
    }

private:
    MMS_COMP_SMILMultipartBodypart m_part;
};

// FFmpeg carries on without what it did not get, and reports nothing.
struct Clip
{
    const char *name;
    bool mayBeShorter = false; ///< without a packet, a parser or a stream
    bool mayBeLonger = false; ///< without the edit list, or the first packets of a stream
};

constexpr Clip clips[] = {
    {"sound.aac"},
    {.name = "sound.amr", .mayBeShorter = true},
    {.name = "sound.m4a", .mayBeLonger = true},
    {"sound.mp3"},
    {"sound.wav"},
    {"video.3gp"},
    {"video.avi"},
    {.name = "video.mpg", .mayBeShorter = true, .mayBeLonger = true},
};

void PrintTo(const Clip &clip, std::ostream *out)
{
    *out << clip.name;
}

std::string nameOf(const testing::TestParamInfo<Clip> &clip)
{
    return QString::fromLatin1(clip.param.name)
        .replace(QLatin1Char('.'), QLatin1Char('_'))
        .toStdString();
}

class NoMemoryForClips : public testing::TestWithParam<Clip>
{
protected:
    void SetUp() override
    {
        QFile file(QStringLiteral(QVL_FIXTURES "/clips/") + QLatin1String(GetParam().name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        m_clip = file.readAll();
    }

    static bool accepts(const std::string &length, const std::string &undisturbed)
    {
        const int difference = std::stoi(length) - std::stoi(undisturbed);
        return difference < 0 ? GetParam().mayBeShorter : GetParam().mayBeLonger;
    }

    QByteArray m_clip;
};

} // namespace

// Demuxers do without much of what they ask for, so not every failure is reported.
TEST_P(NoMemoryForClips, GivesTheSameLengthOrNone)
{
    const QByteArray extension = QFileInfo(QLatin1String(GetParam().name)).suffix().toLatin1();
    const auto outcome = failEachAllocation(
        [&] { return std::make_unique<Measurement>(m_clip, extension); }, accepts);
    EXPECT_GT(outcome.reported, 0);
}

TEST_P(NoMemoryForClips, GivesTheSameProbesOrNone)
{
    const auto outcome = failEachAllocation(
        [&] { return std::make_unique<Probes>(m_clip, GetParam().name); }, accepts);
    EXPECT_GT(outcome.reported, 0);
}

INSTANTIATE_TEST_SUITE_P(Clip, NoMemoryForClips, testing::ValuesIn(clips), nameOf);
