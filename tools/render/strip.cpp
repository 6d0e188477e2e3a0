#include "render/strip.h"

#include "render/text.h"

#include <QLocale>
#include <QPainterPath>
#include <QStringList>

#include <cmath>

using Slide = MMS_COMP_SMILTimingContainer;

namespace {

constexpr int StripHeight = 16; // these are handset pixels on the handset's own page
constexpr int NoteSize = 8;
constexpr int StripMargin = 4;
constexpr QRgb Paper = qRgb(0xF1, 0xF3, 0xF5);
constexpr QRgb Ink = qRgb(0x20, 0x24, 0x2A);

QString audioNames(const Slide &slide)
{
    QStringList names;
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i) {
        const auto *object = slide.getMediaObject(i);
        if (object->getMediaElementType() == SMIL_MEDIA_AUDIO)
            names += object->getSrc();
    }
    return names.join(QLatin1String(", "));
}

QString durationText(int milliseconds)
{
    if (milliseconds < 0)
        return milliseconds == QvlDuration::Indefinite ? QStringLiteral("indefinite") : QString();
    return QLocale::c().toString(milliseconds / 1000.0, 'f', QLocale::FloatingPointShortest)
        + QLatin1String(" s");
}

// Draws an eighth note as a shape, because not every font has one.
void drawNote(QPainter *painter, const QRectF &square)
{
    const auto at = [&](double x, double y) {
        return square.topLeft() + QPointF(x * square.width(), y * square.height());
    };
    QPainterPath note;
    note.setFillRule(Qt::WindingFill);
    note.addEllipse(at(0.32, 0.82), square.width() * 0.22, square.height() * 0.17);
    note.addRect(QRectF(at(0.44, 0.05), at(0.54, 0.82)));
    note.moveTo(at(0.54, 0.05));
    note.cubicTo(at(0.56, 0.3), at(0.95, 0.3), at(0.8, 0.65));
    note.cubicTo(at(0.84, 0.4), at(0.6, 0.4), at(0.54, 0.36));
    note.closeSubpath();
    painter->fillPath(note, painter->pen().color());
}

} // namespace

int stripHeight(double unit)
{
    return int(std::ceil(StripHeight * unit));
}

void drawStrip(QPainter *painter, QRectF area, double unit, unsigned int number, const Slide &slide)
{
    painter->fillRect(area, QColor(Paper));
    painter->setPen(QColor(Ink));
    QFont font = pictureFont(LabelHeight * unit);
    font.setBold(true);
    painter->setFont(font);
    const double margin = StripMargin * unit;
    area.adjust(margin, 0, -margin, 0);
    const QString numberText = QString::number(number);
    drawName(painter, area, Qt::AlignLeft | Qt::AlignVCenter, numberText);
    area.setLeft(area.left() + QFontMetricsF(font).horizontalAdvance(numberText) + margin);

    font.setBold(false);
    painter->setFont(font);
    const QString duration = durationText(slide.getDur());
    drawName(painter, area, Qt::AlignRight | Qt::AlignVCenter, duration);
    area.setRight(area.right() - QFontMetricsF(font).horizontalAdvance(duration) - margin);

    const QString names = audioNames(slide);
    const double size = NoteSize * unit;
    if (names.isEmpty() || area.width() < size)
        return;
    drawNote(painter, {area.left(), area.center().y() - size / 2, size, size});
    drawName(painter, area.adjusted(size + margin / 2, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
             names);
}
