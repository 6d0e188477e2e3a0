/*
 * The content of a received message as a new message, ready to be edited: without what would make
 * an edited message differ from what it shows.
 */
#pragma once

#include "input/message.h"

#include <memory>

/**
 * A message of type m-send-req without recipients and subject, with copies of the parts and slides
 * of @p source that share the octets. Slides without SMIL are generated; without
 * any part there is one empty slide. The copy has no SMIL part:
 * saving adds one. Each part has a name of its own, which SMIL can hold, texts are in UTF-8, and
 * slides have the color of the root layout unless they have their own.
 */
std::unique_ptr<Message> copyContent(const Message &source);
