/*
 * A presentation as text in a fixed form, one line per element: for people to read and for tests to
 * compare.
 */
#pragma once

#include <QString>

class MMS_COMP_SMILData;
class MMS_COMP_SMILMediaObject;
struct MMS_COMP_COLOR;
struct MMS_COMP_SMIL_TIME;

namespace ModelText {

/// The whole presentation; every line ends in a line feed.
QString presentation(const MMS_COMP_SMILData &data);

/// The kind of the object, such as "image"; "unknown" if the library does not know it.
QString mediaName(const MMS_COMP_SMILMediaObject &object);

/// "none", "invalid", or the color as "#rrggbb", followed by its name if it has one.
QString color(const MMS_COMP_COLOR &color);

/// "3000 ms", "indefinite" or "none".
QString duration(int milliseconds);

/// "none", "invalid", "3000 ms", or "begin", "end" or "3000 ms" of another element.
QString time(const MMS_COMP_SMIL_TIME &time);

} // namespace ModelText
