/** @file
 * Base of the header field codecs.
 */
#pragma once

#include "../base/export.h"

class LinearBuffer;
class MMS_UA_UAMsg;

/**
 * Codec of one header field: converts between its value on the wire and members of the header
 * record.
 *
 * Codecs have no data and can be used any number of times.
 */
class QVL_EXPORT FieldBase
{
public:
    /// Callers delete the codecs of MMS_UA_Decoder::selectReader() and of
    /// MMS_UA_Encoder::selectWriter().
    virtual ~FieldBase();

    /**
     * Reads the field's value into the record and sets the field's presence bit. An empty text, a
     * size of 0 and a null time count as absent: they store nothing and set no bit. A failed read
     * changes nothing unless the class says otherwise.
     *
     * @param buffer positioned after the field's code
     * @param msg gets the value
     * @return WireResult::Read or WireResult::OutOfData; ContentTypeField also returns
     * WireResult::UnsupportedContentType
     */
    virtual unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) = 0;

    /**
     * Appends code and value from the record, whether the field is present or not.
     *
     * @param buffer gets the octets; octets that do not fit are dropped, so size it with
     * fieldSize()
     * @param msg has the value
     * @return WireResult::Written, or WireResult::CannotWrite for a value that has no form on the
     * wire; FromField returns WireResult::OutOfData for a buffer that is full before the address
     */
    virtual unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) = 0;

    /// Octets that writeField() appends for @p msg, including the code.
    virtual int fieldSize(MMS_UA_UAMsg *msg) = 0;
};
