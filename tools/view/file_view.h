/*
 * A file that the command wrote, for a reader.
 */
#pragma once

#include <QString>

/// Such as "wrote a.jpg (7 octets)"; @p details follow the name, and both are made visible.
QString writtenFileText(const QString &fileName, const QString &details);
