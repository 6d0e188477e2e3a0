/*
 * Addresses of senders and recipients: phone numbers, plain addresses and display names, in both
 * text forms. Reading never fails.
 */
#include "wire/address.h"

#include "wire/codec_calls.h"

#include <gtest/gtest.h>

namespace {

struct AddressRow
{
    const char *name;
    QByteArray octets;
    QString displayName;
    unsigned char type;
    QString address;
};

MMS_UTIL_Entry usedEntry()
{
    return MMS_UTIL_Entry("Ann", 2, "old");
}

void expectRead(const std::vector<AddressRow> &rows)
{
    for (const AddressRow &row : rows) {
        SCOPED_TRACE(row.name);
        const auto reading = readValue<AddressBinary>(row.octets, usedEntry());
        EXPECT_EQ(reading.result, WireResult::Read);
        EXPECT_EQ(reading.value.getName(), row.displayName);
        EXPECT_EQ(reading.value.getType(), row.type);
        EXPECT_EQ(reading.value.getAddress(), row.address);
    }
}

TEST(AddressBinary, ReadsAPhoneNumberAndKeepsTheDisplayName)
{
    expectRead({
        {"international", text("+4912345/TYPE=PLMN"), "Ann", 1, "+4912345"},
        {"national", text("110/TYPE=PLMN"), "Ann", 1, "110"},
        {"no number", text("/TYPE=PLMN"), "Ann", 1, ""},
        {"what follows is dropped", text("1/TYPE=PLMNx"), "Ann", 1, "1"},
        {"the first of two", text("1/TYPE=PLMN/TYPE=PLMN"), "Ann", 1, "1"},
        {"angle brackets stay", text("Bob <1>/TYPE=PLMN"), "Ann", 1, "Bob <1>"},
        {"of a charset", "0D EA"_octets + text("1/TYPE=PLMN"), "Ann", 1, "1"},
    });
}

TEST(AddressBinary, ReadsAnythingElseAsAnAddressAndClearsTheDisplayName)
{
    expectRead({
        {"e-mail", text("a@b.c"), "", 0, "a@b.c"},
        {"empty", text(""), "", 0, ""},
        {"another type", text("1.2.3.4/TYPE=IPv4"), "", 0, "1.2.3.4/TYPE=IPv4"},
        {"type in small letters", text("1/type=plmn"), "", 0, "1/type=plmn"},
        {"closing bracket alone", text("a>b"), "", 0, "a>b"},
        {"not trimmed", text("  a@b "), "", 0, "  a@b "},
        {"quoted, as Latin-1", "7F C3 A9 00"_octets, "", 0, QStringLiteral("\u00C3\u00A9")},
        {"of charset UTF-8", "05 01 EA C3 A9 00"_octets, "", 0, QStringLiteral("\u00E9")},
    });
}

TEST(AddressBinary, ReadsADisplayNameWithTheBlankBeforeTheBracket)
{
    expectRead({
        {"with a blank", text("Bob <a@b>"), "Bob ", 0, "a@b"},
        {"without a blank", text("Bob<a@b>"), "Bob", 0, "a@b"},
        {"no name", text("<a@b>"), "", 0, "a@b"},
        {"quoted name", text("\"B. B.\" <a@b>"), "\"B. B.\" ", 0, "a@b"},
        {"empty address", text("Bob <>"), "Bob ", 0, ""},
        {"what follows is dropped", text("Bob <a@b> x"), "Bob ", 0, "a@b"},
        {"first of each bracket", text("B <a<b>c>"), "B ", 0, "a<b"},
    });
}

TEST(AddressBinary, TakesEverythingAfterAnUnclosedBracket)
{
    expectRead({
        {"never closed", text("Bob <a@b"), "Bob ", 0, "a@b"},
        {"nothing after", text("Bob <"), "Bob ", 0, ""},
        {"closed before only", text("B>ob <a@b"), "B>ob ", 0, "a@b"},
        {"closed before and after", text("B>ob <a@b>"), "B>ob ", 0, "a@b>"},
    });
}

TEST(AddressBinary, NeverFailsAndReadsWhatIsLeftOfATruncatedAddress)
{
    expectRead({
        {"no terminator", "61 40 62"_octets, "", 0, "a@b"},
        {"no octets", ""_octets, "", 0, ""},
        {"truncated after the charset", "05 EA 61"_octets, "", 0, ""},
        {"truncated after the length", "05"_octets, "", 0, ""},
    });
}

TEST(AddressBinary, NeverFailsPastTheEnd)
{
    Input input(""_octets);
    input.buffer()->readByte();
    MMS_UTIL_Entry entry = usedEntry();
    EXPECT_EQ(AddressBinary::readFrom(input, &entry), WireResult::Read);
    EXPECT_EQ(entry.getType(), 0);
    EXPECT_TRUE(entry.isEmpty());
}

TEST(AddressBinary, LeavesTheCursorInsideATruncatedAddress)
{
    // The charset form announces more octets than follow: only length and charset are consumed.
    EXPECT_EQ((readValue<AddressBinary, MMS_UTIL_Entry>("05 EA 61"_octets).position), 2);
}

TEST(AddressBinary, WritesTheAddressWithoutTheDisplayName)
{
    const std::vector<AddressRow> rows{
        {"phone", text("+49123/TYPE=PLMN"), "Ann", 1, "+49123"},
        {"phone without a number", text("/TYPE=PLMN"), "", 1, ""},
        {"e-mail", text("a@b"), "Ann", 0, "a@b"},
        {"empty", "00"_octets, "Ann", 0, ""},
        {"not ASCII", "07 EA 7F C3 A9 40 78 00"_octets, "", 0, "é@x"},
        {"not ASCII after the first", "06 EA 78 40 C3 A9 00"_octets, "", 0, "x@é"},
        {"phone that is not ASCII", "7F C3 A9"_octets + text("/TYPE=PLMN"), "", 1, "é"},
        {"highest ASCII", "7F 00"_octets, "", 0, "\x7F"},
        {"up to the first NUL", "61 00"_octets, "", 0, QStringLiteral("a\0b")},
        {"not ASCII after a NUL", "61 00"_octets, "", 0, QStringLiteral("a\0\u00E9")},
        {"phone up to the first NUL", "31 00"_octets, "", 1, QStringLiteral("1\0002")},
    };
    for (const AddressRow &row : rows) {
        SCOPED_TRACE(row.name);
        const MMS_UTIL_Entry entry(row.displayName, row.type, row.address);
        const Writing writing = writeValue<AddressBinary>(entry);
        EXPECT_EQ(writing.result, WireResult::Written);
        EXPECT_EQ(writing.octets, row.octets);
        EXPECT_EQ(AddressBinary::sizeOf(entry), row.octets.size());
    }
}

TEST(AddressBinary, CannotWriteOtherTypes)
{
    for (int type = 2; type < 256; ++type) {
        SCOPED_TRACE(type);
        const MMS_UTIL_Entry entry("Ann", static_cast<unsigned char>(type), "a@b");
        const Writing writing = writeValue<AddressBinary>(entry);
        EXPECT_EQ(writing.result, WireResult::CannotWrite);
        EXPECT_EQ(writing.octets, ""_octets);
        EXPECT_EQ(AddressBinary::sizeOf(entry), 0);
    }
}

TEST(AddressBinary, WritesAPhoneNumberAsItWasRead)
{
    const QByteArray octets = text("+4912345/TYPE=PLMN");
    const auto reading = readValue<AddressBinary, MMS_UTIL_Entry>(octets);
    EXPECT_EQ(octetsOf<AddressBinary>(reading.value), octets);
}

TEST(AddressBinary, WritesOnlyTheAddressOfAnAddressWithAName)
{
    const auto reading = readValue<AddressBinary, MMS_UTIL_Entry>(text("Bob <a@b>"));
    EXPECT_EQ(octetsOf<AddressBinary>(reading.value), text("a@b"));
}

} // namespace
