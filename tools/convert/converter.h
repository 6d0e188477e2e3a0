/*
 * Converts clips that browsers do not play, in a child process.
 */
#pragma once

#include <QByteArray>
#include <QString>

namespace Converter {

/// True for the file extensions of clips that can be converted.
bool canConvert(const QString &extension);

/// The sound in @p clip as a WAV file; empty when it cannot be decoded within the limits.
QByteArray wavOf(const QByteArray &clip, const QString &extension);

/// The first picture of a video.
struct VideoPicture
{
    QByteArray png; ///< empty when it cannot be decoded within the limits
    QByteArray codec; ///< FFmpeg's name of the video's codec, such as "h264"
};

VideoPicture firstPictureOf(const QByteArray &clip, const QString &extension);

} // namespace Converter
