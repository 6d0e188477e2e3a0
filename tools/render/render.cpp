#include "render/render.h"

#include "input/file_name.h"
#include "input/message.h"
#include "output/write_file.h"
#include "render/layout.h"
#include "render/picture.h"
#include "render/sheet.h"
#include "render/strip.h"
#include "render/text.h"
#include "view/file_view.h"
#include "view/terminal_text.h"

#include <QBuffer>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Slide = MMS_COMP_SMILTimingContainer;
using TerminalText::visible;

constexpr unsigned int MostSlides = 1000;
constexpr int LongestDrawnSide = 4096; // of the page, in picture pixels
constexpr qint64 MostDrawnPixels = 10'000'000;
constexpr int TextMargin = 3; // these are handset pixels on the handset's own page
constexpr int BoxMargin = 4;
constexpr QRgb VideoFrame = qRgb(0x20, 0x24, 0x2A);

/// How a slide is drawn.
struct Style
{
    const Message *message;
    QColor paper;
    QColor ink; ///< contrasts with the paper
    QColor faintInk;
    QColor textInk;
    double textHeight;
    double unit; ///< see pageUnit()
};

bool isGiven(const MMS_COMP_COLOR &color)
{
    return color.isUsable() && color.color.isValid();
}

QColor paperOf(const MMS_COMP_SMILData &slides, const Slide &slide)
{
    const MMS_COMP_SMILRootLayout *root = slides.getRootLayout();
    if (isGiven(slide.getPageColor()))
        return slide.getPageColor().color;
    return root && isGiven(*root->getBackgroundColor()) ? root->getBackgroundColor()->color
                                                        : QColor(Qt::white);
}

// In handset pixels. Every other text means "normal".
double textHeight(const QString &size)
{
    if (size.compare(QLatin1String("small"), Qt::CaseInsensitive) == 0)
        return 10;
    return size.compare(QLatin1String("large"), Qt::CaseInsensitive) == 0 ? 16 : 12;
}

Style styleOf(const Message &message, const Slide &slide)
{
    const MMS_COMP_SMILData &slides = message.slides();
    Style style;
    style.message = &message;
    style.unit = pageUnit(pageSize(slides));
    style.paper = paperOf(slides, slide);
    style.ink = qGray(style.paper.rgb()) < 128 ? Qt::white : Qt::black;
    style.faintInk = style.ink;
    style.faintInk.setAlphaF(0.4f);
    style.textInk = isGiven(slide.getTextColor()) ? slide.getTextColor().color : style.ink;
    style.textHeight = textHeight(slide.getTextSize()) * style.unit;
    return style;
}

bool isEmptyText(const Message &message, const Object &object)
{
    return object.getMediaElementType() == SMIL_MEDIA_TEXT && object.getData()
        && shownText(message, *object.getData()).isEmpty();
}

QList<const Object *> objectsOnPage(const Message &message, const Slide &slide)
{
    QList<const Object *> objects;
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i) {
        const Object *object = slide.getMediaObject(i);
        if (object->getMediaElementType() != SMIL_MEDIA_AUDIO && !isEmptyText(message, *object))
            objects += object;
    }
    return objects;
}

QRectF middleOf(const QRectF &area, double width, double height)
{
    QRectF middle(0, 0, width, height);
    middle.moveCenter(area.center());
    return middle;
}

void drawPlayTriangle(QPainter *painter, const QRectF &area)
{
    if (area.height() <= 0)
        return;
    const QRectF sign = middleOf(area, area.height(), area.height());
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(255, 255, 255, 60));
    painter->drawEllipse(sign);
    painter->setBrush(Qt::white);
    painter->drawPolygon(
        QPolygonF{sign.topLeft() + QPointF(sign.width() * 0.38, sign.height() * 0.27),
                  sign.topLeft() + QPointF(sign.width() * 0.38, sign.height() * 0.73),
                  sign.topLeft() + QPointF(sign.width() * 0.76, sign.height() * 0.5)});
}

// Small regions get small margins.
double marginIn(const QRectF &area, double wanted)
{
    return std::min(wanted, std::min(area.width(), area.height()) / 8);
}

void drawVideo(QPainter *painter, const Style &style, const QRectF &area, const QString &name)
{
    const double margin = marginIn(area, BoxMargin * style.unit);
    const QRectF frame = area.adjusted(margin, margin, -margin, -margin);
    const double line = QFontMetricsF(painter->font()).height();
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(VideoFrame));
    painter->drawRoundedRect(frame, margin, margin);
    drawPlayTriangle(painter, frame.adjusted(0, line, 0, -line * 1.5));
    painter->setPen(Qt::white);
    drawName(painter, frame.adjusted(margin, 0, -margin, -margin),
             Qt::AlignHCenter | Qt::AlignBottom, name);
}

void drawNotShown(QPainter *painter, const Style &style, const QRectF &area, const QString &name)
{
    const double margin = marginIn(area, BoxMargin * style.unit);
    const QRectF frame = area.adjusted(margin, margin, -margin, -margin);
    const QRectF words = frame.adjusted(margin, 0, -margin, 0);
    const double line = QFontMetricsF(painter->font()).height();
    const QRectF upper = middleOf(words, words.width(), line).translated(0, -line / 2);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(style.faintInk, style.unit, Qt::DashLine));
    painter->drawRect(frame);
    painter->setPen(style.ink);
    drawName(painter, upper, Qt::AlignCenter, name);
    drawName(painter, upper.translated(0, line), Qt::AlignCenter,
             QStringLiteral("cannot be shown"));
}

void drawTextOf(QPainter *painter, const Style &style, const PlacedObject &place,
                const QRectF &area)
{
    const double margin = marginIn(area, TextMargin * style.unit);
    const double top = place.sharesPage ? margin : 0;
    painter->setFont(pictureFont(style.textHeight));
    painter->setPen(style.textInk);
    drawText(painter, area.adjusted(margin, top, -margin, 0),
             shownText(*style.message, *place.object->getData()));
}

void drawMedia(QPainter *painter, const Style &style, const QSize &page, const PlacedObject &place,
               const QRectF &area)
{
    const Object &object = *place.object;
    const auto *part = object.getData();
    const int type = object.getMediaElementType();
    if (type == SMIL_MEDIA_VIDEO && part)
        return drawVideo(painter, style, area, object.getSrc());
    if (type == SMIL_MEDIA_TEXT && part)
        return drawTextOf(painter, style, place, area);
    const Picture picture = type == SMIL_MEDIA_IMAGE && part ? readPicture(*part) : Picture();
    if (picture.image.isNull())
        return drawNotShown(painter, style, area, object.getSrc());
    drawPicture(painter, page, picture, place);
}

void drawObject(QPainter *painter, const Style &style, const QSize &page, const PlacedObject &place)
{
    const QRectF area = place.area & QRectF(QPointF(0, 0), page);
    painter->save();
    painter->setClipRect(area);
    painter->setFont(pictureFont(LabelHeight * style.unit));
    drawMedia(painter, style, page, place, area);
    painter->restore();
}

int scaleWithin(const QSize &page, int scale)
{
    const auto isTooMuch = [&page](int tried) {
        const QSize size = page * tried;
        return std::max(size.width(), size.height()) > LongestDrawnSide
            || qint64(size.width()) * size.height() > MostDrawnPixels;
    };
    scale = std::clamp(scale, 1, LargestScale);
    while (scale > 1 && isTooMuch(scale))
        --scale;
    return scale;
}

bool writePicture(const QImage &image, const QString &path, QStringList *report, QString *error)
{
    QBuffer png;
    if (!png.open(QIODevice::WriteOnly) || !image.save(&png, "PNG")) {
        *error = cannotWrite(path, QStringLiteral("there is not enough memory for the picture"));
        return false;
    }
    if (!replaceFile(png.data(), path, error))
        return false;
    *report +=
        writtenFileText(path, QStringLiteral(" (%1x%2)").arg(image.width()).arg(image.height()));
    return true;
}

QString sheetName(unsigned int sheet)
{
    return sheet == 0 ? QStringLiteral("contact-sheet.png")
                      : QStringLiteral("contact-sheet-%1.png").arg(sheet + 1);
}

} // namespace

QImage renderSlide(const Message &message, unsigned int index, int scale)
{
    const Slide *slide = message.slides().getSlide(index);
    if (!slide)
        return QImage();
    const Style style = styleOf(message, *slide);
    const QSize page = pageSize(message.slides());
    const QSize whole = page + QSize(0, stripHeight(style.unit));
    scale = scaleWithin(page, scale);
    QImage image(whole * scale, QImage::Format_RGB32);
    image.fill(style.paper);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing
                           | QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    for (const PlacedObject &place : placeObjects(message.slides(), objectsOnPage(message, *slide)))
        drawObject(&painter, style, page, place);
    drawStrip(&painter, QRectF(QPointF(0, page.height()), whole - QSize(0, page.height())),
              style.unit, index + 1, *slide);
    return image;
}

bool renderSlides(const Message &message, const QString &directory, int scale, QStringList *report,
                  QString *error)
{
    const unsigned int total = message.slides().getTotalSlidesNum();
    const unsigned int count = std::min(total, MostSlides);
    QList<QImage> thumbnails;
    for (unsigned int i = 0; i < count; ++i) {
        const QImage slide = renderSlide(message, i, scale);
        if (!writePicture(slide,
                          FileName::inFolder(directory, QStringLiteral("slide-%1.png").arg(i + 1)),
                          report, error))
            return false;
        thumbnails += thumbnail(slide);
        if (thumbnails.size() < SlidesPerSheet && i + 1 < count)
            continue;
        if (!writePicture(contactSheet(std::exchange(thumbnails, {})),
                          FileName::inFolder(directory, sheetName(i / SlidesPerSheet)), report,
                          error))
            return false;
    }
    if (count < total)
        *report += QStringLiteral("slides that were not rendered: %1").arg(total - count);
    return true;
}
