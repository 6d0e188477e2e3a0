/*
 * The sounds and videos of the slide that is shown: plays them along with the slide.
 */
#pragma once

#include "clips/clip_player.h"
#include "stage/timing.h"

#include <QHash>
#include <QImage>
#include <QObject>
#include <QStringList>

#include <memory>
#include <vector>

class MMS_COMP_SMILTimingContainer;

class SlideClips : public QObject
{
    Q_OBJECT

public:
    /// Clips of one slide that are played; others are named as not played.
    static constexpr std::size_t Most = 4;

    explicit SlideClips(QObject *parent = nullptr);
    ~SlideClips() override;

    /// Plays the clips of @p slide instead of those before; none for null. The octets are shared,
    /// so the slide may go.
    void setSlide(const MMS_COMP_SMILTimingContainer *slide, const SlideTiming &timing);
    /// Starts and pauses clips for @p milliseconds of the slide.
    void follow(int milliseconds, bool isPlaying);
    /// Goes to @p milliseconds of the slide; videos show their picture there.
    void jump(int milliseconds, bool isPlaying);

    /// Whether a clip plays.
    bool arePlaying() const;
    /// The last picture of each video, by the index of its media object.
    const QHash<int, QImage> &pictures() const { return m_pictures; }
    /// A sentence for each clip that is not played, or not whole.
    const QStringList &remarks() const { return m_remarks; }

signals:
    void picturesChanged();
    void remarksChanged();

private:
    struct Clip
    {
        int object;
        QString name;
        MediaSpan span;
        std::unique_ptr<ClipPlayer> player;
        bool isVideo;
        bool isPlaying = false;
        bool isOver = false; ///< until the next jump
        bool hasBegun = false;
    };

    void add(int object, const MMS_COMP_SMILTimingContainer &slide, const SlideTiming &timing);
    void connectClip(Clip *clip);
    void addRemark(const QString &remark);

    std::vector<std::unique_ptr<Clip>> m_clips;
    QHash<int, QImage> m_pictures;
    QStringList m_remarks;
};
