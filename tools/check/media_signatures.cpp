#include "check/media_signatures.h"

#include <algorithm>
#include <array>
#include <string_view>

using namespace std::string_view_literals;

namespace Check {

namespace {

/// Octets at a place, and the media types of content that has them.
struct Signature
{
    qsizetype offset;
    std::string_view octets;
    std::array<std::string_view, 6> types; // the first one is the usual one
};

constexpr std::array signatures{
    Signature{0, "\xFF\xD8\xFF"sv, {"image/jpeg", "image/jpg", "image/pjpeg"}},
    Signature{0, "\x89PNG\r\n\x1A\n"sv, {"image/png"}},
    Signature{0, "GIF8"sv, {"image/gif"}},
    Signature{8, "WEBP"sv, {"image/webp"}},
    Signature{8, "WAVE"sv, {"audio/wav", "audio/x-wav", "audio/wave", "audio/vnd.wave"}},
    Signature{8, "AVI "sv, {"video/avi", "video/x-msvideo", "video/msvideo"}},
    Signature{0, "#!AMR-WB\n"sv, {"audio/amr-wb"}},
    Signature{0, "#!AMR\n"sv, {"audio/amr", "audio/amr-nb", "audio/x-amr"}},
    Signature{
        0, "MThd"sv, {"audio/midi", "audio/mid", "audio/x-midi", "audio/sp-midi", "audio/x-mid"}},
    Signature{
        0, "BEGIN:IMELODY"sv, {"audio/imelody", "audio/x-imelody", "text/x-imelody", "audio/imy"}},
    Signature{4,
              "ftyp"sv,
              {"video/3gpp", "video/mp4", "audio/3gpp", "audio/mp4", "video/3gpp2", "audio/m4a"}},
    Signature{0, "OggS"sv, {"audio/ogg", "application/ogg", "video/ogg"}},
    Signature{0, "ID3"sv, {"audio/mpeg", "audio/mp3", "audio/x-mp3", "audio/mpg", "audio/x-mpeg"}},
};

bool has(QByteArrayView octets, const Signature &signature)
{
    return octets.size() >= signature.offset
        && octets.sliced(signature.offset).startsWith(QByteArrayView(signature.octets));
}

bool lists(const Signature &signature, const QString &type)
{
    return std::ranges::any_of(signature.types, [&type](std::string_view listed) {
        return !listed.empty()
            && type == QLatin1StringView(listed.data(), qsizetype(listed.size()));
    });
}

} // namespace

QString recognizedType(QByteArrayView octets)
{
    const auto found = std::ranges::find_if(
        signatures, [octets](const Signature &signature) { return has(octets, signature); });
    return found != signatures.end() ? QString::fromLatin1(QByteArrayView(found->types.front()))
                                     : QString();
}

bool areCompatible(const QString &recognized, const QString &declared)
{
    return std::ranges::any_of(signatures, [&](const Signature &signature) {
        return lists(signature, recognized) && lists(signature, declared);
    });
}

// Sound in MPEG frames may come without a tag.
bool hasSignature(const QString &declared)
{
    return std::ranges::any_of(signatures, [&](const Signature &signature) {
        return signature.octets != "ID3" && lists(signature, declared);
    });
}

} // namespace Check
