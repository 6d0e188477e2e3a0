#include "render/sheet.h"

#include "render/text.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int SlidesPerSheet = 100;
constexpr int MostColumns = 4;
constexpr int SheetMargin = 20;
constexpr QSize OrdinarySlide(240, 360);
constexpr int LeastSlideWidth = 120; // in several columns
constexpr int FullHeight = 16'000; // one row more has to end above 32,767, where painters stop
constexpr int LongestCaption = 8'000;
constexpr int CaptionMargin = 6;
constexpr int LetterHeight = 12;
constexpr QRgb Table = qRgb(0xE4, 0xE7, 0xEB);
constexpr QRgb Edge = qRgb(0xA8, 0xB0, 0xBA);
constexpr QRgb Ink = qRgb(0x20, 0x24, 0x2A);

int widthInColumns(int sheet, int columns)
{
    return std::max((sheet - SheetMargin) / columns - SheetMargin, 1);
}

QSize thumbnailSize(const QSize &slide, const SheetFormat &format)
{
    const QSize most = format.largestSlide;
    const bool fits = slide.width() <= most.width() && slide.height() <= most.height();
    return fits && format.width == 0 ? slide
                                     : slide.scaled(most, Qt::KeepAspectRatio).expandedTo({1, 1});
}

int heightOf(const SheetCell &cell)
{
    return cell.slide.height() + cell.caption.height();
}

// The number of cells in the row that begins at @p first.
int cellsInRow(const QList<SheetCell> &cells, int first, const SheetFormat &format)
{
    return std::min(format.columns, int(cells.size()) - first);
}

int rowHeight(const QList<SheetCell> &cells, int first, const SheetFormat &format)
{
    int height = 0;
    for (int i = 0; i < cellsInRow(cells, first, format); ++i)
        height = std::max(height, heightOf(cells[first + i]));
    return height + SheetMargin;
}

int sheetHeight(const QList<SheetCell> &cells, const SheetFormat &format)
{
    int height = SheetMargin;
    for (int first = 0; first < cells.size(); first += format.columns)
        height += rowHeight(cells, first, format);
    return height;
}

void drawCell(QPainter *painter, const QPoint &corner, const SheetCell &cell)
{
    painter->drawImage(corner, cell.slide);
    painter->drawRect(QRect(corner, cell.slide.size()).adjusted(-1, -1, 0, 0));
    painter->drawImage(corner + QPoint(0, cell.slide.height()), cell.caption);
}

} // namespace

SheetFormat sheetFormat(int slides, int width)
{
    int columns = std::clamp(slides, 1, MostColumns);
    if (width == 0)
        return {0, columns, OrdinarySlide};
    while (columns > 1 && widthInColumns(width, columns) < LeastSlideWidth)
        --columns;
    const int slide = widthInColumns(width, columns);
    return {width, columns, {slide, slide * OrdinarySlide.height() / OrdinarySlide.width()}};
}

QImage thumbnail(const QImage &slide, const SheetFormat &format)
{
    const QSize size = thumbnailSize(slide.size(), format);
    return size == slide.size()
        ? slide
        : slide.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

qint64 sheetPixels(const QSize &slide, const SheetFormat &format)
{
    const QSize cell = thumbnailSize(slide, format) + QSize(SheetMargin, SheetMargin);
    return qint64(cell.width()) * cell.height();
}

QImage sheetCaption(const QStringList &texts, int width, Work *work)
{
    const QString text = texts.join(QChar::LineSeparator);
    if (!work->take(text.size() * CharacterWork))
        return QImage();
    const TextLines lines(text, QSizeF(width, LongestCaption), pictureFont(LetterHeight));
    const QSize size(width, CaptionMargin + lines.height());
    if (!work->take(qint64(size.width()) * size.height()))
        return QImage();
    QImage image(size, QImage::Format_RGB32);
    image.fill(Table);
    QPainter painter(&image);
    painter.setPen(QColor(Ink));
    lines.draw(&painter, {0, CaptionMargin});
    return image;
}

bool fillsSheet(const QList<SheetCell> &cells, const SheetFormat &format)
{
    return cells.size() == SlidesPerSheet || sheetHeight(cells, format) >= FullHeight;
}

QImage contactSheet(const QList<SheetCell> &cells, const SheetFormat &format)
{
    int column = 0;
    for (const SheetCell &cell : cells)
        column = std::max(column, cell.slide.width() + SheetMargin);
    const int columns = std::min(format.columns, int(cells.size()));
    QImage sheet(format.width > 0 ? format.width : SheetMargin + columns * column,
                 sheetHeight(cells, format), QImage::Format_RGB32);
    sheet.fill(Table);
    QPainter painter(&sheet);
    painter.setPen(QColor(Edge));
    int top = SheetMargin;
    for (int first = 0; first < cells.size(); first += format.columns) {
        for (int i = 0; i < cellsInRow(cells, first, format); ++i)
            drawCell(&painter, {SheetMargin + i * column, top}, cells[first + i]);
        top += rowHeight(cells, first, format);
    }
    return sheet;
}
