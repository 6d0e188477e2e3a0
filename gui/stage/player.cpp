#include "stage/player.h"

#include <qvlsmilparser.h>

#include <algorithm>
#include <limits>

Player::Player(Clock *clock, QObject *parent) : QObject(parent), m_clock(clock) { }

void Player::setSlides(std::vector<SlideTiming> slides)
{
    setPlaying(false);
    m_slides = std::move(slides);
    m_isAtEnd = false;
    goTo(0, 0);
}

void Player::play()
{
    if (m_slides.empty() || m_isPlaying)
        return;
    if (m_isAtEnd)
        goTo(0, 0);
    setPlaying(true);
}

void Player::pause()
{
    setPlaying(false);
}

void Player::previous()
{
    goTo(std::max(m_slide - 1, 0), 0);
}

void Player::next()
{
    if (m_slide + 1 < slideCount())
        goTo(m_slide + 1, 0);
    else if (!m_slides.empty())
        reachEnd();
}

void Player::seek(int slide, int milliseconds)
{
    if (m_slides.empty())
        return;
    const int chosen = std::clamp(slide, 0, slideCount() - 1);
    const int end = m_slides[std::size_t(chosen)].duration;
    goTo(chosen, std::clamp(milliseconds, 0, end < 0 ? milliseconds : end));
}

void Player::goTo(int slide, int milliseconds)
{
    m_slide = slide;
    m_base = std::max(milliseconds, 0);
    m_since = m_clock->now();
    m_isAtEnd = false;
    m_areClipsPlaying = false;
    emit slideChanged(m_slide);
    emit positionChanged(position());
    if (m_isPlaying)
        schedule();
}

void Player::setPlaying(bool isPlaying)
{
    if (isPlaying == m_isPlaying)
        return;
    m_base = position();
    m_since = m_clock->now();
    m_isPlaying = isPlaying;
    if (isPlaying)
        schedule();
    else
        m_clock->cancel();
    emit stateChanged(isPlaying);
}

void Player::reachEnd()
{
    setPlaying(false);
    if (duration() >= 0)
        m_base = duration();
    m_isAtEnd = true;
    emit positionChanged(position());
    emit stateChanged(false);
    emit ended();
}

int Player::position() const
{
    const qint64 passed = m_isPlaying ? m_clock->now() - m_since : 0;
    const qint64 reached = m_base + passed;
    constexpr qint64 Most = std::numeric_limits<int>::max();
    return int(std::min(reached, duration() >= 0 ? qint64(duration()) : Most));
}

int Player::duration() const
{
    return m_slides.empty() ? 0 : m_slides[std::size_t(m_slide)].duration;
}

bool Player::isActive(int object) const
{
    if (m_slides.empty())
        return false;
    const std::vector<MediaSpan> &media = m_slides[std::size_t(m_slide)].media;
    return object >= 0 && object < int(media.size())
        && media[std::size_t(object)].contains(position());
}

void Player::schedule()
{
    const int left = duration() < 0 ? Tick : duration() - position();
    m_clock->callAfter(std::clamp(left, 1, Tick), [this] { advance(); });
}

void Player::advance()
{
    if (!isOver(m_clock->now() - m_since + m_base)) {
        emit positionChanged(position());
        if (m_isPlaying) // a receiver may have paused
            schedule();
        return;
    }
    if (m_slide + 1 < slideCount())
        goTo(m_slide + 1, 0);
    else
        reachEnd();
}

// Clips begin some time after their slide, because decoding begins with it.
bool Player::isOver(qint64 milliseconds) const
{
    if (duration() < 0 || milliseconds < duration())
        return false;
    const bool waits = m_slides[std::size_t(m_slide)].waitsForClips && m_areClipsPlaying;
    return !waits || milliseconds >= duration() + LongestWait;
}
