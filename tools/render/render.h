/*
 * Renders slides as the handset would show them, with their audio and duration in a strip below.
 */
#pragma once

#include "render/layout.h"
#include "render/missing.h"
#include "render/pictures.h"
#include "render/text.h"
#include "render/work.h"

#include <QHash>
#include <QImage>
#include <QSet>
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

/// What a slide shows at some moment while it is played.
struct SlideMoment
{
    QSet<int> hidden; ///< indices of media objects that are not shown yet, or not any more
    QHash<int, QImage> pictures; ///< shown in place of media objects, by their indices
};

/// Renders the slides of a message. Needs a QGuiApplication.
class SlideRenderer
{
public:
    /// Renders with @p scale picture pixels for one handset pixel, or fewer if a slide would be
    /// larger than any screen.
    SlideRenderer(const Message &message, int scale, const RenderLimits &limits = {});

    /// Renders with @p scale picture pixels for one handset pixel from now on, as for a screen:
    /// pictures are enlarged by whole factors only. Fewer if a slide would be larger than any
    /// screen. Counts the drawn pixels from 0 again.
    void setScreenScale(double scale);

    /// Size of the page in handset pixels.
    QSize pageSize() const { return m_page.size(); }
    /// Size of the picture of a slide.
    QSize size() const { return pixelsOf(wholeSize()); }
    /// The page of a slide and a strip below it. Null if there is no slide at @p index, or if it
    /// exceeds the limit on drawn pixels.
    QImage render(unsigned int index) { return render(index, wholeSize()); }
    /// The page without the strip.
    QImage renderPage(unsigned int index, const SlideMoment &moment = {})
    {
        return render(index, m_page.size(), moment);
    }

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
    QSize pixelsOf(const QSize &size) const { return (QSizeF(size) * m_scale).toSize(); }
    QImage render(unsigned int index, const QSize &size, const SlideMoment &moment = {});
    Style styleOf(const Slide &slide, unsigned int index) const;
    qint64 costOf(const Style &style, const Object &object, const QRectF &area);
    void drawObject(QPainter *painter, const Style &style, const PlacedObject &place,
                    const QImage &picture);
    void drawMedia(QPainter *painter, const Style &style, const PlacedObject &place,
                   const QRectF &area);
    void drawImage(QPainter *painter, const Style &style, const PlacedObject &place,
                   const QRectF &area);
    void drawPicture(QPainter *painter, const Style &style, const PlacedObject &place,
                     const Picture &picture);
    void drawTextOf(QPainter *painter, const Style &style, const PlacedObject &place,
                    const QRectF &area);

    const Message &m_message;
    Page m_page;
    double m_unit; ///< see pageUnit()
    double m_scale;
    Enlarging m_enlarging = Enlarging::Smooth;
    Work m_drawn;
    Pictures m_pictures;
    Texts m_texts;
    QList<LongText> m_longTexts;
    Missing m_notDrawn;
    Missing m_notDecoded;
};
