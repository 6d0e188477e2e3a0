/*
 * Valid PDUs for the tests of decoder and encoder: one of each message type, and one with all 24
 * header fields.
 */
#pragma once

#include "wire/codec_calls.h"

#include <vector>

namespace HeaderPdus {

/// A header field as the encoder writes it, with its code.
struct Field
{
    int code;
    QByteArray octets;
};

/// All 24 header fields in the order of their codes. Date and Delivery-Time are 0 in UTC.
inline const std::vector<Field> &allFields()
{
    static const std::vector<Field> fields{
        {1, "81"_octets + text("bcc@x")},
        {2, "82"_octets + text("+2/TYPE=PLMN")},
        {3, "83"_octets + text("http://x/1")},
        {4, "84 19 B3 8A"_octets + text("<ab>") + "89"_octets + text("application/smil")},
        {5, "85 80"_octets},
        {6, "86 80"_octets},
        {7, "87 02 80 80"_octets},
        {8, "88 05 81 03 01 51 80"_octets},
        {9, "89 0E 80"_octets + text("+9/TYPE=PLMN")},
        {10, "8A 81"_octets},
        {11, "8B"_octets + text("id1")},
        {12, "8C 80"_octets},
        {13, "8D 90"_octets},
        {14, "8E 02 10 00"_octets},
        {15, "8F 82"_octets},
        {16, "90 80"_octets},
        {17, "91 80"_octets},
        {18, "92 85"_octets},
        {19, "93 05 EA 61 62 63 00"_octets},
        {20, "94 81"_octets},
        {21, "95 83"_octets},
        {22, "96 04 EA 48 69 00"_octets},
        {23, "97"_octets + text("a@b") + "97"_octets + text("+1/TYPE=PLMN")},
        {24, "98"_octets + text("T1")},
    };
    return fields;
}

/// The fields @p codes in this order, with @p type as Message-Type.
inline QByteArray header(int type, const std::vector<int> &codes)
{
    QByteArray octets;
    for (int code : codes) {
        octets += code == 12 ? "8C"_octets + octet(type)
                             : allFields()[static_cast<std::size_t>(code - 1)].octets;
    }
    return octets;
}

struct Pdu
{
    const char *name;
    QByteArray octets;
};

/// Headers as phones and relays send them, followed by a body if the type has one.
inline const std::vector<Pdu> &validPdus()
{
    static const std::vector<Pdu> pdus{
        {"m-send-req",
         header(128, {12, 24, 13, 5, 9, 23, 2, 1, 22, 10, 7, 15, 20, 6, 16, 4})
             + "01 02 03"_octets},
        {"m-send-conf", header(129, {12, 24, 13, 18, 19, 11})},
        {"m-notification-ind", header(130, {12, 24, 13, 9, 22, 10, 14, 8, 3})},
        {"m-notifyresp-ind", header(131, {12, 24, 13, 21, 17})},
        {"m-retrieve-conf",
         header(132, {12, 24, 13, 11, 5, 9, 23, 2, 22, 10, 15, 6, 16, 4}) + "00"_octets},
        {"m-acknowledge-ind", header(133, {12, 24, 13, 17})},
        {"m-delivery-ind", header(134, {12, 13, 11, 23, 5, 21})},
        {"mixed in one octet", header(132, {12, 13, 5}) + "84 A3 01"_octets},
        {"every field",
         header(128, {12, 24, 13, 1,  2,  3,  5,  6,  7,  8,  9,  10,
                      11, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 4})
             + "05"_octets},
    };
    return pdus;
}

} // namespace HeaderPdus
