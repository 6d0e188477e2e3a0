/*
 * Colors for text on a terminal. They are added when a text is printed, so that only the printing
 * code decides whether to use any.
 */
#pragma once

#include <QString>

#include <cstdio>

/// Whether @p stream is a terminal that can do more than print lines.
bool isCapableTerminal(FILE *stream);

/// Whether @p stream is such a terminal and the user wants colors: NO_COLOR is unset or empty.
bool takesColors(FILE *stream);

/// Lines of messageText(), with control sequences around titles and refusals.
QString highlighted(const QString &text);
