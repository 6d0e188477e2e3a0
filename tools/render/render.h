/*
 * Renders slides as the handset would show them, with their audio and duration in a strip below.
 */
#pragma once

#include "render/layout.h"
#include "render/missing.h"
#include "render/pictures.h"
#include "render/text.h"
#include "render/work.h"

#include <QImage>
#include <QString>
#include <QStringList>

struct Message;

/// Most picture pixels, in each direction, for one handset pixel.
constexpr int LargestScale = 8;

/// A text that does not fit into its area.
struct LongText
{
    QString name;
    QString text;
};

/// Renders the slides of a message. Needs a QGuiApplication.
class SlideRenderer
{
public:
    /// Renders with @p scale picture pixels for one handset pixel, or fewer if a slide would be
    /// larger than any screen.
    SlideRenderer(const Message &message, int scale, const RenderLimits &limits = {});

    /// Size of the picture of a slide.
    QSize size() const { return wholeSize() * m_scale; }
    /// The page of a slide and a strip below it. Null if there is no slide at @p index, or if it
    /// exceeds the limit on drawn pixels.
    QImage render(unsigned int index) { return render(index, wholeSize()); }
    /// The page without the strip.
    QImage renderPage(unsigned int index) { return render(index, m_page.size()); }

    /// The texts of the last slide that do not fit.
    const QList<LongText> &longTexts() const { return m_longTexts; }
    /// The count of drawn pixels. Media count as the pixels that take as long to draw and write.
    Work &drawn() { return m_drawn; }
    const Pictures &pictures() const { return m_pictures; }
    const Texts &texts() const { return m_texts; }
    /// Media that were not drawn because of the limit on drawn pixels.
    const Missing &notDrawn() const { return m_notDrawn; }
    /// Uses of pictures that were not decoded because of their limit.
    const Missing &notDecoded() const { return m_notDecoded; }

private:
    struct Style;
    using Object = MMS_COMP_SMILMediaObject;
    using Slide = MMS_COMP_SMILTimingContainer;

    QSize wholeSize() const;
    QImage render(unsigned int index, const QSize &size);
    Style styleOf(const Slide &slide, unsigned int index) const;
    qint64 costOf(const Style &style, const Object &object, const QRectF &area);
    void drawObject(QPainter *painter, const Style &style, const PlacedObject &place);
    void drawMedia(QPainter *painter, const Style &style, const PlacedObject &place,
                   const QRectF &area);
    void drawImage(QPainter *painter, const Style &style, const PlacedObject &place,
                   const QRectF &area);
    void drawTextOf(QPainter *painter, const Style &style, const PlacedObject &place,
                    const QRectF &area);

    const Message &m_message;
    Page m_page;
    double m_unit; ///< see pageUnit()
    int m_scale;
    Work m_drawn;
    Pictures m_pictures;
    Texts m_texts;
    QList<LongText> m_longTexts;
    Missing m_notDrawn;
    Missing m_notDecoded;
};
