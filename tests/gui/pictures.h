/*
 * Pictures for the tests of the window.
 */
#pragma once

#include <QBuffer>
#include <QImage>

/// @p image in @p format, with the quality @p quality, or the usual one.
inline QByteArray encoded(const QImage &image, const char *format = "PNG", int quality = -1)
{
    QByteArray octets;
    QBuffer buffer(&octets);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format, quality))
        qFatal("cannot encode");
    return octets;
}

/// A PNG picture of one color.
inline QByteArray coloredPicture(Qt::GlobalColor color, QSize size = {8, 6})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return encoded(image);
}

/// A PNG picture that hardly compresses.
inline QByteArray noise(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    quint32 state = 1;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            state = state * 1664525 + 1013904223;
            image.setPixel(x, y, state);
        }
    }
    return encoded(image);
}
