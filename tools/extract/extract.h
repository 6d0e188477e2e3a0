/*
 * Writing the parts of a message to files, under names that cannot do harm.
 */
#pragma once

#include <QString>
#include <QStringList>

struct Message;

/**
 * A file name for a part with the location @p location: its last component, without characters that
 * are not visible, never hidden, empty or longer than a file system takes. @p fallback stands in
 * for a location that leaves nothing.
 */
QString safeFileName(const QString &location, const QString &fallback);

/**
 * Writes every part of @p message to a new file in the folder @p directory. A name that is taken,
 * by a file that was there before or by another part, gets a number. Adds a line to @p report for
 * each part; false, with the reason in @p error, when one cannot be written.
 */
bool extractParts(const Message &message, const QString &directory, QStringList *report,
                  QString *error);
