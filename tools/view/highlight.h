/*
 * Colors for text on a terminal. They are added when a text is printed, so that only the printing
 * code has to know whether a terminal gets it.
 */
#pragma once

#include <QString>

#include <cstdio>

/// Whether @p stream is a terminal that understands control sequences.
bool isCapableTerminal(FILE *stream);

/// Whether @p stream is such a terminal and the user wants colors: NO_COLOR is unset or empty.
bool takesColors(FILE *stream);

/// Adds control sequences to lines of messageText(), around titles and refusals.
QString highlighted(const QString &text);
