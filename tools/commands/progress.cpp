#include "commands/progress.h"

#include "view/highlight.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace {

constexpr qint64 Delay = 500; // milliseconds
constexpr qint64 Interval = 100; // milliseconds
constexpr int Widest = 30; // columns
constexpr int Beside = 30; // columns for the percentage and the number
constexpr int Percent = 100;

Progress *current = nullptr;

// In columns, so that the line fits the terminal.
std::size_t barWidth()
{
    winsize size{};
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return Widest;
    return std::size_t(std::clamp(size.ws_col - Beside, 0, Widest));
}

std::string barFor(double fraction)
{
    const std::size_t width = barWidth();
    const auto filled = std::size_t(fraction * double(width));
    const std::string bar =
        width == 0 ? "" : '[' + std::string(filled, '#') + std::string(width - filled, '-') + "] ";
    return bar + std::to_string(int(fraction * Percent)) + "%, ";
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
