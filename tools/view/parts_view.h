/*
 * The body of a message and its parts for a reader: as lines of text and as JSON.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QString>

#include <vector>

class JsonWriter;
struct Message;

/// The parts of a body as they came; none if it is no multipart.
using SentParts = std::vector<QvlScannedPart>;

/// At most as many parts as the codec reads.
SentParts sentParts(const Message &message);

/// Number and place of the octets, and the number of the parts; "none" without a body.
QString bodySummary(const Message &message);

/// The parts as lines, each indented by four blanks; "" without parts.
QString partsTable(const Message &message, const SentParts &sent);

/// Where and why the body was refused, such as ", octet 127: the data ends in a length"; "" if the
/// scanner finds no reason.
QString whyBodyRefused(const Message &message);

/// Writes the member "body", documented in docs/json.md.
void writeBody(const Message &message, const SentParts &sent, JsonWriter *json);
