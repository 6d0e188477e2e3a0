/*
 * Media types as the host's tables spell them: "type/subtype", split at compile time.
 */
#pragma once

#include <QLatin1StringView>
#include <QStringView>

#include <algorithm>
#include <string_view>

namespace HostPlatform {

constexpr char16_t toAsciiLower(char16_t c)
{
    return c >= u'A' && c <= u'Z' ? char16_t(c - u'A' + u'a') : c;
}

/// True when @p text equals @p token, ignoring the case of ASCII letters. Qt's own comparison folds
/// all of Unicode: it would take a long s or a Kelvin sign for an ASCII letter.
constexpr bool isSameToken(QStringView text, std::string_view token)
{
    return std::equal(text.utf16(), text.utf16() + text.size(), token.begin(), token.end(),
                      [](char16_t left, char right) {
                          return toAsciiLower(left) == toAsciiLower(static_cast<uchar>(right));
                      });
}

constexpr QLatin1StringView latin1(std::string_view token)
{
    return QLatin1StringView(token.data(), qsizetype(token.size()));
}

/// Both halves of a media type. In a constant table, a text without "/" does not compile.
struct MediaType
{
    std::string_view type;
    std::string_view subtype;

    // Implicit, so that rows of tables are written as plain texts.
    constexpr MediaType(const char *text) : MediaType(std::string_view(text)) { }

    constexpr MediaType(std::string_view text)
        : type(text.substr(0, text.find('/'))), subtype(text.substr(type.size() + 1))
    {
    }

    constexpr bool operator==(const MediaType &) const = default;

    constexpr bool matches(QStringView otherType, QStringView otherSubtype) const
    {
        return isSameToken(otherSubtype, subtype) && isSameToken(otherType, type);
    }
};

} // namespace HostPlatform
