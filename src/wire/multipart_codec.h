/*
 * Codec of the WSP multipart body of a PDU (WAP-230-WSP, 8.5): a count and that many entries.
 */
#pragma once

#include "platform/export.h"

class LinearBuffer;
class MMS_COMP_SMILMultipart;
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
     * Appends the entry. Content type and headers are written through an array of 1,024 octets, and
     * what does not fit it is dropped. Returns WireResult::Written, or WireResult::CannotWrite when
     * the data does not fit the buffer.
     */
    static unsigned char writeTo(LinearBuffer *buffer, const MMS_COMP_SMILMultipartBodypart &part);

    /**
     * Reads an entry into @p part. Returns WireResult::Read, or WireResult::OutOfData when data
     * runs out, or a length cannot be right; what was read until then stays in the part.
     */
    static unsigned char readFrom(LinearBuffer *buffer, MMS_COMP_SMILMultipartBodypart *part);

    /// Always 0: entries are not sized one by one.
    static int sizeOf(const MMS_COMP_SMILMultipartBodypart &part);
};

/// Codec of a whole body. The flag that says whether the body is related makes no difference to it.
class QVL_EXPORT MMS_UA_MultiPart_CODEC
{
public:
    /**
     * Encodes the parts of @p multipart into a new array, which the caller frees with array-delete
     * also after a failure; @p outLength tells how many of its octets were written, unless the data
     * of a part did not fit.
     *
     * The body may be as long as the largest outgoing message of the settings, or as the data of
     * all parts and 4,096 octets more if that is larger. Returns WireResult::Written, or
     * WireResult::CannotWrite for a body that reaches this length, and when there is no memory, in
     * which case there is no array; WireResult::BadArgument for a null argument.
     */
    [[nodiscard]] static unsigned char encodeMultipart(bool related,
                                                       MMS_COMP_SMILMultipart *multipart,
                                                       unsigned char **out,
                                                       unsigned int *outLength);

    /**
     * Appends one part to @p multipart for every entry in the @p length octets at @p data. Returns
     * WireResult::Read, or WireResult::OutOfData when data runs out, which an empty body is, or a
     * length cannot be right, or there is no memory for a part's data; WireResult::BadArgument for
     * a null @p multipart and when there is no memory for anything else. Parts decoded before a
     * failure stay. Nothing is read outside the array.
     */
    [[nodiscard]] static unsigned char decodeMultipart(bool related, const unsigned char *data,
                                                       unsigned int length,
                                                       MMS_COMP_SMILMultipart *multipart);
};
