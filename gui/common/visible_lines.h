/*
 * Texts of several lines in which control characters are visible.
 */
#pragma once

#include "view/terminal_text.h"

#include <QString>
#include <QStringList>

/// @p text with every control character visible, except that its lines stay lines.
inline QString visibleLines(QString text)
{
    text.replace(QLatin1StringView("\r\n"), QLatin1StringView("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    text.replace(QChar::LineSeparator, QLatin1Char('\n'));
    text.replace(QLatin1Char('\t'), QLatin1StringView("    "));
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = TerminalText::visible(line);
    return lines.join(QLatin1Char('\n'));
}
