/*
 * Pictures of a slide: decoded within bounds, whatever their octets say, and fitted into the place
 * that they have.
 */
#pragma once

#include "render/layout.h"

#include <QImage>
#include <QPainter>
#include <QSizeF>

/// A decoded picture.
struct Picture
{
    QImage image; ///< null when it cannot be shown; smaller than the picture when that is huge
    QSizeF size; ///< of the picture, in its own pixels
};

/// The picture in @p part, the first one of an animation.
Picture readPicture(const MMS_COMP_SMILMultipartBodypart &part);

/// Draws @p picture at its place on a page of the size @p page.
void drawPicture(QPainter *painter, const QSize &page, const Picture &picture,
                 const PlacedObject &place);
