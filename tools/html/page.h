/*
 * A self-contained page with messages: the frame with style, script and index.
 */
#pragma once

#include "html/html_writer.h"

#include <QString>

#include <vector>

struct Message;

/// Writes the beginning of a page named @p title, up to its first message.
void beginPage(HtmlWriter *html, const QString &title);

/// Writes the end of the page.
void endPage(HtmlWriter *html);
