/*
 * Keeps the time while slides are played: which slide is shown, and since when. Draws nothing.
 */
#pragma once

#include "stage/clock.h"
#include "stage/timing.h"

#include <QObject>

#include <vector>

class Player : public QObject
{
    Q_OBJECT

public:
    /// Most milliseconds between two signals of the position.
    static constexpr int Tick = 40;
    /// Most milliseconds that a slide waits at its end for clips that began late.
    static constexpr int LongestWait = 1500;

    /// @p clock must exist as long as the player.
    explicit Player(Clock *clock, QObject *parent = nullptr);

    /// Stops, and goes to the begin of the first of @p slides.
    void setSlides(std::vector<SlideTiming> slides);

    /// Plays on; from the first slide if the end was reached. Nothing without slides.
    void play();
    void pause();
    /// Goes to the begin of the slide before, or of the first one.
    void previous();
    /// Goes to the begin of the next slide. After the last slide, the end is reached.
    void next();
    /// Goes to @p milliseconds of @p slide; both are limited to what there is.
    void seek(int slide, int milliseconds);
    /// Whether a clip of the slide still plays: the slide then waits for it at its end.
    void setClipsPlaying(bool arePlaying) { m_areClipsPlaying = arePlaying; }

    int slideCount() const { return int(m_slides.size()); }
    int slide() const { return m_slide; }
    /// Milliseconds from the begin of the slide.
    int position() const;
    /// Milliseconds of the slide; QvlDuration::Indefinite if it lasts until next().
    int duration() const;
    bool isPlaying() const { return m_isPlaying; }
    bool isAtEnd() const { return m_isAtEnd; }
    /// Whether the media object, counted on the slide, is shown or played now.
    bool isActive(int object) const;

signals:
    void slideChanged(int slide);
    void positionChanged(int milliseconds);
    void stateChanged(bool isPlaying);
    /// The last slide was played to its end.
    void ended();

private:
    void goTo(int slide, int milliseconds);
    void setPlaying(bool isPlaying);
    void reachEnd();
    void schedule();
    void advance();
    bool isOver(qint64 milliseconds) const;

    Clock *m_clock;
    std::vector<SlideTiming> m_slides;
    int m_slide = 0;
    int m_base = 0; ///< position when the clock showed m_since
    qint64 m_since = 0;
    bool m_isPlaying = false;
    bool m_isAtEnd = false;
    bool m_areClipsPlaying = false;
};
