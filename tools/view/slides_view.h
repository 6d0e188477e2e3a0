/*
 * The slides of a message for a reader: as lines of text and as JSON.
 */
#pragma once

#include <QString>

class JsonWriter;
struct Message;

/// Slides and their media as lines, each indented by at least four blanks; "" without slides.
QString slidesText(const Message &message);

/// Writes the member "presentation", documented in docs/json.md.
void writePresentation(const Message &message, JsonWriter *json);
