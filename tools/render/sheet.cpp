#include "render/sheet.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int Columns = 4;
constexpr int SheetMargin = 20;
constexpr QSize LargestThumbnail(240, 360);
constexpr QRgb Table = qRgb(0xE4, 0xE7, 0xEB);
constexpr QRgb Edge = qRgb(0xA8, 0xB0, 0xBA);

QSize thumbnailSize(const QSize &slide)
{
    return slide.width() <= LargestThumbnail.width() && slide.height() <= LargestThumbnail.height()
        ? slide
        : slide.scaled(LargestThumbnail, Qt::KeepAspectRatio).expandedTo({1, 1});
}

} // namespace

QImage thumbnail(const QImage &slide)
{
    const QSize size = thumbnailSize(slide.size());
    return size == slide.size()
        ? slide
        : slide.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

qint64 sheetPixels(const QSize &slide)
{
    const QSize cell = thumbnailSize(slide) + QSize(SheetMargin, SheetMargin);
    return qint64(cell.width()) * cell.height();
}

QImage contactSheet(const QList<QImage> &thumbnails)
{
    QSize cell;
    for (const QImage &image : thumbnails)
        cell = cell.expandedTo(image.size());
    cell += QSize(SheetMargin, SheetMargin);
    const int columns = std::min(Columns, int(thumbnails.size()));
    const int rows = (int(thumbnails.size()) + Columns - 1) / Columns;
    QImage sheet(QSize(columns * cell.width(), rows * cell.height())
                     + QSize(SheetMargin, SheetMargin),
                 QImage::Format_RGB32);
    sheet.fill(Table);
    QPainter painter(&sheet);
    painter.setPen(QColor(Edge));
    for (int i = 0; i < thumbnails.size(); ++i) {
        const QPoint corner(SheetMargin + i % Columns * cell.width(),
                            SheetMargin + i / Columns * cell.height());
        painter.drawImage(corner, thumbnails[i]);
        painter.drawRect(QRect(corner, thumbnails[i].size()).adjusted(-1, -1, 0, 0));
    }
    return sheet;
}
