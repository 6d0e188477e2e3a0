/** @file
 * Conversion between the body of a message and its parts. Parsing turns received octets into parts
 * with usable names; assembling turns the parts into octets and a content type.
 */
#pragma once

#include "../base/export.h"
#include "../base/qt_names.h"

#include <QString>

class MMS_COMP_SMILMultipart;
class MMS_UTIL_MsgHeaderBase;

/// Parser and assembler of multipart bodies. Has no state.
class QVL_EXPORT MMS_COMP_SMILMultipartParser
{
public:
    /**
     * Appends the parts in @p body to @p multipart, names them (see checkLocation()), and copies
     * the start and type parameters of @p header's content type. Type and subtype of @p multipart
     * do not change: set them from the header for a message that is not related. Linear in the
     * octets and in the parts.
     *
     * @param body the octets after the header
     * @param header header of the message; only its content type is read
     * @param multipart gets the parts. If it has a boundary, the body is in text form: returns 0
     * and changes nothing
     * @retval MultipartResult::Ok every part was read
     * @retval MultipartResult::NullArgument null header or multipart; nothing changed
     * @retval MultipartResult::CannotDecode the body is empty, truncated or malformed, or there is
     * no memory for the data of a part; the parts before it stay
     * @retval MultipartResult::OutOfMemory memory ran out otherwise; the parts before stay
     */
    static int parse(const QArray<char> &body, MMS_UTIL_MsgHeaderBase *header,
                     MMS_COMP_SMILMultipart *multipart);

    /**
     * Encodes a body. First determines whether the message is related or mixed, stores this in
     * @p multipart, and writes its content type and parameters to @p header, so encode the header
     * afterwards. Linear in the octets and in the parts.
     *
     * @param multipart the message; its content type may change
     * @param header gets the content type
     * @return the octets, or an empty array on any failure, for a null argument and for a multipart
     * with a boundary
     */
    static QArray<char> assembleBody(MMS_COMP_SMILMultipart *multipart,
                                     MMS_UTIL_MsgHeaderBase *header);

    /**
     * Gives every part without a location a unique one, derived from its display file name or else
     * from its MIME type, and every part without a display file name its location as one. Existing
     * locations stay, even if two parts share one. Null is ignored. Linear in the parts.
     */
    static void checkLocation(MMS_COMP_SMILMultipart *multipart);

    /// The text after the first "start=" in @p params, up to the next ";"; "" when there is none.
    static QString parseStart(const QString &params);
    /// The text after the first "type=" in @p params, up to the next ";"; "" when there is none.
    static QString parseExtType(const QString &params);

    /// The MultipartResult code for the WireResult @p code: both successes are Ok.
    static int handleErr(unsigned char code);
};
