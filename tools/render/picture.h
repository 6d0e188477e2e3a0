/*
 * Pictures of a slide: fits them into their areas.
 */
#pragma once

#include "render/layout.h"

#include <QImage>
#include <QPainter>
#include <QSizeF>

/// A decoded picture.
struct Picture
{
    QImage image; ///< null if it cannot be shown; scaled down if the picture is huge
    QSizeF size; ///< of the picture, in its own pixels
};

/// Size of a picture of the size @p size at its place, in handset pixels.
QSizeF sizeOnPage(const QSizeF &size, const PlacedObject &place);

/// How a picture becomes larger than it is.
enum class Enlarging : unsigned char {
    Smooth,
    WholeFactors, ///< each pixel of a picture that is smaller than its place becomes a square
};

/// How handset pixels become drawn ones.
struct Magnification
{
    double scale; ///< drawn pixels for one handset pixel
    Enlarging enlarging = Enlarging::Smooth;
};

/// Draws a picture at its place on a page.
class PictureDrawing
{
public:
    PictureDrawing(const Picture &picture, const PlacedObject &place, const QSize &page,
                   const Magnification &magnification);

    /// The pixels that draw() scales down first, because the painter would skip some of them.
    qint64 scaledPixels() const;
    /// Draws the picture with a painter whose unit is the handset pixel.
    void draw(QPainter *painter) const;

private:
    QImage m_image;
    QSize m_drawnSize; ///< of the image once it is scaled down
    QRectF m_target; ///< of the visible part on the page; empty if nothing is visible
    QRectF m_source; ///< of the visible part, relative to the picture
    bool m_isCrisp = false; ///< drawn in squares of whole pixels
};
