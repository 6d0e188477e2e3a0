/*
 * A message for a reader: as lines of text and as JSON.
 */
#pragma once

#include "view/header_view.h"

#include <QList>
#include <QString>

#include <string>

struct Message;

/// The header fields of all versions in the order of the message, with the times that the sender
/// wrote.
QList<FieldView> fieldViews(const Message &message);

/// The message as lines of text that are safe for a terminal. Every line ends in a line feed.
QString messageText(const Message &message);

/// Why the SMIL of the message was refused: meaning, code and, if it is not well-formed, the place.
QString refusedSmilText(const Message &message);

/// The message as a line of JSON, documented in docs/json.md.
std::string messageJson(const Message &message);
