/*
 * One message of a page: its header, its slides, its parts and its problems.
 */
#pragma once

#include "check/findings.h"
#include "html/html_writer.h"

struct Message;

class PageMedia;

/// The subject of @p message, or the name of its file without folders.
QString titleOf(const Message &message);

/// Writes @p message, the one with @p number on the page. @p media are those of the message.
void writeMessage(HtmlWriter *html, const Message &message, const Check::Findings &findings,
                  int number, PageMedia *media);
