/*
 * Texts of a slide: decodes them, breaks them into lines, and draws the lines that fit.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QFont>
#include <QHash>
#include <QPainter>
#include <QString>
#include <QTextLayout>

/// Height of the font of names, in handset pixels on the handset's page.
constexpr int LabelHeight = 9;

/// The texts of a message. Decodes each only once.
class Texts
{
public:
    explicit Texts(const QvlMessage &message) : m_message(message) { }

    /// The text of @p part, a part of the message, up to its first NUL; "" if it has only blanks.
    QString find(const MMS_COMP_SMILMultipartBodypart &part);

    int decodings() const { return int(m_texts.size()); }

private:
    const QvlMessage &m_message;
    QHash<const MMS_COMP_SMILMultipartBodypart *, QString> m_texts;
};

/// The font of all pictures, @p pixels high.
QFont pictureFont(double pixels);

/// The beginning of @p text that can fit into an area of the size @p size with letters @p height
/// high. Only this much of a text is broken into lines.
QString fittingText(const QString &text, const QSizeF &size, double height);

/// True if all of @p text fits into an area of the size @p size.
bool textFits(const QString &text, const QSizeF &size, const QFont &font);

/// A text in lines. The last line ends with an ellipsis if the text does not fit.
class TextLines
{
public:
    /// The lines of @p text that fit into the size @p most.
    TextLines(const QString &text, const QSizeF &most, const QFont &font);

    bool isWhole() const { return m_isWhole; }
    int height() const; ///< rounded up
    /// Draws in the painter's color.
    void draw(QPainter *painter, const QPointF &corner) const;

private:
    QTextLayout m_layout;
    int m_count = 0;
    bool m_isWhole = true;
};

/// Draws @p text in the painter's font and color, from the top of @p area, and clips it to the
/// area. False if it does not fit.
bool drawText(QPainter *painter, const QRectF &area, const QString &text);

/// Draws a name on one line, with an ellipsis in its middle if it is too long.
void drawName(QPainter *painter, const QRectF &area, int flags, const QString &name);
