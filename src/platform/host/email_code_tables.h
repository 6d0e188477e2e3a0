/*
 * The e-mail system's numbers for main types, subtypes, charsets and transfer encodings. Stored
 * messages may contain them: give a new row a free number, and never change the number of a row.
 *
 * All main types share one numbering of subtypes, so every subtype has one row.
 */
#pragma once

#include "platform/email_util.h"
#include "platform/host/mime_extension_table.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace HostPlatform {

struct EmailCodeRow
{
    int code;
    std::string_view text;
};

inline constexpr auto emailTypeTable = std::to_array<EmailCodeRow>({
    {EMAIL_Util::Text, "text"},
    {2, "multipart"},
    {3, "message"},
    {EMAIL_Util::Application, "application"},
    {EMAIL_Util::Image, "image"},
    {EMAIL_Util::Audio, "audio"},
    {EMAIL_Util::Video, "video"},
    {8, "model"},
});

inline constexpr auto emailSubTypeTable = std::to_array<EmailCodeRow>({
    {1, "plain"},
    {2, "html"},
    {3, "mixed"},
    {4, "alternative"},
    {5, "related"},
    {6, "jpeg"},
    {7, "gif"},
    {8, "png"},
    {9, "vnd.wap.wbmp"},
    {10, "bmp"},
    {11, "tiff"},
    {12, "amr"},
    {13, "midi"},
    {14, "sp-midi"},
    {15, "imelody"},
    {16, "mpeg"},
    {17, "mp4"},
    {18, "3gpp"},
    {19, "3gpp2"},
    {20, "aac"},
    {21, "wav"},
    {22, "x-vcard"},
    {23, "x-vcalendar"},
    {24, "octet-stream"},
    {25, "rfc822"},
    {26, "form-data"},
    {27, "digest"},
    {28, "jpg"},
    {29, "pjpeg"},
    {30, "x-png"},
    {31, "wbmp"},
    {32, "x-bmp"},
    {33, "x-ms-bmp"},
    {34, "webp"},
    {35, "svg+xml"},
    {36, "amr-nb"},
    {37, "x-amr"},
    {38, "amr-wb"},
    {39, "mid"},
    {40, "x-midi"},
    {41, "x-mid"},
    {42, "x-sp-midi"},
    {43, "x-imelody"},
    {44, "mp3"},
    {45, "mpeg3"},
    {46, "mpg"},
    {47, "x-mp3"},
    {48, "x-mpeg"},
    {49, "x-mpeg3"},
    {50, "m4a"},
    {51, "x-m4a"},
    {52, "aacp"},
    {53, "x-aac"},
    {54, "x-wav"},
    {55, "wave"},
    {56, "vnd.wave"},
    {57, "ogg"},
    {58, "qcelp"},
    {59, "vnd.smaf"},
    {60, "x-smaf"},
    {61, "mmf"},
    {62, "x-msvideo"},
    {63, "avi"},
    {EMAIL_Util::MultipartRelated, "vnd.wap.multipart.related"},
    {65, "vnd.wap.multipart.mixed"},
    {EMAIL_Util::Smil, "smil"},
    {67, "msvideo"},
    {68, "quicktime"},
    {69, "xhtml+xml"},
    {70, "vnd.wap.xhtml+xml"},
    {71, "vnd.wap.wml"},
    {72, "wml+xml"},
    {73, "vnd.wap.wmlc"},
    {74, "css"},
    {75, "xml"},
    {76, "vcard"},
    {77, "directory"},
    {78, "calendar"},
    {79, "x-vmessage"},
    {80, "x-vnote"},
    {81, "x-vbookmark"},
    {82, "java-archive"},
    {83, "x-java-archive"},
    {84, "vnd.sun.j2me.app-descriptor"},
    {85, "vnd.oma.drm.message"},
    {86, "vnd.oma.drm.content"},
    {87, "vnd.oma.drm.rights+xml"},
    {88, "vnd.oma.drm.rights+wbxml"},
    {89, "zip"},
    {90, "x-zip-compressed"},
    {91, "pdf"},
    {92, "vnd.wap.mms-message"},
});

inline constexpr auto emailCharsetTable = std::to_array<EmailCodeRow>({
    {1, "us-ascii"},      {2, "utf-8"},         {3, "iso-8859-1"},    {4, "iso-8859-2"},
    {5, "iso-8859-3"},    {6, "iso-8859-4"},    {7, "iso-8859-5"},    {8, "iso-8859-6"},
    {9, "iso-8859-7"},    {10, "iso-8859-8"},   {11, "iso-8859-9"},   {12, "iso-8859-10"},
    {13, "iso-8859-13"},  {14, "iso-8859-14"},  {15, "iso-8859-15"},  {16, "iso-10646-ucs-2"},
    {17, "utf-16"},       {18, "utf-7"},        {19, "big5"},         {20, "gb2312"},
    {21, "gbk"},          {22, "gb18030"},      {23, "hz-gb-2312"},   {24, "shift_jis"},
    {25, "euc-jp"},       {26, "iso-2022-jp"},  {27, "euc-kr"},       {28, "iso-2022-kr"},
    {29, "koi8-r"},       {30, "koi8-u"},       {31, "windows-1250"}, {32, "windows-1251"},
    {33, "windows-1252"}, {34, "windows-1253"}, {35, "windows-1254"}, {36, "windows-1255"},
    {37, "windows-1256"}, {38, "windows-1257"}, {39, "windows-1258"}, {40, "tis-620"},
});

inline constexpr auto emailTransferEncodingTable = std::to_array<EmailCodeRow>({
    {1, "7bit"},
    {2, "8bit"},
    {3, "binary"},
    {4, "base64"},
    {5, "quoted-printable"},
});

// Every code and every text has one row only.
consteval bool isOneToOne(const auto &table)
{
    for (auto row = table.begin(); row != table.end(); ++row) {
        const auto collides = [&](const EmailCodeRow &other) {
            return other.code == row->code || other.text == row->text;
        };
        if (row->text.empty() || std::any_of(row + 1, table.end(), collides))
            return false;
    }
    return true;
}
static_assert(isOneToOne(emailTypeTable));
static_assert(isOneToOne(emailSubTypeTable));
static_assert(isOneToOne(emailCharsetTable));
static_assert(isOneToOne(emailTransferEncodingTable));

consteval bool everyNamedMediaTypeHasCodes()
{
    const auto holds = [](const auto &table, std::string_view text) {
        return std::ranges::find(table, text, &EmailCodeRow::text) != table.end();
    };
    return std::ranges::all_of(mimeExtensionTable, [&](const MimeExtensionRow &row) {
        return holds(emailTypeTable, row.mediaType.type)
            && holds(emailSubTypeTable, row.mediaType.subtype);
    });
}
static_assert(everyNamedMediaTypeHasCodes());

} // namespace HostPlatform
