#include "stage/stage.h"

#include <QPainter>
#include <QScrollBar>

#include <algorithm>

Stage::Stage(QWidget *parent) : QAbstractScrollArea(parent)
{
    setAccessibleName(tr("Stage"));
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    viewport()->setBackgroundRole(QPalette::Mid);
    viewport()->setAutoFillBackground(true);
    constexpr QSize Least(120, 120);
    setMinimumSize(Least);
}

QSize Stage::area() const
{
    return (QSizeF(maximumViewportSize()) * devicePixelRatioF()).toSize();
}

// In the window's units.
QSize Stage::imageSize() const
{
    return (QSizeF(m_image.size()) / devicePixelRatioF()).toSize();
}

void Stage::setImage(const QImage &image, const QString &remark)
{
    m_image = image;
    m_remark = remark;
    updateScrollBars();
    viewport()->update();
}

void Stage::updateScrollBars()
{
    const QSize beyond = imageSize() - maximumViewportSize();
    const bool isBeyond = beyond.width() > 0 || beyond.height() > 0;
    const QSize seen = isBeyond ? viewport()->size() : imageSize();
    horizontalScrollBar()->setRange(0, std::max(0, imageSize().width() - seen.width()));
    horizontalScrollBar()->setPageStep(seen.width());
    verticalScrollBar()->setRange(0, std::max(0, imageSize().height() - seen.height()));
    verticalScrollBar()->setPageStep(seen.height());
}

void Stage::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    if (m_image.isNull()) {
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_remark);
        return;
    }
    const QSize size = imageSize();
    const QPoint place(
        std::max(0, (viewport()->width() - size.width()) / 2) - horizontalScrollBar()->value(),
        std::max(0, (viewport()->height() - size.height()) / 2) - verticalScrollBar()->value());
    painter.drawImage(QRect(place, size), m_image);
}

void Stage::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
    emit resized();
}
