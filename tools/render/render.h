/*
 * Renders slides as the handset would show them, with their audio and duration in a strip below.
 */
#pragma once

#include "render/layout.h"
#include "render/pictures.h"
#include "render/text.h"
#include "render/work.h"

#include <QImage>
#include <QString>
#include <QStringList>

struct Message;

/// Most picture pixels, in each direction, for one handset pixel.
constexpr int LargestScale = 8;

/// Limits on the work for one message. The defaults take less than two seconds.
struct RenderLimits
{
    int slides = 1000;
    int drawn = 20; ///< millions of pixels of slides and contact sheets
    int decoded = 40; ///< millions of pixels of pictures
};

/// Things that are missing in the rendered slides: how many, and the first of them.
struct Missing
{
    int count = 0;
    QString first;

    void add(const QString &one);
    /// "" if nothing is missing.
    QString text(const QString &what, const QString &limit) const;
};

/// Renders the slides of a message. Needs a QGuiApplication.
class SlideRenderer
{
public:
    /// Renders with @p scale picture pixels for one handset pixel, or fewer if a slide would be
    /// larger than any screen.
    SlideRenderer(const Message &message, int scale, const RenderLimits &limits = {});

    /// Null if there is no slide at @p index, or if it exceeds the limit on drawn pixels.
    QImage render(unsigned int index);

    /// Drawn pixels so far, including the pixels of a contact sheet for each slide. Media count as
    /// the pixels that take as long to draw and write.
    qint64 drawnPixels() const { return m_drawn.done(); }
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
    Style styleOf(const Slide &slide, unsigned int index) const;
    QList<const Object *> objectsOnPage(const Slide &slide);
    bool isEmptyText(const Object &object);
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
    Missing m_notDrawn;
    Missing m_notDecoded;
};

/**
 * Writes a picture of every slide of @p message, and contact sheets of all slides, to the folder
 * @p directory. Replaces files of the same names. Adds a line to @p report for each file and for
 * each limit that was met. False, with the reason in @p error, if a file cannot be written.
 */
bool renderSlides(const Message &message, const QString &directory, int scale,
                  const RenderLimits &limits, QStringList *report, QString *error);
