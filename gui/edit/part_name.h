/*
 * Names of parts.
 */
#pragma once

#include <QString>

/// The location for a part with the content of the file, or the sender's location, @p name: its
/// last component, without characters that are invisible, change the direction, or do not fit into
/// SMIL.
QString partLocation(const QString &name);
