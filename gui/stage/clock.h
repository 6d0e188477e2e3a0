/*
 * The time by which slides are played.
 */
#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <functional>

/// Tests have one that they advance.
class Clock
{
public:
    virtual ~Clock() = default;
    /// Milliseconds that never go back.
    virtual qint64 now() const = 0;
    /// Calls @p function after @p milliseconds, instead of what was to be called before.
    virtual void callAfter(int milliseconds, const std::function<void()> &function) = 0;
    /// Calls nothing.
    virtual void cancel() = 0;
};

/// The system's clock. Calls in the event loop.
class SystemClock : public Clock
{
public:
    SystemClock();
    qint64 now() const override { return m_time.elapsed(); }
    void callAfter(int milliseconds, const std::function<void()> &function) override;
    void cancel() override { m_timer.stop(); }

private:
    QElapsedTimer m_time;
    QTimer m_timer;
    std::function<void()> m_function;
};
