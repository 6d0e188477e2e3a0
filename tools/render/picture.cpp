#include "render/picture.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <array>

namespace {

constexpr qint64 MostPicturePixels = 64'000'000;
constexpr int LongestPictureSide = 2048; // pixels of a picture once it is decoded

// The visible part of a picture, and its place.
struct View
{
    QRectF target; // on the page
    QRectF source; // in the picture's own pixels
};

// Excludes vector formats such as SVG: rendering them may take any time.
bool isPictureFormat(const QByteArray &format)
{
    constexpr std::array<const char *, 6> formats{"bmp", "gif", "jpeg", "png", "wbmp", "webp"};
    return std::find(formats.begin(), formats.end(), format) != formats.end();
}

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

// Scales down an image with more pixels than the painter draws: it would skip some of them.
QImage reduced(const QImage &image, double across, double down)
{
    const QSize size(std::max(int(image.width() * std::min(across, 1.0)), 1),
                     std::max(int(image.height() * std::min(down, 1.0)), 1));
    return size == image.size()
        ? image
        : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

Picture readPicture(const MMS_COMP_SMILMultipartBodypart &part)
{
    QByteArray octets = part.getBodyData();
    QBuffer buffer(&octets);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    if (!isPictureFormat(reader.format()))
        return {};
    QSize size = reader.size();
    if (qint64(size.width()) * size.height() > MostPicturePixels)
        return {};
    if (std::max(size.width(), size.height()) > LongestPictureSide)
        reader.setScaledSize(
            size.scaled(LongestPictureSide, LongestPictureSide, Qt::KeepAspectRatio)
                .expandedTo({1, 1}));
    if (reader.transformation() & QImageIOHandler::TransformationRotate90)
        size.transpose();
    const QImage image = reader.read();
    return {image, size.isValid() ? size : image.size()};
}

void drawPicture(QPainter *painter, const QSize &page, const Picture &picture,
                 const PlacedObject &place)
{
    QRectF target(place.area.topLeft(), sizeOnPage(picture.size, place));
    if (place.sharesPage)
        target.moveCenter(place.area.center());
    const View view = clipped({target, QRectF(QPointF(0, 0), picture.size)},
                              place.area & QRectF(QPointF(0, 0), page));
    if (view.target.isEmpty() || view.source.isEmpty())
        return;
    const double scale = painter->transform().m11();
    const QImage image = reduced(picture.image,
                                 view.target.width() * scale / view.source.width()
                                     * picture.size.width() / picture.image.width(),
                                 view.target.height() * scale / view.source.height()
                                     * picture.size.height() / picture.image.height());
    const double across = image.width() / picture.size.width();
    const double down = image.height() / picture.size.height();
    painter->drawImage(view.target, image,
                       QRectF(view.source.x() * across, view.source.y() * down,
                              view.source.width() * across, view.source.height() * down));
}
