/*
 * Pictures of a slide: decodes them within limits, and fits them into their areas.
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

/// Decodes the picture in @p part. Decodes only the first picture of an animation.
Picture readPicture(const MMS_COMP_SMILMultipartBodypart &part);

/// Draws @p picture at its place on a page of the size @p page.
void drawPicture(QPainter *painter, const QSize &page, const Picture &picture,
                 const PlacedObject &place);
