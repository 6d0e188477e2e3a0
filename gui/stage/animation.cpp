#include "stage/animation.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>

namespace {

constexpr int ShortestDelay = 20; // milliseconds; browsers take shorter ones for 100, too
constexpr int UsualDelay = 100;

int delayOf(const QImageReader &reader)
{
    const int delay = reader.nextImageDelay();
    return delay < ShortestDelay ? UsualDelay : delay;
}

} // namespace

Animation::Animation(const QByteArray &gif)
{
    if (!gif.startsWith("GIF8"))
        return;
    QByteArray octets = gif;
    QBuffer buffer(&octets);
    QImageReader reader(&buffer, "gif");
    const QSize screen = reader.size();
    if (!reader.supportsAnimation() || screen.isEmpty()
        || qint64(screen.width()) * screen.height() > MostPixels / 2)
        return;
    qint64 pixels = 0;
    int end = 0;
    QImage image;
    while (m_frames.size() < MostFrames && reader.read(&image)) {
        pixels += qint64(image.width()) * image.height();
        if (pixels > MostPixels)
            break;
        end += delayOf(reader);
        m_frames.push_back({image, end});
    }
    m_loops = reader.loopCount();
    if (m_frames.size() < 2)
        m_frames.clear();
}

std::size_t Animation::indexAt(int milliseconds) const
{
    const int length = m_frames.back().end;
    if (m_loops >= 0 && milliseconds / length > m_loops)
        return m_frames.size() - 1;
    const int time = milliseconds % length;
    const auto frame =
        std::ranges::find_if(m_frames, [time](const Frame &one) { return time < one.end; });
    return std::size_t(frame - m_frames.begin());
}
