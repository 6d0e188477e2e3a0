/*
 * The files that this program has opened to read messages. They are never overwritten.
 */
#pragma once

#include <QString>

namespace OpenedFiles {

/// Notes that @p fileName was opened. To be called in the thread of the windows.
void add(const QString &fileName);
/// Whether @p fileName is a file that was opened, under this name or another.
bool contains(const QString &fileName);

} // namespace OpenedFiles
