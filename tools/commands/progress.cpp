#include "commands/progress.h"

#include "view/highlight.h"

#include <cstdio>
#include <string>

namespace {

constexpr qint64 Delay = 500; // milliseconds
constexpr qint64 Interval = 100; // milliseconds
constexpr int Width = 30; // columns
constexpr int Percent = 100;

Progress *current = nullptr;

std::string barFor(double fraction)
{
    const auto filled = std::size_t(fraction * Width);
    return '[' + std::string(filled, '#') + std::string(Width - filled, '-') + "] "
        + std::to_string(int(fraction * Percent)) + "%, ";
}

} // namespace

Progress::Progress() : m_isTerminal(isCapableTerminal(stderr)), m_next(Delay)
{
    m_sinceStart.start();
    current = this;
}

Progress::~Progress()
{
    hide();
    current = nullptr;
}

void Progress::makeWayFor(FILE *stream)
{
    if (current && current->m_isVisible && isCapableTerminal(stream))
        current->hide();
}

void Progress::hide()
{
    if (m_isVisible)
        std::fputs("\r\x1B[K", stderr);
    m_isVisible = false;
}

void Progress::step(double fraction)
{
    ++m_done;
    if (!m_isTerminal || m_sinceStart.elapsed() < m_next)
        return;
    m_next = m_sinceStart.elapsed() + Interval;
    std::fflush(stdout);
    std::fprintf(stderr, "\r%s%lld done\x1B[K", fraction > 0 ? barFor(fraction).c_str() : "",
                 qlonglong(m_done));
    m_isVisible = true;
}
