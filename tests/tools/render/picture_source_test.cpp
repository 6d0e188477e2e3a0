/*
 * Pictures before they are decoded: sizes and costs.
 */
#include "render/picture_source.h"

#include "support/octets.h"
#include "tools/render/slides_to_draw.h"

#include <QImageWriter>

#include <gtest/gtest.h>

namespace {

constexpr QSize Size(400, 300);
constexpr double Pixels = 400 * 300;
constexpr qsizetype HeaderEnd = 33; // of a PNG

QByteArray encoded(const char *format, QImage::Format pixels, bool isProgressive = false)
{
    QImage image(Size, pixels);
    image.fill(0);
    QByteArray octets;
    QBuffer buffer(&octets);
    QImageWriter writer(&buffer, format);
    writer.setProgressiveScanWrite(isProgressive);
    writer.write(image);
    return octets;
}

// The header of a PNG in true color, which says that it is interlaced.
QByteArray interlaced(const QByteArray &png)
{
    return "89 50 4E 47 0D 0A 1A 0A 00 00 00 0D 49 48 44 52 00 00 01 90 00 00 01 "
           "2C 08 02 00 00 01 15 D2 42 03"_octets
        + png.mid(HeaderEnd);
}

struct CostRow
{
    const char *name;
    QByteArray octets;
    double work;
    double space;
};

QByteArray withPreview(QByteArray jpeg, const QByteArray &preview)
{
    const int length = int(preview.size()) + 2;
    return jpeg.insert(2, "FF E1"_octets + octet(length >> 8) + octet(length & 0xFF) + preview);
}

} // namespace

TEST(PictureSource, CostsAsMuchAsItsEncodingTakes)
{
    const CostRow rows[] = {
        {"JPEG", encoded("jpeg", QImage::Format_RGB32), 0.25, 0.25},
        {"PNG in true color", encoded("png", QImage::Format_RGB32), 1, 1},
        {"PNG with an alpha channel", encoded("png", QImage::Format_ARGB32), 1, 1},
        {"PNG in grays", encoded("png", QImage::Format_Grayscale8), 1, 4},
        {"PNG with 16 bits a color", encoded("png", QImage::Format_RGBA64), 4, 8},
        {"interlaced PNG", interlaced(encoded("png", QImage::Format_RGB32)), 2, 4},
        {"BMP", encoded("bmp", QImage::Format_RGB32), 1, 4},
    };
    for (const CostRow &row : rows) {
        const PictureSource source = examinePicture(row.octets);
        const double octets = double(row.octets.size());
        EXPECT_EQ(source.storedSize, Size) << row.name;
        EXPECT_EQ(double(source.work), Pixels * row.work + octets) << row.name;
        EXPECT_EQ(double(source.space), Pixels * row.space) << row.name;
    }
}

TEST(PictureSource, EveryScanOfAProgressiveJpegCosts)
{
    const QByteArray one = encoded("jpeg", QImage::Format_RGB32, true);
    const PictureSource source = examinePicture(one);
    EXPECT_EQ(double(source.space), Pixels * 4);
    const qsizetype scans = 1000;
    const QByteArray more = one + "FF DA 00 08 01 01 00 00 3F 00 00"_octets.repeated(scans);
    EXPECT_GE(double(examinePicture(more).work - source.work), Pixels * double(scans) / 8);
}

TEST(PictureSource, PreviewInsideAJpegCostsNothing)
{
    const QByteArray plain = encoded("jpeg", QImage::Format_RGB32);
    const PictureSource source =
        examinePicture(withPreview(plain, encoded("jpeg", QImage::Format_RGB32, true)));
    EXPECT_EQ(source.space, examinePicture(plain).space);
}

TEST(PictureSource, GifCostsItsWholeScreen)
{
    const QByteArray gif = "47 49 46 38 39 61 E8 03 D0 07 80 00 00 FF 00 00 00 00 FF "
                           "2C 00 00 00 00 01 00 01 00 00 02 02 44 01 00 3B"_octets;
    EXPECT_GE(examinePicture(gif).work, 1000 * 2000);
    EXPECT_GE(examinePicture(gif).space, 4 * 1000 * 2000);
}

TEST(PictureSource, OctetsOfAnyOtherFormatAreNoPicture)
{
    for (const QByteArray &octets : {QByteArray(), QByteArray("no picture"),
                                     QByteArray("<svg xmlns='http://www.w3.org/2000/svg'/>")})
        EXPECT_TRUE(examinePicture(octets).format.isEmpty()) << octets.toStdString();
}
