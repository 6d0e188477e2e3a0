#include "render/picture.h"

#include <algorithm>
#include <cmath>

namespace {

bool isWithin(const QSizeF &inner, const QSizeF &outer)
{
    return inner.width() <= outer.width() && inner.height() <= outer.height();
}

// Scales down a picture made for a larger screen: otherwise most of it would be off the page. A
// region of the sender's own layout may crop it on purpose.
MMS_COMP_SMIL_REGION_FIT fitOf(const PlacedObject &place, const QSizeF &size)
{
    const bool keepsSize = place.fit == SMIL_REGION_FIT_HIDDEN
        || place.fit == SMIL_REGION_FIT_SCROLL || place.fit == SMIL_REGION_FIT_UNKNOWN;
    return place.sharesPage && keepsSize && !isWithin(size, place.area.size())
        ? SMIL_REGION_FIT_MEET
        : place.fit;
}

// The visible part of a picture, and its place.
struct View
{
    QRectF target; // on the page
    QRectF source; // in the picture's own pixels
};

// Crops @p view to @p area: coordinates outside of it may be too large for a painter.
View clipped(const View &view, const QRectF &area)
{
    const QRectF seen = view.target & area;
    const double across = view.source.width() / view.target.width();
    const double down = view.source.height() / view.target.height();
    return {seen,
            QRectF(view.source.x() + (seen.x() - view.target.x()) * across,
                   view.source.y() + (seen.y() - view.target.y()) * down, seen.width() * across,
                   seen.height() * down)};
}

double wholeFactor(double size, double onPage, double scale)
{
    constexpr double Rounding = 1e-9; // of the division
    return std::floor(onPage * scale / size + Rounding);
}

// The largest place within @p place for a picture that is enlarged by whole factors, on whole
// drawn pixels.
QRectF crispPlace(const QSizeF &size, const QRectF &place, double scale)
{
    const QSizeF drawn(size.width() * wholeFactor(size.width(), place.width(), scale),
                       size.height() * wholeFactor(size.height(), place.height(), scale));
    QRectF target(QPointF(), drawn);
    target.moveCenter(place.center() * scale);
    return {std::round(target.x()) / scale, std::round(target.y()) / scale, drawn.width() / scale,
            drawn.height() / scale};
}

QSize reducedSize(const QSize &size, double across, double down)
{
    return {std::max(int(size.width() * std::min(across, 1.0)), 1),
            std::max(int(size.height() * std::min(down, 1.0)), 1)};
}

} // namespace

QSizeF sizeOnPage(const QSizeF &size, const PlacedObject &place)
{
    switch (fitOf(place, size)) {
    case SMIL_REGION_FIT_FILL:
        return place.area.size();
    case SMIL_REGION_FIT_MEET:
        return size.scaled(place.area.size(), Qt::KeepAspectRatio);
    case SMIL_REGION_FIT_SLICE:
        return size.scaled(place.area.size(), Qt::KeepAspectRatioByExpanding);
    default:
        return size;
    }
}

PictureDrawing::PictureDrawing(const Picture &picture, const PlacedObject &place, const QSize &page,
                               const Magnification &magnification)
    : m_image(picture.image)
{
    const double scale = magnification.scale;
    QRectF target(place.area.topLeft(), sizeOnPage(picture.size, place));
    if (place.sharesPage)
        target.moveCenter(place.area.center());
    m_isCrisp = magnification.enlarging == Enlarging::WholeFactors
        && place.fit != SMIL_REGION_FIT_SLICE && scale >= 1
        && isWithin(picture.size, target.size());
    if (m_isCrisp)
        target = crispPlace(picture.size, target, scale);
    const View view = clipped({target, QRectF(QPointF(0, 0), picture.size)},
                              place.area & QRectF(QPointF(0, 0), page));
    if (view.target.isEmpty() || view.source.isEmpty())
        return;
    m_target = view.target;
    m_source = {view.source.x() / picture.size.width(), view.source.y() / picture.size.height(),
                view.source.width() / picture.size.width(),
                view.source.height() / picture.size.height()};
    m_drawnSize =
        reducedSize(m_image.size(), m_target.width() * scale / m_source.width() / m_image.width(),
                    m_target.height() * scale / m_source.height() / m_image.height());
}

qint64 PictureDrawing::scaledPixels() const
{
    return m_target.isEmpty() || m_drawnSize == m_image.size()
        ? 0
        : qint64(m_image.width()) * m_image.height();
}

void PictureDrawing::draw(QPainter *painter) const
{
    if (m_target.isEmpty())
        return;
    const QImage image = scaledPixels() == 0
        ? m_image
        : m_image.scaled(m_drawnSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (m_isCrisp)
        painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter->drawImage(m_target, image,
                       QRectF(m_source.x() * image.width(), m_source.y() * image.height(),
                              m_source.width() * image.width(),
                              m_source.height() * image.height()));
}
