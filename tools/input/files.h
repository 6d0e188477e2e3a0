/*
 * Reads, writes and names the files of the command, and explains failures to the user.
 */
#pragma once

#include <QByteArray>
#include <QString>

class QFileDevice;

/**
 * Reads the file @p fileName, or standard input for "-". False, with the reason in @p error, when
 * that cannot be done.
 */
bool readFile(const QString &fileName, QByteArray *octets, QString *error);

/**
 * Writes @p octets to the file @p fileName, or to standard output for "-". False, with the reason
 * in @p error and the file unchanged, when that cannot be done.
 */
bool writeFile(const QByteArray &octets, const QString &fileName, QString *error);

/// Writes all of @p octets to the open @p file. False when that fails.
bool writeAll(QFileDevice *file, const QByteArray &octets);

/// Says that @p file, which the user calls @p fileName, cannot be read, why, and what to do.
QString whyNotRead(const QString &fileName, const QFileDevice &file);

/// Says that the file @p fileName cannot be written, and why.
QString cannotWrite(const QString &fileName, const QString &why);

/// The file name that @p base and @p extension make. Without an extension it is @p base.
QString withExtension(const QString &base, const QString &extension);
