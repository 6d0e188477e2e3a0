/*
 * The octets that stand for something inside a multipart entry, shared by its reader and writer.
 */
#pragma once

namespace EntryOctet {

inline constexpr unsigned char HighBit = 0x80;

// Parameters of the content type
inline constexpr unsigned char Charset = 0x81;
inline constexpr unsigned char Name = 0x85;

// Headers
inline constexpr unsigned char ContentLocation = 0x8E;
inline constexpr unsigned char ContentId = 0xC0;

// Well-known media codes without their high bit
inline constexpr unsigned char TextPlain = 0x03;
inline constexpr unsigned char XhtmlXml = 0x45;

} // namespace EntryOctet
