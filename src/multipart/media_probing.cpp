/*
 * Media probes of a body part: how long a clip plays, and whether the handset can show or play a
 * part. Opens clips in the platform's player engine without any output device.
 */
#include "multipart/body_part.h"

#include "base/durations.h"
#include "base/no_memory.h"
#include "multipart/picture_format.h"
#include "multipart/picture_octets.h"
#include "platform/comp_util.h"
#include "platform/player_engine.h"

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>

#include <limits>
#include <memory>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

constexpr int NotMeasured = -1;

struct EngineDestroyer
{
    void operator()(MP_PlayerEngine *engine) const { engine->destroy(); }
};
using EnginePointer = std::unique_ptr<MP_PlayerEngine, EngineDestroyer>;

EnginePointer createEngine()
{
    return EnginePointer(MP_CreatePlayerEngine(nullptr, nullptr));
}

[[nodiscard]] bool open(MP_PlayerEngine &engine, const QByteArray &data,
                        const QByteArray &extension)
{
    return engine.open(data.constData(), int(data.size()), extension.constData());
}

// Also closes the engine.
int playDuration(MP_PlayerEngine &engine)
{
    StaticStreamInfo info;
    const bool known = engine.getStreamInfo(&info) && info.playDuration != 0;
    engine.close();
    return known ? info.playDuration : NotMeasured;
}

// Rounds up to a whole step. A duration whose next step exceeds an int does not change.
int roundedUp(int duration)
{
    const qint64 rounded = QvlDuration::roundedUpToStep(duration);
    return rounded > std::numeric_limits<int>::max() ? duration : int(rounded);
}

// Creating a pixmap without a running GUI would end the process.
bool isDecodableImage(const QByteArray &data)
{
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        QPixmap pixmap;
        std::ignore = pixmap.loadFromData(data); // stays null on failure
        return !pixmap.isNull();
    }
    return !QImage::fromData(data).isNull();
}

} // namespace

int MMS_COMP_SMILMultipartBodypart::getPlayDur()
{
    return unlessOutOfMemory(NotMeasured, [this] {
        if (m_bodyData.isEmpty())
            return NotMeasured;
        const EnginePointer engine = createEngine();
        if (!engine)
            return NotMeasured;
        QString extension =
            MMS_COMP_Util::getFirstSupportExtNameByMIMEType(m_contentType, m_subType);
        if (extension.isEmpty())
            extension = MMS_COMP_Util::getExtName(m_contentLocation);
        if (extension.isEmpty() || !open(*engine, m_bodyData, extension.toLocal8Bit())) {
            m_mediaCheck = MediaCheck::NotSupported;
            return NotMeasured;
        }
        const int duration = playDuration(*engine);
        if (duration != NotMeasured)
            m_mediaCheck = MediaCheck::Supported;
        return roundedUp(duration);
    });
}

bool MMS_COMP_SMILMultipartBodypart::isMediaObjectSupported()
{
    return unlessOutOfMemory(false, [this] {
        if (m_mediaCheck != MediaCheck::NotChecked)
            return m_mediaCheck == MediaCheck::Supported;
        if (m_contentType == "image"_L1) {
            const QByteArray octets = qvlPictureOctets(m_bodyData);
            const bool supported = isRasterPicture(octets) && isDecodableImage(octets);
            m_mediaCheck = supported ? MediaCheck::Supported : MediaCheck::NotSupported;
            return supported;
        }
        if (m_contentType != "audio"_L1 && m_contentType != "video"_L1)
            return true;

        const QString &name = m_dispFileName.isEmpty() ? m_contentLocation : m_dispFileName;
        QString extension =
            MMS_COMP_Util::getFirstSupportExtNameByMIMEType(m_contentType, m_subType).toLower();
        if (extension.isEmpty() && name.isEmpty())
            return false;
        if (extension.isEmpty()) // in the sender's spelling, as the engine gets it
            extension = MMS_COMP_Util::getExtName(name);
        const EnginePointer engine = createEngine();
        if (!engine || !open(*engine, m_bodyData, extension.toLatin1()))
            return false;
        engine->close();
        return true;
    });
}
