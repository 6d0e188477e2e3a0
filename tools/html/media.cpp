#include "html/media.h"

#include "check/media_signatures.h"
#include "convert/clip_extension.h"
#include "convert/wav.h"
#include "input/message.h"

#include <QBuffer>

#include <algorithm>
#include <array>
#include <span>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

// Why a clip is not played.
constexpr char NotPlayed[] = "is not played by browsers";
constexpr char TooManyClips[] = "is not converted: the message has too many clips";
constexpr char Failed[] = "could not be converted";

constexpr double PixelsForOne = 2; // of a converted picture, for one handset pixel

constexpr std::array pictures{"image/jpeg", "image/png", "image/gif", "image/webp"};
constexpr std::array sounds{"audio/mpeg", "audio/wav", "audio/ogg"};

// The type that the content has, if it is one of @p types.
BrowserMedia recognized(const Part &part, std::span<const char *const> types)
{
    const QString type = Check::recognizeMedia(part.getBodyData()).type;
    const auto found = std::ranges::find_if(
        types, [&type](const char *one) { return type == QLatin1StringView(one); });
    return found != types.end() ? BrowserMedia{*found, part.getBodyData()} : BrowserMedia();
}

// Browsers play WAV files with plain samples only.
bool isPlayedWav(const QByteArray &octets)
{
    constexpr qsizetype FormOffset = 12; // the first chunk
    constexpr qsizetype CodecOffset = 20;
    return QByteArrayView(octets).sliced(FormOffset).startsWith("fmt ")
        && octets.size() > CodecOffset + 1 && octets[CodecOffset] == 1
        && octets[CodecOffset + 1] == 0;
}

// A frame of MPEG layer 3, which files without a tag begin with.
bool beginsLikeMp3(QByteArrayView octets)
{
    return octets.size() > 1 && octets[0] == '\xff' && (octets[1] & 0xE6) == 0xE2;
}

// The sound that the browser plays as it is.
BrowserMedia playedSound(const Part &part)
{
    if (clipExtension(part) == u"mp3" && beginsLikeMp3(part.getBodyData()))
        return {"audio/mpeg", part.getBodyData()};
    const BrowserMedia sound = recognized(part, sounds);
    const bool isOtherWav =
        sound.type && qstrcmp(sound.type, "audio/wav") == 0 && !isPlayedWav(sound.octets);
    return isOtherWav ? BrowserMedia() : sound;
}

// A file of ISO base media; the part says whether it has pictures.
bool isBaseMedia(const Part &part)
{
    return Check::recognizeMedia(part.getBodyData()).type == QLatin1StringView("video/3gpp");
}

} // namespace

PageMedia::PageMedia(const Message &message, const PageLimits &limits)
    : m_limits(limits), m_octets(limits.media * Million), m_clips(limits.clips),
      m_pictures(limits.decoded * Million), m_texts(message), m_shown(message)
{
}

bool PageMedia::take(const MMS_COMP_SMILMediaObject &object, qsizetype octets)
{
    const bool isTaken = m_octets.take(octets);
    if (!isTaken)
        m_notShown.add(object.getSrc());
    return isTaken;
}

bool PageMedia::measureText(const QString &text, const QSizeF &size, double height)
{
    return m_measured.take(fittingText(text, size, height).size())
        && textFits(text, size, pictureFont(height));
}

bool PageMedia::fits(const Part &part, const QSizeF &size, double height)
{
    const auto [known, isNew] =
        m_fitting.try_emplace({&part, size.width(), size.height(), height}, false);
    if (isNew)
        known->second = measureText(m_texts.find(part), size, height);
    return known->second;
}

// Counts a clip to convert. Returns why it is not converted, or null.
const char *PageMedia::takeClip(const Part &part)
{
    if (!Converter::canConvert(clipExtension(part)))
        return NotPlayed;
    if (m_clips.take(1))
        return nullptr;
    m_notConverted.add(part.getContentLocation());
    return TooManyClips;
}

BrowserMedia PageMedia::asPng(const PlacedObject &place)
{
    const Part &part = *place.object->getData();
    const Picture picture = m_pictures.find(part, place, PixelsForOne);
    if (m_pictures.isBeyondLimit(part))
        m_notDecoded.add(place.object->getSrc());
    QBuffer buffer;
    if (picture.image.isNull() || !picture.image.save(&buffer, "PNG"))
        return {};
    return {"image/png", buffer.data()};
}

BrowserMedia PageMedia::imageOf(const PlacedObject &place)
{
    std::optional<BrowserMedia> &picture = m_converted[place.object->getData()].picture;
    if (!picture) {
        picture = recognized(*place.object->getData(), pictures);
        if (!picture->type)
            picture = asPng(place);
    }
    return *picture;
}

BrowserMedia PageMedia::soundOf(const Part &part)
{
    std::optional<BrowserMedia> &sound = m_converted[&part].sound;
    if (sound)
        return *sound;
    sound = playedSound(part);
    if (sound->type)
        return *sound;
    sound->whyNot = takeClip(part);
    if (sound->whyNot)
        return *sound;
    const QByteArray wav = Converter::wavOf(part.getBodyData(), clipExtension(part));
    sound = wav.isEmpty() ? BrowserMedia{.whyNot = Failed}
                          : BrowserMedia{"audio/wav", wav, nullptr, Sound::milliseconds(wav)};
    return *sound;
}

const PageMedia::Converted &PageMedia::videoOf(const Part &part)
{
    Converted &converted = m_converted[&part];
    if (converted.video)
        return converted;
    converted.whyNoVideo = takeClip(part);
    converted.video = converted.whyNoVideo
        ? Converter::VideoPicture()
        : Converter::firstPictureOf(part.getBodyData(), clipExtension(part));
    if (!converted.whyNoVideo)
        converted.whyNoVideo = converted.video->png.isEmpty() ? Failed : NotPlayed;
    return converted;
}

BrowserMedia PageMedia::picture(const PlacedObject &place)
{
    const Part *part = place.object->getData();
    const int type = place.object->getMediaElementType();
    if (type == SMIL_MEDIA_IMAGE && part)
        return imageOf(place);
    const QByteArray first =
        type == SMIL_MEDIA_VIDEO && part ? videoOf(*part).video->png : QByteArray();
    return first.isEmpty() ? BrowserMedia() : BrowserMedia{"image/png", first};
}

BrowserMedia PageMedia::player(const Part &part, bool isVideo)
{
    if (!isVideo)
        return soundOf(part);
    const Converted &converted = videoOf(part);
    const bool isPlayed = isBaseMedia(part) && converted.video->codec == "h264";
    return isPlayed ? BrowserMedia{"video/mp4", part.getBodyData()}
                    : BrowserMedia{.whyNot = converted.whyNoVideo};
}

QStringList PageMedia::missingLines() const
{
    const auto millions = [](int number, const char *unit) {
        return QStringLiteral("%1 million %2").arg(number).arg(QLatin1StringView(unit));
    };
    QStringList lines{
        m_notShown.text(QStringLiteral("media that the slides do not show"),
                        limitText(millions(m_limits.media, "octets"), "--max-media")),
        m_notConverted.text(
            QStringLiteral("clips that were not converted"),
            limitText(QStringLiteral("%1 clips").arg(m_limits.clips), "--max-clips")),
        m_notDecoded.text(QStringLiteral("pictures that were not converted"),
                          limitText(millions(m_limits.decoded, "pixels"), "--max-decoded"))};
    lines.removeAll(QString());
    return lines;
}
