/*
 * Colors for what is shown on a terminal. The text is made without them, so that whether there are
 * any is one decision, taken where it is printed.
 */
#pragma once

#include <QString>

#include <cstdio>

/// Whether @p stream is a terminal that can do more than write one line below the other.
bool isCapableTerminal(FILE *stream);

/// Whether it may get colors too: the variable NO_COLOR is not set, or empty.
bool takesColors(FILE *stream);

/// Lines of messageText() with titles and refusals set off by control sequences.
QString highlighted(const QString &text);
