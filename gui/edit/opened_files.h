/*
 * The files that this program has opened to read messages. They are never overwritten.
 */
#pragma once

#include <QString>

namespace OpenedFiles {

/// Notes that @p fileName was opened. To be called in the thread of the windows.
void add(const QString &fileName);
/// Why @p fileName must not be written: it was opened, under this name or another, or it is a
/// message, which another window may show. Empty for other files.
QString refusal(const QString &fileName);

} // namespace OpenedFiles
