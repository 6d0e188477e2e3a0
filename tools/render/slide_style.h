/*
 * How a slide looks: its colors, the size of its text, and the media on its page.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QColor>
#include <QList>

class Texts;

/// How a slide is drawn.
struct SlideStyle
{
    QColor paper;
    QColor ink; ///< contrasts with the paper
    QColor textInk;
    double textHeight;
};

/// The style of @p slide, one of @p slides; @p unit is the pageUnit().
SlideStyle slideStyle(const MMS_COMP_SMILData &slides, const MMS_COMP_SMILTimingContainer &slide,
                      double unit);

/// The media that are shown on the page: all except sounds and empty texts.
QList<const MMS_COMP_SMILMediaObject *> objectsOnPage(const MMS_COMP_SMILTimingContainer &slide,
                                                      Texts *texts);
