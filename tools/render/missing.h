/*
 * Counts what the limits of a command leave out.
 */
#pragma once

#include <QString>

/// Things that are missing in the output: how many, and the first of them.
struct Missing
{
    int count = 0;
    QString first;

    void add(const QString &one);
    /// "" if nothing is missing.
    QString text(const QString &what, const QString &limit) const;
};

/// Names the limit that was met, and the option that raises it.
QString limitText(const QString &limit, const char *option);
