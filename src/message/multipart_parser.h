/** @file
 * The way between a message's header record and its body: received octets become parts with usable
 * names, and the parts of a message to be sent become octets and a content type.
 */
#pragma once

#include "../base/export.h"
#include "../base/qt_names.h"

#include <QString>

class MMS_COMP_SMILMultipart;
class MMS_UTIL_MsgHeaderBase;

/// Parser and assembler of multipart bodies; has no state.
class QVL_EXPORT MMS_COMP_SMILMultipartParser
{
public:
    /**
     * Appends the parts in @p body to @p multipart, names them (see checkLocation()), and takes the
     * start and type parameters of @p header's content type over. Type and subtype of @p multipart
     * stay as they are: set them from the header for a message that is not related. Linear in the
     * octets and in the parts.
     *
     * @param body the octets behind the header
     * @param header of the message; only its content type is read
     * @param multipart takes the parts. One whose boundary is set is a body in text form: 0, and
     * nothing changed
     * @retval MultipartResult::Ok every part was read
     * @retval MultipartResult::NullArgument null header or multipart; nothing changed
     * @retval MultipartResult::CannotDecode the body is empty, cut or wrong, or there is no memory
     * for the data of a part; parts read before stay
     * @retval MultipartResult::OutOfMemory memory ran out otherwise; parts read before stay
     */
    [[nodiscard]] static int parse(const QArray<char> &body, MMS_UTIL_MsgHeaderBase *header,
                                   MMS_COMP_SMILMultipart *multipart);

    /**
     * Encodes a body. Settles first whether the message is related or mixed, in @p multipart
     * itself, and writes its content type and parameters into @p header: encode the header
     * afterwards. Linear in the octets and in the parts.
     *
     * @param multipart the message; its content type may change
     * @param header gets the content type
     * @return the octets, or an empty array on any failure, for a null argument and for a multipart
     * whose boundary is set
     */
    [[nodiscard]] static QArray<char> assembleBody(MMS_COMP_SMILMultipart *multipart,
                                                   MMS_UTIL_MsgHeaderBase *header);

    /**
     * Gives every part without a location one that no other part answers to, made from its display
     * file name or else from its MIME type, and every part without a display file name its location
     * as one. Parts that came with a location keep it, even where two share one. Null is ignored.
     * Linear in the parts.
     */
    static void checkLocation(MMS_COMP_SMILMultipart *multipart);

    /// The text behind the first "start=" in @p params, up to the next ";"; "" without one.
    static QString parseStart(const QString &params);
    /// The text behind the first "type=" in @p params, up to the next ";"; "" without one.
    static QString parseExtType(const QString &params);

    /// The MultipartResult code for the WireResult @p code: both successes are Ok.
    static int handleErr(unsigned char code);
};
