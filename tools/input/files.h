/*
 * Reads, writes and names the files of the command, and explains failures to the user.
 */
#pragma once

#include <QByteArray>
#include <QString>

class QFileDevice;

/**
 * Reads the file @p fileName, or standard input for "-". False, with the reason in @p error, if
 * that fails.
 */
bool readFile(const QString &fileName, QByteArray *octets, QString *error);

/**
 * Writes @p octets to the file @p fileName, or to standard output for "-". False, with the reason
 * in @p error and the file unchanged, if that fails.
 */
bool writeFile(const QByteArray &octets, const QString &fileName, QString *error);

/// Writes all of @p octets to the open @p file. False if that fails.
bool writeAll(QFileDevice *file, const QByteArray &octets);

/// The error for a @p file that cannot be read, with advice. @p fileName is its name as the user
/// gave it.
QString whyNotRead(const QString &fileName, const QFileDevice &file);

/// The error for the file @p fileName, which cannot be written.
QString cannotWrite(const QString &fileName, const QString &why);

/// Joins @p base and @p extension to a file name. Returns @p base if the extension is empty.
QString withExtension(const QString &base, const QString &extension);
