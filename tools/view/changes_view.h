/*
 * What was changed to read a message, for a reader: as lines of text and as JSON.
 */
#pragma once

#include <QStringList>

class JsonWriter;
struct Message;
struct RefusedField;

/// A summary of the changes, such as "1 left out, 2 rewritten"; "" without changes.
QString changesSummary(const Message &message);

/// One line for each of the first changes, indented by four blanks; "" without changes. Lines may
/// contain control characters.
QStringList changeLines(const Message &message);

/// Writes the member "changes", documented in docs/json.md.
void writeChanges(const Message &message, JsonWriter *json);

/// Such as "octet 88: 99 Retrieve-Status (MMS 1.1): MMS 1.0 does not have this field".
QString refusedFieldText(const RefusedField &refused);

/// Writes the member "refusedField", documented in docs/json.md.
void writeRefusedField(const RefusedField &refused, JsonWriter *json);
