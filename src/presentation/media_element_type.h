/*
 * Kinds of media element.
 */
#pragma once

/// Kinds of media element. The numbers stand in stored messages.
enum MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE : int {
    SMIL_MEDIA_AUDIO = 0,
    SMIL_MEDIA_VIDEO = 1,
    SMIL_MEDIA_TEXT = 2,
    SMIL_MEDIA_IMAGE = 3,
    SMIL_MEDIA_REF = 4,
    SMIL_MEDIA_UNKNOWN = 5,
};
