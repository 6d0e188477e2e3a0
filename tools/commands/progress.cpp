#include "commands/progress.h"

#include "view/highlight.h"

#include <cstdio>

Progress::Progress(qsizetype total)
    : m_total(total), m_shown(total > 1 && isCapableTerminal(stderr))
{
}

Progress::~Progress()
{
    hide();
}

void Progress::hide() const
{
    if (m_shown)
        std::fputs("\r\x1B[K", stderr);
}

void Progress::step()
{
    ++m_done;
    if (!m_shown)
        return;
    std::fflush(stdout);
    std::fprintf(stderr, "\r%lld of %lld", qlonglong(m_done), qlonglong(m_total));
}
