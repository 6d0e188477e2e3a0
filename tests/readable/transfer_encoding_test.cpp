/*
 * Octets encoded for mail: base64, quoted-printable, malformed ones, and encodings that change
 * nothing.
 */
#include "readable/transfer_encoding.h"

#include "support/octets.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace {

struct EncodedRow
{
    const char *name;
    QByteArray octets;
    std::optional<QByteArray> decoded;
};

void expectDecoded(QByteArrayView encoding, const std::vector<EncodedRow> &rows)
{
    for (const EncodedRow &row : rows) {
        SCOPED_TRACE(row.name);
        const HeapBlock block(row.octets);
        const auto decoded =
            TransferEncoding::decode(QByteArrayView(block.data(), block.size()), encoding);
        ASSERT_EQ(decoded.has_value(), row.decoded.has_value());
        if (decoded) {
            EXPECT_EQ(*decoded, *row.decoded);
            EXPECT_FALSE(decoded->isNull());
        }
    }
}

constexpr auto Malformed = std::nullopt;

TEST(TransferEncoding, DecodesBase64)
{
    expectDecoded("base64",
                  {
                      {"empty", "", ""},
                      {"white space alone", " \r\n", ""},
                      {"three octets", "TWFu", "Man"},
                      {"two octets", "TWE=", "Ma"},
                      {"two octets without padding", "TWE", "Ma"},
                      {"one octet", "TQ==", "M"},
                      {"one octet without padding", "TQ", "M"},
                      {"the last two letters", "+//+", "FB FF FE"_octets},
                      {"zeros", "AAAA", octet(0, 3)},
                      {"lines", "TWFu\r\nTWFu\nTQ==\r\n", "ManManM"},
                      {"white space anywhere", "\tT W\r\nE =", "Ma"},
                      {"white space in the padding", "TQ= \r\n=", "M"},
                  });
}

TEST(TransferEncoding, RefusesMalformedBase64)
{
    expectDecoded("base64",
                  {
                      {"a single letter", "T", Malformed},
                      {"a single letter after four", "TWFuT", Malformed},
                      {"half a padding", "TQ=", Malformed},
                      {"padding after four", "TWFu=", Malformed},
                      {"too much padding", "TWE==", Malformed},
                      {"padding alone", "====", Malformed},
                      {"padding inside", "TQ==TQ==", Malformed},
                      {"letters after the padding", "TWE=T", Malformed},
                      {"a letter for addresses", "TW-_", Malformed},
                      {"a punctuation mark", "TWFu!WFu", Malformed},
                      {"a zero", "54 57 46 00"_octets, Malformed},
                      {"an octet above 7F", "54 57 46 F5"_octets, Malformed},
                      {"a form feed", "TW\fFu", Malformed},
                  });
}

TEST(TransferEncoding, DecodesQuotedPrintable)
{
    expectDecoded("quoted-printable",
                  {
                      {"empty", "", ""},
                      {"letters", "a.b", "a.b"},
                      {"digits in upper case", "=C3=BC", "C3 BC"_octets},
                      {"digits in lower case", "=c3=bC", "C3 BC"_octets},
                      {"an equals sign", "1=3D1", "1=1"},
                      {"a zero", "a=00b", "61 00 62"_octets},
                      {"octets above 7F", "FC 3D 46 43"_octets, "FC FC"_octets},
                      {"a soft line break", "ab=\r\ncd", "abcd"},
                      {"a soft line break without CR", "ab=\ncd", "abcd"},
                      {"blanks in a soft line break", "ab= \t\r\ncd", "abcd"},
                      {"blanks before a soft line break", "ab =\r\ncd", "ab cd"},
                      {"a soft line break at the end", "ab=\r\n", "ab"},
                      {"two soft line breaks", "=\r\n=\r\n", ""},
                      {"line breaks", "a\r\n\nb\r\n", "a\r\n\nb\r\n"},
                      {"CR alone", "a\rb", "a\rb"},
                      {"blanks inside", "a \t b", "a \t b"},
                      {"blanks at the end of a line", "a \t\r\nb ", "a\r\nb"},
                      {"blanks at the end of a line without CR", "a \nb", "a\nb"},
                      {"a line of blanks", "a\n  \nb", "a\n\nb"},
                      {"blanks before CR alone", "a \rb", "a \rb"},
                      {"an encoded blank at the end of a line", "a=20\r\nb=09", "a \r\nb\t"},
                      {"blanks after an encoded one", "a=20 \r\n", "a \r\n"},
                      {"an encoded line break", "a =0D=0Ab", "a \r\nb"},
                  });
}

TEST(TransferEncoding, RefusesMalformedQuotedPrintable)
{
    expectDecoded("quoted-printable",
                  {
                      {"an equals sign at the end", "ab=", Malformed},
                      {"an equals sign and blanks at the end", "ab= ", Malformed},
                      {"one digit at the end", "ab=C", Malformed},
                      {"one digit", "=Cx", Malformed},
                      {"no digits", "a=xyz", Malformed},
                      {"a letter after F", "=G0", Malformed},
                      {"a sign", "=+1", Malformed},
                      {"two equals signs", "==41", Malformed},
                      {"CR alone", "ab=\rcd", Malformed},
                      {"letters after blanks", "ab= cd", Malformed},
                      {"octets above 7F", "3D C3 BC"_octets, Malformed},
                  });
}

TEST(TransferEncoding, ComparesNamesWithoutCase)
{
    EXPECT_EQ(TransferEncoding::decode("TQ==", "BASE64"), "M");
    EXPECT_EQ(TransferEncoding::decode("=4D", "Quoted-Printable"), "M");
}

TEST(TransferEncoding, LeavesOtherEncodingsAsTheyAre)
{
    for (const char *encoding : {"", "7bit", "8bit", "binary", "base6", "base645", " base64",
                                 "x-uuencode", "quotedprintable"})
        EXPECT_EQ(TransferEncoding::decode("TQ==", encoding), std::nullopt) << encoding;
    EXPECT_EQ(TransferEncoding::decode({}, {}), std::nullopt);
    EXPECT_EQ(TransferEncoding::decode({}, "base64"), "");
    EXPECT_EQ(TransferEncoding::decode({}, "quoted-printable"), "");
}

} // namespace
