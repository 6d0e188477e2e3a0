/*
 * Examines a picture before it is decoded: its size, and how much decoding costs.
 */
#pragma once

#include <QByteArray>
#include <QSize>

/// A picture that is not decoded yet.
struct PictureSource
{
    QByteArray format; ///< as QImageReader names it; empty if the octets are no picture
    QSize storedSize; ///< in pixels; empty if unknown
    bool isTurned = false; ///< shown with width and height exchanged
    qint64 work = 0; ///< as many pixels of an ordinary PNG take as long to decode
    qint64 space = 0; ///< as many pixels of an ordinary JPEG or PNG take as much memory

    QSize shownSize() const { return isTurned ? storedSize.transposed() : storedSize; }
};

/// Examines @p octets without decoding the picture.
PictureSource examinePicture(const QByteArray &octets);
