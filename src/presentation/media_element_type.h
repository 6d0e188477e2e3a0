/** @file
 * Kinds of media element.
 */
#pragma once

/// Kinds of media element. Stored messages contain the numbers.
enum MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE : int {
    SMIL_MEDIA_AUDIO = 0, ///< the element audio
    SMIL_MEDIA_VIDEO = 1, ///< the element video
    SMIL_MEDIA_TEXT = 2, ///< the element text
    SMIL_MEDIA_IMAGE = 3, ///< the element img
    SMIL_MEDIA_REF = 4, ///< the element ref: content of any kind
    SMIL_MEDIA_UNKNOWN = 5, ///< any other; such an object is not written as SMIL
};
