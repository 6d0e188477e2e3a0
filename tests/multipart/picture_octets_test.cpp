/*
 * The octets of a PNG without texts and color profile.
 */
#include "multipart/picture_octets.h"

#include "support/octets.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

namespace {

// One red pixel.
const QByteArray Signature = "89 50 4E 47 0D 0A 1A 0A"_octets;
const QByteArray Header = "00 00 00 0D 49 48 44 52 00 00 00 01 00 00 00 01 "
                          "08 02 00 00 00 90 77 53 DE"_octets;
const QByteArray Pixels = "00 00 00 0C 49 44 41 54 78 9C 63 F8 CF C0 00 00 03 01 01 00 "
                          "C9 FE 92 EF"_octets;
const QByteArray End = "00 00 00 00 49 45 4E 44 AE 42 60 82"_octets;
const QByteArray Text = "00 00 00 03 74 45 58 74 6B 00 78 11 22 33 44"_octets;

QByteArray named(const char *type)
{
    return QByteArray(Text).replace(4, 4, type);
}

QByteArray paletted()
{
    QImage image(2, 1, QImage::Format_Indexed8);
    image.setColorTable({qRgba(255, 0, 0, 100), qRgb(0, 0, 255)});
    image.setPixel(0, 0, 0);
    image.setPixel(1, 0, 1);
    QByteArray octets;
    QBuffer buffer(&octets);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return octets;
}

} // namespace

TEST(PictureOctets, LeaveOutTextsAndColorProfileOfAPng)
{
    const QByteArray plain = Signature + Header + Pixels + End;
    for (const char *type : {"tEXt", "zTXt", "iTXt", "iCCP"}) {
        const QByteArray one = named(type);
        EXPECT_EQ(qvlPictureOctets(Signature + Header + one + Pixels + End), plain) << type;
        EXPECT_EQ(qvlPictureOctets(Signature + Header + Pixels + one + one + End), plain) << type;
        EXPECT_EQ(qvlPictureOctets(Signature + one + Header + Pixels + End + one), plain) << type;
    }
}

TEST(PictureOctets, KeepEveryOtherChunk)
{
    for (const char *type : {"gAMA", "tRNS", "pHYs", "eXIf", "acTL", "tEXT", "zzzz"}) {
        const QByteArray octets = Signature + Header + named(type) + Pixels + End;
        EXPECT_EQ(qvlPictureOctets(octets), octets) << type;
    }
}

TEST(PictureOctets, AreNotCopiedIfNothingIsLeftOut)
{
    for (const QByteArray &octets : {Signature + Header + Pixels + End, QByteArray("no picture")})
        EXPECT_EQ(qvlPictureOctets(octets).constData(), octets.constData());
    EXPECT_TRUE(qvlPictureOctets(QByteArray()).isNull());
}

TEST(PictureOctets, KeepOctetsOfOtherFormats)
{
    for (const QByteArray &start :
         {QByteArray("\x89PNG\r\n\x1A"), QByteArray("GIF89a"), QByteArray()}) {
        const QByteArray octets = start + Text;
        EXPECT_EQ(qvlPictureOctets(octets), octets);
    }
}

TEST(PictureOctets, MayEndAnywhere)
{
    const QByteArray octets = Signature + Header + Text + Pixels + End;
    const qsizetype textStart = Signature.size() + Header.size();
    for (qsizetype size = 0; size < octets.size(); ++size) {
        const QByteArray result = qvlPictureOctets(octets.first(size));
        const qsizetype leftOut =
            size < textStart + 12 ? 0 : std::min(size - textStart, Text.size());
        EXPECT_EQ(result.size(), size - leftOut) << size;
    }
}

TEST(PictureOctets, MayAnnounceMoreThanThereIs)
{
    const QByteArray huge = QByteArray(Text).replace(0, 4, "FF FF FF FF"_octets);
    EXPECT_EQ(qvlPictureOctets(Signature + Header + huge + Pixels + End), Signature + Header);
    const QByteArray other = QByteArray(huge).replace(4, 4, "gAMA");
    const QByteArray octets = Signature + Header + other + Text + End;
    EXPECT_EQ(qvlPictureOctets(octets), octets);
}

TEST(PictureOctets, KeepTheTransparencyAndColorsOfAPng)
{
    const QByteArray plain = paletted();
    ASSERT_TRUE(plain.contains("tRNS"));
    QByteArray octets = plain;
    octets.insert((Signature + Header).size(), Text);
    EXPECT_EQ(QImage::fromData(qvlPictureOctets(octets)), QImage::fromData(plain));
}
