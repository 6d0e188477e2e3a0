#include "render/pictures.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>

namespace {

constexpr int LongestPictureSide = 2048; // pixels of a picture once it is decoded
constexpr qint64 WholePixels = 640 * 480; // smaller pictures are decoded as they are
constexpr qsizetype MostKeptOctets = 32 << 20; // of all decoded pictures

qint64 pixelsOf(const QSize &size)
{
    return qint64(size.width()) * size.height();
}

// Halves the size while that leaves as many pixels as are drawn. Steps, so that a picture that is
// drawn in many sizes is not decoded for each of them.
QSize decodedSize(const QSize &size, const QSizeF &drawn)
{
    QSize result = size;
    while (pixelsOf(result) > WholePixels && result.width() / 2 >= drawn.width()
           && result.height() / 2 >= drawn.height())
        result = QSize(std::max(result.width() / 2, 1), std::max(result.height() / 2, 1));
    return std::max(result.width(), result.height()) > LongestPictureSide
        ? result.scaled(LongestPictureSide, LongestPictureSide, Qt::KeepAspectRatio)
              .expandedTo({1, 1})
        : result;
}

bool covers(const QSize &size, const QSize &wanted)
{
    return size.width() >= wanted.width() && size.height() >= wanted.height();
}

} // namespace

Pictures::Pictures(qint64 mostPixels) : m_decoded(mostPixels), m_images(MostKeptOctets)
{
    // In MB. Pictures that are decoded as a whole take four octets for a pixel, and as many pixels
    // of them are allowed as a quarter of the limit.
    constexpr qint64 LongestSidesSquared = 17; // MB
    const qint64 megabytes =
        std::clamp<qint64>(mostPixels / 1'000'000, LongestSidesSquared, 1 << 20);
    QImageReader::setAllocationLimit(int(megabytes));
}

Pictures::Source &Pictures::source(const Part &part)
{
    const auto known = m_sources.find(&part);
    return known != m_sources.end()
        ? *known
        : *m_sources.insert(&part, {examinePicture(part.getBodyData())});
}

QImage Pictures::decode(const Part &part, Source *source, const QSize &size)
{
    source->isBeyondLimit = source->space > m_decoded.most() || !m_decoded.take(source->work);
    if (source->isBeyondLimit)
        return QImage();
    ++m_decodings;
    QByteArray octets = qvlPictureOctets(part.getBodyData());
    QBuffer buffer(&octets);
    QImageReader reader(&buffer, source->format);
    reader.setAutoTransform(true);
    if (size != source->shownSize())
        reader.setScaledSize(source->isTurned ? size.transposed() : size);
    QImage image = reader.read();
    source->isMalformed = image.isNull();
    return image;
}

Picture Pictures::find(const Part &part, const PlacedObject &place, double scale)
{
    const QSizeF size(source(part).shownSize());
    return size.isEmpty() ? Picture() : find(part, sizeOnPage(size, place) * scale);
}

Picture Pictures::find(const Part &part, const QSizeF &drawn)
{
    Source &found = source(part);
    const QSizeF size(found.shownSize());
    if (found.format.isEmpty() || found.storedSize.isEmpty() || found.isMalformed)
        return {};
    const QSize wanted = decodedSize(found.shownSize(), drawn);
    const Decoded *kept = m_images.object(&part);
    if (kept && covers(kept->wanted, wanted))
        return {kept->image, size};
    const QImage image = decode(part, &found, wanted);
    if (image.isNull())
        return {kept ? kept->image : image, size};
    m_images.insert(&part, new Decoded{image, wanted}, image.sizeInBytes());
    return {image, size};
}
