/*
 * Presentations to measure with, and the messages that they show.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QByteArray>

/// What a presentation is made of.
struct Shape
{
    int slides = 1; ///< a picture and a text each
    int regions = 2;
    int params = 0; ///< of each of the two
    bool ownParts = false; ///< whether every slide shows parts of its own, or all slides the same
};

/// Puts the parts that the slides of @p shape refer to into @p message.
void addShownParts(MMS_COMP_SMILMultipart *message, const Shape &shape);

/// Fills both halves of @p show.
void fill(QvlMessage *show, const Shape &shape);

/// The SMIL text of a presentation of @p shape.
QByteArray smilOf(const Shape &shape);

/// Reads @p smil into a presentation of @p message that is then given up.
bool readSmil(const QByteArray &smil, MMS_COMP_SMILMultipart *message);
