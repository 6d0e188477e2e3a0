/*
 * Recognizes media by the octets that they begin with, and whether they are whole.
 */
#pragma once

#include <QByteArrayView>
#include <QString>

namespace Check {

/// What the content of a part is.
struct MediaContent
{
    QString name; ///< for people, such as "a PNG picture"; empty when it is not recognized
    QString type; ///< its usual media type; empty when it is not recognized
};

/// Recognizes @p octets by their signature.
MediaContent recognizeMedia(QByteArrayView octets);

/// True when the media type @p declared, in lower case, fits the content @p octets, so far as a
/// signature shows.
bool fitsType(QByteArrayView octets, const QString &declared);

/// True when a picture of a recognized format lacks its end.
bool endsTooEarly(QByteArrayView octets);

} // namespace Check
