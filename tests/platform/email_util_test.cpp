/*
 * The e-mail system's numbers and texts: the numbers that the system relies on, every row in both
 * directions, and unknown ones.
 */
#include "platform/email_util.h"

#include "platform/host/email_code_tables.h"
#include "support/octets.h"

#include <gtest/gtest.h>

#include <limits>

using namespace HostPlatform;

namespace {

QByteArray bytes(std::string_view text)
{
    return QByteArray(text.data(), qsizetype(text.size()));
}

QByteArray textOf(bool (*lookUp)(int, QCString &), int code)
{
    QCString text("before");
    return lookUp(code, text) ? text : QByteArray("unknown");
}

void expectBothWays(const auto &table, int (*codeOf)(const QCString &),
                    bool (*lookUp)(int, QCString &))
{
    for (const EmailCodeRow &row : table) {
        EXPECT_EQ(textOf(lookUp, row.code), bytes(row.text));
        EXPECT_EQ(codeOf(bytes(row.text)), row.code) << row.text;
        EXPECT_EQ(codeOf(bytes(row.text).toUpper()), row.code) << row.text;
    }
}

void expectUnknownTexts(const char *known, int (*codeOf)(const QCString &))
{
    const QCString text(known);
    ASSERT_GT(codeOf(text), 0) << known;
    const QCString rows[] = {QCString(),  QCString(""),         text + ' ',
                             ' ' + text,  text + text,          text.chopped(1),
                             text + '\0', QCString("\xE4\xF6"), QCString(10000, 'x')};
    for (const QCString &row : rows)
        EXPECT_EQ(codeOf(row), -1) << row.left(40).toStdString();
}

constexpr int unknownCodes[] = {0, -1, 1000, std::numeric_limits<int>::min(),
                                std::numeric_limits<int>::max()};

} // namespace

TEST(EMAIL_Util, HasTheCodesThatTheSystemReliesOn)
{
    EXPECT_EQ(textOf(EMAIL_Util::typeEnumToStr, 1), "text");
    EXPECT_EQ(textOf(EMAIL_Util::typeEnumToStr, 4), "application");
    EXPECT_EQ(textOf(EMAIL_Util::typeEnumToStr, 5), "image");
    EXPECT_EQ(textOf(EMAIL_Util::typeEnumToStr, 6), "audio");
    EXPECT_EQ(textOf(EMAIL_Util::typeEnumToStr, 7), "video");
    EXPECT_EQ(textOf(EMAIL_Util::subTypeEnumToStr, 64), "vnd.wap.multipart.related");
    EXPECT_EQ(textOf(EMAIL_Util::subTypeEnumToStr, 65), "vnd.wap.multipart.mixed");
    EXPECT_EQ(textOf(EMAIL_Util::subTypeEnumToStr, 66), "smil");
}

TEST(EMAIL_Util, KnowsTheOtherCommonCodes)
{
    EXPECT_EQ(EMAIL_Util::typeStrToEnum("multipart"), 2);
    EXPECT_EQ(EMAIL_Util::typeStrToEnum("message"), 3);
    EXPECT_EQ(EMAIL_Util::typeStrToEnum("model"), 8);
    EXPECT_EQ(EMAIL_Util::subTypeStrToEnum("plain"), 1);
    EXPECT_EQ(EMAIL_Util::subTypeStrToEnum("html"), 2);
    EXPECT_EQ(EMAIL_Util::subTypeStrToEnum("Vnd.Wap.Multipart.Related"), 64);
    EXPECT_EQ(EMAIL_Util::cteStrToEnum("Quoted-Printable"), 5);
    EXPECT_EQ(textOf(EMAIL_Util::charsetEnumToStr, 1), "us-ascii");
    EXPECT_EQ(textOf(EMAIL_Util::charsetEnumToStr, 2), "utf-8");
}

TEST(EMAIL_Util, KnowsEveryTypeBothWays)
{
    expectBothWays(emailTypeTable, EMAIL_Util::typeStrToEnum, EMAIL_Util::typeEnumToStr);
}

TEST(EMAIL_Util, KnowsEverySubTypeBothWays)
{
    expectBothWays(emailSubTypeTable, EMAIL_Util::subTypeStrToEnum, EMAIL_Util::subTypeEnumToStr);
}

TEST(EMAIL_Util, KnowsEveryTransferEncodingBothWays)
{
    for (const EmailCodeRow &row : emailTransferEncodingTable) {
        EXPECT_EQ(EMAIL_Util::cteEnumToStr(row.code), bytes(row.text));
        EXPECT_EQ(EMAIL_Util::cteStrToEnum(bytes(row.text)), row.code) << row.text;
        EXPECT_EQ(EMAIL_Util::cteStrToEnum(bytes(row.text).toUpper()), row.code) << row.text;
    }
}

TEST(EMAIL_Util, KnowsTheTextOfEveryCharset)
{
    for (const EmailCodeRow &row : emailCharsetTable)
        EXPECT_EQ(textOf(EMAIL_Util::charsetEnumToStr, row.code), bytes(row.text));
}

TEST(EMAIL_Util, KnowsTheCharsetsThatMessagesName)
{
    const char *const names[] = {"us-ascii",   "utf-8",       "utf-16",       "iso-10646-ucs-2",
                                 "iso-8859-1", "iso-8859-15", "big5",         "gb2312",
                                 "gbk",        "gb18030",     "shift_jis",    "euc-jp",
                                 "euc-kr",     "koi8-r",      "windows-1251", "windows-1252"};
    for (const char *name : names) {
        EXPECT_EQ(std::ranges::count(emailCharsetTable, name, &EmailCodeRow::text), 1) << name;
    }
}

TEST(EMAIL_Util, ReturnsMinusOneForUnknownTexts)
{
    expectUnknownTexts("application", EMAIL_Util::typeStrToEnum);
    expectUnknownTexts("vnd.wap.multipart.related", EMAIL_Util::subTypeStrToEnum);
    expectUnknownTexts("base64", EMAIL_Util::cteStrToEnum);
}

TEST(EMAIL_Util, SeparatesTheFamilies)
{
    EXPECT_EQ(EMAIL_Util::typeStrToEnum("plain"), -1);
    EXPECT_EQ(EMAIL_Util::subTypeStrToEnum("application"), -1);
    EXPECT_EQ(EMAIL_Util::subTypeStrToEnum("utf-8"), -1);
    EXPECT_EQ(EMAIL_Util::cteStrToEnum("utf-8"), -1);
}

TEST(EMAIL_Util, DoesNotChangeTheTextForUnknownCodes)
{
    for (const auto lookUp :
         {EMAIL_Util::typeEnumToStr, EMAIL_Util::subTypeEnumToStr, EMAIL_Util::charsetEnumToStr}) {
        for (const int code : unknownCodes) {
            QCString text("before");
            EXPECT_FALSE(lookUp(code, text)) << code;
            EXPECT_EQ(text, "before") << code;
        }
    }
}

TEST(EMAIL_Util, ReturnsAnEmptyTransferEncodingForUnknownCodes)
{
    for (const int code : unknownCodes) {
        const QCString text = EMAIL_Util::cteEnumToStr(code);
        EXPECT_TRUE(text.isEmpty() && !text.isNull()) << code;
    }
}

TEST(EMAIL_Util, KnowsBothHalvesOfEveryMediaTypeThatHasAnExtension)
{
    for (const MimeExtensionRow &row : mimeExtensionTable) {
        EXPECT_GT(EMAIL_Util::typeStrToEnum(bytes(row.mediaType.type)), 0) << row.mediaType.type;
        EXPECT_GT(EMAIL_Util::subTypeStrToEnum(bytes(row.mediaType.subtype)), 0)
            << row.mediaType.subtype;
    }
}

// Stored messages may contain the numbers: adding a row must not move the others.
TEST(EMAIL_Util, DoesNotRenumberSubTypes)
{
    EXPECT_EQ(EMAIL_Util::subTypeStrToEnum("jpeg"), 6);
    EXPECT_EQ(EMAIL_Util::subTypeStrToEnum("amr"), 12);
    EXPECT_EQ(EMAIL_Util::subTypeStrToEnum("3gpp"), 18);
    EXPECT_EQ(EMAIL_Util::subTypeStrToEnum("octet-stream"), 24);
    EXPECT_EQ(EMAIL_Util::subTypeStrToEnum("mp3"), 44);
    EXPECT_EQ(EMAIL_Util::subTypeStrToEnum("vnd.wap.mms-message"), 92);
}
