/*
 * Writes the parts of a message to files with harmless names.
 */
#pragma once

#include "output/report.h"

#include <QString>
#include <QStringList>

class MMS_COMP_SMILMultipartBodypart;
struct Message;

/**
 * Returns a file name for a part with the location @p location: the last component without
 * invisible characters. The name is never hidden, never begins like an option, and is short enough
 * for every file system. Returns @p fallback if nothing is left of the location.
 */
QString safeFileName(const QString &location, const QString &fallback);

/// The file name of @p part, which is at @p index in its message.
QString partFileName(const MMS_COMP_SMILMultipartBodypart &part, int index);

/**
 * Writes every part of @p message to a new file in the folder @p directory. Adds a number to the
 * name when a file of that name exists. Adds a line to @p report for each part. False, with the
 * reason in @p error, when a file cannot be written.
 */
bool extractParts(const Message &message, const QString &directory, Report *report, QString *error);
