/*
 * Base of the header field codecs.
 */
#pragma once

#include "platform/export.h"

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
    virtual ~FieldBase();

    /**
     * Reads the field's value, whose code has already been consumed, into the record and sets the
     * field's presence bit. Returns WireResult::Read or WireResult::OutOfData; what a failed read
     * leaves in the record is said at each class that changes anything.
     */
    virtual unsigned char readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) = 0;

    /**
     * Appends code and value from the record. Returns WireResult::Written, or
     * WireResult::CannotWrite for a value that has no form on the wire.
     */
    virtual unsigned char writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) = 0;

    /// Octets that writeField() appends, code included.
    virtual int fieldSize(MMS_UA_UAMsg *msg) = 0;
};
