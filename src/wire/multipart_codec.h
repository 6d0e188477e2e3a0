/** @file
 * Codec of the WSP multipart body of a PDU (WAP-230-WSP, 8.5): a count and that many entries.
 */
#pragma once

#include "../base/export.h"

class MMS_COMP_SMILMultipart;

/// Codec of a whole body. Related and mixed bodies are encoded alike.
class QVL_EXPORT MMS_UA_MultiPart_CODEC
{
public:
    /**
     * Encodes the parts of a message. The body may be as long as the largest outgoing message of
     * the settings, or as the data of all parts plus 4,096 octets, whichever is larger. Linear in
     * the octets and in the parts.
     *
     * @param related ignored
     * @param multipart the message; a count above 255 parts is written modulo 256
     * @param out gets a new array, which the caller frees with array-delete, also after a failure
     * @param outLength gets the count of octets written; unchanged when the data of a part did not
     * fit
     * @retval WireResult::Written the body was encoded
     * @retval WireResult::CannotWrite the body reaches the largest allowed length, or there is no
     * memory; @p out is null when there is none for the array
     * @retval WireResult::BadArgument an argument is null; nothing changed
     */
    static unsigned char encodeMultipart(bool related, MMS_COMP_SMILMultipart *multipart,
                                         unsigned char **out, unsigned int *outLength);

    /**
     * Decodes a body: appends a part for every entry. Never reads out of bounds. Parts decoded
     * before a failure stay. Linear in the octets.
     *
     * @param related ignored
     * @param data the octets, which are copied into the parts; null is an empty body
     * @param length count of octets
     * @param multipart gets the parts, after the existing ones;
     * MMS_COMP_SMILMultipartParser::checkLocation() gives names to parts without one
     * @retval WireResult::Read every entry was read
     * @retval WireResult::OutOfData the body is empty or truncated, a length is impossible, or
     * there is no memory for the data of a part
     * @retval WireResult::BadArgument @p multipart is null, or memory ran out otherwise
     */
    static unsigned char decodeMultipart(bool related, const unsigned char *data,
                                         unsigned int length, MMS_COMP_SMILMultipart *multipart);
};
