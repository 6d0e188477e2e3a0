/*
 * Tool tips with texts of messages.
 */
#pragma once

#include "view/terminal_text.h"

#include <QString>

/// @p text as a tool tip in which nothing is markup, and control characters are visible.
inline QString plainToolTip(const QString &text)
{
    return QLatin1StringView("<span>") + TerminalText::visible(text).toHtmlEscaped()
        + QLatin1StringView("</span>");
}
