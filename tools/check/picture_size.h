/*
 * The size of a picture, without decoding it.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QSize>

namespace Check {

/// The size of the picture in @p part in pixels; not valid if it cannot be read.
QSize pictureSize(const MMS_COMP_SMILMultipartBodypart &part);

} // namespace Check
