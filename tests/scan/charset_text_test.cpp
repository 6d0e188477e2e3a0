/*
 * Texts in each charset, octets that do not fit theirs, byte-order marks, final zeros, and the
 * names of charsets. The octets come from the tables of the standards.
 */
#include "scan/charset_text.h"

#include "support/octets.h"

#include <QStringDecoder>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct TextRow
{
    const char *name;
    int charset;
    QByteArray octets;
    QString text;
};

void expectTexts(const std::vector<TextRow> &rows)
{
    for (const TextRow &row : rows) {
        SCOPED_TRACE(row.name);
        const HeapBlock block(row.octets);
        const QString text = qvlDecodeText(QByteArrayView(block.data(), block.size()), row.charset);
        EXPECT_EQ(text, row.text);
        EXPECT_FALSE(text.isNull());
    }
}

const std::vector<TextRow> &everyCharset()
{
    static const std::vector<TextRow> rows{
        {"US-ASCII", 3, "48 69"_octets, u"Hi"_s},
        {"ISO-8859-1", 4, "70 72 E4 73 65 6E 74"_octets, u"präsent"_s},
        {"ISO-8859-2", 5, "BE 6C 75 BB"_octets, u"žluť"_s},
        {"ISO-8859-3", 6, "E6 F8 FE"_octets, u"ĉĝŝ"_s},
        {"ISO-8859-4", 7, "F3 F1 BB"_octets, u"ķņģ"_s},
        {"ISO-8859-5", 8, "DF E0 D8 D2 D5 E2"_octets, u"привет"_s},
        {"ISO-8859-6", 9, "D3 E4 C7 E5"_octets, u"سلام"_s},
        {"ISO-8859-7", 10, "E3 E5 E9 DC"_octets, u"γειά"_s},
        {"ISO-8859-8", 11, "F9 EC E5 ED"_octets, u"שלום"_s},
        {"ISO-8859-9", 12, "FD FE F0"_octets, u"ışğ"_s},
        {"ISO-8859-10", 13, "B1 B2 B3"_octets, u"ąēģ"_s},
        {"Shift_JIS", 17, "93 FA 96 7B"_octets, u"日本"_s},
        {"Shift_JIS, one octet", 17, "B1 61"_octets, u"ｱa"_s},
        {"EUC-JP", 18, "C6 FC CB DC"_octets, u"日本"_s},
        {"EUC-JP, half width", 18, "8E B1"_octets, u"ｱ"_s},
        {"EUC-KR", 38, "C7 D1 B1 DB"_octets, u"한글"_s},
        {"ISO-2022-JP", 39, "61 1B 24 42 46 7C 4B 5C 1B 28 42 62"_octets, u"a日本b"_s},
        {"ISO-2022-JP, open", 39, "1B 24 42 46 7C 4B 5C"_octets, u"日本"_s},
        {"UTF-8", 106, "D0 BF F0 9F 98 80"_octets, u"п😀"_s},
        {"ISO-8859-13", 109, "E0 E8 E6"_octets, u"ąčę"_s},
        {"ISO-8859-14", 110, "F0 FE"_octets, u"ŵŷ"_s},
        {"ISO-8859-15", 111, "A4 BD"_octets, u"€œ"_s},
        {"GBK", 113, "D6 D0 CE C4 E9 46"_octets, u"中文镕"_s},
        {"GB18030", 114, "D6 D0 CE C4 94 39 FC 36"_octets, u"中文😀"_s},
        {"UCS-2", 1000, "04 3F 00 61"_octets, u"пa"_s},
        {"UTF-16BE", 1013, "04 3F D8 3D DE 00"_octets, u"п😀"_s},
        {"UTF-16LE", 1014, "3F 04 3D D8 00 DE"_octets, u"п😀"_s},
        {"UTF-16", 1015, "04 3F D8 3D DE 00"_octets, u"п😀"_s},
        {"UTF-32", 1017, "00 00 04 3F 00 01 F6 00"_octets, u"п😀"_s},
        {"UTF-32BE", 1018, "00 00 04 3F 00 01 F6 00"_octets, u"п😀"_s},
        {"UTF-32LE", 1019, "3F 04 00 00 00 F6 01 00"_octets, u"п😀"_s},
        {"GB2312", 2025, "D6 D0 CE C4"_octets, u"中文"_s},
        {"Big5", 2026, "A4 A4 A4 E5"_octets, u"中文"_s},
        {"KOI8-R", 2084, "D0 D2 C9 D7 C5 D4"_octets, u"привет"_s},
        {"KOI8-U", 2088, "A7 D6 C1 CB"_octets, u"їжак"_s},
        {"windows-874", 2109, "E4 B7 C2 80"_octets, u"ไทย€"_s},
        {"windows-1250", 2250, "9E 6C 75 9D"_octets, u"žluť"_s},
        {"windows-1251", 2251, "EF F0 E8 E2 E5 F2"_octets, u"привет"_s},
        {"windows-1252", 2252, "93 70 72 E4 73 94 80"_octets, u"“präs”€"_s},
        {"windows-1253", 2253, "E3 E5 E9 DC 80"_octets, u"γειά€"_s},
        {"windows-1254", 2254, "FD FE F0 80"_octets, u"ışğ€"_s},
        {"windows-1255", 2255, "F9 EC E5 ED A4"_octets, u"שלום₪"_s},
        {"windows-1256", 2256, "D3 E1 C7 E3"_octets, u"سلام"_s},
        {"windows-1257", 2257, "E0 E8 E6"_octets, u"ąčę"_s},
        {"windows-1258", 2258, "F0 F5 FE"_octets, u"đơ₫"_s},
        {"TIS-620", 2259, "E4 B7 C2"_octets, u"ไทย"_s},
    };
    return rows;
}

constexpr int Latin10 = 112;

TEST(CharsetText, DecodesEveryCharset)
{
    expectTexts(everyCharset());
    std::set<int> decoded{Latin10};
    for (const TextRow &row : everyCharset())
        decoded.insert(row.charset);
    for (int charset = 0; charset < 10000; ++charset)
        EXPECT_EQ(qvlCharsetName(charset) != nullptr, decoded.contains(charset)) << charset;
}

TEST(CharsetText, FallsBackWithoutAConverter)
{
    const bool hasConverter = QStringDecoder("ISO-8859-16").isValid();
    const QString letters = hasConverter ? u"șț"_s : u"ºþ"_s;
    expectTexts({
        {"no valid UTF-8", Latin10, "BA FE"_octets, letters},
        {"unknown number", 999, "C8 99"_octets, u"ș"_s},
        {"unknown number, no valid UTF-8", 999, "BA FE"_octets, u"ºþ"_s},
        {"negative number", -1, "C8 99"_octets, u"ș"_s},
    });
}

TEST(CharsetText, ReadsUndeclaredTextsAsUtf8OrLatin1)
{
    expectTexts({
        {"empty", 0, ""_octets, u""_s},
        {"UTF-8", 0, "C3 BC"_octets, u"ü"_s},
        {"Latin-1", 0, "61 FC"_octets, u"aü"_s},
        {"control octets", 0, "80 9F"_octets, u"\u0080\u009F"_s},
        {"an encoded U+FFFD", 0, "EF BF BD C3 BC"_octets, u"\uFFFDü"_s},
        {"octets that look like UTF-16", 0, "00 61"_octets, u"\0a"_s},
    });
}

// Each falls back to UTF-8 or ISO-8859-1.
TEST(CharsetText, FallsBackWhenTheOctetsDoNotFit)
{
    expectTexts({
        {"UTF-8 in US-ASCII", 3, "61 C3 BC"_octets, u"aü"_s},
        {"Latin-1 in US-ASCII", 3, "61 FC"_octets, u"aü"_s},
        {"Latin-1 in UTF-8", 106, "C3 BC FC"_octets, u"Ã¼ü"_s},
        {"truncated UTF-8", 106, "61 E2 82"_octets, u"aâ\u0082"_s},
        {"unassigned in ISO-8859-6", 9, "D3 FF"_octets, u"Óÿ"_s},
        {"bad second octet in Shift_JIS", 17, "81 30 C3 BC"_octets,
         u"\u0081"
         "0Ã¼"_s},
        {"truncated Shift_JIS", 17, "93 FA 96"_octets, u"\u0093ú\u0096"_s},
        {"truncated EUC-JP", 18, "C6 FC CB"_octets, u"ÆüË"_s},
        {"truncated EUC-JP of three octets", 18, "8F A1"_octets, u"\u008F¡"_s},
        {"truncated EUC-KR", 38, "C7 D1 B1"_octets, u"ÇÑ±"_s},
        {"UTF-8 in ISO-2022-JP", 39, "C3 BC"_octets, u"ü"_s},
        {"half a character in ISO-2022-JP", 39, "1B 24 42 46"_octets, u"\u001B$BF"_s},
        {"half an escape in ISO-2022-JP", 39, "61 1B 24"_octets, u"a\u001B$"_s},
        {"unknown escape in ISO-2022-JP", 39, "1B 24 5A"_octets, u"\u001B$Z"_s},
        {"truncated GBK", 113, "D6 D0 CE"_octets, u"ÖÐÎ"_s},
        {"two of four octets in GB18030", 114, "61 81 30"_octets,
         u"a\u0081"
         "0"_s},
        {"FF in GB18030", 114, "61 FF"_octets, u"aÿ"_s},
        {"UTF-8 in GB2312", 2025, "61 C3 BC C3"_octets, u"aÃ¼Ã"_s},
        {"truncated Big5", 2026, "A4 A4 A4"_octets, u"¤¤¤"_s},
        {"odd UTF-16", 1015, "61 62 63"_octets, u"abc"_s},
        {"odd UTF-16LE in UTF-8", 1014, "C3 BC 63"_octets, u"üc"_s},
        {"one octet in UCS-2", 1000, "FC"_octets, u"ü"_s},
        {"three octets in UTF-32", 1017, "61 62 63"_octets, u"abc"_s},
        {"larger than U+10FFFF", 1018, "00 11 00 61"_octets, u"\0\u0011\0a"_s},
        {"far larger than U+10FFFF", 1018, "7F 01 00 61"_octets, u"\u007F\u0001\0a"_s},
        {"a surrogate in UTF-32", 1018, "00 00 D8 3D"_octets, u"\0\0Ø="_s},
    });
}

TEST(CharsetText, KeepsUnpairedSurrogatesOfUtf16)
{
    expectTexts({
        {"truncated pair", 1013, "00 61 D8 3D"_octets, u"a"_s + QChar(0xD83D)},
        {"low one alone", 1014, "00 DC 61 00"_octets, QChar(0xDC00) + u"a"_s},
    });
}

TEST(CharsetText, ShowsNoByteOrderMark)
{
    expectTexts({
        {"UTF-8", 106, "EF BB BF C3 BC"_octets, u"ü"_s},
        {"undeclared", 0, "EF BB BF C3 BC"_octets, u"ü"_s},
        {"US-ASCII", 3, "EF BB BF 61"_octets, u"a"_s},
        {"GB18030", 114, "84 31 95 33 61"_octets, u"a"_s},
        {"UTF-16, big-endian", 1015, "FE FF 04 3F"_octets, u"п"_s},
        {"UTF-16, little-endian", 1015, "FF FE 3F 04"_octets, u"п"_s},
        {"UCS-2, little-endian", 1000, "FF FE 3F 04"_octets, u"п"_s},
        {"UTF-16BE, little-endian", 1013, "FF FE 3F 04"_octets, u"п"_s},
        {"UTF-16LE, big-endian", 1014, "FE FF 04 3F"_octets, u"п"_s},
        {"UTF-32, little-endian", 1017, "FF FE 00 00 3F 04 00 00"_octets, u"п"_s},
        {"UTF-32LE, big-endian", 1019, "00 00 FE FF 00 00 04 3F"_octets, u"п"_s},
        {"a mark alone", 1015, "FE FF"_octets, u""_s},
        {"two marks", 1013, "FE FF FE FF 00 61"_octets, u"\uFEFFa"_s},
        {"a mark inside", 1013, "00 61 FE FF"_octets, u"a\uFEFF"_s},
    });
}

TEST(CharsetText, ShowsNoFinalZero)
{
    expectTexts({
        {"UTF-8", 106, "61 00"_octets, u"a"_s},
        {"two", 106, "61 00 00"_octets, u"a\0"_s},
        {"inside", 106, "61 00 62"_octets, u"a\0b"_s},
        {"alone", 0, "00"_octets, u""_s},
        {"ISO-8859-1", 4, "E4 00"_octets, u"ä"_s},
        {"Shift_JIS", 17, "93 FA 00"_octets, u"日"_s},
        {"Shift_JIS, inside", 17, "93 FA 00 61"_octets, u"日\0a"_s},
        {"ISO-2022-JP", 39, "1B 24 42 46 7C 1B 28 42 00"_octets, u"日"_s},
        {"UTF-16", 1015, "00 61 00 00"_octets, u"a"_s},
        {"UTF-16, half", 1015, "00 61 00"_octets, u"a"_s},
        {"UTF-16, two", 1015, "00 61 00 00 00 00"_octets, u"a\0"_s},
        {"UTF-16LE, inside", 1014, "61 00 00 00 62 00"_octets, u"a\0b"_s},
        {"UTF-32", 1017, "00 00 00 61 00 00 00 00"_octets, u"a"_s},
        {"UTF-32, one octet", 1017, "00 00 00 61 00"_octets, u"a"_s},
        {"odd UTF-16", 1015, "61 62 63 64 65 00 66"_octets, u"abcde\0f"_s},
    });
}

TEST(CharsetText, TakesNoOctets)
{
    for (const int charset : {0, 4, 106, 113, 1015, 1017}) {
        const QString text = qvlDecodeText({}, charset);
        EXPECT_TRUE(text.isEmpty());
        EXPECT_FALSE(text.isNull()) << charset;
    }
}

TEST(CharsetText, KnowsEachCharsetByItsName)
{
    for (int charset = 0; charset < 10000; ++charset) {
        if (const char *name = qvlCharsetName(charset)) {
            EXPECT_EQ(qvlCharsetOf(name), charset);
            EXPECT_EQ(qvlCharsetOf(QByteArray(name).toUpper()), charset);
            EXPECT_EQ(qvlCharsetOf(QByteArray(name).toLower()), charset);
        }
    }
}

TEST(CharsetText, NamesCharsets)
{
    for (const TextRow &row : everyCharset()) {
        const std::string name = row.charset == 1000
            ? "ISO-10646-UCS-2"
            : std::string(row.name).substr(0, std::string(row.name).find(','));
        ASSERT_NE(qvlCharsetName(row.charset), nullptr);
        EXPECT_EQ(qvlCharsetName(row.charset), name);
    }
    EXPECT_STREQ(qvlCharsetName(Latin10), "ISO-8859-16");
    for (const int unknown : {-1, 0, 2, 14, 1012, 2260, 2147483647})
        EXPECT_EQ(qvlCharsetName(unknown), nullptr) << unknown;
}

struct NameRow
{
    QByteArray name;
    int charset;
};

TEST(CharsetText, KnowsCommonAliases)
{
    const std::vector<NameRow> rows{
        {"ascii", 3},       {"us-ascii", 3},   {"latin1", 4},    {"Latin-1", 4},
        {"ISO_8859-1", 4},  {"iso8859-1", 4},  {"latin-9", 111}, {"ISO-8859-11", 2259},
        {"utf8", 106},      {"UTF16", 1015},   {"ucs-2", 1000},  {"UCS2", 1000},
        {"sjis", 17},       {"x-sjis", 17},    {"MS_Kanji", 17}, {"euc_jp", 18},
        {"euckr", 38},      {"cp936", 113},    {"cp1252", 2252}, {"Windows-1252", 2252},
        {"koi8r", 2084},    {"cyrillic", 8},   {"", 0},          {"-", 0},
        {"utf", 0},         {"utf-88", 0},     {"UTF-7", 0},     {"utf 8", 0},
        {"ISO-8859-12", 0}, {QByteArray(), 0}, {" UTF-8", 0},    {QByteArray("UTF-8", 6), 0},
    };
    for (const NameRow &row : rows)
        EXPECT_EQ(qvlCharsetOf(row.name), row.charset) << row.name.toStdString();
    EXPECT_EQ(qvlCharsetOf({}), 0);
}

} // namespace
