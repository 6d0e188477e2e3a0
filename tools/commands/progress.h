/*
 * A line on standard error with the progress of a long run.
 */
#pragma once

#include <QElapsedTimer>
#include <QtGlobal>

#include <cstdio>

/// Shows a bar on a terminal that can erase it again, once the run takes longer than half a second.
/// There is one at most.
class Progress
{
public:
    Progress();
    ~Progress();
    Q_DISABLE_COPY_MOVE(Progress)

    /// Erases the bar if it is in the way of what is printed to @p stream next.
    static void makeWayFor(FILE *stream);

    /// Counts one more message as done, and shows the bar. @p fraction is the part of the whole
    /// run that is done, from 0 to 1; 0 if it is not known, which shows only the number.
    void step(double fraction);

private:
    void hide();

    const bool m_isTerminal;
    QElapsedTimer m_sinceStart;
    qint64 m_next; // milliseconds after the start when the bar is drawn again
    qint64 m_done = 0;
    bool m_isVisible = false;
};
