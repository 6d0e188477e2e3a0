#include "render/picture_source.h"

#include <qvlsmilparser.h>

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <iterator>

namespace {

constexpr double MostPixels = 1e15; // more than any limit

struct Cost
{
    double work; // for each pixel, relative to a PNG that is scaled down while it is decoded
    double space;
};

struct Format
{
    const char *name;
    Cost cost;
};

// Vector formats such as SVG are missing: rendering them may take any time. A picture that is
// scaled down only after it was decoded as a whole takes four times the space.
constexpr Format formats[] = {{"bmp", {1, 4}}, {"gif", {1, 4}},  {"jpeg", {0.25, 0.25}},
                              {"png", {1, 1}}, {"wbmp", {1, 4}}, {"webp", {2, 4}}};

int octetAt(const QByteArray &octets, qsizetype position)
{
    return position < octets.size() ? uchar(octets[position]) : 0;
}

// The decoder allocates the whole screen of a GIF, even if the picture on it is smaller.
QSize gifScreen(const QByteArray &octets)
{
    const auto littleEndian = [&](qsizetype position) {
        return octetAt(octets, position) | octetAt(octets, position + 1) << 8;
    };
    return octets.startsWith("GIF8") ? QSize(littleEndian(6), littleEndian(8)) : QSize();
}

// Only plain true color is scaled down while it is decoded.
Cost pngCost(const QByteArray &octets)
{
    const int bitDepth = octetAt(octets, 24);
    const int colorType = octetAt(octets, 25);
    const bool isInterlaced = octetAt(octets, 28) != 0;
    const bool isTrueColor = colorType == 2 || colorType == 6;
    if (bitDepth > 8)
        return {4, 8};
    return {isInterlaced ? 2.0 : 1.0, isInterlaced || !isTrueColor ? 4.0 : 1.0};
}

/// The markers of a JPEG that decide on its cost.
struct JpegScans
{
    bool isSequential = true;
    int components = 0;
    int scans = 0;
    int componentsOfFirstScan = 0;

    bool areBuffered() const
    {
        return !isSequential || scans > 1 || componentsOfFirstScan < components;
    }
};

// Skips segments by their lengths: a preview inside of one has markers of its own.
JpegScans jpegScans(const QByteArray &octets)
{
    JpegScans found;
    qsizetype at = 2;
    while ((at = octets.indexOf('\xFF', at)) >= 0 && at + 1 < octets.size()) {
        const int marker = octetAt(octets, at + 1);
        const bool hasLength = marker >= 0xC0 && marker < 0xFF && (marker < 0xD0 || marker > 0xD9);
        if (marker == 0xDA && found.scans++ == 0) {
            found.componentsOfFirstScan = octetAt(octets, at + 4);
        } else if (marker >= 0xC0 && marker < 0xC4) {
            found.isSequential = marker < 0xC2;
            found.components = octetAt(octets, at + 9);
        }
        const int length = octetAt(octets, at + 2) << 8 | octetAt(octets, at + 3);
        at += hasLength ? 2 + std::max(length, 2) : 1;
    }
    return found;
}

// Scans that have to be put together are kept in memory, and each visits the whole picture.
Cost jpegCost(const QByteArray &octets, const Cost &plain)
{
    const JpegScans found = jpegScans(octets);
    return found.areBuffered() ? Cost{1 + found.scans / 8.0, 4} : plain;
}

Cost costOf(const Format &format, const QByteArray &octets)
{
    if (qstrcmp(format.name, "png") == 0)
        return pngCost(octets);
    return qstrcmp(format.name, "jpeg") == 0 ? jpegCost(octets, format.cost) : format.cost;
}

} // namespace

PictureSource examinePicture(const QByteArray &octets)
{
    QByteArray needed = qvlPictureOctets(octets);
    QBuffer buffer(&needed);
    QImageReader reader(&buffer);
    const QByteArray name = reader.format();
    const Format *format = std::find_if(std::begin(formats), std::end(formats),
                                        [&](const Format &row) { return name == row.name; });
    if (format == std::end(formats))
        return {};
    PictureSource source;
    source.format = name;
    source.storedSize = reader.size();
    source.isTurned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    if (source.storedSize.isEmpty())
        return source;
    const QSize decoded = source.storedSize.expandedTo(gifScreen(needed));
    const double pixels = std::min(double(decoded.width()) * decoded.height(), MostPixels);
    const Cost cost = costOf(*format, needed);
    source.work = qint64(pixels * cost.work) + octets.size();
    source.space = qint64(pixels * cost.space);
    return source;
}
