/** @file
 * The handset's own layout: a region for texts and, below it, one for images, each as large as the
 * screen.
 */
#pragma once

#include <QString>

/// A region of the handset's own layout. Sizes and distances are in pixels.
struct QvlHandsetRegion
{
    QString id; ///< name of the region
    float left; ///< distance from the left edge
    float top; ///< distance from the top edge
    float width; ///< width of the region
    float height; ///< height of the region
};

/// The handset's own layout.
namespace QvlHandset {
inline constexpr int ScreenWidth = 120; ///< in pixels
inline constexpr int ScreenHeight = 160; ///< in pixels

/// The region for texts.
inline QvlHandsetRegion textRegion()
{
    return {QStringLiteral("text"), 0, 0, ScreenWidth, ScreenHeight};
}

/// The region for images and videos.
inline QvlHandsetRegion imageRegion()
{
    return {QStringLiteral("image"), 0, ScreenHeight, ScreenWidth, ScreenHeight};
}
} // namespace QvlHandset
