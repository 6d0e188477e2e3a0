/*
 * Readers of the values in SMIL attributes: times, durations, colors and sizes. They accept less
 * than SMIL allows and read some of it differently. Kept: presentations of stored messages depend
 * on every result.
 */
#pragma once

#include <QString>

struct MMS_COMP_COLOR;
struct MMS_COMP_SMIL_TIME;

namespace SmilValues {

/// Implements MMS_COMP_SMILParser::parseTime().
void readTime(const QString &text, MMS_COMP_SMIL_TIME *time);
/// Implements MMS_COMP_SMILParser::parseDur().
int readDuration(const QString &text);
/// Implements MMS_COMP_SMILParser::parseColor().
void readColor(const QString &text, MMS_COMP_COLOR &color);

/// Implements MMS_COMP_SMILLayout::withoutPixelUnit().
QString withoutPixelUnit(const QString &text);
/// Implements MMS_COMP_SMILLayout::pixelsOf().
int pixelsOf(const QString &text);
/// A coordinate or size of a region, in pixels or per cent. Returns @p ifEmpty for an empty text, 0
/// for one that does not begin with a number.
float regionNumber(const QString &text, float ifEmpty);

} // namespace SmilValues
