/*
 * Header fields as they came, for a reader: as texts and as JSON. Shows the fields of all versions,
 * also those that the record has no place for.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QString>

class JsonWriter;

/// The name in the standard, such as "Message-Class"; the name in letters, in quotes so that no
/// sender can imitate other lines; or the code, such as "field 64 (C0)".
QString fieldName(const QvlScannedField &field);

/// The field in a sentence, such as "99 Retrieve-Status (MMS 1.1)".
QString fieldTitle(const QvlScannedField &field);

/// The value for a person; may contain control characters.
QString fieldText(const QvlScannedField &field);

/// Writes the member "name": the name in the standard or in letters; "" for an unassigned code.
void writeFieldName(const QvlScannedField &field, JsonWriter *json);
/// Writes the member "version" for a field that the standard knows.
void writeFieldVersion(const QvlScannedField &field, JsonWriter *json);

/// Writes the field as an element of the array "fields", documented in docs/json.md.
void writeField(const QvlScannedField &field, JsonWriter *json);

/// The same for a field that only the decoder finds.
void writeField(unsigned char code, JsonWriter *json);
