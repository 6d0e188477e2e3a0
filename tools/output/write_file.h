/*
 * Writes the files of the command under the names that the user or the command gives them, and
 * explains failures to the user.
 */
#pragma once

#include "output/octets.h"

#include <QByteArray>
#include <QString>

/**
 * Writes @p octets to the file @p fileName, or to standard output for "-". Replaces a file once
 * all octets are written. A symbolic link stays, because the user named it: the file that it
 * refers to is replaced. Devices and FIFOs are written directly, except a terminal. False, with
 * the reason in @p error and a file unchanged, if that fails.
 */
bool writeFile(const QByteArray &octets, const QString &fileName, QString *error);
/// The same with the octets that @p writeTo writes.
bool writeFile(const WriteTo &writeTo, const QString &fileName, QString *error);

/**
 * Writes @p octets to the file @p fileName, whose name the command chose. Replaces a file once all
 * octets are written, and a symbolic link itself. False, with the reason in @p error and a file
 * unchanged, if that fails.
 */
bool replaceFile(const QByteArray &octets, const QString &fileName, QString *error);
/// The same with the octets that @p writeTo writes.
bool replaceFile(const WriteTo &writeTo, const QString &fileName, QString *error);

/// True for "-", and for other names of the file that standard output is, such as /dev/stdout.
bool isStandardOutput(const QString &fileName);

/// The error for the file @p fileName, which cannot be written.
QString cannotWrite(const QString &fileName, const QString &why);
