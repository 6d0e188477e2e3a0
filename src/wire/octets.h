/*
 * Bits of octets, tokens and numbers of charsets that several codecs share.
 */
#pragma once

namespace WireOctet {

/// Set in short integers, in well-known codes and in all but the last octet of a uintvar.
inline constexpr unsigned char HighBit = 0x80;
inline constexpr unsigned char LowSevenBits = 0x7F;
/// First octet of a value-length that a uintvar holds.
inline constexpr unsigned char LengthFollows = 31;

constexpr bool hasHighBit(unsigned char octet)
{
    return (octet & HighBit) != 0;
}

constexpr unsigned char withoutHighBit(unsigned char octet)
{
    return octet & LowSevenBits;
}

/// True for the first octet of a text, which may be its only one.
constexpr bool beginsText(unsigned char octet)
{
    return octet == 0 || (octet > LengthFollows && !hasHighBit(octet));
}

} // namespace WireOctet

/// Tokens after a value-length.
namespace WireToken {

inline constexpr unsigned char AddressPresent = 128; ///< in From; the address follows
inline constexpr unsigned char InsertAddress = 129; ///< in From
inline constexpr unsigned char AbsoluteTime = 128; ///< seconds since 1970 follow
inline constexpr unsigned char RelativeTime = 129; ///< seconds from the sending on follow

} // namespace WireToken

/// MIBenum numbers of charsets, as IANA assigns them.
namespace Charset {

inline constexpr int UsAscii = 3;
inline constexpr int Utf8 = 106;
inline constexpr int Ucs2 = 1000;
inline constexpr int Utf16BE = 1013;
inline constexpr int Utf16LE = 1014;
inline constexpr int Utf16 = 1015;
inline constexpr int Utf32 = 1017;
inline constexpr int Utf32BE = 1018;
inline constexpr int Utf32LE = 1019;

} // namespace Charset
