/*
 * Recognizes media by the octets that they begin with.
 */
#pragma once

#include <QByteArrayView>
#include <QString>

namespace Check {

/// The media type whose signature @p octets have; "" for none.
QString recognizedType(QByteArrayView octets);

/// True when content recognized as @p recognized may be declared as @p declared, both in lower
/// case.
bool areCompatible(const QString &recognized, const QString &declared);

/// True when content of the media type @p declared always has a signature.
bool hasSignature(const QString &declared);

} // namespace Check
