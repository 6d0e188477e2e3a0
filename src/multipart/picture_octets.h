/** @file
 * The octets of a picture for a decoder.
 */
#pragma once

#include "../base/export.h"

#include <QByteArray>

/**
 * The octets of the picture @p octets without what no viewer shows and a stranger may abuse: the
 * texts and the color profile of a PNG. They are compressed, and QImage, QPixmap and QImageReader
 * expand them before they read the size: a few hundred KB become gigabytes. Give these octets to
 * Qt in place of the received ones.
 *
 * Any other octets are returned as they are, and without a copy. Linear in the octets. Null if
 * @p octets is null or if there is no memory.
 */
QVL_EXPORT QByteArray qvlPictureOctets(const QByteArray &octets);
