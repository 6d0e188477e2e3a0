/*
 * Contact sheets: pictures of many slides each.
 */
#pragma once

#include <QImage>
#include <QList>

/// Most slides on one sheet.
constexpr int SlidesPerSheet = 100;

/// The picture of a slide, scaled down if it is too large for a sheet.
QImage thumbnail(const QImage &slide);

/// Pixels of a contact sheet for a slide with a picture of the size @p slide.
qint64 sheetPixels(const QSize &slide);

/// Arranges the thumbnails in rows, without scaling them.
QImage contactSheet(const QList<QImage> &thumbnails);
