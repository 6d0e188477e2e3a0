/*
 * What a message loses when the library writes it again.
 */
#pragma once

#include <QStringList>

struct Message;

/// The header fields, and the headers and parameters of parts, that a written @p message lacks: in
/// words, in the order of the octets, each once. Also names of senders and recipients.
QStringList droppedItems(const Message &message);
