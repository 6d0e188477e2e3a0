/*
 * A program with a player engine of its own in the place of the platform's, which knows Au sounds
 * only, and with a limit of its own for the size of messages.
 *
 *     custom_platform SOUND.au KILOBYTES
 */
#include <qvlsmilparser.h>

#include <QFile>
#include <QtEndian>
#include <QTextStream>

#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

class AuEngine final : public MP_PlayerEngine
{
public:
    void destroy() override { delete this; }
    bool open(const char *data, int size, const char *extension) override
    {
        m_clip = QByteArrayView(data, size); // which stays the caller's
        return std::strcmp(extension, "au") == 0 && size >= 24 && m_clip.startsWith(".snd");
    }
    void close() override { m_clip = {}; }
    bool getStreamInfo(StaticStreamInfo *info) override
    {
        const qint64 begin = qFromBigEndian<quint32>(m_clip.data() + 4);
        const qint64 perSecond = qFromBigEndian<quint32>(m_clip.data() + 16); // of one octet each
        if (begin > m_clip.size() || perSecond < 1)
            return false;
        const qint64 milliseconds = (m_clip.size() - begin) * 1000 / perSecond;
        info->playDuration = int(std::min<qint64>(milliseconds, 24 * 60 * 60 * 1000));
        return true;
    }

private:
    QByteArrayView m_clip;
};

} // namespace

// The library finds this function instead of the platform's.
MP_PlayerEngine *MP_CreatePlayerEngine(SOUNDM_AudioDevice_Interface *, Qvl_VideoDevice *)
{
    return new AuEngine;
}

int main(int argc, char **argv)
{
    QTextStream out(stdout);
    QFile sound(QString::fromLocal8Bit(argc == 3 ? argv[1] : ""));
    if (!sound.open(QIODevice::ReadOnly)) {
        out << "usage: custom_platform SOUND.au KILOBYTES\n";
        return 2;
    }
    MMS_UTIL_Setting::setMaxiumMOMMSSize(QByteArray(argv[2]).toInt());

    MMS_COMP_SMILMultipart body;
    MMS_COMP_SMILData slides(&body);
    auto *slide = slides.appendSlide(0u);
    // Without a region: a sound has no place. The slide asks the engine how long it plays.
    slide->updateData(QString(), u"sound.au"_s, SMIL_MEDIA_AUDIO, u"basic"_s, sound.readAll(), true,
                      &body);
    out << "the slide lasts " << slide->getDur() << " ms\n";

    // Nothing refuses what is too large: whoever sends looks at the limit.
    MMS_UA_UAMsg header;
    const QByteArray octets = MMS_COMP_SMILMultipartParser::assembleBody(&body, &header);
    const qint64 limit = qint64(MMS_UTIL_Setting::getMaxiumMOMMSSize()) * 1024;
    out << "the body is " << (octets.size() > limit ? "too large\n" : "small enough\n");
}
