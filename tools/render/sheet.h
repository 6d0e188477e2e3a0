/*
 * Contact sheets: many slides in one picture.
 */
#pragma once

#include <QImage>
#include <QList>

/// Most slides on one sheet.
constexpr int SlidesPerSheet = 100;

/// The picture of a slide, made smaller when it is too large for a sheet.
QImage thumbnail(const QImage &slide);

/// The thumbnails in rows, at their own size.
QImage contactSheet(const QList<QImage> &thumbnails);
