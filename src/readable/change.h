/** @file
 * What had to be changed so that the codecs can read a message.
 */
#pragma once

#include "../scan/scanned_field.h"

#include <QByteArrayView>

/// One change of a message that the codecs could not read as it came.
struct QvlChange
{
    /// The kinds of changes.
    enum Kind : unsigned char {
        LeftOut, ///< the octets are missing in what the codecs read
        Rewritten, ///< other octets with the same meaning replace them
    };
    /// What was changed.
    enum Place : unsigned char {
        HeaderField, ///< a field of the header
        HeaderEnd, ///< octets after the last field
        PartCount, ///< the count of the parts
        PartHeader, ///< a header of a part
        PartParameter, ///< a parameter of a part's content type
        PartType, ///< the media type of a part
        PartBody, ///< the octets of a part
        Parts, ///< whole parts
    };

    /// What was done.
    Kind kind = LeftOut;
    /// Where it was done.
    Place place = HeaderField;
    /// Index of the part, from 0; -1 in the header.
    int part = -1;
    /// Code of the field, header or parameter, without its high bit, or QvlScannedField::NoCode.
    int code = QvlScannedField::NoCode;
    /// The octets that were changed; a view into the PDU as it came.
    QByteArrayView octets;
    /// Where they begin in the PDU as it came.
    qsizetype offset = 0;
    /// Why, in English: a phrase in lower case without a full stop, such as "MMS 1.0 has no such
    /// field". Never null; exists as long as the program.
    const char *reason = "";
};
