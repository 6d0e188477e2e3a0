/*
 * Content types: the three forms, each assigned parameter, and what is kept of malformed ones.
 */
#include "scan/content_type_value.h"

#include "wire/codec_calls.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string described(const QvlScannedParameter &parameter)
{
    std::string text =
        parameter.name ? parameter.name : parameter.letters.toByteArray().toStdString();
    if (parameter.code != QvlScannedField::NoCode)
        text += "(" + std::to_string(parameter.code) + ")";
    if (parameter.number >= 0)
        text += " " + std::to_string(parameter.number);
    if (!parameter.text.isNull())
        text += " \"" + parameter.text.toStdString() + "\"";
    return text;
}

/// "30 image/jpeg; name(5) "a"; malformed": code, media type, parameters.
std::string described(const QByteArray &value)
{
    const HeapBlock block(value);
    const auto type = qvlReadContentType(QByteArrayView(block.data(), block.size()));
    if (!type)
        return "nothing";
    std::string text = type->code >= 0 ? std::to_string(type->code) + " " : "";
    text += type->mediaType.toStdString();
    for (const QvlScannedParameter &parameter : type->parameters)
        text += "; " + described(parameter);
    return text + (type->isComplete ? "" : "; malformed");
}

struct TypeRow
{
    QByteArray value;
    const char *type;
};

void expectTypes(const std::vector<TypeRow> &rows)
{
    for (const TypeRow &row : rows)
        EXPECT_EQ(described(row.value), row.type) << row.value.toHex(' ').toStdString();
}

TEST(ContentTypeValue, ReadsOneOctet)
{
    expectTypes({
        {"80"_octets, "0 */*"},
        {"9E"_octets, "30 image/jpeg"},
        {"A3 FF"_octets, "35 application/vnd.wap.multipart.mixed"},
        {"FF"_octets, "127 "},
    });
}

TEST(ContentTypeValue, ReadsATextWithParameters)
{
    expectTypes({
        {text("image/jpeg"), "image/jpeg"},
        {text("Image/JPEG"), "image/jpeg"},
        {octet(0x7F) + text("image/jpeg"), "image/jpeg"},
        {text("text/plain;charset=utf-8"), "text/plain; charset \"utf-8\""},
        {text("image/jpeg ; Name = \"a;b.jpg\" ; x"), "image/jpeg; Name \"a;b.jpg\"; x \"\""},
        {text("a/b; n=\"1\\\"2\\\\\"; m=2"), "a/b; n \"1\"2\\\"; m \"2\""},
        {text("a/b; n=\"open; m=2"), "a/b; n \"open; m=2\""},
        {text("a/b;; =c;"), "a/b"},
        {text("a/b; n=\xC3\xBC"), "a/b; n \"\xC3\xBC\""},
        {text("a"), "a"},
    });
}

TEST(ContentTypeValue, ReadsTheGeneralForm)
{
    expectTypes({
        {"01 9E"_octets, "30 image/jpeg"},
        {"1F 01 9E"_octets, "30 image/jpeg"},
        {"03 02 03 05"_octets, "773 "},
        {"02 01 03"_octets, "3 text/plain"},
        {"05 61 2F 62 00 80"_octets, "a/b; malformed"},
        {"04 61 2F 62 00"_octets, "a/b"},
        {"07 61 2F 62 3B 63 3D 00"_octets, "a/b; c \"\""},
        {"03 83 81 EA"_octets, "3 text/plain; charset(1) 106"},
        {"05 83 81 02 03 E8"_octets, "3 text/plain; charset(1) 1000"},
        {"06 83 85 61 2E 62 00"_octets, "3 text/plain; name(5) \"a.b\""},
        {"04 9E 85 C3 00"_octets, "30 image/jpeg; name(5) \"\xC3\x83\""},
        {"06 9E 85 03 EA 61 00"_octets, "30 image/jpeg; name(5) \"a\""},
    });
}

TEST(ContentTypeValue, ReadsEachAssignedParameter)
{
    const std::vector<TypeRow> rows{
        {"80 0B"_octets, "q(0) 11"},
        {"80 83 31"_octets, "q(0) 433"},
        {"81 80"_octets, "charset(1) 0"},
        {"81"_octets + text("utf-8"), "charset(1) \"utf-8\""},
        {"82 90"_octets, "level(2) 16"},
        {"82"_octets + text("1.0"), "level(2) \"1.0\""},
        {"83 85"_octets, "type(3) 5 \"text/x-ttml\""},
        {"85"_octets + text("a"), "name(5) \"a\""},
        {"85 7F C3 BC 00"_octets, "name(5) \"\xC3\xBC\""},
        {"85 22 61 00"_octets, "name(5) \"\"a\""},
        {"86"_octets + text("a"), "filename(6) \"a\""},
        {"87 91"_octets, "differences(7) 17"},
        {"87"_octets + text("a"), "differences(7) \"a\""},
        {"88 84"_octets, "padding(8) 4"},
        {"89 9E"_octets, "type(9) 30 \"image/jpeg\""},
        {"89 FF"_octets, "type(9) 127"},
        {"89"_octets + text("application/smil"), "type(9) \"application/smil\""},
        {"8A"_octets + text("<s>"), "start(10) \"<s>\""},
        {"8A"_octets + text("\"<s>"), "start(10) \"<s>\""},
        {"8B"_octets + text("a"), "start-info(11) \"a\""},
        {"8C"_octets + text("a"), "comment(12) \"a\""},
        {"8D"_octets + text("a"), "domain(13) \"a\""},
        {"8E 02 0E 10"_octets, "max-age(14) 3600"},
        {"8F"_octets + text("a"), "path(15) \"a\""},
        {"90 00"_octets, "secure(16) \"\""},
        {"91 81"_octets, "sec(17) 1"},
        {"92"_octets + text("A0"), "mac(18) \"A0\""},
        {"93 04 40 F8 14 80"_octets, "creation-date(19) 1090000000"},
        {"94 01 01"_octets, "modification-date(20) 1"},
        {"95 01 02"_octets, "read-date(21) 2"},
        {"96 02 01 00"_octets, "size(22) 256"},
        {"97"_octets + text("a"), "name(23) \"a\""},
        {"97"_octets + text("\"a b"), "name(23) \"a b\""},
        {"97"_octets + text("\"a b\""), "name(23) \"a b\""},
        {"97 00"_octets, "name(23) \"\""},
        {"98"_octets + text("a"), "filename(24) \"a\""},
        {"99"_octets + text("a"), "start(25) \"a\""},
        {"9A"_octets + text("a"), "start-info(26) \"a\""},
        {"9B"_octets + text("a"), "comment(27) \"a\""},
        {"9C"_octets + text("a"), "domain(28) \"a\""},
        {"9D"_octets + text("a"), "path(29) \"a\""},
        {"84 85"_octets, "(4) 5"},
        {"9E"_octets + text("a"), "(30) \"a\""},
        {"FF 02 81 85"_octets, "(127) 33157"},
        {"FF 1F 02 81 85"_octets, "(127)"},
        {text("x") + text("a"), "x \"a\""},
        {text("x") + text("\"a"), "x \"a\""},
        {text("x") + "85"_octets, "x 5"},
        {text("x") + "02 03 E8"_octets, "x 1000"},
        {text("x") + "00"_octets, "x \"\""},
    };
    for (const TypeRow &row : rows) {
        const QByteArray octets = "9E"_octets + row.value + "81 EA"_octets;
        EXPECT_EQ(described(octet(int(octets.size())) + octets),
                  std::string("30 image/jpeg; ") + row.type + "; charset(1) 106")
            << row.value.toHex(' ').toStdString();
    }
}

TEST(ContentTypeValue, AcceptsAMediaOctetInUtf8)
{
    expectTypes({
        {"06 C2 B3 8A 61 62 00"_octets,
         "51 application/vnd.wap.multipart.related; start(10) \"ab\""},
        {"07 C2 B3 C2 8A 61 62 00"_octets,
         "51 application/vnd.wap.multipart.related; start(10) \"ab\""},
        {"03 C2 81 EA"_octets, "66 application/vnd.syncml.dm+wbxml; charset(1) 106"},
        {"01 C2"_octets, "66 application/vnd.syncml.dm+wbxml"},
    });
}

TEST(ContentTypeValue, KeepsWhatPrecedesAMalformedParameter)
{
    expectTypes({
        {"04 9E 81 EA 85"_octets, "30 image/jpeg; charset(1) 106; malformed"},
        {"05 9E 81 EA 85 61"_octets, "30 image/jpeg; charset(1) 106; malformed"},
        {"04 9E 81 02 03"_octets, "30 image/jpeg; malformed"},
        {"03 9E 80 80"_octets, "30 image/jpeg; malformed"},
        {"03 9E 01 81"_octets, "30 image/jpeg; malformed"},
        {"03 9E 7F 81"_octets, "30 image/jpeg; malformed"},
        {"03 9E 61 62"_octets, "30 image/jpeg; malformed"},
        {"05 9E 81 EA"_octets, "30 image/jpeg; charset(1) 106; malformed"},
        {"1F 8F FF FF FF 7F 9E 81 EA"_octets, "30 image/jpeg; charset(1) 106; malformed"},
    });
}

TEST(ContentTypeValue, ReadsNothingWithoutAMediaType)
{
    for (const QByteArray &value :
         {""_octets, "00"_octets, "00 9E"_octets, "01"_octets, "1F"_octets, "1F 81"_octets,
          "01 00"_octets, "61"_octets, "02 61 62 00"_octets, "03 02 03"_octets,
          "09 08 FF FF FF FF FF FF FF FF"_octets})
        EXPECT_EQ(described(value), "nothing") << value.toHex(' ').toStdString();
}

TEST(ContentTypeValue, PointsIntoItsOctets)
{
    const QByteArray value = "0E 83 81 EA"_octets + text("x") + text("abc") + "85 62 00 FF"_octets;
    const auto type = qvlReadContentType(value);
    ASSERT_TRUE(type);
    ASSERT_EQ(type->parameters.size(), 3u);
    EXPECT_EQ(type->parameters[0].octets, value.sliced(2, 2));
    EXPECT_EQ(type->parameters[0].value.data(), value.constData() + 3);
    EXPECT_EQ(type->parameters[1].letters.data(), value.constData() + 4);
    EXPECT_EQ(type->parameters[1].octets, value.sliced(4, 6));
    EXPECT_EQ(type->parameters[1].value, value.sliced(6, 4));
    EXPECT_EQ(type->parameters[2].value.data(), value.constData() + 11);
}

TEST(ContentTypeValue, FindsParametersByName)
{
    const auto type = qvlReadContentType(
        text("text/plain; CHARSET=ISO-8859-1; name=a; start=\"<s>\"; type=b/c; name=d"));
    ASSERT_TRUE(type);
    EXPECT_EQ(type->find("Name"), &type->parameters[1]);
    EXPECT_EQ(type->find("nam"), nullptr);
    EXPECT_EQ(type->charset(), 4);
    EXPECT_EQ(type->name(), "a");
    EXPECT_EQ(type->start(), "<s>");
    EXPECT_EQ(type->type(), "b/c");
}

TEST(ContentTypeValue, HasNoValueForAParameterThatIsMissing)
{
    const auto type = qvlReadContentType("A3"_octets);
    ASSERT_TRUE(type);
    EXPECT_EQ(type->charset(), 0);
    EXPECT_TRUE(type->name().isNull() && type->start().isNull() && type->type().isNull());
}

struct CharsetRow
{
    QByteArray parameter;
    int charset;
};

TEST(ContentTypeValue, KnowsTheCharsetByNumberOrName)
{
    const std::vector<CharsetRow> rows{
        {"81 EA"_octets, 106},
        {"81 02 03 E8"_octets, 1000},
        {"81 80"_octets, 0},
        {"81 07 01 00 00 00 00 00 00"_octets, 0},
        {"81 04 7F FF FF FF"_octets, 2147483647},
        {"81 04 80 00 00 00"_octets, 0},
        {"81"_octets + text("UTF-8"), 106},
        {text("charset") + text("us-ascii"), 3},
        {text("Charset") + text("\"utf-8"), 106},
        {text("charset") + "EA"_octets, 106},
        {text("charset") + text("martian"), 0},
    };
    for (const CharsetRow &row : rows) {
        const auto type =
            qvlReadContentType(octet(int(row.parameter.size()) + 1) + "83"_octets + row.parameter);
        ASSERT_TRUE(type && type->isComplete) << row.parameter.toHex(' ').toStdString();
        EXPECT_EQ(type->charset(), row.charset) << row.parameter.toHex(' ').toStdString();
    }
}

// A truncated content type has the parameters that were whole.
TEST(ContentTypeValue, ReadsWhatIsThereOfATruncatedOne)
{
    const QByteArray whole = "1F 17 61 2F 62 00 81 EA 97 22 61 00 A0 02 01 02"_octets + text("x")
        + text("y") + "89 9E 8A 73 00"_octets;
    const auto all = qvlReadContentType(whole);
    ASSERT_TRUE(all && all->isComplete);
    ASSERT_EQ(all->parameters.size(), 6u);
    for (qsizetype size = 0; size < whole.size(); ++size) {
        SCOPED_TRACE(size);
        const HeapBlock block(whole.first(size));
        const auto type = qvlReadContentType(QByteArrayView(block.data(), block.size()));
        EXPECT_EQ(type.has_value(), size >= 6);
        if (!type)
            continue;
        EXPECT_EQ(type->mediaType, "a/b");
        EXPECT_FALSE(type->isComplete);
        qsizetype end = 6;
        for (std::size_t i = 0; i < type->parameters.size(); ++i) {
            EXPECT_EQ(type->parameters[i].octets, all->parameters[i].octets);
            end += type->parameters[i].octets.size();
        }
        const std::size_t next = type->parameters.size();
        ASSERT_LT(next, all->parameters.size());
        EXPECT_LT(size, end + all->parameters[next].octets.size());
    }
}

} // namespace
