/*
 * A clock that a test advances.
 */
#pragma once

#include "stage/clock.h"

#include <algorithm>
#include <utility>

class ManualClock : public Clock
{
public:
    qint64 now() const override { return m_now; }
    void callAfter(int milliseconds, const std::function<void()> &function) override
    {
        m_due = m_now + milliseconds;
        m_function = function;
    }
    void cancel() override { m_function = nullptr; }

    /// Calls what is due within the next @p milliseconds, each at its time.
    void advance(qint64 milliseconds)
    {
        const qint64 end = m_now + milliseconds;
        while (m_function && m_due <= end) {
            m_now = std::max(m_now, m_due);
            std::exchange(m_function, nullptr)();
        }
        m_now = end;
    }
    bool isWaiting() const { return m_function != nullptr; }

private:
    qint64 m_now = 1000;
    qint64 m_due = 0;
    std::function<void()> m_function;
};
