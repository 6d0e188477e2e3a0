#include "render/render.h"

#include "input/message.h"
#include "render/slide_style.h"
#include "render/strip.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Slide = MMS_COMP_SMILTimingContainer;

constexpr int LongestDrawnSide = 4096; // of the page, in picture pixels
constexpr qint64 MostDrawnPixels = 10'000'000;
constexpr int TextMargin = 3; // these are handset pixels on the handset's own page
constexpr int BoxMargin = 4;

// Work that takes as long as drawing and writing this number of pixels.
constexpr qint64 SlideWork = 10'000;
constexpr qint64 ObjectWork = 2'000;
constexpr qint64 DrawnPixelsForOne = 8; // pixels that are drawn as fast as one is written

constexpr QRgb VideoFrame = qRgb(0x20, 0x24, 0x2A);

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

void drawVideo(QPainter *painter, double unit, const QRectF &area, const QString &name)
{
    const double margin = marginIn(area, BoxMargin * unit);
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

void drawNotShown(QPainter *painter, double unit, const QColor &ink, const QRectF &area,
                  const QString &name)
{
    const double margin = marginIn(area, BoxMargin * unit);
    const QRectF frame = area.adjusted(margin, margin, -margin, -margin);
    const QRectF words = frame.adjusted(margin, 0, -margin, 0);
    const double line = QFontMetricsF(painter->font()).height();
    const QRectF upper = middleOf(words, words.width(), line).translated(0, -line / 2);
    QColor faintInk = ink;
    faintInk.setAlphaF(0.4f);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(faintInk, unit, Qt::DashLine));
    painter->drawRect(frame);
    painter->setPen(ink);
    drawName(painter, upper, Qt::AlignCenter, name);
    drawName(painter, upper.translated(0, line), Qt::AlignCenter,
             QStringLiteral("cannot be shown"));
}

// Where the media objects are on their slide, if the moment needs that.
QHash<const Object *, int> indicesOf(const Slide &slide, const SlideMoment &moment)
{
    QHash<const Object *, int> indices;
    if (moment.hidden.isEmpty() && moment.pictures.isEmpty())
        return indices;
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i)
        indices.insert(slide.getMediaObject(i), int(i));
    return indices;
}

double largestScreenScale(const QSize &page)
{
    const double longest = std::max(page.width(), page.height());
    return std::min(LongestDrawnSide / longest,
                    std::sqrt(double(MostDrawnPixels) / page.width() / page.height()));
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

} // namespace

/// How a slide is drawn, and its name in reports.
struct SlideRenderer::Style : SlideStyle
{
    QString slide;
};

SlideRenderer::SlideRenderer(const Message &message, int scale, const RenderLimits &limits)
    : m_message(message), m_page(message.slides()), m_unit(pageUnit(m_page.size())),
      m_scale(scaleWithin(m_page.size(), scale)), m_drawn(limits.drawn * Million),
      m_pictures(limits.decoded * Million), m_texts(message)
{
}

void SlideRenderer::setScreenScale(double scale)
{
    m_scale = std::min(scale, largestScreenScale(m_page.size()));
    m_enlarging = Enlarging::WholeFactors;
    m_drawn = Work(m_drawn.most());
}

QSize SlideRenderer::wholeSize() const
{
    return m_page.size() + QSize(0, stripHeight(m_unit));
}

SlideRenderer::Style SlideRenderer::styleOf(const Slide &slide, unsigned int index) const
{
    return {slideStyle(m_message.slides(), slide, m_unit),
            QStringLiteral("slide %1").arg(index + 1)};
}

qint64 SlideRenderer::costOf(const Style &style, const Object &object, const QRectF &area)
{
    const double pixels = area.width() * area.height() * m_scale * m_scale;
    qint64 cost = ObjectWork + qint64(pixels) / DrawnPixelsForOne;
    if (object.getMediaElementType() == SMIL_MEDIA_TEXT && object.getData())
        cost += CharacterWork
            * fittingText(m_texts.find(*object.getData()), area.size(), style.textHeight).size();
    return cost;
}

void SlideRenderer::drawObject(QPainter *painter, const Style &style, const PlacedObject &place,
                               const QImage &picture)
{
    const QRectF area = place.area & QRectF(QPointF(0, 0), m_page.size());
    if (area.isEmpty())
        return;
    if (!m_drawn.take(costOf(style, *place.object, area)))
        return m_notDrawn.add(style.slide);
    painter->save();
    painter->setClipRect(area);
    painter->setFont(pictureFont(LabelHeight * m_unit));
    if (picture.isNull())
        drawMedia(painter, style, place, area);
    else
        drawPicture(painter, style, place, {picture, picture.size()});
    painter->restore();
}

void SlideRenderer::drawMedia(QPainter *painter, const Style &style, const PlacedObject &place,
                              const QRectF &area)
{
    const Object &object = *place.object;
    const int type = object.getMediaElementType();
    if (type == SMIL_MEDIA_VIDEO && object.getData())
        return drawVideo(painter, m_unit, area, object.getSrc());
    if (type == SMIL_MEDIA_TEXT && object.getData())
        return drawTextOf(painter, style, place, area);
    if (type == SMIL_MEDIA_IMAGE && object.getData())
        return drawImage(painter, style, place, area);
    drawNotShown(painter, m_unit, style.ink, area, object.getSrc());
}

void SlideRenderer::drawImage(QPainter *painter, const Style &style, const PlacedObject &place,
                              const QRectF &area)
{
    const Picture picture = m_pictures.find(*place.object->getData(), place, m_scale);
    if (m_pictures.isBeyondLimit(*place.object->getData()))
        m_notDecoded.add(style.slide);
    if (picture.image.isNull())
        return drawNotShown(painter, m_unit, style.ink, area, place.object->getSrc());
    drawPicture(painter, style, place, picture);
}

void SlideRenderer::drawPicture(QPainter *painter, const Style &style, const PlacedObject &place,
                                const Picture &picture)
{
    const PictureDrawing drawing(picture, place, m_page.size(), {m_scale, m_enlarging});
    if (!m_drawn.take(drawing.scaledPixels() / DrawnPixelsForOne))
        return m_notDrawn.add(style.slide);
    drawing.draw(painter);
}

void SlideRenderer::drawTextOf(QPainter *painter, const Style &style, const PlacedObject &place,
                               const QRectF &area)
{
    const double margin = marginIn(area, TextMargin * m_unit);
    const double top = place.sharesPage ? margin : 0;
    painter->setFont(pictureFont(style.textHeight));
    painter->setPen(style.textInk);
    const QString text = m_texts.find(*place.object->getData());
    if (!drawText(painter, area.adjusted(margin, top, -margin, 0), text))
        m_longTexts += {place.object->getSrc(), text};
}

QImage SlideRenderer::render(unsigned int index, const QSize &size, const SlideMoment &moment)
{
    m_longTexts.clear();
    const Slide *slide = m_message.slides().getSlide(index);
    const QSize pixels = pixelsOf(size);
    if (!slide || !m_drawn.take(SlideWork + qint64(pixels.width()) * pixels.height()))
        return QImage();
    const Style style = styleOf(*slide, index);
    QImage image(pixels, QImage::Format_RGB32);
    image.fill(style.paper);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing
                           | QPainter::SmoothPixmapTransform);
    painter.scale(m_scale, m_scale);
    const QHash<const Object *, int> indices = indicesOf(*slide, moment);
    for (const PlacedObject &place : m_page.place(objectsOnPage(*slide, &m_texts))) {
        const int object = indices.value(place.object, -1);
        if (!moment.hidden.contains(object))
            drawObject(&painter, style, place, moment.pictures.value(object));
    }
    const QRectF strip(0, m_page.size().height(), size.width(),
                       size.height() - m_page.size().height());
    if (!strip.isEmpty())
        drawStrip(&painter, strip, m_unit, index + 1, *slide);
    return image;
}
