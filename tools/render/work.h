/*
 * Counts work against a limit, so that no message takes unlimited time.
 */
#pragma once

#include <QString>

/// Limits on the work for one message. The defaults take less than two seconds.
struct RenderLimits
{
    int slides = 1000;
    int drawn = 20; ///< millions of pixels of slides and contact sheets
    int decoded = 40; ///< millions of pixels of pictures
};

constexpr qint64 Million = 1'000'000;

/// Work that takes as long as drawing and writing this number of pixels.
constexpr qint64 CharacterWork = 40;

class Work
{
public:
    explicit Work(qint64 most) : m_most(most) { }

    /// Counts @p amount. False, without counting it, if that exceeds the limit.
    bool take(qint64 amount)
    {
        if (amount > m_most - m_done)
            return false;
        m_done += amount;
        return true;
    }
    qint64 most() const { return m_most; }
    qint64 done() const { return m_done; }

private:
    qint64 m_most;
    qint64 m_done = 0;
};
