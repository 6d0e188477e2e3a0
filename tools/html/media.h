/*
 * What a browser can show or play of the parts of a message.
 */
#pragma once

#include "convert/converter.h"
#include "render/missing.h"
#include "render/pictures.h"
#include "render/text.h"
#include "render/work.h"
#include "view/shown_parts.h"

#include <qvlsmilparser.h>

#include <QByteArray>
#include <QHash>
#include <QStringList>

#include <map>
#include <optional>
#include <tuple>

struct Message;

/// Limits on the work for one message of a page.
struct PageLimits
{
    int media = 10; ///< millions of octets of media and texts in slides
    int clips = 4; ///< clips that are converted
    int decoded = 10; ///< millions of pixels of pictures that are converted
};

/// Octets that a browser shows or plays, with their media type.
struct BrowserMedia
{
    const char *type = nullptr; ///< null when the browser cannot
    QByteArray octets = {};
    const char *whyNot = nullptr; ///< why a clip is not played, as the end of a sentence
    int milliseconds = -1; ///< that a converted sound plays; -1 for others
};

/// The media of a message for its slides. Converts each part only once, and limits what all slides
/// show of them.
class PageMedia
{
public:
    using Part = MMS_COMP_SMILMultipartBodypart;

    /// @p message must not change meanwhile.
    PageMedia(const Message &message, const PageLimits &limits);

    /// The picture, or the first picture of the video, at its place. Formats that browsers do not
    /// know are converted.
    BrowserMedia picture(const PlacedObject &place);
    /// What the browser plays of the sound or video in @p part.
    BrowserMedia player(const Part &part, bool isVideo);
    /// Milliseconds that the clip in @p part plays, or -1.
    int playDuration(Part &part) { return m_shown.playDuration(part); }
    Texts &texts() { return m_texts; }
    /// True if the text of @p part, with letters @p height high, fits into an area of the size
    /// @p size. False for all that were not measured yet once measuring takes too long.
    bool fits(const Part &part, const QSizeF &size, double height);

    /// Counts @p octets that a slide shows of @p object. False if that exceeds the limit.
    bool take(const MMS_COMP_SMILMediaObject &object, qsizetype octets);

    /// A line for each limit that was met.
    QStringList missingLines() const;

private:
    /// The part, width and height of its area, and the height of its letters.
    using PlacedText = std::tuple<const Part *, double, double, double>;

    struct Converted
    {
        std::optional<BrowserMedia> picture;
        std::optional<BrowserMedia> sound;
        std::optional<Converter::VideoPicture> video;
        const char *whyNoVideo = nullptr;
    };

    BrowserMedia asPng(const PlacedObject &place);
    BrowserMedia imageOf(const PlacedObject &place);
    BrowserMedia soundOf(const Part &part);
    const Converted &videoOf(const Part &part);
    const char *takeClip(const Part &part);
    bool measureText(const QString &text, const QSizeF &size, double height);

    const PageLimits m_limits;
    Work m_octets;
    Work m_clips;
    Work m_measured{100'000}; ///< characters
    Pictures m_pictures;
    Texts m_texts;
    ShownParts m_shown;
    QHash<const Part *, Converted> m_converted;
    std::map<PlacedText, bool> m_fitting;
    Missing m_notShown;
    Missing m_notConverted;
    Missing m_notDecoded;
};
