/*
 * A file as a whole, for a reader.
 */
#pragma once

#include <QString>

#include <string>

/// Such as "wrote a.jpg (7 octets)"; @p details follow the name, and both are made visible.
QString writtenFileText(const QString &fileName, const QString &details);

/// The line of JSON for a file that could not be read.
std::string errorJson(const QString &fileName, const QString &error);
