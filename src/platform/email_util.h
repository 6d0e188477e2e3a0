/** @file
 * The e-mail system's numbers for MIME types, subtypes, charsets and transfer encodings.
 */
#pragma once

#include "../base/export.h"
#include "../base/qt_names.h"

/**
 * Code and text tables of the e-mail system.
 *
 * Lookups by text ignore case and return -1 for an unknown text. Lookups by code return false, or
 * an empty text, for an unknown code, and then leave the output unchanged. The rest of the system
 * relies on the codes named below.
 */
class QVL_EXPORT EMAIL_Util
{
public:
    /// Codes of main types that the model uses.
    enum TypeCode { Text = 1, Application = 4, Image = 5, Audio = 6, Video = 7 };
    /// Codes of subtypes that the model uses.
    enum SubTypeCode { MultipartRelated = 64, Smil = 66 };

    /// Code of a main type, such as "image".
    static int typeStrToEnum(const QCString &text);
    /// Main type of a code.
    static bool typeEnumToStr(int code, QCString &text);
    /// Code of a subtype, such as "jpeg".
    static int subTypeStrToEnum(const QCString &text);
    /// Subtype of a code.
    static bool subTypeEnumToStr(int code, QCString &text);
    /// Charset of a code, such as "utf-8". There is no lookup of charsets by text.
    static bool charsetEnumToStr(int code, QCString &text);
    /// Code of a transfer encoding, such as "base64".
    static int cteStrToEnum(const QCString &text);
    /// Transfer encoding of a code.
    static QCString cteEnumToStr(int code);
};
