/*
 * A line on standard error with the progress of a long run.
 */
#pragma once

#include <QtGlobal>

/// Shows the line only for more than one item, on a terminal that can erase it again.
class Progress
{
public:
    explicit Progress(qsizetype total);
    ~Progress();
    Q_DISABLE_COPY_MOVE(Progress)

    /// Erases the line, so that something else can be printed.
    void hide() const;
    /// Counts one more item as done, and shows the line.
    void step();

private:
    qsizetype m_total;
    qsizetype m_done = 0;
    bool m_shown;
};
