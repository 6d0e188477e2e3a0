/*
 * The strip below the page of a slide, with the properties that the page does not show.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QPainter>
#include <QRectF>

/// Height of the strip below a page with the scale @p unit, see pageUnit().
int stripHeight(double unit);

/// Draws the slide's number, the names of its audio, and its duration, from left to right.
void drawStrip(QPainter *painter, QRectF area, double unit, unsigned int number,
               const MMS_COMP_SMILTimingContainer &slide);
