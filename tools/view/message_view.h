/*
 * What is in a message, for a person and for a program.
 */
#pragma once

#include <QByteArray>
#include <QString>

struct Message;

/// The message as lines of text that a terminal can be given, each with its line feed.
QString messageText(const Message &message);

/// Why the SMIL of the message was refused: code, meaning and, where that helps, line and column.
QString refusedSmilText(const Message &message);

/// The message as a line of JSON, documented in docs/json.md.
QByteArray messageJson(const Message &message);
