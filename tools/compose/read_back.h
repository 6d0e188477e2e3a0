/*
 * Checks that an encoded message decodes to the same message.
 */
#pragma once

#include <QString>

struct Message;

/**
 * Decodes the octets of @p sent and names the first field or part that differs; "" if none does.
 */
QString whatChanges(const Message &sent);
