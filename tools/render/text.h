/*
 * Texts of a slide as they are drawn: decoded, broken into lines, and cut where their place ends.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QFont>
#include <QPainter>
#include <QString>

/// Height of the font of names, in handset pixels on the handset's own page.
constexpr int LabelHeight = 9;

/// The text of @p part up to its first NUL; "" when there is nothing in it to see.
QString shownText(const MMS_COMP_SMILMultipartBodypart &part);

/// The font of all pictures, @p pixels high.
QFont pictureFont(double pixels);

/// Draws @p text in the painter's font and color from the top of @p area, and nothing outside.
void drawText(QPainter *painter, const QRectF &area, const QString &text);

/// Draws a name from a message on one line, with an ellipsis in its middle when it is too long.
void drawName(QPainter *painter, const QRectF &area, int flags, const QString &name);
