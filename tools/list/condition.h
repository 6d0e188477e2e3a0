/*
 * Conditions that a message of a list has to meet, such as "from=+491511234" or "larger=100k".
 */
#pragma once

#include "list/entry.h"

#include <QString>

#include <functional>

namespace MessageList {

using Condition = std::function<bool(const Entry &entry)>;

/// Reads a condition. Null, with the reason in @p error, when @p text is none.
Condition readCondition(const QString &text, QString *error);

} // namespace MessageList
