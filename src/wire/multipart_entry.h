/** @file
 * Codec of one entry of a multipart body (WAP-230-WSP, 8.5.2).
 */
#pragma once

#include "../base/export.h"

class LinearBuffer;
class MMS_COMP_SMILMultipartBodypart;

/**
 * Codec of one entry: lengths, content type, headers and data of a body part.
 *
 * Of the headers only those that carry the part's names are known: the Name parameter and
 * Content-Location, both of which are its location, and Content-ID. Other headers are passed over
 * octet by octet, not as units.
 */
class QVL_EXPORT Multipart_Entry
{
public:
    /**
     * Appends an entry. Content type and headers are written through an array of 1,024 octets, and
     * what does not fit it is dropped.
     *
     * @param buffer gets the octets
     * @param part that the entry is of
     * @return WireResult::Written, or WireResult::CannotWrite when the data does not fit the buffer
     */
    static unsigned char writeTo(LinearBuffer *buffer, const MMS_COMP_SMILMultipartBodypart &part);

    /**
     * Reads an entry into a part, whose data is copied.
     *
     * @param buffer stands at the entry
     * @param part gets content type, names and data
     * @return WireResult::Read, or WireResult::OutOfData when data runs out, a length cannot be
     * right, or there is no memory for the data; what was read until then stays in the part
     */
    static unsigned char readFrom(LinearBuffer *buffer, MMS_COMP_SMILMultipartBodypart *part);

    /// Always 0: entries are not sized one by one.
    static int sizeOf(const MMS_COMP_SMILMultipartBodypart &part);
};
