/*
 * Smaller copies of pictures, for messages with a limited size.
 */
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <optional>

/// A smaller copy of a picture.
struct SmallerPicture
{
    QString fileName; ///< the original's, with the extension of the copy
    QByteArray octets;
    QSize size; ///< in pixels
    QSize originalSize;
};

/**
 * Copies the picture @p octets of the file @p fileName at no more than the size @p most: as JPEG,
 * or as PNG if it is transparent. Nothing if it cannot be decoded within the limits of rendering,
 * has more than one frame, or is not smaller in octets afterwards. Takes as long as decoding, so
 * call it outside the window's thread.
 */
std::optional<SmallerPicture> smallerPicture(const QString &fileName, const QByteArray &octets,
                                             const QSize &most);
