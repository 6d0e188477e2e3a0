/*
 * The cursor: what fits at the end of the array, the one octet of slack after it, and that a buffer
 * for reading never reads the slack and never writes.
 */
#include "wire/linear_buffer.h"

#include "multipart/body_part.h"
#include "support/octets.h"
#include "wire/multipart_entry.h"
#include "wire/primitive_values.h"
#include "wire/wire_result.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <type_traits>

namespace {

static_assert(!std::is_polymorphic_v<LinearBuffer>);
static_assert(std::is_trivially_destructible_v<LinearBuffer>, "the array belongs to the caller");

// A buffer of @p size octets with the cursor moved to @p position by reading.
LinearBuffer bufferAt(const HeapBlock &block, int size, int position)
{
    LinearBuffer buffer(block.data(), size);
    for (int i = 0; i < position; ++i)
        buffer.readByte();
    return buffer;
}

TEST(LinearBuffer, StartsAtTheFirstOctet)
{
    const HeapBlock block("01 02 03"_octets);
    const LinearBuffer buffer(block.data(), block.size());
    EXPECT_EQ(buffer.getPosition(), 0);
    EXPECT_EQ(buffer.getSize(), 3);
    EXPECT_EQ(buffer.getData(), block.data());
}

TEST(LinearBuffer, HasMoreWhileTheCursorIsBeforeTheEnd)
{
    const HeapBlock block("01 02 03 04"_octets);
    struct
    {
        int size, position;
        bool hasMore;
    } const rows[] = {{0, 0, false}, {1, 0, true},  {1, 1, false},
                      {3, 2, true},  {3, 3, false}, {3, 4, false}};
    for (const auto &row : rows) {
        SCOPED_TRACE(testing::Message() << row.position << " of " << row.size);
        EXPECT_EQ(bufferAt(block, row.size, row.position).hasMore(), row.hasMore);
    }
}

TEST(LinearBuffer, ArrayOfNegativeSizeHoldsNothing)
{
    const HeapBlock block("01 02"_octets);
    LinearBuffer buffer(block.data(), -1);
    EXPECT_FALSE(buffer.hasMore());
    EXPECT_FALSE(buffer.appendByte(9));
    buffer.zerolize();
    EXPECT_EQ(block.data()[0], 1);
}

TEST(LinearBuffer, ZerolizeClearsTheArrayAndKeepsTheCursor)
{
    const HeapBlock block("01 02 03 04"_octets);
    LinearBuffer buffer = bufferAt(block, 3, 2);
    buffer.zerolize();
    EXPECT_EQ(buffer.getPosition(), 2);
    EXPECT_EQ(QByteArray(reinterpret_cast<const char *>(block.data()), 4), "00 00 00 04"_octets);
}

TEST(LinearBuffer, AppendDataStoresOnlyDataThatFits)
{
    struct
    {
        const char *name;
        int position, count;
        bool fits;
        QByteArray after;
    } const rows[] = {
        {"nothing", 0, 0, true, "00 00 00 00"_octets},
        {"all", 0, 4, true, "AA BB CC DD"_octets},
        {"one too many", 0, 5, false, "00 00 00 00"_octets},
        {"up to the end", 2, 2, true, "00 00 AA BB"_octets},
        {"past the end", 2, 3, false, "00 00 00 00"_octets},
        {"nothing at the end", 4, 0, true, "00 00 00 00"_octets},
        {"one at the end", 4, 1, false, "00 00 00 00"_octets},
        {"negative count", 2, -1, false, "00 00 00 00"_octets},
        {"a count that overflows the sum", 3, INT_MAX, false, "00 00 00 00"_octets},
    };
    const HeapBlock source("AA BB CC DD EE"_octets);
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        const HeapBlock block("00 00 00 00"_octets);
        LinearBuffer buffer = bufferAt(block, 4, row.position);
        EXPECT_EQ(buffer.appendData(source.data(), row.count), row.fits);
        EXPECT_EQ(buffer.getPosition(), row.position + (row.fits ? row.count : 0));
        EXPECT_EQ(QByteArray(reinterpret_cast<const char *>(block.data()), 4), row.after);
    }
}

TEST(LinearBuffer, AppendByteStoresUpToTheLastOctet)
{
    const HeapBlock block("00 00"_octets);
    LinearBuffer buffer(block.data(), block.size());
    EXPECT_TRUE(buffer.appendByte(0x11));
    EXPECT_TRUE(buffer.appendByte(0x22));
    EXPECT_FALSE(buffer.appendByte(0x33));
    EXPECT_EQ(buffer.getPosition(), 2);
    EXPECT_EQ(QByteArray(reinterpret_cast<const char *>(block.data()), 2), "11 22"_octets);
}

TEST(LinearBuffer, UncheckedReadByteAdvancesWithoutABound)
{
    const HeapBlock block("01 FF 03 04"_octets);
    LinearBuffer buffer(block.data(), 2);
    EXPECT_EQ(buffer.readByte(), 0x01);
    EXPECT_EQ(buffer.readByte(), 0xFF);
    EXPECT_EQ(buffer.readByte(), 0x03);
    EXPECT_EQ(buffer.readByte(), 0x04);
    EXPECT_EQ(buffer.getPosition(), 4);
}

TEST(LinearBuffer, BoundedReadByteReturnsTheSlackOctetOnce)
{
    const HeapBlock block("01 02 7E"_octets);
    LinearBuffer buffer = bufferAt(block, 2, 2);
    unsigned char octet = 0;
    EXPECT_TRUE(buffer.readByte(&octet));
    EXPECT_EQ(octet, 0x7E);
    EXPECT_EQ(buffer.getPosition(), 3);
    EXPECT_FALSE(buffer.readByte(&octet));
    EXPECT_EQ(octet, 0x7E);
    EXPECT_EQ(buffer.getPosition(), 3);
}

struct ReadRow
{
    const char *name;
    int position, count;
    bool isThere;
    QByteArray read;
};

const std::vector<ReadRow> &readRows()
{
    static const std::vector<ReadRow> rows{
        {"nothing", 0, 0, true, ""_octets},
        {"all", 0, 3, true, "01 02 03"_octets},
        {"one too many", 0, 4, false, ""_octets},
        {"the last", 2, 1, true, "03"_octets},
        {"past the end", 2, 2, false, ""_octets},
        {"nothing at the end", 3, 0, true, ""_octets},
        {"nothing after the slack octet", 4, 0, false, ""_octets},
        {"negative count", 1, -1, false, ""_octets},
        {"a count that overflows the sum", 2, INT_MAX, false, ""_octets},
    };
    return rows;
}

TEST(LinearBuffer, ReadDataReadsOnlyAvailableOctets)
{
    const HeapBlock block("01 02 03 04"_octets);
    for (const ReadRow &row : readRows()) {
        SCOPED_TRACE(row.name);
        LinearBuffer buffer = bufferAt(block, 3, row.position);
        QByteArray read(row.isThere ? row.count : 1, 'x');
        auto *target = reinterpret_cast<unsigned char *>(read.data());
        EXPECT_EQ(buffer.readData(target, row.count), row.isThere);
        EXPECT_EQ(buffer.getPosition(), row.position + (row.isThere ? row.count : 0));
        EXPECT_EQ(read, row.isThere ? row.read : QByteArray("x"));
    }
}

TEST(LinearBuffer, ReadViewReadsAvailableOctetsInPlace)
{
    const HeapBlock block("01 02 03 04"_octets);
    for (const ReadRow &row : readRows()) {
        SCOPED_TRACE(row.name);
        LinearBuffer buffer = bufferAt(block, 3, row.position);
        const auto view = buffer.readView(row.count);
        ASSERT_EQ(view.has_value(), row.isThere);
        EXPECT_EQ(buffer.getPosition(), row.position + (row.isThere ? row.count : 0));
        EXPECT_EQ(view ? view->toByteArray() : QByteArray(), row.read);
    }
}

TEST(LinearBuffer, RewindStopsAtTheStart)
{
    const HeapBlock block("01 02 03 04"_octets);
    struct
    {
        int position, count, after;
    } const rows[] = {{3, 0, 3}, {3, 1, 2}, {3, 3, 0},      {3, 4, 0},
                      {0, 1, 0}, {4, 1, 3}, {3, INT_MAX, 0}};
    for (const auto &row : rows) {
        SCOPED_TRACE(testing::Message() << row.position << " back by " << row.count);
        LinearBuffer buffer = bufferAt(block, 3, row.position);
        buffer.rewind(row.count);
        EXPECT_EQ(buffer.getPosition(), row.after);
    }
}

TEST(LinearBuffer, ForwardStopsAtTheLastOctet)
{
    const HeapBlock block("01 02 03 04"_octets);
    struct
    {
        int size, position, count, after;
    } const rows[] = {{3, 0, 0, 0}, {3, 0, 2, 2}, {3, 0, 3, 2},       {3, 0, 4, 2}, {3, 1, 1, 2},
                      {3, 3, 0, 2}, {1, 0, 1, 0}, {3, 2, INT_MAX, 2}, {0, 0, 1, 0}, {0, 0, 0, 0}};
    for (const auto &row : rows) {
        SCOPED_TRACE(testing::Message()
                     << row.position << " on by " << row.count << " of " << row.size);
        LinearBuffer buffer = bufferAt(block, row.size, row.position);
        buffer.forward(row.count);
        EXPECT_EQ(buffer.getPosition(), row.after);
    }
}

TEST(LinearBuffer, ReadingAndWritingShareTheCursor)
{
    const HeapBlock block("00 00 03"_octets);
    LinearBuffer buffer(block.data(), block.size());
    EXPECT_TRUE(buffer.appendByte(0x11));
    buffer.rewind(1);
    EXPECT_EQ(buffer.readByte(), 0x11);
    EXPECT_TRUE(buffer.appendByte(0x22));
    EXPECT_EQ(buffer.readByte(), 0x03);
}

TEST(LinearBuffer, ReadUntilZeroConsumesTheZero)
{
    const HeapBlock block("61 62 00 00 63 00"_octets);
    LinearBuffer buffer(block.data(), block.size());
    EXPECT_EQ(buffer.readUntilZero().toByteArray(), "61 62"_octets);
    EXPECT_EQ(buffer.getPosition(), 3);
    EXPECT_EQ(buffer.readUntilZero().toByteArray(), ""_octets);
    EXPECT_EQ(buffer.readUntilZero().toByteArray(), "63"_octets);
    EXPECT_EQ(buffer.getPosition(), 6);
}

TEST(LinearBufferForReading, BoundedReadReturnsOneZeroPastTheEnd)
{
    const HeapBlock block("FF"_octets);
    LinearBuffer buffer = LinearBuffer::forReading(block.data(), block.size());
    unsigned char octet = 0x55;
    EXPECT_TRUE(buffer.readByte(&octet));
    EXPECT_EQ(octet, 0xFF);
    EXPECT_TRUE(buffer.readByte(&octet));
    EXPECT_EQ(octet, 0);
    EXPECT_FALSE(buffer.readByte(&octet));
    EXPECT_EQ(buffer.getPosition(), 2);
}

TEST(LinearBufferForReading, UncheckedReadReturnsZerosPastTheEnd)
{
    const HeapBlock block("FF"_octets);
    LinearBuffer buffer = LinearBuffer::forReading(block.data(), block.size());
    EXPECT_EQ(buffer.readByte(), 0xFF);
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(buffer.readByte(), 0);
}

TEST(LinearBufferForReading, EndsATextWithoutTerminatorAtTheEnd)
{
    const HeapBlock block("61 62"_octets);
    LinearBuffer buffer = LinearBuffer::forReading(block.data(), block.size());
    EXPECT_EQ(buffer.readUntilZero().toByteArray(), "61 62"_octets);
    EXPECT_EQ(buffer.getPosition(), 3);
}

TEST(LinearBufferForReading, RefusesEveryWriteAndStaysReadable)
{
    static constexpr unsigned char octets[] = {0x01, 0x02, 0x03}; // a write would end the program
    const unsigned char other[] = {0xAA, 0xBB};
    LinearBuffer buffer = LinearBuffer::forReading(octets, 3);
    EXPECT_EQ(buffer.readByte(), 0x01);
    EXPECT_FALSE(buffer.appendByte(0xAA));
    EXPECT_FALSE(buffer.appendData(other, 2));
    EXPECT_FALSE(buffer.appendData(other, 0));
    buffer.zerolize();
    EXPECT_EQ(buffer.getPosition(), 1);
    EXPECT_EQ(buffer.readByte(), 0x02);
    EXPECT_EQ(buffer.readByte(), 0x03);
}

TEST(LinearBufferForReading, StaysUnchangedByValueWriters)
{
    static constexpr unsigned char octets[] = {0x01, 0x02, 0x03};
    LinearBuffer buffer = LinearBuffer::forReading(octets, 3);
    EXPECT_EQ(IntegerBinary::writeTo(&buffer, 300), WireResult::Written);
    EXPECT_EQ(PlainTextBinary::writeTo(&buffer, "a"), WireResult::Written);
    EXPECT_EQ(Multipart_Entry::writeTo(&buffer, MMS_COMP_SMILMultipartBodypart()),
              WireResult::CannotWrite);
    EXPECT_EQ(buffer.getPosition(), 0);
    EXPECT_EQ(buffer.readByte(), 0x01);
}

TEST(LinearBufferForReading, IsEmptyWithoutOctets)
{
    const HeapBlock block(""_octets);
    for (int size : {0, -1, INT_MIN}) {
        SCOPED_TRACE(size);
        LinearBuffer buffer = LinearBuffer::forReading(block.data(), size);
        unsigned char octet = 0x55;
        EXPECT_FALSE(buffer.hasMore());
        EXPECT_TRUE(buffer.readByte(&octet));
        EXPECT_EQ(octet, 0);
        EXPECT_FALSE(buffer.readByte(&octet));
    }
}

} // namespace
