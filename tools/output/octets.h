/*
 * Writes octets to an open file of the system.
 */
#pragma once

#include <QByteArray>

#include <functional>

/// Writes something to an open file. Returns 0, or the number of the error.
using WriteTo = std::function<int(int file)>;

/// Writes all of @p octets to @p file. Returns 0, or the number of the error.
int writeOctets(int file, const QByteArray &octets);

/// Writes @p octets, which have to outlive it.
WriteTo writerOf(const QByteArray &octets);
