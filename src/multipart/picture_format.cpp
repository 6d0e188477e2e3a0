#include "multipart/picture_format.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <string_view>

namespace {

// As QImageReader names them.
constexpr std::array<std::string_view, 24> rasterFormats{
    "avif", "bmp", "cur", "gif", "heic", "heif", "icns", "ico",  "jp2",  "jpeg", "jpg", "jxl",
    "mng",  "pbm", "pgm", "png", "ppm",  "tga",  "tif",  "tiff", "wbmp", "webp", "xbm", "xpm"};

} // namespace

bool isRasterPicture(const QByteArray &octets)
{
    QBuffer buffer;
    buffer.setData(octets);
    buffer.open(QIODevice::ReadOnly);
    const QByteArray format = QImageReader::imageFormat(&buffer);
    return std::ranges::find(rasterFormats, std::string_view(format.constData()))
        != rasterFormats.end();
}
