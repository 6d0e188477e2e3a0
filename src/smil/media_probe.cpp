#include "smil/media_probe.h"

#include "multipart/body_part.h"
#include "multipart/picture_format.h"
#include "multipart/picture_octets.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

// A decoder allocates the whole screen of a GIF, even if the picture on it is smaller.
QSize gifScreen(const QByteArray &octets)
{
    constexpr qsizetype HeaderSize = 10;
    if (!octets.startsWith("GIF8") || octets.size() < HeaderSize)
        return QSize();
    const char *sizes = octets.constData() + 6;
    return QSize(qFromLittleEndian<quint16>(sizes), qFromLittleEndian<quint16>(sizes + 2));
}

// A progressive JPEG has about ten scans. Each one visits all pixels again, and a scan of some
// octets may skip thousands.
qint64 jpegScans(const QByteArray &octets)
{
    return octets.startsWith("\xFF\xD8") ? octets.count("\xFF\xDA") : 0;
}

// Such a file holds pictures of other formats, and its header does not say how large these are.
bool isContainer(const QByteArray &format)
{
    return format == "cur" || format == "icns" || format == "ico";
}

// The work of decoding a picture with @p size, as a number of pixels.
qint64 pixelsToDecode(const QByteArray &octets, QSize size)
{
    constexpr qint64 ScansPerDecoding = 64; // take as long as decoding the pixels
    const QSize decoded = size.expandedTo(gifScreen(octets));
    return qint64(decoded.width()) * decoded.height() * (1 + jpegScans(octets) / ScansPerDecoding);
}

} // namespace

bool MediaProbe::passes(MMS_COMP_SMILMultipartBodypart *part)
{
    if (part->getContentType() != "image"_L1)
        return part->isMediaObjectSupported();
    QByteArray octets = qvlPictureOctets(part->getBodyData());
    if (!isRasterPicture(octets))
        return part->isMediaObjectSupported();
    QBuffer buffer(&octets);
    QImageReader reader(&buffer);
    const qint64 pixels = pixelsToDecode(octets, reader.size());
    if (!reader.supportsOption(QImageIOHandler::Size) || isContainer(reader.format())
        || pixels > m_pixelsLeft)
        return reader.canRead();
    m_pixelsLeft -= pixels;
    return part->isMediaObjectSupported();
}
