/*
 * The file extension of a clip, which chooses how it is decoded.
 */
#pragma once

#include <QString>

class MMS_COMP_SMILMultipartBodypart;

/// The extension for the media type of @p part; that of its name if the type says nothing. "" if
/// both do not.
QString clipExtension(const MMS_COMP_SMILMultipartBodypart &part);
