/*
 * The value codecs, octet by octet: both directions at every boundary of the integer forms, texts
 * in both forms, times in several zones, and the effect of truncated values.
 */
#include "wire/primitive_values.h"

#include "wire/codec_calls.h"
#include "wire/time_zone.h"

#include <gtest/gtest.h>

#include <QTimeZone>

#include <climits>

namespace {

constexpr unsigned char Read = WireResult::Read;
constexpr unsigned char OutOfData = WireResult::OutOfData;
constexpr unsigned char Written = WireResult::Written;

struct IntegerRow
{
    int value;
    QByteArray octets;
};
using IntegerRows = std::vector<IntegerRow>;

// Rows that are read back as written, and whose size is the number of octets written.
template <typename Codec>
void expectSymmetric(const IntegerRows &rows)
{
    for (const IntegerRow &row : rows) {
        SCOPED_TRACE(row.value);
        const Writing writing = writeValue<Codec>(row.value);
        EXPECT_EQ(writing.result, Written);
        EXPECT_EQ(writing.octets, row.octets);
        EXPECT_EQ(Codec::sizeOf(row.value), row.octets.size());
        const auto reading = readValue<Codec, int>(row.octets, -77);
        EXPECT_EQ(reading.result, Read);
        EXPECT_EQ(reading.value, row.value);
        EXPECT_EQ(reading.position, row.octets.size());
    }
}

// Rows that are only written.
template <typename Codec>
void expectWritten(const IntegerRows &rows)
{
    for (const IntegerRow &row : rows) {
        SCOPED_TRACE(row.value);
        const Writing writing = writeValue<Codec>(row.value);
        EXPECT_EQ(writing.result, Written);
        EXPECT_EQ(writing.octets, row.octets);
    }
}

// Rows that are only read, to their last octet.
template <typename Codec>
void expectRead(const IntegerRows &rows)
{
    for (const IntegerRow &row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.octets));
        const auto reading = readValue<Codec, int>(row.octets, -77);
        EXPECT_EQ(reading.result, Read);
        EXPECT_EQ(reading.value, row.value);
        EXPECT_EQ(reading.position, row.octets.size());
    }
}

// Octets that run out, even with the slack octet, and do not change the value.
template <typename Codec>
void expectRunsOut(const std::vector<QByteArray> &rows)
{
    for (const QByteArray &octets : rows) {
        SCOPED_TRACE(testing::PrintToString(octets));
        const auto reading = readValue<Codec, int>(octets, -77);
        EXPECT_EQ(reading.result, OutOfData);
        EXPECT_EQ(reading.value, -77);
    }
}

template <typename Codec>
unsigned char readPastTheEnd(int *value)
{
    Input input(""_octets);
    input.buffer()->readByte();
    return Codec::readFrom(input, value);
}

const IntegerRows &integerRows()
{
    static const IntegerRows rows{
        {0, "80"_octets},
        {1, "81"_octets},
        {30, "9E"_octets},
        {31, "9F"_octets},
        {106, "EA"_octets},
        {127, "FF"_octets},
        {128, "01 80"_octets},
        {255, "01 FF"_octets},
        {256, "02 01 00"_octets},
        {16383, "02 3F FF"_octets},
        {16384, "02 40 00"_octets},
        {65535, "02 FF FF"_octets},
        {65536, "03 01 00 00"_octets},
        {(1 << 21) - 1, "03 1F FF FF"_octets},
        {1 << 21, "03 20 00 00"_octets},
        {(1 << 24) - 1, "03 FF FF FF"_octets},
        {1 << 24, "04 01 00 00 00"_octets},
        {1 << 28, "04 10 00 00 00"_octets},
        {INT_MAX, "04 7F FF FF FF"_octets},
    };
    return rows;
}

TEST(IntegerBinary, ReadsWhatItWrites)
{
    expectSymmetric<IntegerBinary>(integerRows());
}

TEST(IntegerBinary, WritesANegativeValueAsOneOctet)
{
    const IntegerRows rows{{-1, "FF"_octets},   {-2, "FE"_octets},   {-127, "81"_octets},
                           {-128, "80"_octets}, {-129, "FF"_octets}, {INT_MIN, "80"_octets}};
    expectWritten<IntegerBinary>(rows);
    for (const IntegerRow &row : rows)
        EXPECT_EQ(IntegerBinary::sizeOf(row.value), 1) << row.value;
}

TEST(IntegerBinary, ReadsLengthsThatItDoesNotWrite)
{
    expectRead<IntegerBinary>({
        {0, "00"_octets},
        {5, "01 05"_octets},
        {5, "04 00 00 00 05"_octets},
        {-1, "04 FF FF FF FF"_octets},
        {INT_MIN, "04 80 00 00 00"_octets},
        {0x02030405, "05 01 02 03 04 05"_octets},
        {7, octet(0x1E) + octet(0xAA, 26) + "00 00 00 07"_octets},
        {7, octet(0x1F) + octet(0xAA, 27) + "00 00 00 07"_octets},
        {7, octet(0x7F) + octet(0xAA, 123) + "00 00 00 07"_octets},
    });
}

TEST(IntegerBinary, ConsumesOneOctetForAZeroLength)
{
    EXPECT_EQ((readValue<IntegerBinary, int>("00 05 06"_octets).position), 1);
}

TEST(IntegerBinary, ReadsTheSlackOctetAsZero)
{
    const auto empty = readValue<IntegerBinary, int>(""_octets, -77);
    EXPECT_EQ(empty.result, Read);
    EXPECT_EQ(empty.value, 0);
    const auto cut = readValue<IntegerBinary, int>("02 01"_octets, -77);
    EXPECT_EQ(cut.result, Read);
    EXPECT_EQ(cut.value, 0x0100);
    EXPECT_EQ(cut.position, 3);
}

TEST(IntegerBinary, StoresNothingWhenTheDataRunsOut)
{
    expectRunsOut<IntegerBinary>(
        {"02"_octets, "03 01"_octets, "04 01 02"_octets, "7F 01 02 03"_octets});
    int value = -77;
    EXPECT_EQ(readPastTheEnd<IntegerBinary>(&value), OutOfData);
    EXPECT_EQ(value, -77);
}

TEST(CharsetBinary, IsAnInteger)
{
    expectSymmetric<CharsetBinary>(integerRows());
    expectRunsOut<CharsetBinary>({"02"_octets});
}

TEST(UIntBinary, ReadsWhatItWrites)
{
    expectSymmetric<UIntBinary>({
        {0, "00"_octets},
        {1, "01"_octets},
        {30, "1E"_octets},
        {31, "1F"_octets},
        {127, "7F"_octets},
        {128, "81 00"_octets},
        {255, "81 7F"_octets},
        {256, "82 00"_octets},
        {16383, "FF 7F"_octets},
        {16384, "81 80 00"_octets},
        {(1 << 21) - 1, "FF FF 7F"_octets},
        {1 << 21, "81 80 80 00"_octets},
        {1 << 24, "88 80 80 00"_octets},
        {0x01234567, "89 8D 8A 67"_octets},
        {(1 << 28) - 1, "FF FF FF 7F"_octets},
        {1 << 28, "81 80 80 80 00"_octets},
        {INT_MAX, "87 FF FF FF 7F"_octets},
    });
}

TEST(UIntBinary, WritesANegativeValueAsFiveOctetsAlthoughItsSizeIsOne)
{
    const IntegerRows rows{{-1, "FF FF FF FF 7F"_octets}, {INT_MIN, "F8 80 80 80 00"_octets}};
    expectWritten<UIntBinary>(rows);
    expectRead<UIntBinary>(rows);
    for (const IntegerRow &row : rows)
        EXPECT_EQ(UIntBinary::sizeOf(row.value), 1) << row.value;
}

TEST(UIntBinary, ReadsAnyNumberOfOctetsAndWraps)
{
    expectRead<UIntBinary>({
        {5, "80 05"_octets},
        {5, octet(0x80, 40) + "05"_octets},
        {0, "90 80 80 80 00"_octets},
        {1, "90 80 80 80 01"_octets},
        {-1, "FF FF FF FF FF FF 7F"_octets},
    });
}

TEST(UIntBinary, StopsAtTheFirstOctetWithoutItsHighBit)
{
    EXPECT_EQ((readValue<UIntBinary, int>("81 00 7F"_octets).position), 2);
}

TEST(UIntBinary, ReadsTheSlackOctetAsItsLast)
{
    const auto cut = readValue<UIntBinary, int>("81 81"_octets, -77);
    EXPECT_EQ(cut.result, Read);
    EXPECT_EQ(cut.value, (1 << 14) + (1 << 7));
    EXPECT_EQ(cut.position, 3);
}

TEST(UIntBinary, StoresNothingWhenTheDataRunsOut)
{
    int value = -77;
    EXPECT_EQ(readPastTheEnd<UIntBinary>(&value), OutOfData);
    EXPECT_EQ(value, -77);

    // The published buffer returns the octet past its end: here an octet with its high bit.
    const HeapBlock block("81 82"_octets);
    LinearBuffer buffer(block.data(), 1);
    EXPECT_EQ(UIntBinary::readFrom(&buffer, &value), OutOfData);
    EXPECT_EQ(value, -77);
}

TEST(ValueLengthBinary, ReadsWhatItWrites)
{
    expectSymmetric<ValueLengthBinary>({
        {0, "00"_octets},
        {1, "01"_octets},
        {30, "1E"_octets},
        {31, "1F 1F"_octets},
        {127, "1F 7F"_octets},
        {128, "1F 81 00"_octets},
        {255, "1F 81 7F"_octets},
        {256, "1F 82 00"_octets},
        {16383, "1F FF 7F"_octets},
        {16384, "1F 81 80 00"_octets},
        {(1 << 21) - 1, "1F FF FF 7F"_octets},
        {1 << 21, "1F 81 80 80 00"_octets},
        {1 << 24, "1F 88 80 80 00"_octets},
        {1 << 28, "1F 81 80 80 80 00"_octets},
        {INT_MAX, "1F 87 FF FF FF 7F"_octets},
    });
}

TEST(ValueLengthBinary, WritesANegativeValueAsItsLowOctet)
{
    const IntegerRows rows{{-1, "FF"_octets}, {-256, "00"_octets}, {INT_MIN, "00"_octets}};
    expectWritten<ValueLengthBinary>(rows);
    for (const IntegerRow &row : rows)
        EXPECT_EQ(ValueLengthBinary::sizeOf(row.value), 1) << row.value;
}

TEST(ValueLengthBinary, ReadsEveryOctetExcept31AsTheLength)
{
    for (int value = 0; value < 256; ++value) {
        if (value != 31)
            expectRead<ValueLengthBinary>({{value, octet(value)}});
    }
}

TEST(ValueLengthBinary, ReadsAUintvarOfAnySizeAfter31)
{
    expectRead<ValueLengthBinary>(
        {{0, "1F 00"_octets}, {5, "1F 05"_octets}, {-1, "1F FF FF FF FF 7F"_octets}});
}

TEST(ValueLengthBinary, StoresNothingWhenTheDataRunsOut)
{
    int value = -77;
    EXPECT_EQ(readPastTheEnd<ValueLengthBinary>(&value), OutOfData);
    EXPECT_EQ(value, -77);

    const HeapBlock block("1F 82"_octets);
    LinearBuffer buffer(block.data(), 1);
    EXPECT_EQ(ValueLengthBinary::readFrom(&buffer, &value), OutOfData);
    EXPECT_EQ(value, -77);
}

TEST(WritersOfValues, ReturnWrittenWhenNothingFits)
{
    Output full(0);
    EXPECT_EQ(IntegerBinary::writeTo(full, 300), Written);
    EXPECT_EQ(UIntBinary::writeTo(full, 300), Written);
    EXPECT_EQ(ValueLengthBinary::writeTo(full, 300), Written);
    EXPECT_EQ(CharsetBinary::writeTo(full, 300), Written);
    EXPECT_EQ(TimeBinary::writeTo(full, QDateTime::currentDateTime()), Written);
    EXPECT_EQ(PlainTextBinary::writeTo(full, "abc"), Written);
    EXPECT_EQ(EncodedStringBinary::writeTo(full, "abc"), Written);
    EXPECT_EQ(full.octets(), ""_octets);
}

TEST(WritersOfValues, DropEachAppendThatDoesNotFit)
{
    Output text(3);
    PlainTextBinary::writeTo(text, "abcd"); // the text does not fit, its terminator does
    EXPECT_EQ(text.octets(), "00"_octets);
    Output integer(2);
    IntegerBinary::writeTo(integer, 0x010203);
    EXPECT_EQ(integer.octets(), "03 01"_octets);
}

struct TextRow
{
    const char *name;
    QString text;
    QByteArray octets;
};

template <typename Codec>
void expectTextWritten(const std::vector<TextRow> &rows)
{
    for (const TextRow &row : rows) {
        SCOPED_TRACE(row.name);
        const Writing writing = writeValue<Codec>(row.text);
        EXPECT_EQ(writing.result, Written);
        EXPECT_EQ(writing.octets, row.octets);
        EXPECT_EQ(Codec::sizeOf(row.text), row.octets.size());
    }
}

template <typename Codec>
void expectTextRead(const std::vector<TextRow> &rows)
{
    for (const TextRow &row : rows) {
        SCOPED_TRACE(row.name);
        const auto reading = readValue<Codec, QString>(row.octets, "before");
        EXPECT_EQ(reading.result, Read);
        EXPECT_EQ(reading.value, row.text);
        EXPECT_EQ(reading.position, row.octets.size());
    }
}

TEST(PlainTextBinary, ReadsWhatItWritesInAscii)
{
    const std::vector<TextRow> rows{
        {"empty", "", "00"_octets},
        {"one character", "a", "61 00"_octets},
        {"a number", "123", "31 32 33 00"_octets},
        {"a control character", "\x01", "01 00"_octets},
        {"long", QString(300, 'x'), octet('x', 300) + "00"_octets},
    };
    expectTextWritten<PlainTextBinary>(rows);
    expectTextRead<PlainTextBinary>(rows);
}

TEST(PlainTextBinary, WritesUtf8WithAQuoteBeforeAHighFirstOctet)
{
    expectTextWritten<PlainTextBinary>({
        {"two octets", "é", "7F C3 A9 00"_octets},
        {"three octets", "中", "7F E4 B8 AD 00"_octets},
        {"four octets", "😀", "7F F0 9F 98 80 00"_octets},
        {"not the first character", "aé", "61 C3 A9 00"_octets},
        {"a first octet of 127 is not quoted", "\x7F", "7F 00"_octets},
    });
}

TEST(PlainTextBinary, EndsATextAtItsFirstNulWhenWriting)
{
    expectTextWritten<PlainTextBinary>({
        {"inside", QStringLiteral("ab\0cd"), "61 62 00"_octets},
        {"first", QStringLiteral("\0ab"), "00"_octets},
        {"quoted", QStringLiteral("\u00E9\0x"), "7F C3 A9 00"_octets},
    });
}

TEST(PlainTextBinary, ReadsEveryOctetAsLatin1)
{
    expectTextRead<PlainTextBinary>({
        {"UTF-8 is not decoded", QStringLiteral("\u00C3\u00A9"), "C3 A9 00"_octets},
        {"nor after a quote", QStringLiteral("\u00C3\u00A9"), "7F C3 A9 00"_octets},
        {"the lowest high octet", QStringLiteral("\u0080"), "80 00"_octets},
        {"the highest octet", QStringLiteral("a\u00FF"), "61 FF 00"_octets},
        {"a quote and nothing", "", "7F 00"_octets},
        {"only the first quote is dropped", "\x7F", "7F 7F 00"_octets},
        {"a later 127", "a\x7F", "61 7F 00"_octets},
        {"a quote before ASCII", "a", "7F 61 00"_octets},
    });
}

TEST(PlainTextBinary, LeavesTheCursorAfterTheTerminator)
{
    EXPECT_EQ((readValue<PlainTextBinary, QString>("61 00 62 00"_octets).position), 2);
    EXPECT_EQ((readValue<PlainTextBinary, QString>("00 62 00"_octets).position), 1);
}

TEST(PlainTextBinary, ReadsATextWithoutTerminatorToTheEnd)
{
    for (const auto &octets : {"61 62"_octets, "7F 61 62"_octets}) {
        const auto reading = readValue<PlainTextBinary, QString>(octets);
        EXPECT_EQ(reading.result, Read);
        EXPECT_EQ(reading.value, "ab");
        EXPECT_EQ(reading.position, octets.size() + 1);
    }
}

TEST(PlainTextBinary, ReadsTheSlackOctetAsAnEmptyText)
{
    const auto reading = readValue<PlainTextBinary, QString>(""_octets, "before");
    EXPECT_EQ(reading.result, Read);
    EXPECT_EQ(reading.value, "");
    EXPECT_EQ(reading.position, 1);
}

template <typename Codec>
void expectTextUntouchedPastTheEnd()
{
    Input input(""_octets);
    input.buffer()->readByte();
    QString text = "before";
    EXPECT_EQ(Codec::readFrom(input, &text), OutOfData);
    EXPECT_EQ(text, "before");
}

TEST(PlainTextBinary, LeavesTheTextUntouchedPastTheEnd)
{
    expectTextUntouchedPastTheEnd<PlainTextBinary>();
}

TEST(EncodedStringBinary, AlwaysWritesTheCharsetForm)
{
    expectTextWritten<EncodedStringBinary>({
        {"empty", "", "02 EA 00"_octets},
        {"ASCII", "abc", "05 EA 61 62 63 00"_octets},
        {"quoted", "é", "05 EA 7F C3 A9 00"_octets},
        {"high octets inside", "aé", "05 EA 61 C3 A9 00"_octets},
        {"up to its first NUL", QStringLiteral("ab\0cd"), "04 EA 61 62 00"_octets},
        {"NUL first", QStringLiteral("\0ab"), "02 EA 00"_octets},
        {"longest short length", QString(28, 'x'), "1E EA"_octets + octet('x', 28) + "00"_octets},
        {"first long length", QString(29, 'x'), "1F 1F EA"_octets + octet('x', 29) + "00"_octets},
        {"last length of one group", QString(125, 'x'),
         "1F 7F EA"_octets + octet('x', 125) + "00"_octets},
        {"first length of two groups", QString(126, 'x'),
         "1F 81 00 EA"_octets + octet('x', 126) + "00"_octets},
        {"the quote makes the length long", "é" + QString(26, 'x'),
         "1F 1F EA 7F C3 A9"_octets + octet('x', 26) + "00"_octets},
    });
}

TEST(EncodedStringBinary, ReadsAPlainTextString)
{
    expectTextRead<EncodedStringBinary>({
        {"empty", "", "00"_octets},
        {"lowest first octet", " a", "20 61 00"_octets},
        {"ASCII", "abc", "61 62 63 00"_octets},
        {"quoted, as Latin-1", QStringLiteral("\u00C3\u00A9"), "7F C3 A9 00"_octets},
    });
}

TEST(EncodedStringBinary, ReadsTextOfACharset)
{
    expectTextRead<EncodedStringBinary>({
        {"UTF-8 the usual way is local 8-bit", QString::fromLocal8Bit("\xC3\xA9"),
         "04 EA C3 A9 00"_octets},
        {"ASCII", "abc", "05 EA 61 62 63 00"_octets},
        {"UTF-8 as a long integer", QStringLiteral("\u00E9"), "05 01 EA C3 A9 00"_octets},
        {"a charset of 0", "a", "03 00 61 00"_octets},
        {"a charset of two octets", "a", "05 02 03 E8 61 00"_octets},
        {"no terminator", "ab", "03 EA 61 62"_octets},
        {"only one terminator is dropped", QStringLiteral("a\0"), "04 EA 61 00 00"_octets},
        {"a zero inside stays", QStringLiteral("a\0b"), "05 EA 61 00 62 00"_octets},
    });
}

TEST(EncodedStringBinary, KeepsTheTerminatorOfAQuotedText)
{
    expectTextRead<EncodedStringBinary>({
        {"local", QString::fromLocal8Bit("\xC3\xA9") + QChar(0), "05 EA 7F C3 A9 00"_octets},
        {"UTF-8", QStringLiteral("\u00E9") + QChar(0), "06 01 EA 7F C3 A9 00"_octets},
        {"empty", QString(QChar(0)), "03 EA 7F 00"_octets},
        {"two terminators lose one", QStringLiteral("a\0"), "05 EA 7F 61 00 00"_octets},
        {"a zero before the last octet takes that octet", QStringLiteral("a\0"),
         "05 EA 7F 61 00 62"_octets},
        {"a second quote is text", "\x7F" + QString(QChar(0)), "04 EA 7F 7F 00"_octets},
    });
}

TEST(EncodedStringBinary, ReadsAnEmptyTextWhereNoOctetsAreLeft)
{
    expectTextRead<EncodedStringBinary>({
        {"charset alone", "", "01 EA"_octets},
        {"a quote alone", "", "02 EA 7F"_octets},
        {"a terminator alone", "", "02 EA 00"_octets},
        {"a long charset alone", "", "02 01 EA"_octets},
    });
}

TEST(EncodedStringBinary, ReadsEveryFormOfLength)
{
    expectTextRead<EncodedStringBinary>({
        {"30", QString(28, 'x'), "1E EA"_octets + octet('x', 28) + "00"_octets},
        {"31 in a uintvar", QString(29, 'x'), "1F 1F EA"_octets + octet('x', 29) + "00"_octets},
        {"small in a uintvar", "a", "1F 03 EA 61 00"_octets},
        {"128 in one octet", QString(126, 'x'), "80 EA"_octets + octet('x', 126) + "00"_octets},
        {"255 in one octet", QString(253, 'x'), "FF EA"_octets + octet('x', 253) + "00"_octets},
        {"128 in a uintvar", QString(126, 'x'),
         "1F 81 00 EA"_octets + octet('x', 126) + "00"_octets},
    });
}

TEST(EncodedStringBinary, LeavesTheTextUntouchedWhenTheDataRunsOut)
{
    expectTextUntouchedPastTheEnd<EncodedStringBinary>();
    const std::vector<std::pair<const char *, QByteArray>> rows{
        {"length alone", "05"_octets},
        {"length of charset alone", "01"_octets},
        {"uintvar missing", "1F"_octets},
        {"charset truncated", "05 03 01"_octets},
        {"text truncated", "05 EA 61 62 63"_octets},
        {"length of 0 in a uintvar", "1F 00 EA 61 00"_octets},
        {"charset longer than the length", "01 02 03 E8 61 00"_octets},
        {"negative length", "1F F8 80 80 80 00 EA 61 00"_octets},
        {"largest length", "1F 87 FF FF FF 7F EA 61 00"_octets},
    };
    for (const auto &[name, octets] : rows) {
        SCOPED_TRACE(name);
        const auto reading = readValue<EncodedStringBinary, QString>(octets, "before");
        EXPECT_EQ(reading.result, OutOfData);
        EXPECT_EQ(reading.value, "before");
    }
}

TEST(EncodedStringBinary, PreservesAQuotedText)
{
    const auto reading = readValue<EncodedStringBinary, QString>("05 EA 7F C3 A9 00"_octets);
    EXPECT_EQ(octetsOf<EncodedStringBinary>(reading.value), "05 EA 7F C3 A9 00"_octets);
}

QDateTime local(int year, int month, int day, int hour, int minute, int second)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second));
}

// Created where the zone applies, because a QDateTime keeps the zone's offset.
template <typename Check>
void forEachTime(Check check)
{
    struct
    {
        const char *zone;
        int year, month, day, hour, minute, second;
        QByteArray octets;
    } const rows[] = {
        {TimeZone::Utc, 1970, 1, 1, 0, 0, 0, "02 80 80"_octets},
        {TimeZone::Utc, 1970, 1, 1, 0, 2, 7, "02 80 FF"_octets},
        {TimeZone::Utc, 1970, 1, 1, 0, 2, 8, "03 80 01 80"_octets},
        {TimeZone::Utc, 2001, 9, 9, 1, 46, 40, "06 80 04 3B 9A CA 00"_octets},
        {TimeZone::Utc, 2038, 1, 19, 3, 14, 7, "06 80 04 7F FF FF FF"_octets},
        {TimeZone::Shanghai, 2001, 9, 9, 1, 46, 40, "06 80 04 3B 9A 59 80"_octets},
        {TimeZone::Shanghai, 1970, 1, 1, 8, 0, 0, "02 80 80"_octets},
        {TimeZone::NewYork, 2001, 9, 9, 1, 46, 40, "06 80 04 3B 9B 02 40"_octets},
        {TimeZone::NewYork, 2003, 12, 31, 19, 0, 0, "06 80 04 3F F3 63 00"_octets},
    };
    for (const auto &row : rows) {
        const TimeZone zone(row.zone);
        const QDateTime time =
            local(row.year, row.month, row.day, row.hour, row.minute, row.second);
        SCOPED_TRACE(testing::Message()
                     << row.zone << ' ' << time.toString(Qt::ISODate).toStdString());
        check(time, row.octets);
    }
}

TEST(TimeBinary, WritesLocalTimeInTheAbsoluteForm)
{
    forEachTime([](const QDateTime &time, const QByteArray &octets) {
        const Writing writing = writeValue<TimeBinary>(time);
        EXPECT_EQ(writing.result, Written);
        EXPECT_EQ(writing.octets, octets);
        EXPECT_EQ(TimeBinary::sizeOf(time), octets.size());
    });
}

TEST(TimeBinary, ReadsLocalTimeFromBothForms)
{
    forEachTime([](const QDateTime &time, QByteArray octets) {
        for (int token : {128, 129, 0, 255}) {
            octets[1] = static_cast<char>(token);
            const auto reading = readValue<TimeBinary, QDateTime>(octets);
            EXPECT_EQ(reading.result, Read);
            EXPECT_EQ(reading.value.date(), time.date());
            EXPECT_EQ(reading.value.time(), time.time());
            EXPECT_EQ(reading.position, octets.size());
        }
    });
}

TEST(TimeBinary, WritesDateAndTimeWithoutConvertingTheirZone)
{
    const TimeZone zone(TimeZone::Shanghai);
    const QDateTime utc(QDate(2001, 9, 9), QTime(1, 46, 40), QTimeZone::utc());
    EXPECT_EQ(octetsOf<TimeBinary>(utc), "06 80 04 3B 9A 59 80"_octets);
}

TEST(TimeBinary, FollowsAChangedTimeZone)
{
    const TimeZone zone(TimeZone::Utc);
    EXPECT_EQ(octetsOf<TimeBinary>(local(2001, 9, 9, 1, 46, 40)), "06 80 04 3B 9A CA 00"_octets);
    qputenv("TZ", TimeZone::Shanghai);
    EXPECT_EQ(octetsOf<TimeBinary>(local(2001, 9, 9, 1, 46, 40)), "06 80 04 3B 9A 59 80"_octets);
    const auto reading = readValue<TimeBinary, QDateTime>("02 80 80"_octets);
    EXPECT_EQ(reading.value.time(), QTime(8, 0));
}

TEST(TimeBinary, WritesOneOctetOfSecondsFrom2038On)
{
    const TimeZone zone(TimeZone::Utc);
    EXPECT_EQ(octetsOf<TimeBinary>(local(2038, 1, 19, 3, 14, 8)), "02 80 80"_octets);
    EXPECT_EQ(octetsOf<TimeBinary>(local(2038, 1, 19, 3, 14, 9)), "02 80 81"_octets);
    EXPECT_EQ(TimeBinary::sizeOf(local(2038, 1, 19, 3, 14, 8)), 3);
}

TEST(TimeBinary, ReturnsTheWrittenSizeEvenForNoDate)
{
    for (const QDateTime &time :
         {QDateTime(), QDateTime(QDate(2001, 9, 9), QTime()), local(1969, 12, 31, 0, 0, 0)})
        EXPECT_EQ(TimeBinary::sizeOf(time), octetsOf<TimeBinary>(time).size());
}

TEST(TimeBinary, ReadsSecondsAsUnsigned)
{
    const TimeZone zone(TimeZone::Utc);
    const auto first = readValue<TimeBinary, QDateTime>("06 80 04 80 00 00 00"_octets);
    EXPECT_EQ(first.value.toSecsSinceEpoch(), 2147483648);
    EXPECT_EQ(first.value.date(), QDate(2038, 1, 19));
    const auto last = readValue<TimeBinary, QDateTime>("06 80 04 FF FF FF FF"_octets);
    EXPECT_EQ(last.value.toSecsSinceEpoch(), 4294967295);
}

TEST(TimeBinary, IgnoresItsLength)
{
    for (const auto &octets : {"00 80 01 80"_octets, "1E 80 01 80"_octets,
                               "1F 81 00 80 01 80"_octets, "FF 80 01 80"_octets}) {
        SCOPED_TRACE(testing::PrintToString(octets));
        const auto reading = readValue<TimeBinary, QDateTime>(octets);
        EXPECT_EQ(reading.result, Read);
        EXPECT_EQ(reading.value.toSecsSinceEpoch(), 128);
        EXPECT_EQ(reading.position, octets.size());
    }
}

TEST(TimeBinary, TreatsUnreadableSecondsAsZero)
{
    for (const auto &octets : {"06 80 04 3B"_octets, "06 80"_octets, "06"_octets}) {
        SCOPED_TRACE(testing::PrintToString(octets));
        const auto reading = readValue<TimeBinary, QDateTime>(octets);
        EXPECT_EQ(reading.result, Read);
        ASSERT_TRUE(reading.value.isValid());
        EXPECT_EQ(reading.value.toSecsSinceEpoch(), 0);
    }
}

TEST(TimeBinary, LeavesTheTimeUntouchedWhenTheTokenCannotBeRead)
{
    const QDateTime before = local(2001, 9, 9, 1, 46, 40);
    for (const auto &octets : {""_octets, "1F"_octets}) {
        SCOPED_TRACE(testing::PrintToString(octets));
        const auto reading = readValue<TimeBinary, QDateTime>(octets, before);
        EXPECT_EQ(reading.result, OutOfData);
        EXPECT_EQ(reading.value, before);
    }
}

} // namespace
