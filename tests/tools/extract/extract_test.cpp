/*
 * File names derived from the locations of a message.
 */
#include "extract/extract.h"

#include <gtest/gtest.h>

namespace {

struct NameRow
{
    const char16_t *location;
    const char16_t *fileName;
};

const NameRow nameRows[] = {
    {u"harbour.jpg", u"harbour.jpg"},
    {u"港口 1.jpg", u"港口 1.jpg"},
    {u"/etc/passwd", u"passwd"},
    {u"../../up.txt", u"up.txt"},
    {u"..\\..\\up.txt", u"up.txt"},
    {u"cid:a/b/c.txt", u"c.txt"},
    {u"..", u"part"},
    {u".", u"part"},
    {u"", u"part"},
    {u"folder/", u"part"},
    {u"  ", u"part"},
    {u".bashrc", u"bashrc"},
    {u"a\nb\x1B.txt", u"a_b_.txt"},
    {u"\u202Etxt.exe", u"_txt.exe"},
    {u"-rf", u"_rf"},
    {u"--help", u"_-help"},
    {u"-", u"_"},
    {u".-rf", u"_rf"},
    {u"../-o", u"_o"},
    {u"a-b", u"a-b"},
};

} // namespace

TEST(SafeFileName, KeepsOnlyHarmlessCharacters)
{
    for (const NameRow &row : nameRows) {
        EXPECT_EQ(
            safeFileName(QString::fromUtf16(row.location), QStringLiteral("part")).toStdU16String(),
            row.fileName);
    }
}

TEST(SafeFileName, ReplacesNuls)
{
    const QString location = QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    EXPECT_EQ(safeFileName(location, QString()), QStringLiteral("a_b"));
}

TEST(SafeFileName, IsShortEnoughAndKeepsTheExtension)
{
    const QString name =
        safeFileName(QString(1000, QChar(0x6E2F)) + QStringLiteral(".jpg"), QString());
    EXPECT_LE(name.toUtf8().size(), 200);
    EXPECT_GT(name.toUtf8().size(), 190);
    EXPECT_TRUE(name.endsWith(QStringLiteral(".jpg")));
}

TEST(SafeFileName, ShortensALongExtension)
{
    const QString name =
        safeFileName(QStringLiteral("a.") + QString(1000, QLatin1Char('x')), QString());
    EXPECT_LE(name.toUtf8().size(), 200);
}
