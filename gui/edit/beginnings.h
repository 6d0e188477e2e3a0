/*
 * Messages with which writing begins: a new one, an answer, or a copy of another message. Each is
 * an m-send-req without a step to undo.
 */
#pragma once

#include "edit/editor.h"
#include "input/message.h"

#include <QString>

#include <memory>

namespace Beginnings {

/// A message with one empty slide.
std::unique_ptr<Editor> newMessage();

/// Whether the sender of @p message can be answered.
bool canReplyTo(const Message &message);
/// A message to the sender of @p message, with its subject after "Re: " and one empty slide.
std::unique_ptr<Editor> replyTo(const Message &message);
/// The same, also to its other recipients except @p ownAddress, which may be empty.
std::unique_ptr<Editor> replyToAll(const Message &message, const QString &ownAddress);

/// Whether @p message has content that can be forwarded or edited.
bool canForward(const Message &message);
/// A message with the content of @p message and its subject after "Fwd: ".
std::unique_ptr<Editor> forward(const Message &message);
/// A message with the content, recipients, subject and priority of @p message. What a message to
/// send asks for (reports, expiry, delivery time) stays, too.
std::unique_ptr<Editor> editAsNew(const Message &message);
/// The message of a draft, as unsaved work.
std::unique_ptr<Editor> resume(const Message &draft);

} // namespace Beginnings
