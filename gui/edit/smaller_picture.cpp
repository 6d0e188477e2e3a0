#include "edit/smaller_picture.h"

#include "render/pictures.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>

namespace {

constexpr int JpegQuality = 85;

bool isAnimated(const QByteArray &octets, const QByteArray &format)
{
    QByteArray safe = qvlPictureOctets(octets);
    QBuffer buffer(&safe);
    const QImageReader reader(&buffer, format);
    return reader.supportsAnimation() && reader.imageCount() != 1;
}

QImage decodedWithin(const QSize &size, const QByteArray &octets)
{
    MMS_COMP_SMILMultipartBodypart part;
    part.setBodyData(octets);
    Pictures pictures(limitsFor(octets.size()).decoded * Million);
    const QImage image = pictures.find(part, QSizeF(size)).image;
    return image.isNull() ? image
                          : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QByteArray encoded(const QImage &image, const char *format)
{
    QByteArray octets;
    QBuffer buffer(&octets);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, format, JpegQuality) ? octets : QByteArray();
}

} // namespace

std::optional<SmallerPicture> smallerPicture(const QString &fileName, const QByteArray &octets,
                                             const QSize &most)
{
    const PictureSource source = examinePicture(octets);
    const QSize original = source.shownSize();
    if (source.format.isEmpty() || original.isEmpty() || isAnimated(octets, source.format))
        return std::nullopt;
    const QSize size =
        original.scaled(most.boundedTo(original), Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    const QImage image = decodedWithin(size, octets);
    if (image.isNull())
        return std::nullopt;
    const bool isTransparent = image.hasAlphaChannel();
    const QByteArray copy = isTransparent ? encoded(image, "PNG") : encoded(image, "JPEG");
    if (copy.isEmpty() || copy.size() >= octets.size())
        return std::nullopt;
    const QString name = QFileInfo(fileName).completeBaseName()
        + (isTransparent ? QLatin1String(".png") : QLatin1String(".jpg"));
    return SmallerPicture{name, copy, size, original};
}
