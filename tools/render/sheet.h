/*
 * Contact sheets: pictures of many slides each.
 */
#pragma once

#include "render/work.h"

#include <QImage>
#include <QList>
#include <QStringList>

/// Widths of a contact sheet in pixels.
constexpr int LeastSheetWidth = 100;
constexpr int MostSheetWidth = 3000;

/// The columns of a contact sheet.
struct SheetFormat
{
    int width; ///< of the sheet, in pixels; 0 if it follows from the slides
    int columns;
    QSize largestSlide;
};

/// The format of the sheets for @p slides slides. The slides fill sheets of the width @p width, in
/// up to four columns. For 0 they are scaled down to 240x360 pixels if they are larger.
SheetFormat sheetFormat(int slides, int width);

/// A slide on a sheet.
struct SheetCell
{
    QImage slide; ///< made by thumbnail()
    QImage caption; ///< shown below the slide; may be null
};

/// The picture of a slide, scaled for a sheet.
QImage thumbnail(const QImage &slide, const SheetFormat &format);

/// Pixels of a sheet for a slide with a picture of the size @p slide.
qint64 sheetPixels(const QSize &slide, const SheetFormat &format);

/// Draws @p texts one below the other, @p width pixels wide. Null if that exceeds the limit @p
/// work.
QImage sheetCaption(const QStringList &texts, int width, Work *work);

/// True if @p cells fill a sheet.
bool fillsSheet(const QList<SheetCell> &cells, const SheetFormat &format);

/// Arranges the cells in rows.
QImage contactSheet(const QList<SheetCell> &cells, const SheetFormat &format);
