/*
 * The result of one step of decoding for a reader: as a text and as JSON.
 */
#pragma once

#include <QString>

class JsonWriter;

/// Such as "decoded (result 0)".
QString resultText(const char *meaning, int code);

/// Writes the member "result".
void writeResult(const char *meaning, int code, JsonWriter *json);
