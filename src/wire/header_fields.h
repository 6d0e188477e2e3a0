/** @file
 * The header fields of an MMS PDU (OMA-MMS-ENC, 7.3): one table for decoder, encoder and programs
 * that show a header.
 */
#pragma once

#include "../base/export.h"
#include "header_field_codes.h"

#include <span>

class FieldBase;

/// One header field.
struct HeaderFieldInfo
{
    unsigned char code; ///< 1..24
    const char *name; ///< as the standard spells it, such as "Message-Class"
    FieldBase *codec; ///< codec of the field's class, shared by all users
    FieldBase *(*createCodec)(); ///< creates a codec of the field's class; the caller owns it
};

/// All 24 header fields in the order of their codes.
QVL_EXPORT std::span<const HeaderFieldInfo> headerFields();

/// The row of the header field with @p code, or null when there is none.
QVL_EXPORT const HeaderFieldInfo *headerFieldInfo(int code);
