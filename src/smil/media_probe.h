/*
 * Which parts of a message without presentation can be shown.
 */
#pragma once

#include <QtGlobal>

class MMS_COMP_SMILMultipartBodypart;

/// The library decodes pictures to find out whether they can be shown, but a picture of a few
/// octets may declare millions of pixels. So this decodes them as long as their pixels stay within
/// a limit. From then on a picture counts as supported if its header can be read.
class MediaProbe
{
public:
    static constexpr qint64 MostDecodedPixels = 16'000'000; ///< of a message

    /// Whether the handset can show or play @p part.
    bool passes(MMS_COMP_SMILMultipartBodypart *part);

private:
    qint64 m_pixelsLeft = MostDecodedPixels;
};
