/*
 * A line on standard error that says how far a long run is.
 */
#pragma once

#include <QtGlobal>

/// Shows the line when there is more than one thing to do and the user has a terminal that can
/// remove the line again.
class Progress
{
public:
    explicit Progress(qsizetype total);
    ~Progress();
    Q_DISABLE_COPY_MOVE(Progress)

    /// Removes the line, so that something else can be printed.
    void hide() const;
    /// Counts one more thing as done, and shows the line.
    void step();

private:
    qsizetype m_total;
    qsizetype m_done = 0;
    bool m_shown;
};
