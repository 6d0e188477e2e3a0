/*
 * Reads files with a limit on their size, and explains failures to the user.
 */
#pragma once

#include <QByteArray>
#include <QString>

/// Octets that a file may have unless the user sets another limit, and at most.
constexpr qint64 StandardSizeLimit = qint64(64) << 20;
constexpr qint64 LargestSizeLimit = qint64(1) << 30; // the library counts octets in an int

/**
 * Reads the file @p fileName, or standard input for "-". False, with the reason in @p error, if
 * that fails or there are more than @p limit octets. Reads no more than one octet past the limit.
 */
bool readFile(const QString &fileName, qint64 limit, QByteArray *octets, QString *error);

/**
 * Reads the first @p most octets of the file @p fileName. False, with the reason in @p error, if
 * that fails.
 */
bool readStart(const QString &fileName, qint64 most, QByteArray *octets, QString *error);

/// Joins @p base and @p extension to a file name. Returns @p base if the extension is empty.
QString withExtension(const QString &base, const QString &extension);
