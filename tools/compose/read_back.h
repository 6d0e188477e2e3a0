/*
 * Whether a message that was encoded decodes to what was put into it.
 */
#pragma once

#include <QString>

struct Message;

/**
 * Names a field, part or other content of @p sent that decoding its octets gives differently. ""
 * when all is the same.
 */
QString whatChanges(const Message &sent);
