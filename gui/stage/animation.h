/*
 * The frames of an animated GIF, decoded at once.
 */
#pragma once

#include <QByteArray>
#include <QImage>

#include <vector>

class Animation
{
public:
    /// Limits on the frames and on the pixels of all of them; the rest is left out.
    static constexpr int MostFrames = 500;
    static constexpr qint64 MostPixels = 8'000'000;

    /// Decodes @p gif. Empty if it is no GIF, or has only one frame.
    explicit Animation(const QByteArray &gif);

    bool isEmpty() const { return m_frames.empty(); }
    std::size_t count() const { return m_frames.size(); }
    /// The index of the frame that is shown @p milliseconds after the first one.
    std::size_t indexAt(int milliseconds) const;
    const QImage &frame(std::size_t index) const { return m_frames[index].image; }

private:
    struct Frame
    {
        QImage image;
        int end; ///< in milliseconds, from the begin of the first frame
    };

    std::vector<Frame> m_frames;
    int m_loops = 0; ///< times that it is played again; -1 without end
};
