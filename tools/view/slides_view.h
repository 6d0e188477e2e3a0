/*
 * The slides of a message for a reader: as lines of text and as JSON.
 */
#pragma once

#include <QString>

class JsonWriter;
struct Message;

/// Slides and their media as lines, each behind four blanks at least; "" without a presentation.
QString slidesText(const Message &message);

/// Writes the member "presentation", documented in docs/json.md.
void writePresentation(const Message &message, JsonWriter *json);

/**
 * Where and why @p smil is not well-formed, such as "line 3, column 7: ..."; "" when it is, or when
 * that cannot be told without expanding what it declares. Never takes long.
 */
QString whyNotWellFormed(const QByteArray &smil);
