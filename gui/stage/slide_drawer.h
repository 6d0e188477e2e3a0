/*
 * Draws slides of a message outside the window's thread.
 */
#pragma once

#include "render/render.h"

#include <QByteArray>
#include <QImage>
#include <QObject>
#include <QSize>

#include <memory>
#include <mutex>
#include <optional>

/// What is to be drawn.
struct SlideRequest
{
    int slide = 0;
    int milliseconds = 0; ///< of the slide, for animations
    QSize area; ///< in drawn pixels, into which the page has to fit; unless scale is given
    double scale = 0; ///< drawn pixels for one handset pixel; 0 to fit the area
    SlideMoment moment; ///< with the pictures of videos
};

/// A slide that was drawn.
struct DrawnSlide
{
    int slide = 0;
    QImage image; ///< null if it exceeds the limits on drawing
    double scale = 0; ///< drawn pixels for one handset pixel
    bool isAnimated = false; ///< looks different at other times
    QList<LongText> longTexts; ///< texts that do not fit
};

class SlideDrawer : public QObject
{
    Q_OBJECT

public:
    /// A drawer of the message with the octets @p pdu.
    explicit SlideDrawer(const QByteArray &pdu, QObject *parent = nullptr);
    /// Does not wait for what is being drawn.
    ~SlideDrawer() override;

    /// Draws @p request as soon as the last one is drawn, instead of what waits.
    void draw(const SlideRequest &request);
    bool isBusy() const { return m_isDrawing; }

signals:
    void drawn(const DrawnSlide &slide);

private:
    struct Work;

    void begin(const SlideRequest &request);
    void finish(const DrawnSlide &slide);

    std::shared_ptr<Work> m_work; ///< shared with the thread that draws
    std::optional<SlideRequest> m_next;
    bool m_isDrawing = false;
};
