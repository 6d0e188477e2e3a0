#include "check/media_signatures.h"

#include <QStringList>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <string_view>

using namespace std::string_view_literals;
using namespace Qt::StringLiterals;

namespace Check {

namespace {

/// Octets at a place.
struct Mark
{
    qsizetype offset;
    std::string_view octets;
};

/// The octets that a format begins with, and the media types of such content.
struct Signature
{
    std::array<Mark, 2> marks; // an empty one is everywhere
    const char *name;
    std::string_view types; ///< content of these always begins so; the first one is the usual one
    std::string_view others = {}; ///< content of these may begin in another way, too
};

constexpr std::string_view Mpeg = "audio/mpeg audio/mp3 audio/x-mp3 audio/mpg audio/x-mpeg "
                                  "audio/aac audio/aacp";
constexpr std::string_view Midi = "audio/midi audio/mid audio/x-midi audio/sp-midi audio/x-mid";

constexpr std::array signatures{
    Signature{{Mark{0, "\xFF\xD8\xFF"sv}}, "a JPEG picture", "image/jpeg image/jpg image/pjpeg"},
    Signature{{Mark{0, "\x89PNG\r\n\x1A\n"sv}}, "a PNG picture", "image/png image/x-png"},
    Signature{{Mark{0, "GIF87a"sv}}, "a GIF picture", "image/gif"},
    Signature{{Mark{0, "GIF89a"sv}}, "a GIF picture", "image/gif"},
    Signature{{Mark{0, "RIFF"sv}, Mark{8, "WEBP"sv}}, "a WebP picture", "image/webp"},
    Signature{{Mark{0, "RIFF"sv}, Mark{8, "WAVE"sv}},
              "a WAV sound",
              "audio/wav audio/x-wav audio/wave audio/vnd.wave"},
    Signature{{Mark{0, "RIFF"sv}, Mark{8, "AVI "sv}},
              "an AVI video",
              "video/avi video/x-msvideo video/msvideo video/vnd.avi"},
    Signature{{Mark{0, "#!AMR-WB\n"sv}}, "an AMR-WB sound", "audio/amr-wb"},
    Signature{{Mark{0, "#!AMR\n"sv}}, "an AMR sound", "audio/amr audio/amr-nb audio/x-amr"},
    Signature{{Mark{0, "MThd\0\0\0\6"sv}}, "a MIDI sound", Midi},
    Signature{{Mark{0, "BEGIN:IMELODY"sv}},
              "an iMelody sound",
              "audio/imelody audio/x-imelody text/x-imelody audio/imy"},
    Signature{{Mark{4, "ftyp"sv}},
              "a file of the MP4 family",
              "video/3gpp video/mp4 audio/3gpp audio/mp4 video/3gpp2 audio/3gpp2 audio/m4a "
              "audio/x-m4a video/x-m4v application/mp4 image/heic image/heif image/avif",
              "audio/mp4a-latm video/quicktime"},
    Signature{{Mark{0, "OggS\0"sv}},
              "an Ogg file",
              "audio/ogg application/ogg video/ogg audio/opus audio/vorbis"},
    Signature{{Mark{0, "ID3\2"sv}}, "an MP3 sound", {}, Mpeg},
    Signature{{Mark{0, "ID3\3"sv}}, "an MP3 sound", {}, Mpeg},
    Signature{{Mark{0, "ID3\4"sv}}, "an MP3 sound", {}, Mpeg},
};

bool has(QByteArrayView octets, const Mark &mark)
{
    return octets.size() >= mark.offset
        && octets.sliced(mark.offset).startsWith(QByteArrayView(mark.octets));
}

const Signature *signatureOf(QByteArrayView octets)
{
    const auto found = std::ranges::find_if(signatures, [octets](const Signature &signature) {
        return std::ranges::all_of(signature.marks,
                                   [octets](const Mark &mark) { return has(octets, mark); });
    });
    return found != signatures.end() ? &*found : nullptr;
}

QStringList words(std::string_view text)
{
    return QString::fromLatin1(text.data(), qsizetype(text.size())).split(u' ', Qt::SkipEmptyParts);
}

QStringList typesOf(const Signature &signature)
{
    return words(signature.types) + words(signature.others);
}

bool isText(QByteArrayView octets)
{
    return std::ranges::none_of(octets, [](char octet) {
        const auto value = uchar(octet);
        return (value < ' ' && "\t\n\r\f"sv.find(octet) == std::string_view::npos) || value == 0x7F;
    });
}

// The length at octet 4 counts the octets after it.
bool isWholeRiff(QByteArrayView octets)
{
    constexpr qint64 Header = 8;
    return Header + qFromLittleEndian<quint32>(octets.data() + 4) <= octets.size();
}

} // namespace

MediaContent recognizeMedia(QByteArrayView octets)
{
    const Signature *signature = signatureOf(octets);
    return signature
        ? MediaContent{QString::fromLatin1(signature->name), typesOf(*signature).first()}
        : MediaContent();
}

bool fitsType(QByteArrayView octets, const QString &declared)
{
    if (declared == "application/octet-stream"_L1 || declared == "*/*"_L1)
        return true;
    const Signature *signature = signatureOf(octets);
    if (!signature)
        return std::ranges::none_of(signatures, [&](const Signature &known) {
            return words(known.types).contains(declared);
        });
    if (declared.startsWith("text/"_L1) && isText(octets))
        return true;
    const QStringList types = typesOf(*signature);
    return declared.endsWith(u'*') ? std::ranges::any_of(
               types, [&](const QString &type) { return type.startsWith(declared.chopped(1)); })
                                   : types.contains(declared);
}

bool endsTooEarly(QByteArrayView octets)
{
    const QString type = recognizeMedia(octets).type;
    if (type == "image/jpeg"_L1) // the last scan has an end; a thumbnail has one of its own
        return octets.lastIndexOf("\xFF\xD9") < octets.lastIndexOf("\xFF\xDA");
    if (type == "image/png"_L1)
        return octets.lastIndexOf("IEND") < 0;
    if (type == "image/webp"_L1)
        return !isWholeRiff(octets);
    return type == "image/gif"_L1 && octets.lastIndexOf(';') < 0;
}

} // namespace Check
