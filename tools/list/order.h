/*
 * The order of a list.
 */
#pragma once

#include "list/entry.h"

#include <QString>

#include <vector>

namespace MessageList {

/// The names of the orders: "date", "from", "subject", "size" and "type".
QStringList orderNames();

/// Sorts by the order @p name; entries that are equal in it keep their order. Entries without a
/// value come last, also when @p reverse turns the others around.
void sort(std::vector<Entry> *entries, const QString &name, bool reverse);

} // namespace MessageList
