#include "window/printing.h"

#include "html/message_page.h"
#include "render/render.h"
#include "view/terminal_text.h"
#include "window/message_source.h"

#include <QPainter>
#include <QPrinter>

#include <algorithm>
#include <new>

namespace {

constexpr int Columns = 2;
constexpr int Rows = 3;
constexpr double TitleShare = 0.05; // of the sheet's height
constexpr double Margin = 0.04; // of a cell

/// The cells of a sheet of paper.
class Sheet
{
public:
    explicit Sheet(const QRectF &paper) : m_paper(paper) { }

    QRectF title() const { return {0, 0, m_paper.width(), m_paper.height() * TitleShare}; }
    QRectF cell(int index) const
    {
        const double top = title().height();
        const QSizeF size(m_paper.width() / Columns, (m_paper.height() - top) / Rows);
        const QRectF cell(
            QPointF(index % Columns * size.width(), top + index / Columns * size.height()), size);
        const double margin = std::min(size.width(), size.height()) * Margin;
        return cell.adjusted(margin, margin, -margin, -margin);
    }

private:
    QRectF m_paper;
};

void drawInside(QPainter *painter, const QRectF &area, const QImage &image)
{
    QRectF place(QPointF(), QSizeF(image.size()).scaled(area.size(), Qt::KeepAspectRatio));
    place.moveCenter(area.center());
    painter->drawImage(place, image);
    painter->drawRect(place);
}

} // namespace

bool printSlides(const MessageSource &source, QPrinter *printer)
try {
    const std::unique_ptr<Message> message = source.decode();
    QPainter painter;
    if (!painter.begin(printer))
        return false;
    const Sheet sheet(QRectF(QPointF(), printer->pageRect(QPrinter::DevicePixel).size()));
    painter.drawText(sheet.title(), Qt::AlignCenter, TerminalText::visible(titleOf(*message)));
    SlideRenderer renderer(*message, LargestScale / 2);
    const unsigned int count = message->slides().getTotalSlidesNum();
    for (unsigned int i = 0; i < count; ++i) {
        const int cell = int(i) % (Columns * Rows);
        if (i > 0 && cell == 0)
            printer->newPage();
        const QImage image = renderer.render(i);
        if (image.isNull())
            break; // beyond the limit on the work for one message
        drawInside(&painter, sheet.cell(cell), image);
    }
    return painter.end();
} catch (const std::bad_alloc &) {
    return false;
}
