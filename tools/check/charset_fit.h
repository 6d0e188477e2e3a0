/*
 * Finds out whether octets are a text in the charset that is declared for them.
 */
#pragma once

#include <QByteArrayView>

namespace Check {

/// True when @p octets are valid in @p charset, a MIBenum; without one (0) when they are ASCII.
/// Also true for a charset that Qt does not convert. Linear in the octets.
bool fitsCharset(QByteArrayView octets, int charset);

} // namespace Check
