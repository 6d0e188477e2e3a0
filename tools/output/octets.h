/*
 * Writes octets to an open file of the system.
 */
#pragma once

#include <QByteArray>

/// Writes all of @p octets to @p file. Returns 0, or the number of the error.
int writeOctets(int file, const QByteArray &octets);
