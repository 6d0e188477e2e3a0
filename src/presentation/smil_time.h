/** @file
 * A begin or end time from an attribute of a SMIL document.
 */
#pragma once

#include <QString>

/// Kinds of time text.
enum MMS_COMP_SMIL_TIME_TYPE : int {
    SMIL_TIME_OFFSET = 0, ///< plain offset
    SMIL_TIME_EVENT = 1, ///< relative to another element, the form "id(x)(...)"
    SMIL_TIME_NONE = 2, ///< no text given
    SMIL_TIME_INVALID = 3, ///< an unreadable text
};

/// Time record, filled by MMS_COMP_SMILParser::parseTime().
struct MMS_COMP_SMIL_TIME
{
    static constexpr int AtBegin = 0; ///< value of an event time: when the other element begins
    static constexpr int AtEnd = -1; ///< value of an event time: when the other element ends

    MMS_COMP_SMIL_TIME_TYPE timeType = SMIL_TIME_NONE; ///< kind of the text
    QString eventId; ///< id of the element that an event time refers to; empty for an offset
    /// Milliseconds; for an event time AtBegin, AtEnd, or milliseconds from the other element's
    /// begin.
    int timeValue = 0;
};
