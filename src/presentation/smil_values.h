/*
 * Readers of the values in SMIL attributes: times, durations, colors and sizes. They accept less
 * than SMIL allows, and some of it differently. Kept: presentations of stored messages depend on
 * every result.
 */
#pragma once

#include <QString>

struct MMS_COMP_COLOR;
struct MMS_COMP_SMIL_TIME;

namespace SmilValues {

/// MMS_COMP_SMILParser::parseTime().
void readTime(const QString &text, MMS_COMP_SMIL_TIME *time);
/// MMS_COMP_SMILParser::parseDur().
int readDuration(const QString &text);
/// MMS_COMP_SMILParser::parseColor().
void readColor(const QString &text, MMS_COMP_COLOR &color);

/// MMS_COMP_SMILLayout::withoutPixelUnit().
QString withoutPixelUnit(const QString &text);
/// MMS_COMP_SMILLayout::pixelsOf().
int pixelsOf(const QString &text);
/// A coordinate or size of a region, in pixels or per cent. @p ifEmpty for an empty text, 0 for one
/// that does not begin with a number.
float regionNumber(const QString &text, float ifEmpty);

} // namespace SmilValues
