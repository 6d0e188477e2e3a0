/*
 * The index of a page: an entry with a thumbnail for each message.
 */
#pragma once

#include "html/html_writer.h"

struct Message;

/// The first slide of @p message as a small PNG; empty if there is none or if it takes too long.
QByteArray thumbnailOf(const Message &message);

/// Writes the beginning of the index.
void beginIndex(HtmlWriter *html);
/// Writes an entry for @p message that links to @p address. @p thumbnail may be empty.
void writeIndexEntry(HtmlWriter *html, const Message &message, const QByteArray &thumbnail,
                     const QString &address);
/// Writes the end of the index.
void endIndex(HtmlWriter *html);
