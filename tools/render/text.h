/*
 * Texts of a slide: decodes them, breaks them into lines, and draws the lines that fit.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QFont>
#include <QPainter>
#include <QString>

/// Height of the font of names, in handset pixels on the handset's page.
constexpr int LabelHeight = 9;

/// The text of @p part, a part of @p message, up to its first NUL; "" if it has only blanks.
QString shownText(const QvlMessage &message, const MMS_COMP_SMILMultipartBodypart &part);

/// The font of all pictures, @p pixels high.
QFont pictureFont(double pixels);

/// Draws @p text in the painter's font and color, from the top of @p area, and clips it to the
/// area.
void drawText(QPainter *painter, const QRectF &area, const QString &text);

/// Draws a name on one line, with an ellipsis in its middle if it is too long.
void drawName(QPainter *painter, const QRectF &area, int flags, const QString &name);
