/*
 * Media types in messages and the extensions of their files.
 *
 * From type to extension, the first extension of the type counts. From extension to type, the first
 * row with the extension counts, so each group begins with the registered or most common type.
 */
#pragma once

#include "platform/host/media_type.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace HostPlatform {

/// Whether the platform adds the extension to file names of a media type by itself.
enum class Naming {
    ByExtension,
    // A presentation is not a file that the platform opens by itself. Kept: in stored messages,
    // SMIL parts without a name are called "file0", without extension.
    Nameless,
};

/// Extensions by preference; unused entries at the end are empty.
struct ExtensionList
{
    constexpr ExtensionList(std::string_view preferred, std::string_view second = {},
                            std::string_view third = {})
        : all{preferred, second, third}
    {
    }

    constexpr std::string_view preferred() const { return all.front(); }

    std::array<std::string_view, 3> all;
};

struct MimeExtensionRow
{
    MediaType mediaType;
    ExtensionList extensions;
    Naming naming = Naming::ByExtension;
};

inline constexpr auto mimeExtensionTable = std::to_array<MimeExtensionRow>({
    {"image/jpeg", {"jpg", "jpeg", "jpe"}},
    {"image/jpg", {"jpg"}},
    {"image/pjpeg", {"jpg"}},
    {"image/gif", {"gif"}},
    {"image/png", {"png"}},
    {"image/x-png", {"png"}},
    {"image/vnd.wap.wbmp", {"wbmp", "wbm"}},
    {"image/wbmp", {"wbmp"}},
    {"image/bmp", {"bmp"}},
    {"image/x-bmp", {"bmp"}},
    {"image/x-ms-bmp", {"bmp"}},
    {"image/tiff", {"tiff", "tif"}},
    {"image/webp", {"webp"}},
    {"image/svg+xml", {"svg"}},

    {"audio/amr", {"amr"}},
    {"audio/amr-nb", {"amr"}},
    {"audio/x-amr", {"amr"}},
    {"audio/amr-wb", {"awb"}},
    {"audio/midi", {"mid", "midi"}},
    {"audio/mid", {"mid"}},
    {"audio/x-midi", {"mid"}},
    {"audio/x-mid", {"mid"}},
    {"audio/sp-midi", {"mid"}},
    {"audio/x-sp-midi", {"mid"}},
    {"audio/imelody", {"imy"}},
    {"audio/x-imelody", {"imy"}},
    {"text/x-imelody", {"imy"}},
    {"audio/mpeg", {"mp3", "mpga"}},
    {"audio/mp3", {"mp3"}},
    {"audio/mpeg3", {"mp3"}},
    {"audio/mpg", {"mp3"}},
    {"audio/x-mp3", {"mp3"}},
    {"audio/x-mpeg", {"mp3"}},
    {"audio/x-mpeg3", {"mp3"}},
    {"audio/mp4", {"m4a"}},
    {"audio/m4a", {"m4a"}},
    {"audio/x-m4a", {"m4a"}},
    {"audio/aac", {"aac"}},
    {"audio/aacp", {"aac"}},
    {"audio/x-aac", {"aac"}},
    {"audio/wav", {"wav"}},
    {"audio/x-wav", {"wav"}},
    {"audio/wave", {"wav"}},
    {"audio/vnd.wave", {"wav"}},
    {"audio/ogg", {"ogg", "oga"}},
    {"application/ogg", {"ogg"}},
    {"audio/qcelp", {"qcp"}},
    {"application/vnd.smaf", {"mmf"}},
    {"application/x-smaf", {"mmf"}},
    {"audio/mmf", {"mmf"}},

    {"video/3gpp", {"3gp", "3gpp"}},
    {"audio/3gpp", {"3gp"}},
    {"video/3gpp2", {"3g2", "3gpp2"}},
    {"audio/3gpp2", {"3g2"}},
    {"video/mp4", {"mp4", "m4v"}},
    {"video/mpeg", {"mpg", "mpeg", "mpe"}},
    {"video/x-msvideo", {"avi"}},
    {"video/avi", {"avi"}},
    {"video/msvideo", {"avi"}},
    {"video/quicktime", {"mov", "qt"}},

    {"text/plain", {"txt"}},
    {"text/html", {"html", "htm"}},
    {"application/xhtml+xml", {"xhtml", "xht"}},
    {"application/vnd.wap.xhtml+xml", {"xhtml"}},
    {"text/vnd.wap.wml", {"wml"}},
    {"application/wml+xml", {"wml"}},
    {"application/vnd.wap.wmlc", {"wmlc"}},
    {"text/css", {"css"}},
    {"text/xml", {"xml"}},
    {"application/xml", {"xml"}},
    {"text/x-vcard", {"vcf"}},
    {"text/vcard", {"vcf"}},
    {"text/directory", {"vcf"}},
    {"text/x-vcalendar", {"vcs"}},
    {"text/calendar", {"ics"}},
    {"text/x-vmessage", {"vmg"}},
    {"text/x-vnote", {"vnt"}},
    {"text/x-vbookmark", {"vbm"}},

    {"application/smil", {"smil", "smi"}, Naming::Nameless},
    {"application/java-archive", {"jar"}},
    {"application/x-java-archive", {"jar"}},
    {"text/vnd.sun.j2me.app-descriptor", {"jad"}},
    {"application/vnd.oma.drm.message", {"dm"}},
    {"application/vnd.oma.drm.content", {"dcf"}},
    {"application/vnd.oma.drm.rights+xml", {"dr"}},
    {"application/vnd.oma.drm.rights+wbxml", {"drc"}},
    {"application/zip", {"zip"}},
    {"application/x-zip-compressed", {"zip"}},
    {"application/pdf", {"pdf"}},
});

consteval bool mediaTypesStandOnce()
{
    for (auto row = mimeExtensionTable.begin(); row != mimeExtensionTable.end(); ++row) {
        const auto isSame = [&](const MimeExtensionRow &other) {
            return other.mediaType == row->mediaType;
        };
        if (std::any_of(row + 1, mimeExtensionTable.end(), isSame))
            return false;
    }
    return true;
}

consteval bool everyRowIsLowerCaseWithAnExtension()
{
    const auto isLowerCase = [](std::string_view text) {
        return std::ranges::none_of(text, [](char c) { return c >= 'A' && c <= 'Z'; });
    };
    return std::ranges::all_of(mimeExtensionTable, [&](const MimeExtensionRow &row) {
        return !row.extensions.preferred().empty() && isLowerCase(row.mediaType.type)
            && isLowerCase(row.mediaType.subtype)
            && std::ranges::all_of(row.extensions.all, isLowerCase);
    });
}

static_assert(mediaTypesStandOnce());
static_assert(everyRowIsLowerCaseWithAnExtension());

} // namespace HostPlatform
