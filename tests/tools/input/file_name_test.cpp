/*
 * File names as texts: every name survives, also one that is not UTF-8.
 */
#include "input/file_name.h"

#include <gtest/gtest.h>

namespace {

struct NameRow
{
    const char *octets;
    const char16_t *text;
};

const NameRow nameRows[] = {
    {"", u""},
    {"plain.mms", u"plain.mms"},
    {"港口.mms", u"港口.mms"},
    {"\xF0\x9F\x98\x80", u"\U0001F600"},
    {"\xEF\xBB\xBFx", u"\uFEFFx"},
    {"\xEF\xBF\xBD", u"\uFFFD"},
    {"\x9B", u"\xDC9B"},
    {"a\xE4.mms", u"a\xDCE4.mms"},
    {"\xE6\xB8", u"\xDCE6\xDCB8"}, // truncated
    {"\xC0\xAF", u"\xDCC0\xDCAF"}, // too long a form
    {"\xED\xA0\x80", u"\xDCED\xDCA0\xDC80"}, // a surrogate
    {"港\xFF口", u"港\xDCFF口"},
    {"\xFF\xF0\x9F\x98\x80\xFE", u"\xDCFF\U0001F600\xDCFE"},
};

} // namespace

TEST(FileName, RepresentsOctetsThatAreNotUtf8BySurrogates)
{
    for (const NameRow &row : nameRows)
        EXPECT_EQ(FileName::fromOctets(row.octets).toStdU16String(), row.text);
}

TEST(FileName, RestoresItsOctets)
{
    for (const NameRow &row : nameRows)
        EXPECT_EQ(FileName::toOctets(FileName::fromOctets(row.octets)), row.octets);
}

TEST(FileName, RestoresEveryOctet)
{
    for (int octet = 1; octet < 0x100; ++octet) {
        const QByteArray name{"a" + QByteArray(1, char(octet)) + "b"};
        EXPECT_EQ(FileName::toOctets(FileName::fromOctets(name)), name) << octet;
    }
}

TEST(FileName, AddsOneSlashAfterTheFolder)
{
    EXPECT_EQ(FileName::inFolder("parts", "a.jpg"), "parts/a.jpg");
    EXPECT_EQ(FileName::inFolder("parts/", "a.jpg"), "parts/a.jpg");
}
