/** @file
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

/// Codec of a whole body. The flag that says whether the body is related makes no difference to it.
class QVL_EXPORT MMS_UA_MultiPart_CODEC
{
public:
    /**
     * Encodes the parts of a message. The body may be as long as the largest outgoing message of
     * the settings, or as the data of all parts and 4,096 octets more if that is larger. Linear in
     * the octets and in the parts.
     *
     * @param related not looked at
     * @param multipart the message; more than 255 parts are counted modulo 256
     * @param out gets a new array, which the caller frees with array-delete also after a failure
     * @param outLength gets the count of octets that were written; unchanged when the data of a
     * part did not fit
     * @retval WireResult::Written the body was encoded
     * @retval WireResult::CannotWrite the body reaches the length that it may have, or there is no
     * memory; @p out is null when there is none for the array
     * @retval WireResult::BadArgument an argument is null; nothing changed
     */
    [[nodiscard]] static unsigned char encodeMultipart(bool related,
                                                       MMS_COMP_SMILMultipart *multipart,
                                                       unsigned char **out,
                                                       unsigned int *outLength);

    /**
     * Decodes a body: appends a part for every entry. Parts decoded before a failure stay. Nothing
     * is read outside the array. Linear in the octets.
     *
     * @param related not looked at
     * @param data the octets, which are copied into the parts; null is an empty body
     * @param length count of octets
     * @param multipart gets the parts, behind those that it has; their names stay as they came, see
     * MMS_COMP_SMILMultipartParser::checkLocation()
     * @retval WireResult::Read every entry was read
     * @retval WireResult::OutOfData the body is empty or cut, a length cannot be right, or there is
     * no memory for the data of a part
     * @retval WireResult::BadArgument @p multipart is null, or memory ran out otherwise
     */
    [[nodiscard]] static unsigned char decodeMultipart(bool related, const unsigned char *data,
                                                       unsigned int length,
                                                       MMS_COMP_SMILMultipart *multipart);
};
