/*
 * Bits of octets and numbers of charsets that several codecs share.
 */
#pragma once

namespace WireOctet {

/// Set in short integers, in well-known codes and in all but the last octet of a uintvar.
inline constexpr unsigned char HighBit = 0x80;
inline constexpr unsigned char LowSevenBits = 0x7F;

constexpr bool hasHighBit(unsigned char octet)
{
    return (octet & HighBit) != 0;
}

constexpr unsigned char withoutHighBit(unsigned char octet)
{
    return octet & LowSevenBits;
}

} // namespace WireOctet

/// MIBenum numbers of charsets, as IANA assigns them.
namespace Charset {

inline constexpr int UsAscii = 3;
inline constexpr int Utf8 = 106;
inline constexpr int Ucs2 = 1000;

} // namespace Charset
