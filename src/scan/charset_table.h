/*
 * The tables of charsets: the numbers that IANA assigned, the preferred MIME names, and other names
 * that occur. The names are also those of Qt's converters.
 */
#pragma once

#include "wire/octets.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <string_view>

namespace CharsetTable {

struct Name
{
    int charset; // its MIBenum
    std::string_view text; // ends with a zero
};

inline constexpr std::array names{
    Name{Charset::UsAscii, "US-ASCII"},
    Name{4, "ISO-8859-1"},
    Name{5, "ISO-8859-2"},
    Name{6, "ISO-8859-3"},
    Name{7, "ISO-8859-4"},
    Name{8, "ISO-8859-5"},
    Name{9, "ISO-8859-6"},
    Name{10, "ISO-8859-7"},
    Name{11, "ISO-8859-8"},
    Name{12, "ISO-8859-9"},
    Name{13, "ISO-8859-10"},
    Name{17, "Shift_JIS"},
    Name{18, "EUC-JP"},
    Name{38, "EUC-KR"},
    Name{39, "ISO-2022-JP"},
    Name{Charset::Utf8, "UTF-8"},
    Name{109, "ISO-8859-13"},
    Name{110, "ISO-8859-14"},
    Name{111, "ISO-8859-15"},
    Name{112, "ISO-8859-16"},
    Name{113, "GBK"},
    Name{114, "GB18030"},
    Name{Charset::Ucs2, "ISO-10646-UCS-2"},
    Name{Charset::Utf16BE, "UTF-16BE"},
    Name{Charset::Utf16LE, "UTF-16LE"},
    Name{Charset::Utf16, "UTF-16"},
    Name{Charset::Utf32, "UTF-32"},
    Name{Charset::Utf32BE, "UTF-32BE"},
    Name{Charset::Utf32LE, "UTF-32LE"},
    Name{2025, "GB2312"},
    Name{2026, "Big5"},
    Name{2084, "KOI8-R"},
    Name{2088, "KOI8-U"},
    Name{2109, "windows-874"},
    Name{2250, "windows-1250"},
    Name{2251, "windows-1251"},
    Name{2252, "windows-1252"},
    Name{2253, "windows-1253"},
    Name{2254, "windows-1254"},
    Name{2255, "windows-1255"},
    Name{2256, "windows-1256"},
    Name{2257, "windows-1257"},
    Name{2258, "windows-1258"},
    Name{2259, "TIS-620"},
};

inline constexpr std::array aliases{
    Name{Charset::UsAscii, "ASCII"},
    Name{Charset::UsAscii, "ANSI_X3.4-1968"},
    Name{Charset::UsAscii, "ISO646-US"},
    Name{4, "latin1"},
    Name{4, "ISO_8859-1:1987"},
    Name{4, "IBM819"},
    Name{4, "cp819"},
    Name{5, "latin2"},
    Name{6, "latin3"},
    Name{7, "latin4"},
    Name{8, "cyrillic"},
    Name{9, "arabic"},
    Name{10, "greek"},
    Name{11, "hebrew"},
    Name{12, "latin5"},
    Name{13, "latin6"},
    Name{17, "MS_Kanji"},
    Name{17, "SJIS"},
    Name{17, "x-sjis"},
    Name{18, "x-euc-jp"},
    Name{110, "latin8"},
    Name{111, "latin-9"},
    Name{112, "latin10"},
    Name{113, "CP936"},
    Name{113, "MS936"},
    Name{113, "windows-936"},
    Name{Charset::Ucs2, "UCS-2"},
    Name{2025, "EUC-CN"},
    Name{2026, "x-big5"},
    Name{2109, "cp874"},
    Name{2250, "cp1250"},
    Name{2251, "cp1251"},
    Name{2252, "cp1252"},
    Name{2253, "cp1253"},
    Name{2254, "cp1254"},
    Name{2255, "cp1255"},
    Name{2256, "cp1256"},
    Name{2257, "cp1257"},
    Name{2258, "cp1258"},
    Name{2259, "ISO-8859-11"},
};

constexpr bool isSeparator(char c)
{
    return c == '-' || c == '_';
}

constexpr char lowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

/// True if the names differ only in case, hyphens and underscores. Linear.
constexpr bool isSameName(std::string_view one, std::string_view other)
{
    auto i = one.begin();
    auto j = other.begin();
    for (;;) {
        i = std::find_if_not(i, one.end(), isSeparator);
        j = std::find_if_not(j, other.end(), isSeparator);
        if (i == one.end() || j == other.end())
            return i == one.end() && j == other.end();
        if (lowerCase(*i++) != lowerCase(*j++))
            return false;
    }
}

/// The charset with @p name in @p table, or 0.
template <typename Table>
constexpr int find(const Table &table, std::string_view name)
{
    for (const Name &row : table) {
        if (isSameName(row.text, name))
            return row.charset;
    }
    return 0;
}

constexpr bool everyAliasIsNew()
{
    for (std::size_t i = 0; i < aliases.size(); ++i) {
        const bool isKnown =
            std::ranges::binary_search(names, aliases[i].charset, {}, &Name::charset);
        const auto isSame = [i](const Name &row) { return isSameName(row.text, aliases[i].text); };
        if (!isKnown || std::ranges::any_of(names, isSame)
            || std::any_of(aliases.begin(), aliases.begin() + i, isSame))
            return false;
    }
    return true;
}

constexpr bool everyNameIsNew()
{
    return std::ranges::all_of(
        names, [](const Name &row) { return find(names, row.text) == row.charset; });
}

static_assert(std::ranges::adjacent_find(names, std::greater_equal(), &Name::charset)
                  == names.end(),
              "the numbers increase");
static_assert(everyNameIsNew(), "no two charsets share a name");
static_assert(std::ranges::is_sorted(aliases, {}, &Name::charset),
              "the numbers of the aliases increase");
static_assert(everyAliasIsNew(), "an alias is another name of a charset in the table");

} // namespace CharsetTable
