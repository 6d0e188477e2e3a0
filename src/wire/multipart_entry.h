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
 * It knows only the headers with names of the part: the Name parameter and Content-Location, which
 * both set its location, and Content-ID. It skips other headers octet by octet, not as units.
 */
class QVL_EXPORT Multipart_Entry
{
public:
    /// Largest size of content type and headers of an entry that is written, in octets.
    static constexpr int LongestHeaders = 1024;

    /**
     * Appends an entry. Octets of content type and headers beyond LongestHeaders are dropped.
     *
     * @param buffer gets the octets
     * @param part the body part to write
     * @return WireResult::Written, or WireResult::CannotWrite when the data does not fit the buffer
     */
    static unsigned char writeTo(LinearBuffer *buffer, const MMS_COMP_SMILMultipartBodypart &part);

    /**
     * Reads an entry into a part and copies its data.
     *
     * @param buffer positioned at the entry
     * @param part gets content type, names and data
     * @return WireResult::Read, or WireResult::OutOfData when data runs out, a length is
     * impossible, or there is no memory for the data; the part keeps what was read before
     */
    static unsigned char readFrom(LinearBuffer *buffer, MMS_COMP_SMILMultipartBodypart *part);

    /// Always 0: entries are not sized one by one.
    static int sizeOf(const MMS_COMP_SMILMultipartBodypart &part);
};
