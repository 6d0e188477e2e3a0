/*
 * The content type of a part, for callers that pass on that memory runs out.
 */
#pragma once

#include "scan/content_type_value.h"

/// Like qvlReadContentType(), except that no media octet may follow C2: in a part C2 is a media
/// code of its own. Throws when memory runs out.
std::optional<QvlContentType> readPartContentType(QByteArrayView value);

/// The MIBenum that a parameter Charset gives, by number or name; 0 when it is unknown. Throws when
/// memory runs out.
int charsetOf(const QvlScannedParameter &parameter);
