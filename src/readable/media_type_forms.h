/*
 * Content types in one of the two forms that the decoder reads: one octet, or related in the
 * general form with Type and Start.
 */
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace MediaTypeForms {

/**
 * The content type of the octets @p value in a form that the decoder reads. Related keeps its type
 * and start; other multiparts and media types become one octet. A media type without a code of its
 * own, or one that cannot be read, becomes the code for any text, image, audio, video or
 * application, since the header needs a content type to end with.
 */
QByteArray readable(QByteArrayView value);

/// True if the decoder gets the same parameters from @p a as from @p b, both of which it reads.
bool haveSameParameters(QByteArrayView a, QByteArrayView b);

} // namespace MediaTypeForms
