/*
 * Counts work against a limit, so that no message takes unlimited time.
 */
#pragma once

#include <QtGlobal>

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
