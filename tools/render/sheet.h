/*
 * Contact sheets: each is one picture with many slides.
 */
#pragma once

#include <QImage>
#include <QList>

/// Most slides on one sheet.
constexpr int SlidesPerSheet = 100;

/// The picture of a slide, scaled down when it is too large for a sheet.
QImage thumbnail(const QImage &slide);

/// Arranges the thumbnails in rows, at their own size.
QImage contactSheet(const QList<QImage> &thumbnails);
