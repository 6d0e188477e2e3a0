/*
 * The pictures of a message. Decodes each only once, within limits on the pixels that are decoded
 * and on the memory that decoded pictures take.
 */
#pragma once

#include "render/picture.h"
#include "render/picture_source.h"
#include "render/work.h"

#include <qvlsmilparser.h>

#include <QCache>
#include <QHash>

class Pictures
{
public:
    using Part = MMS_COMP_SMILMultipartBodypart;

    /// @p mostPixels limits the pixels that are decoded. A picture that takes more memory than
    /// others counts more of them.
    explicit Pictures(qint64 mostPixels);

    /**
     * The picture in @p part, decoded with at least the resolution that it has at @p place with
     * @p scale drawn pixels for one handset pixel. Null if it cannot be shown. Decodes only the
     * first picture of an animation.
     */
    Picture find(const Part &part, const PlacedObject &place, double scale);

    /// The picture in @p part, decoded with at least the resolution of @p drawn pixels.
    Picture find(const Part &part, const QSizeF &drawn);

    /// True if find() did not decode the picture in @p part because of the limit.
    bool isBeyondLimit(const Part &part) const { return m_sources.value(&part).isBeyondLimit; }

    /// Pixels decoded so far, including those of pictures that turned out to be malformed.
    qint64 decodedPixels() const { return m_decoded.done(); }
    int decodings() const { return m_decodings; }

private:
    struct Source : PictureSource
    {
        bool isBeyondLimit = false;
        bool isMalformed = false;
    };
    struct Decoded
    {
        QImage image;
        QSize wanted; ///< size that was asked for
    };

    Source &source(const Part &part);
    QImage decode(const Part &part, Source *source, const QSize &size);

    Work m_decoded;
    int m_decodings = 0;
    QHash<const Part *, Source> m_sources;
    QCache<const Part *, Decoded> m_images;
};
