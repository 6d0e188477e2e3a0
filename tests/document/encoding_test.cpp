/*
 * The encoding of a document in a file: determined by its octets, else by its declaration, else
 * UTF-8. The converted text is the text that is both measured and read.
 */
#include "document/encoding.h"

#include "support/octets.h"

#include <gtest/gtest.h>

namespace {

struct Row
{
    const char *name;
    QByteArray file;
    QByteArray utf8;
};

QByteArray declaring(const QByteArray &encoding, const QByteArray &content)
{
    return "<?xml version='1.0' encoding='" + encoding + "'?><s a='" + content + "'/>";
}

QByteArray littleEndian(const QByteArray &ascii)
{
    QByteArray octets;
    for (const char c : ascii)
        octets += QByteArray{}.append(c).append('\0');
    return octets;
}

QByteArray bigEndian(const QByteArray &ascii)
{
    return QByteArray(1, '\0') + littleEndian(ascii).chopped(1);
}

const Row convertedRows[] = {
    {"nothing declared", "<s a='\xC3\xBC'/>", "<s a='\xC3\xBC'/>"},
    {"UTF-8", declaring("UTF-8", "\xC3\xBC"), declaring("UTF-8", "\xC3\xBC")},
    {"Latin-1", declaring("ISO-8859-1", "\xFC"), declaring("ISO-8859-1", "\xC3\xBC")},
    {"Windows-1252", declaring("windows-1252", "\x80"), declaring("windows-1252", "\xE2\x82\xAC")},
    {"Shift-JIS", declaring("Shift_JIS", "\x8A\xBF"), declaring("Shift_JIS", "\xE6\xBC\xA2")},
    {"KOI8-R", declaring("KOI8-R", "\xC1"), declaring("KOI8-R", "\xD0\xB0")},
    {"UTF-7", declaring("UTF-7", "+APw-"), declaring("UTF-7", "\xC3\xBC")},
    {"encoding that nobody knows", declaring("nonsense", "\xC3\xBC"),
     declaring("nonsense", "\xC3\xBC")},
    {"the locale's encoding", declaring("System", "\xC3\xBC"), declaring("System", "\xC3\xBC")},
    {"byte order mark against the declaration",
     "\xEF\xBB\xBF" + declaring("ISO-8859-1", "\xC3\xBC"),
     "\xEF\xBB\xBF" + declaring("ISO-8859-1", "\xC3\xBC")},
    {"UTF-16 with a mark", "FF FE"_octets + littleEndian("<s/>"), "<s/>"},
    {"UTF-16, the other order", "FE FF"_octets + bigEndian("<s/>"), "<s/>"},
    {"UTF-16 by its zero octets", littleEndian(declaring("UTF-16", "x")), declaring("UTF-16", "x")},
    {"zero octets against the declaration", littleEndian(declaring("UTF-8", "x")),
     declaring("UTF-8", "x")},
    {"declaration in a value", "<s a='<?xml encoding=\"KOI8-R\"?>\xC3\xBC'/>",
     "<s a='<?xml encoding=\"KOI8-R\"?>\xC3\xBC'/>"},
    {"empty", "", ""},
};

const Row refusedRows[] = {
    {"invalid UTF-8", "<s a='\xFC'/>", {}},
    {"invalid octets declared as UTF-8", declaring("UTF-8", "\xFC"), {}},
    {"invalid octets declared as ASCII", declaring("US-ASCII", "\xFC"), {}},
    {"half a character of Shift-JIS", declaring("Shift_JIS", "\x8A"), {}},
};

} // namespace

TEST(DocumentEncoding, IsDeterminedByOctetsAndDeclaration)
{
    for (const Row &row : convertedRows) {
        SCOPED_TRACE(row.name);
        const auto text = DocumentEncoding::toUtf8(row.file);
        ASSERT_TRUE(text);
        EXPECT_EQ(*text, row.utf8);
    }
}

TEST(DocumentEncoding, RefusesOctetsThatAreInvalidInTheEncoding)
{
    for (const Row &row : refusedRows) {
        SCOPED_TRACE(row.name);
        EXPECT_FALSE(DocumentEncoding::toUtf8(row.file));
    }
}

// ASCII octets read in pairs are not a document.
TEST(DocumentEncoding, ReadsNoMarkupInAsciiDeclaredAsUtf16)
{
    const auto text = DocumentEncoding::toUtf8(declaring("UTF-16", "xx"));
    EXPECT_FALSE(text && text->contains('<'));
}
