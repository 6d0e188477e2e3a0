/*
 * The size of a picture or video, without decoding it.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QByteArrayView>
#include <QSize>

namespace Check {

/// The size in pixels of the picture in @p part, as it is shown; empty if it is not known.
QSize pictureSize(const MMS_COMP_SMILMultipartBodypart &part);

/// The size in pixels of a video in a 3GP or MP4 file, as it is shown; empty for other files and
/// without a video.
QSize videoSize(QByteArrayView file);

} // namespace Check
