/*
 * Smaller copies of pictures.
 */
#include "edit/smaller_picture.h"

#include "pictures.h"

#include <QtTest>

namespace {

// Not a plain surface, so that fewer pixels are fewer octets.
QImage image(const QSize &size, QImage::Format format)
{
    QImage result(size, format);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            result.setPixelColor(x, y, QColor((x * 7) % 256, (y * 5) % 256, (x * y) % 256, 200));
    }
    return result;
}

QImage decoded(const QByteArray &octets, const char *format)
{
    return QImage::fromData(octets, format);
}

} // namespace

class SmallerPictureTest : public QObject
{
    Q_OBJECT

private slots:
    void keepsTheProportions()
    {
        const QByteArray octets = encoded(image({800, 400}, QImage::Format_RGB32), "JPEG", 95);
        const auto copy = smallerPicture("/tmp/a.photo.jpeg", octets, {200, 200});
        QVERIFY(copy);
        QCOMPARE(copy->fileName, QStringLiteral("a.photo.jpg"));
        QCOMPARE(copy->originalSize, QSize(800, 400));
        QCOMPARE(copy->size, QSize(200, 100));
        QCOMPARE(decoded(copy->octets, "JPEG").size(), QSize(200, 100));
        QVERIFY(copy->octets.size() < octets.size());
    }

    void transparentPicturesStayTransparent()
    {
        const QByteArray octets = encoded(image({400, 400}, QImage::Format_ARGB32));
        const auto copy = smallerPicture("a.png", octets, {100, 100});
        QVERIFY(copy);
        QCOMPARE(copy->fileName, QStringLiteral("a.png"));
        QVERIFY(decoded(copy->octets, "PNG").hasAlphaChannel());
    }

    void largeOpaquePngsBecomeJpegs()
    {
        const QByteArray octets = encoded(image({300, 300}, QImage::Format_RGB32));
        const auto copy = smallerPicture("a.png", octets, {300, 300});
        QVERIFY(copy);
        QCOMPARE(copy->fileName, QStringLiteral("a.jpg"));
        QCOMPARE(copy->size, QSize(300, 300));
    }

    void thinPicturesKeepAPixel()
    {
        const QByteArray octets = encoded(image({2000, 2}, QImage::Format_RGB32), "PNG", 95);
        const auto copy = smallerPicture("a.png", octets, {50, 50});
        QVERIFY(copy);
        QCOMPARE(copy->size, QSize(50, 1));
    }

    void thereIsNoneWhenItWouldNotBeSmaller()
    {
        const QByteArray octets = encoded(image({200, 200}, QImage::Format_RGB32), "JPEG", 1);
        QVERIFY(!smallerPicture("a.jpg", octets, {200, 200}));
    }

    void thereIsNoneOfSomethingElse()
    {
        QVERIFY(!smallerPicture("a.png", "no picture", {20, 20}));
        QVERIFY(!smallerPicture("a.svg", "<svg xmlns='http://www.w3.org/2000/svg'/>", {20, 20}));
        QVERIFY(!smallerPicture("a.png", QByteArray(), {20, 20}));
    }
};

QTEST_MAIN(SmallerPictureTest)
#include "smaller_picture_test.moc"
