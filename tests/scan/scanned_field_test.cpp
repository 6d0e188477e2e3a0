/*
 * Decoded values of scanned fields: one row for each field of MMS 1.0 to 1.3, and for each form
 * what else occurs and what cannot be read.
 */
#include "scan/scanned_field.h"

#include "scan/scanned_fields.h"
#include "wire/codec_calls.h"
#include "wire/header_fields.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace {

struct ValueRow
{
    QByteArray field; // code and value
    const char *value;
};

void expectValues(const std::vector<ValueRow> &rows)
{
    for (const ValueRow &row : rows)
        EXPECT_EQ(decodedValue(row.field), row.value) << row.field.toHex(' ').toStdString();
}

const std::vector<ValueRow> &everyField()
{
    static const std::vector<ValueRow> rows{
        {"81"_octets + text("+1/TYPE=PLMN"), "\"+1/TYPE=PLMN\""},
        {"82"_octets + text("a@b"), "\"a@b\""},
        {"83"_octets + text("http://x/1"), "\"http://x/1\""},
        {"84 A3"_octets, "number 35; \"application/vnd.wap.multipart.mixed\""},
        {"85 04 40 F8 14 80"_octets, "number 1090000000"},
        {"86 80"_octets, "token 128 yes"},
        {"87 06 80 04 40 F8 14 80"_octets, "token 128 absolute; number 1090000000"},
        {"88 05 81 03 09 3A 80"_octets, "token 129 relative; number 604800"},
        {"89 05 80"_octets + text("a@b"), "token 128 address-present; \"a@b\""},
        {"8A 81"_octets, "token 129 advertisement"},
        {"8B"_octets + text("id1"), "\"id1\""},
        {"8C 87"_octets, "token 135 m-read-rec-ind"},
        {"8D 93"_octets, "number 19"},
        {"8E 02 78 00"_octets, "number 30720"},
        {"8F 82"_octets, "token 130 high"},
        {"90 81"_octets, "token 129 no"},
        {"91 80"_octets, "token 128 yes"},
        {"92 E6"_octets, "token 230 error-permanent-reply-charging-limitations-not-met"},
        {"93"_octets + text("Sent"), "\"Sent\""},
        {"94 80"_octets, "token 128 hide"},
        {"95 81"_octets, "token 129 retrieved"},
        {"96 04 EA 48 69 00"_octets, "charset 106; \"Hi\""},
        {"97"_octets + text("+2/TYPE=PLMN"), "\"+2/TYPE=PLMN\""},
        {"98"_octets + text("T1"), "\"T1\""},
        {"99 C2"_octets, "token 194 error-transient-network-problem"},
        {"9A 04 83 4E 6F 00"_octets, "charset 3; \"No\""},
        {"9B 81"_octets, "token 129 deleted-without-being-read"},
        {"9C 83"_octets, "token 131 accepted-text-only"},
        {"9D 03 81 01 3C"_octets, "token 129 relative; number 60"},
        {"9E"_octets + text("id2"), "\"id2\""},
        {"9F 02 01 00"_octets, "number 256"},
        {"A0 05 81"_octets + text("a@b"), "count 1; \"a@b\""},
        {"A1 06 82 04 40 F8 14 80"_octets, "count 2; number 1090000000"},
        {"A2 80"_octets, "token 128 yes"},
        {"A3 84"_octets, "token 132 forwarded"},
        {"A4 05 82"_octets + text("tag"), "token 130 filter; \"tag\""},
        {"A5 E4"_octets, "token 228 error-permanent-mmbox-full"},
        {"A6"_octets + text("full"), "\"full\""},
        {"A7 81"_octets, "token 129 no"},
        {"A8 96"_octets, "count 1"},
        {"A9 80"_octets, "token 128 yes"},
        {"AA 02 80 85"_octets, "token 128 messages; number 5"},
        {"AB 81"_octets, "token 129 no"},
        {"AC 04 81 02 10 00"_octets, "token 129 octets; number 4096"},
        {"AD 87"_octets, "number 7"},
        {"AE 02 01 02"_octets, "unreadable"},
        {"AF 80"_octets, "number 0"},
        {"B0 02 8B 00"_octets, "unreadable"},
        {"B1 80"_octets, "token 128 yes"},
        {"B2 06 3C 61 3E 00 81 9E"_octets, "\"<a>\""},
        {"B3 01 C8"_octets, "number 200"},
        {"B4 80"_octets, "token 128 manual"},
        {"B5"_octets + text("large"), "\"large\""},
        {"B6"_octets + text("why"), "\"why\""},
        {"B7"_octets + text("app"), "\"app\""},
        {"B8"_octets + text("app2"), "\"app2\""},
        {"B9"_octets + text("more"), "\"more\""},
        {"BA 85"_octets, "token 133 megapixel"},
        {"BB 81"_octets, "token 129 no"},
        {"BC 80"_octets, "token 128 yes"},
        {"BD"_octets + text("id3"), "\"id3\""},
        {"BE"_octets + text("id4"), "\"id4\""},
        {"BF 81"_octets, "token 129 cancel-request-corrupted"},
    };
    return rows;
}

TEST(ScannedField, DecodesEveryField)
{
    expectValues(everyField());
    std::set<int> codes;
    for (const ValueRow &row : everyField())
        codes.insert(static_cast<unsigned char>(row.field[0]) - 0x80);
    EXPECT_EQ(codes.size(), qvlKnownFields().size());
}

TEST(ScannedField, DecodesTokens)
{
    expectValues({
        {"8F 90"_octets, "token 144 unnamed"},
        {"8F 01 80"_octets, "token 128 low"},
        {"8F 1F 01 80"_octets, "token 128 low"},
        {"8F 02 80 81"_octets, "token 128 low"},
        {"8F 01 05"_octets, "unreadable"},
        {"8F 00"_octets, "unreadable"},
        {"8F 61 00"_octets, "unreadable"},
        {"8A 61 75 74 6F 00"_octets, "\"auto\""},
        {"8A 01 82"_octets, "token 130 informational"},
        {"8A 03 61 62 00"_octets, "\"ab\""},
        {"A8 03 81 82 96"_octets, "count 3"},
        {"A8 00"_octets, "unreadable"},
        {"A8 1F 00"_octets, "unreadable"},
    });
}

TEST(ScannedField, DecodesIntegers)
{
    expectValues({
        {"8E FF"_octets, "number 127"},
        {"8E 01 00"_octets, "number 0"},
        {"8E 01 FF"_octets, "number 255"},
        {"8E 08 7F FF FF FF FF FF FF FF"_octets, "number 9223372036854775807"},
        {"8E 08 80 00 00 00 00 00 00 00"_octets, "unreadable"},
        {"8E 0A 00 00 00 00 00 00 00 00 00 05"_octets, "number 5"},
        {"8E 1E"_octets + octet(0, 29) + octet(9), "number 9"},
        {"8E 00"_octets, "unreadable"},
        {"8E 1F 01 05"_octets, "unreadable"},
        {"8E 35 00"_octets, "unreadable"},
    });
}

TEST(ScannedField, DecodesTimesAsSent)
{
    expectValues({
        {"85 80"_octets, "number 0"},
        {"88 02 80 80"_octets, "token 128 absolute; number 0"},
        {"88 06 80 04 FF FF FF FF"_octets, "token 128 absolute; number 4294967295"},
        {"88 1F 05 81 03 09 3A 80"_octets, "token 129 relative; number 604800"},
        {"88 07 81 03 09 3A 80 00 00"_octets, "token 129 relative; number 604800"},
        {"88 02 82 80"_octets, "unreadable"},
        {"88 01 81"_octets, "unreadable"},
        {"88 04 81 03 09 3A"_octets, "unreadable"},
        {"88 81"_octets, "unreadable"},
        {"A1 01 81"_octets, "unreadable"},
    });
}

TEST(ScannedField, DecodesSenders)
{
    expectValues({
        {"89 01 81"_octets, "token 129 insert-address"},
        {"89 07 80 05 EA 61 40 62 00"_octets, "token 128 address-present; charset 106; \"a@b\""},
        {"89 05 80 61 40 62 63"_octets, "token 128 address-present; \"a@bc\""},
        {"89 01 80"_octets, "unreadable"},
        {"89 03 80 05 EA"_octets, "unreadable"},
        {"89 00"_octets, "unreadable"},
        {"89"_octets + text("a@b"), "unreadable"},
    });
}

TEST(ScannedField, DecodesTexts)
{
    expectValues({
        {"98 00"_octets, "\"\""},
        {"98 7F 80 00"_octets, "\"\u0080\""},
        {"98 7F C3 BC 00"_octets, "\"\u00FC\""},
        {"98 61 C3 BC 00"_octets, "\"a\u00FC\""},
        {"98 61 FC 00"_octets, "\"a\u00FC\""},
        {"98 03 61 62 00"_octets, "unreadable"},
        {"98 80"_octets, "unreadable"},
        {"58 2D 41 00"_octets + text("on"), "\"on\""},
        {"58 2D 41 00 C3 BC 00"_octets, "\"\u00FC\""},
        {"58 2D 41 00 00"_octets, "\"\""},
    });
}

TEST(ScannedField, DecodesTextsByTheirCharset)
{
    expectValues({
        {"96 00"_octets, "\"\""},
        {"96 61 C3 BC 00"_octets, "\"a\u00FC\""},
        {"96 05 EA 7F C3 BC 00"_octets, "charset 106; \"\u00FC\""},
        {"96 03 EA 61 62"_octets, "charset 106; \"ab\""},
        {"96 05 EA 61 00 62 00"_octets, "charset 106; \"a\""},
        {"96 01 EA"_octets, "charset 106; \"\""},
        {"96 04 83 C3 BC 00"_octets, "charset 3; \"\u00FC\""},
        {"96 03 83 FC 00"_octets, "charset 3; \"\u00FC\""},
        {"96 04 84 C3 BC 00"_octets, "charset 4; \"\u00C3\u00BC\""},
        {"96 04 85 BE 6C 00"_octets, "charset 5; \"\u017El\""},
        {"96 05 91 7F 93 FA 00"_octets, "charset 17; \"\u65E5\""},
        {"96 06 91 93 FA 00 96 7B"_octets, "charset 17; \"\u65E5\""},
        {"96 03 91 93 00"_octets, "charset 17; \"\u0093\""},
        {"81 05 02 08 24 D0 00"_octets, "charset 2084; \"\u043F\""},
        {"89 07 80 05 02 08 24 D0 00"_octets,
         "token 128 address-present; charset 2084; \"\u043F\""},
        {"96 05 01 6A C3 BC 00"_octets, "charset 106; \"\u00FC\""},
        {"96 07 03 0F FF FF 61 62 00"_octets, "charset 1048575; \"ab\""},
        {"96 09 05 01 00 00 00 00 61 62 00"_octets, "charset 2147483647; \"ab\""},
        {"96 03 61 62 00"_octets, "\"ab\""},
        {"96 1F 04 EA 61 62 00"_octets, "charset 106; \"ab\""},
        {"96 00"_octets, "\"\""},
        {"96 1F 00"_octets, "\"\""},
        {"96 03 02 03 E8"_octets, "charset 1000; \"\""},
        {"96 02 02 03"_octets, "unreadable"},
        {"96 1F 20 1F"_octets + octet(0, 30) + octet(3), "unreadable"},
        {"96 80"_octets, "unreadable"},
    });
}

TEST(ScannedField, DecodesUtf16)
{
    expectValues({
        {"96 07 02 03 E8 00 61 00 62"_octets, "charset 1000; \"ab\""},
        {"96 09 02 03 E8 00 61 00 62 00 00"_octets, "charset 1000; \"ab\""},
        {"96 08 02 03 E8 00 61 00 62 00"_octets, "charset 1000; \"ab\""},
        {"96 09 02 03 F7 FE FF 00 61 00 62"_octets, "charset 1015; \"ab\""},
        {"96 09 02 03 F7 FF FE 61 00 62 00"_octets, "charset 1015; \"ab\""},
        {"96 0A 02 03 F7 7F FF FE 61 00 62 00"_octets, "charset 1015; \"ab\""},
        {"96 0A 02 03 E8 7F FE FF 00 61 00 62"_octets, "charset 1000; \"ab\""},
        {"96 07 02 03 F5 00 61 00 62"_octets, "charset 1013; \"ab\""},
        {"96 07 02 03 F6 61 00 62 00"_octets, "charset 1014; \"ab\""},
        {"96 09 02 03 F6 FE FF 00 61 00 62"_octets, "charset 1014; \"ab\""},
        {"96 0C 02 03 F9 7F FF FE 00 00 61 00 00 00"_octets, "charset 1017; \"a\""},
        {"96 0C 02 03 F9 00 00 00 61 00 00 00 00 00"_octets, "charset 1017; \"a\""},
        {"96 09 02 03 E8 00 61 00 00 00 62"_octets, "charset 1000; \"a\""},
        {"96 05 02 03 E8 7F 8E"_octets, "charset 1000; \"\u7F8E\""},
        {"96 06 02 03 E8 61 62 63"_octets, "charset 1000; \"abc\""},
        {"96 05 02 03 E8 FE FF"_octets, "charset 1000; \"\""},
        {"96 04 02 03 E8 7F"_octets, "charset 1000; \"\""},
    });
}

TEST(ScannedField, DecodesMediaTypes)
{
    expectValues({
        {"84 9E"_octets, "number 30; \"image/jpeg\""},
        {"84 FF"_octets, "number 127"},
        {"84"_octets + text("image/jpeg"), "\"image/jpeg\""},
        {"84 01 B3"_octets, "number 51; \"application/vnd.wap.multipart.related\""},
        {"84 03 83 81 EA"_octets, "number 3; \"text/plain\""},
        {"84 0C 69 6D 61 67 65 2F 67 69 66 00 81 EA"_octets, "\"image/gif\""},
        {"84 02 01 1E"_octets, "number 30; \"image/jpeg\""},
        {"84 03 02 03 05"_octets, "number 773"},
        {"84 1F 00"_octets, "unreadable"},
        {"84 01 1F"_octets, "unreadable"},
    });
}

TEST(ScannedField, DecodesNothingOfUnassignedCodes)
{
    expectValues({{"80 80"_octets, "unreadable"}, {"C0 61 00"_octets, "unreadable"}});
}

TEST(ScannedField, KnowsWhereItsValueBegins)
{
    const QByteArray header = "8C 84 58 2D 41 00 6F 6E 00"_octets;
    QvlHeaderScanner scanner(header);
    const std::vector<QvlScannedField> fields = allFields(&scanner);
    ASSERT_EQ(fields.size(), 2u);
    EXPECT_EQ(fields[0].valueOffset(), 1);
    EXPECT_EQ(fields[1].valueOffset(), 6);
}

} // namespace
