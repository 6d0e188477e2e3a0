/*
 * Counts work against a limit, so that no message takes unlimited time.
 */
#pragma once

#include <QtGlobal>

#include <algorithm>

/// Limits on the work for one message. The defaults take less than two seconds.
struct RenderLimits
{
    int slides = 1000;
    int drawn = 40; ///< millions of pixels of slides and contact sheets
    int decoded = 64; ///< millions of pixels of pictures
};

/// The default limits for a message of @p octets octets: pixels for each started 300 KB.
inline RenderLimits limitsFor(qint64 octets)
{
    constexpr qint64 UnitSize = 300 * 1024;
    constexpr qint64 MostUnits = 10'000;
    const int units = int(std::clamp((octets + UnitSize - 1) / UnitSize, qint64(1), MostUnits));
    const RenderLimits one;
    return {one.slides, one.drawn * units, one.decoded * units};
}

constexpr qint64 Million = 1'000'000;

/// Work that takes as long as drawing and writing this number of pixels.
constexpr qint64 CharacterWork = 300;

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
