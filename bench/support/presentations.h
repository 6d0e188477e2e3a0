/*
 * Presentations for measuring, and the messages that they show.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QByteArray>

/// The size and shape of a presentation.
struct Shape
{
    int slides = 1; ///< each with a picture and a text
    int regions = 2;
    int params = 0; ///< of each picture and text
    bool ownParts = false; ///< true if every slide shows its own parts, false if all show the same
};

/// Adds to @p message the parts that the slides of @p shape refer to.
void addShownParts(MMS_COMP_SMILMultipart *message, const Shape &shape);

/// Fills the parts and the slides of @p show.
void fill(QvlMessage *show, const Shape &shape);

/// The SMIL text of a presentation of @p shape.
QByteArray smilOf(const Shape &shape);

/// Reads @p smil into a presentation of @p message and discards it.
bool readSmil(const QByteArray &smil, MMS_COMP_SMILMultipart *message);
