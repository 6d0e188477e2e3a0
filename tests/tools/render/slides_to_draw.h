/*
 * Messages with slides to render, and helpers that examine the pictures.
 */
#pragma once

#include "input/message.h"
#include "render/render.h"

#include <QBuffer>
#include <QImage>
#include <QRect>

#include <cstdlib>
#include <memory>
#include <ostream>

// Used by GoogleTest, which otherwise prints octets.
inline void PrintTo(const QRectF &rect, std::ostream *out)
{
    *out << rect.x() << ',' << rect.y() << ' ' << rect.width() << 'x' << rect.height();
}

inline void PrintTo(const QRect &rect, std::ostream *out)
{
    PrintTo(QRectF(rect), out);
}

inline void PrintTo(const QSize &size, std::ostream *out)
{
    *out << size.width() << 'x' << size.height();
}

inline constexpr QSize HandsetPage(120, 160);
inline constexpr QRgb White = qRgb(255, 255, 255);
inline constexpr QRgb Red = qRgb(255, 0, 0);
inline constexpr QRgb Blue = qRgb(0, 0, 255);

inline MMS_COMP_SMILMediaObject *addObject(Message *message, unsigned int slide,
                                           MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type,
                                           const QString &region, const QByteArray &octets)
{
    auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
    part->setBodyData(octets);
    auto object = std::make_unique<MMS_COMP_SMILMediaObject>(&message->parts());
    object->setMediaElementType(type);
    object->setSrc(QStringLiteral("name"));
    object->setRegionId(region);
    object->setData(part.get());
    message->parts().appendBodypart(part.release());
    message->slides().getSlide(slide)->appendObject(object.get());
    return object.release();
}

inline void addRegion(Message *message, const QString &id, const QRectF &area,
                      const char *fit = "hidden")
{
    message->slides().appendRegion(float(area.x()), float(area.y()), float(area.width()),
                                   float(area.height()), QString::fromLatin1(fit), id);
}

inline QImage renderSlide(const Message &message, unsigned int index, int scale)
{
    return SlideRenderer(message, scale).render(index);
}

/// A message with one slide, which has one object in a region.
struct OneObject
{
    Message message;
    MMS_COMP_SMILTimingContainer *slide = message.slides().appendSlide(3000u);
    MMS_COMP_SMILMediaObject *object;

    OneObject(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type, const QByteArray &octets,
              const QRectF &area = QRectF(20, 30, 40, 40), const char *fit = "hidden")
        : object(addObject(&message, 0, type, QStringLiteral("own"), octets))
    {
        addRegion(&message, QStringLiteral("own"), area, fit);
    }
    QImage picture(int scale = 1) const { return renderSlide(message, 0, scale); }
};

inline MMS_COMP_COLOR color(const char *text)
{
    MMS_COMP_COLOR color;
    MMS_COMP_SMILParser::parseColor(QString::fromLatin1(text), color);
    return color;
}

inline QByteArray png(const QImage &image)
{
    QByteArray octets;
    QBuffer buffer(&octets);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return octets;
}

inline QByteArray jpeg(const QImage &image)
{
    QByteArray octets;
    QBuffer buffer(&octets);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPEG", 100);
    return octets;
}

/// A picture with a red left and a blue right half.
inline QByteArray redAndBlue(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int x = 0; x < size.width(); ++x) {
        for (int y = 0; y < size.height(); ++y)
            image.setPixel(x, y, x < size.width() / 2 ? Red : Blue);
    }
    return png(image);
}

inline QImage pageOf(const QImage &picture)
{
    return picture.copy(QRect(QPoint(0, 0), HandsetPage));
}

inline QImage stripOf(const QImage &picture)
{
    return picture.copy(picture.rect().adjusted(0, HandsetPage.height(), 0, 0));
}

inline bool isNear(QRgb a, QRgb b)
{
    constexpr int tolerance = 8;
    return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance
        && std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

/// The bounds of the pixels of @p image for which @p fits returns true.
template <typename Predicate>
QRect boundsOf(const QImage &image, Predicate fits)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (fits(image.pixel(x, y)))
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

inline QRect boundsOfColor(const QImage &image, QRgb color)
{
    return boundsOf(image, [color](QRgb pixel) { return isNear(pixel, color); });
}

/// The bounds of the pixels of @p page that are not white.
inline QRect boundsOfDrawing(const QImage &page)
{
    return boundsOf(page, [](QRgb pixel) { return !isNear(pixel, White); });
}

/// A slide with boxes that cover the page, each in a region of its own.
inline void addOverlapping(Message *message, int count)
{
    message->slides().appendSlide(3000u);
    for (int i = 0; i < count; ++i) {
        const QString id = QString::number(i);
        addRegion(message, id, {0, 0, 120, 161});
        addObject(message, 0, SMIL_MEDIA_REF, id, "a");
    }
}

/// More slides with the object's part.
inline void addUses(OneObject *made, int count)
{
    for (int i = 0; i < count; ++i) {
        auto object = std::make_unique<MMS_COMP_SMILMediaObject>(&made->message.parts());
        object->setMediaElementType(made->object->getMediaElementType());
        object->setRegionId(QStringLiteral("own"));
        object->setData(made->object->getData());
        made->message.slides().appendSlide(3000u)->appendObject(object.release());
    }
}
