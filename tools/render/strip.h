/*
 * The strip below the page of a slide, for what the page does not show.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QPainter>
#include <QRectF>

/// Height of the strip below a page on which things are @p unit times as large as on the handset's.
int stripHeight(double unit);

/// Draws, from left to right, the slide's number, the names of its sounds, and how long it lasts.
void drawStrip(QPainter *painter, QRectF area, double unit, unsigned int number,
               const MMS_COMP_SMILTimingContainer &slide);
