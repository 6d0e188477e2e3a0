/** @file
 * A color from an attribute of a SMIL document.
 */
#pragma once

#include <QColor>
#include <QString>

/// Kinds of color text.
enum MMS_COMP_SMIL_COLOR_KIND : int {
    SMIL_COLOR_NONE = 0, ///< no text given
    SMIL_COLOR_NAMED = 1, ///< one of the sixteen color names
    SMIL_COLOR_RGB = 2, ///< a numeric color
    SMIL_COLOR_INVALID = 3, ///< an unreadable text
};

/// Color record, copied by value; filled by MMS_COMP_SMILParser::parseColor().
struct MMS_COMP_COLOR
{
    int kind = SMIL_COLOR_NONE; ///< a MMS_COMP_SMIL_COLOR_KIND
    QString name; ///< the color name, for a named color
    QColor color; ///< invalid until a color was read

    /// True for the kinds with a color.
    bool isUsable() const { return kind == SMIL_COLOR_NAMED || kind == SMIL_COLOR_RGB; }
};
