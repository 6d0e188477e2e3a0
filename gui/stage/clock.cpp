#include "stage/clock.h"

SystemClock::SystemClock()
{
    m_time.start();
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
        const auto function = m_function; // it may ask to be called again
        function();
    });
}

void SystemClock::callAfter(int milliseconds, const std::function<void()> &function)
{
    m_function = function;
    m_timer.start(milliseconds);
}
