/** @file
 * Base of the header field codecs.
 */
#pragma once

#include "../base/export.h"

class LinearBuffer;
class MMS_UA_UAMsg;

/**
 * Codec of one header field: turns its value on the wire into members of the header record and
 * back.
 *
 * Codecs carry no data and can be used any number of times.
 */
class QVL_EXPORT FieldBase
{
public:
    /// For codecs from MMS_UA_Decoder::selectReader() and MMS_UA_Encoder::selectWriter().
    virtual ~FieldBase();

    /**
     * Reads the field's value into the record and sets the field's presence bit. An empty text, a
     * size of 0 and a null time count as absent: nothing is stored and no bit is set. A failed read
     * changes nothing, except as said at a class.
     *
     * @param buffer stands behind the field's code
     * @param msg gets the value
     * @return WireResult::Read or WireResult::OutOfData; ContentTypeField also
     * WireResult::UnsupportedContentType
     */
    virtual unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) = 0;

    /**
     * Appends code and value from the record, whether the field is present or not.
     *
     * @param buffer gets the octets; what does not fit is dropped, so size it with fieldSize()
     * @param msg has the value
     * @return WireResult::Written, or WireResult::CannotWrite for a value that has no form on the
     * wire; FromField gives WireResult::OutOfData for a buffer that is full before the address
     */
    virtual unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) = 0;

    /// Octets that writeField() appends for @p msg, code included.
    virtual int fieldSize(MMS_UA_UAMsg *msg) = 0;
};
