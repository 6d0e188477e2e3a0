/*
 * The header field codecs: the value that each stores, when the field is present, the octets
 * written, and their size. Content-Type has its own test file.
 */
#include "wire/field_codecs.h"

#include "wire/codec_calls.h"
#include "wire/time_zone.h"

#include <gtest/gtest.h>

#include <climits>
#include <type_traits>

namespace {

constexpr unsigned char Read = WireResult::Read;
constexpr unsigned char OutOfData = WireResult::OutOfData;
constexpr unsigned char Written = WireResult::Written;
constexpr unsigned char CannotWrite = WireResult::CannotWrite;

static_assert(std::has_virtual_destructor_v<FieldBase>);
static_assert(std::is_abstract_v<FieldBase>);
static_assert(sizeof(FieldBase) == sizeof(void *), "codecs carry no data");

void expectWritten(MakeField make, MMS_UA_UAMsg &msg, const QByteArray &octets,
                   unsigned char result = Written)
{
    const Writing writing = writeField(make, msg);
    EXPECT_EQ(writing.result, result);
    EXPECT_EQ(writing.octets, octets);
    EXPECT_EQ(make()->fieldSize(&msg), octets.size());
}

struct OctetRow
{
    const char *name;
    MakeField make;
    int code;
    unsigned char (MMS_UA_UAMsg::*get)() const;
    void (MMS_UA_UAMsg::*set)(unsigned char);
};

const OctetRow octetRows[] = {
    {"Message-Type", makeField<MsgTypeField>, 12, &MMS_UA_UAMsg::getMessageType,
     &MMS_UA_UAMsg::setMessageType},
    {"Message-Class", makeField<MsgClassField>, 10, &MMS_UA_UAMsg::getMessageClass,
     &MMS_UA_UAMsg::setMessageClass},
    {"Status", makeField<MsgStatusField>, 21, &MMS_UA_UAMsg::getStatus, &MMS_UA_UAMsg::setStatus},
    {"Response-Status", makeField<ResponseStatusField>, 18, &MMS_UA_UAMsg::getResponseStatus,
     &MMS_UA_UAMsg::setResponseStatus},
    {"Priority", makeField<PriorityField>, 15, &MMS_UA_UAMsg::getPriority,
     &MMS_UA_UAMsg::setPriority},
};

TEST(OctetFields, StoreAndWriteEveryOctetUnchanged)
{
    for (const OctetRow &row : octetRows) {
        SCOPED_TRACE(row.name);
        for (int value = 0; value < 256; ++value) {
            MMS_UA_UAMsg msg;
            const FieldReading reading = readField(row.make, octet(value) + "77"_octets, msg);
            EXPECT_EQ(reading.result, Read);
            EXPECT_EQ(reading.position, 1);
            EXPECT_EQ((msg.*row.get)(), value);
            EXPECT_EQ(msg.getFieldsPresent(), presenceBit(row.code));
            expectWritten(row.make, msg, octet(row.code | 0x80) + octet(value));
        }
    }
}

TEST(OctetFields, ChangeNothingPastTheEnd)
{
    for (const OctetRow &row : octetRows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        (msg.*row.set)(77);
        EXPECT_EQ(readFieldPastTheEnd(row.make, msg), OutOfData);
        EXPECT_EQ((msg.*row.get)(), 77);
        EXPECT_EQ(msg.getFieldsPresent(), 0u);
    }
}

TEST(OctetFields, ReadTheSlackOctetAtTheEnd)
{
    for (const OctetRow &row : octetRows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        EXPECT_EQ(readField(row.make, ""_octets, msg).result, Read);
        EXPECT_EQ((msg.*row.get)(), 0);
    }
}

struct FlagRow
{
    const char *name;
    MakeField make;
    int code;
    bool (MMS_UA_UAMsg::*get)() const;
    void (MMS_UA_UAMsg::*set)(bool);
    int writtenWhenSet, writtenWhenClear;
};

const FlagRow flagRows[] = {
    {"Delivery-Report", makeField<DeliveryReportField>, 6, &MMS_UA_UAMsg::getDeliveryReport,
     &MMS_UA_UAMsg::setDeliveryReport, 128, 129},
    {"Read-Reply", makeField<ReadReplyField>, 16, &MMS_UA_UAMsg::getReadReply,
     &MMS_UA_UAMsg::setReadReply, 128, 129},
    {"Report-Allowed", makeField<ReportAllowedField>, 17, &MMS_UA_UAMsg::getReportAllowed,
     &MMS_UA_UAMsg::setReportAllowed, 128, 129},
    {"Sender-Visibility", makeField<SenderVisibilityField>, 20, &MMS_UA_UAMsg::getSenderVisibility,
     &MMS_UA_UAMsg::setSenderVisibility, 129, 128},
};

TEST(FlagFields, AreSetOnlyByTheOctet128)
{
    for (const FlagRow &row : flagRows) {
        SCOPED_TRACE(row.name);
        for (int value = 0; value < 256; ++value) {
            MMS_UA_UAMsg msg;
            (msg.*row.set)(value != 128);
            EXPECT_EQ(readField(row.make, octet(value), msg).result, Read);
            EXPECT_EQ((msg.*row.get)(), value == 128) << value;
            EXPECT_EQ(msg.getFieldsPresent(), presenceBit(row.code));
        }
    }
}

TEST(FlagFields, WriteYesOrNo)
{
    for (const FlagRow &row : flagRows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        (msg.*row.set)(true);
        expectWritten(row.make, msg, octet(row.code | 0x80) + octet(row.writtenWhenSet));
        (msg.*row.set)(false);
        expectWritten(row.make, msg, octet(row.code | 0x80) + octet(row.writtenWhenClear));
    }
}

TEST(FlagFields, ChangeNothingPastTheEnd)
{
    for (const FlagRow &row : flagRows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        (msg.*row.set)(true);
        EXPECT_EQ(readFieldPastTheEnd(row.make, msg), OutOfData);
        EXPECT_TRUE((msg.*row.get)());
        EXPECT_EQ(msg.getFieldsPresent(), 0u);
    }
}

TEST(SenderVisibilityField, WritesTheOppositeOfTheReadValue)
{
    MMS_UA_UAMsg msg;
    readField(makeField<SenderVisibilityField>, "80"_octets, msg);
    expectWritten(makeField<SenderVisibilityField>, msg, "94 81"_octets);
    readField(makeField<SenderVisibilityField>, "81"_octets, msg);
    expectWritten(makeField<SenderVisibilityField>, msg, "94 80"_octets);
}

TEST(VersionField, DropsTheHighBitWhenReadAndAddsItWhenWritten)
{
    for (int value = 0; value < 256; ++value) {
        MMS_UA_UAMsg msg;
        EXPECT_EQ(readField(makeField<VersionField>, octet(value), msg).result, Read);
        EXPECT_EQ(msg.getMMSVersion(), value & 0x7F);
        EXPECT_EQ(msg.getFieldsPresent(), presenceBit(13));
        expectWritten(makeField<VersionField>, msg, "8D"_octets + octet(value | 0x80));
    }
}

TEST(VersionField, ChangesNothingPastTheEnd)
{
    MMS_UA_UAMsg msg;
    msg.setMMSVersion(0x10);
    EXPECT_EQ(readFieldPastTheEnd(makeField<VersionField>, msg), OutOfData);
    EXPECT_EQ(msg.getMMSVersion(), 0x10);
    EXPECT_EQ(msg.getFieldsPresent(), 0u);
}

TEST(VersionField, ReturnsASizeOfTwoForAVersionOfThreeOctets)
{
    MMS_UA_UAMsg msg;
    msg.setMMSVersion(0x90); // set directly with its high bit, which no version has
    EXPECT_EQ(writeField(makeField<VersionField>, msg).octets, "8D 01 90"_octets);
    EXPECT_EQ(VersionField().fieldSize(&msg), 2);
}

struct TextFieldRow
{
    const char *name;
    MakeField make;
    int code;
    bool encoded;
    QString (MMS_UA_UAMsg::*get)() const;
    void (MMS_UA_UAMsg::*set)(const QString &);
};

const TextFieldRow textRows[] = {
    {"Content-Location", makeField<ContentLocationField>, 3, false,
     &MMS_UA_UAMsg::getContentLocation, &MMS_UA_UAMsg::setContentLocation},
    {"Message-ID", makeField<MsgIDField>, 11, false, &MMS_UA_UAMsg::getMessageId,
     &MMS_UA_UAMsg::setMessageId},
    {"Transaction-Id", makeField<TIDField>, 24, false, &MMS_UA_UAMsg::getTransactionId,
     &MMS_UA_UAMsg::setTransactionId},
    {"Subject", makeField<SubjectField>, 22, true, &MMS_UA_UAMsg::getSubject,
     &MMS_UA_UAMsg::setSubject},
    {"Response-Text", makeField<ResponseTextField>, 19, true, &MMS_UA_UAMsg::getResponseText,
     &MMS_UA_UAMsg::setResponseText},
};

TEST(TextFields, StoreATextThatIsNotEmpty)
{
    for (const TextFieldRow &row : textRows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        const FieldReading reading = readField(row.make, text("abc") + "77"_octets, msg);
        EXPECT_EQ(reading.result, Read);
        EXPECT_EQ(reading.position, 4);
        EXPECT_EQ((msg.*row.get)(), "abc");
        EXPECT_EQ(msg.getFieldsPresent(), presenceBit(row.code));
    }
}

TEST(TextFields, TreatAnEmptyTextAsAbsent)
{
    for (const TextFieldRow &row : textRows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        (msg.*row.set)("before");
        EXPECT_EQ(readField(row.make, "00"_octets, msg).result, Read);
        EXPECT_EQ((msg.*row.get)(), "before");
        EXPECT_EQ(msg.getFieldsPresent(), 0u);
    }
}

TEST(TextFields, ReadTheFormOfTheField)
{
    const QByteArray octets = "05 01 EA C3 A9 00"_octets; // a charset form, or five characters
    for (const TextFieldRow &row : textRows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        EXPECT_EQ(readField(row.make, octets, msg).result, Read);
        EXPECT_EQ((msg.*row.get)(),
                  row.encoded ? QStringLiteral("\u00E9")
                              : QStringLiteral("\u0005\u0001\u00EA\u00C3\u00A9"));
    }
}

TEST(TextFields, WriteTheFormOfTheField)
{
    struct
    {
        const char *name;
        QString value;
        QByteArray plain, encoded;
    } const rows[] = {
        {"empty", "", "00"_octets, "02 EA 00"_octets},
        {"ASCII", "abc", "61 62 63 00"_octets, "05 EA 61 62 63 00"_octets},
        {"quoted", "é", "7F C3 A9 00"_octets, "05 EA 7F C3 A9 00"_octets},
        {"NUL inside", QStringLiteral("a\0b"), "61 00"_octets, "03 EA 61 00"_octets},
        {"long", QString(29, 'x'), octet('x', 29) + "00"_octets,
         "1F 1F EA"_octets + octet('x', 29) + "00"_octets},
    };
    for (const TextFieldRow &field : textRows) {
        for (const auto &row : rows) {
            SCOPED_TRACE(testing::Message() << field.name << ' ' << row.name);
            MMS_UA_UAMsg msg;
            (msg.*field.set)(row.value);
            expectWritten(field.make, msg,
                          octet(field.code | 0x80) + (field.encoded ? row.encoded : row.plain));
        }
    }
}

TEST(TextFields, StoreNothingWhenTheDataRunsOut)
{
    for (const TextFieldRow &row : textRows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        (msg.*row.set)("before");
        EXPECT_EQ(readFieldPastTheEnd(row.make, msg), OutOfData);
        if (row.encoded) {
            EXPECT_EQ(readField(row.make, "05 EA 61"_octets, msg).result, OutOfData);
        }
        EXPECT_EQ((msg.*row.get)(), "before");
        EXPECT_EQ(msg.getFieldsPresent(), 0u);
    }
}

TEST(MsgSizeField, StoresASizeThatIsNotZero)
{
    struct
    {
        QByteArray octets;
        int size;
    } const rows[] = {{"81"_octets, 1},
                      {"FF"_octets, 127},
                      {"02 10 00"_octets, 4096},
                      {"04 7F FF FF FF"_octets, INT_MAX}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.size);
        MMS_UA_UAMsg msg;
        EXPECT_EQ(readField(makeField<MsgSizeField>, row.octets, msg).result, Read);
        EXPECT_EQ(msg.getMessageSize(), row.size);
        EXPECT_EQ(msg.getFieldsPresent(), presenceBit(14));
        expectWritten(makeField<MsgSizeField>, msg, "8E"_octets + row.octets);
    }
}

TEST(MsgSizeField, StoresANegativeSizeAndWritesItAsOneOctet)
{
    MMS_UA_UAMsg msg;
    EXPECT_EQ(readField(makeField<MsgSizeField>, "04 FF FF FF FF"_octets, msg).result, Read);
    EXPECT_EQ(msg.getMessageSize(), -1);
    EXPECT_EQ(msg.getFieldsPresent(), presenceBit(14));
    expectWritten(makeField<MsgSizeField>, msg, "8E FF"_octets);
}

TEST(MsgSizeField, TreatsASizeOfZeroAsAbsent)
{
    for (const auto &octets : {"80"_octets, "00"_octets, "02 00 00"_octets, ""_octets}) {
        SCOPED_TRACE(testing::PrintToString(octets));
        MMS_UA_UAMsg msg;
        msg.setMessageSize(77);
        EXPECT_EQ(readField(makeField<MsgSizeField>, octets, msg).result, Read);
        EXPECT_EQ(msg.getMessageSize(), 77);
        EXPECT_EQ(msg.getFieldsPresent(), 0u);
    }
}

TEST(MsgSizeField, WritesASizeOfZero)
{
    MMS_UA_UAMsg msg;
    expectWritten(makeField<MsgSizeField>, msg, "8E 80"_octets);
}

TEST(MsgSizeField, StoresNothingWhenTheDataRunsOut)
{
    MMS_UA_UAMsg msg;
    msg.setMessageSize(77);
    EXPECT_EQ(readField(makeField<MsgSizeField>, "03 01"_octets, msg).result, OutOfData);
    EXPECT_EQ(readFieldPastTheEnd(makeField<MsgSizeField>, msg), OutOfData);
    EXPECT_EQ(msg.getMessageSize(), 77);
    EXPECT_EQ(msg.getFieldsPresent(), 0u);
}

struct ListRow
{
    const char *name;
    MakeField make;
    int code;
    QPtrList<MMS_UTIL_Entry> &(MMS_UTIL_MsgHeaderBase::*list)();
    void (MMS_UTIL_MsgHeaderBase::*add)(const MMS_UTIL_Entry &);
};

const ListRow listRows[] = {
    {"Bcc", makeField<BccField>, 1, &MMS_UTIL_MsgHeaderBase::getBccRecipients,
     &MMS_UTIL_MsgHeaderBase::addBccRecipient},
    {"Cc", makeField<CcField>, 2, &MMS_UTIL_MsgHeaderBase::getCcRecipients,
     &MMS_UTIL_MsgHeaderBase::addCcRecipient},
    {"To", makeField<ToField>, 23, &MMS_UTIL_MsgHeaderBase::getToRecipients,
     &MMS_UTIL_MsgHeaderBase::addToRecipient},
};

TEST(RecipientFields, AddOneRecipientForEachField)
{
    for (const ListRow &row : listRows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        EXPECT_EQ(readField(row.make, text("+1/TYPE=PLMN"), msg).result, Read);
        EXPECT_EQ(readField(row.make, text("Bob <a@b>"), msg).result, Read);
        const auto &list = (msg.*row.list)();
        ASSERT_EQ(list.count(), 2);
        EXPECT_EQ(list.at(0)->getAddress(), "+1");
        EXPECT_EQ(list.at(0)->getType(), 1);
        EXPECT_EQ(list.at(1)->getAddress(), "a@b");
        EXPECT_EQ(list.at(1)->getName(), "Bob ");
        EXPECT_EQ(msg.getFieldsPresent(), presenceBit(row.code));
    }
}

TEST(RecipientFields, KeepPresenceBitAndRecipientAfterAFailedRead)
{
    for (const ListRow &row : listRows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        EXPECT_EQ(readField(row.make, "05 EA 61"_octets, msg).result, Read);
        EXPECT_EQ(readFieldPastTheEnd(row.make, msg), Read);
        ASSERT_EQ((msg.*row.list)().count(), 2);
        EXPECT_TRUE((msg.*row.list)().at(0)->isEmpty());
        EXPECT_EQ(msg.getFieldsPresent(), presenceBit(row.code));
    }
}

TEST(RecipientFields, ChangeNoOtherList)
{
    for (const ListRow &row : listRows) {
        MMS_UA_UAMsg msg;
        readField(row.make, text("a"), msg);
        for (const ListRow &other : listRows)
            EXPECT_EQ((msg.*other.list)().count(), other.code == row.code ? 1 : 0)
                << row.name << ' ' << other.name;
    }
}

TEST(RecipientFields, WriteOneFieldForEachRecipientInOrder)
{
    for (const ListRow &row : listRows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        (msg.*row.add)(MMS_UTIL_Entry("Ann", 0, "a@b"));
        (msg.*row.add)(MMS_UTIL_Entry("", 1, "1"));
        (msg.*row.add)(MMS_UTIL_Entry("", 0, "é"));
        const QByteArray code = octet(row.code | 0x80);
        expectWritten(row.make, msg,
                      code + text("a@b") + code + text("1/TYPE=PLMN") + code
                          + "05 EA 7F C3 A9 00"_octets);
    }
}

TEST(RecipientFields, WriteNothingForAnEmptyList)
{
    for (const ListRow &row : listRows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        expectWritten(row.make, msg, ""_octets);
    }
}

TEST(RecipientFields, ContinueAfterARecipientThatCannotBeWritten)
{
    const MMS_UTIL_Entry good("", 0, "a");
    const MMS_UTIL_Entry bad("", 2, "a");
    for (const ListRow &row : listRows) {
        SCOPED_TRACE(row.name);
        const QByteArray code = octet(row.code | 0x80);
        MMS_UA_UAMsg msg;
        (msg.*row.add)(bad);
        expectWritten(row.make, msg, code, CannotWrite);
        (msg.*row.add)(good);
        expectWritten(row.make, msg, code + code + text("a"), Written);
        (msg.*row.add)(bad);
        expectWritten(row.make, msg, code + code + text("a") + code, CannotWrite);
    }
}

TEST(RecipientFields, SkipNullEntries)
{
    for (const ListRow &row : listRows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        (msg.*row.list)().append(nullptr);
        expectWritten(row.make, msg, ""_octets);
        (msg.*row.add)(MMS_UTIL_Entry("", 0, "a"));
        (msg.*row.list)().append(nullptr);
        expectWritten(row.make, msg, octet(row.code | 0x80) + text("a"));
    }
}

const MMS_UTIL_Entry placeholder("NoBody", 2, "");
const MMS_UTIL_Entry formerSender("Ann", 0, "old");

void expectEntry(const MMS_UTIL_Entry &entry, const MMS_UTIL_Entry &expected)
{
    EXPECT_EQ(entry.getName(), expected.getName());
    EXPECT_EQ(entry.getType(), expected.getType());
    EXPECT_EQ(entry.getAddress(), expected.getAddress());
}

TEST(FromField, ReadsTheSenderOrKeepsThePlaceholder)
{
    struct
    {
        const char *name;
        QByteArray octets;
        int position;
        MMS_UTIL_Entry from;
    } const rows[] = {
        {"insert-address", "01 81"_octets, 2, placeholder},
        {"e-mail", "05 80 61 40 62 00"_octets, 6, {"", 0, "a@b"}},
        {"phone", "0E 80"_octets + text("+1/TYPE=PLMN"), 15, {"", 1, "+1"}},
        {"name and e-mail", "0B 80"_octets + text("Bob <a@b>"), 12, {"Bob ", 0, "a@b"}},
        {"name alone", "05 80"_octets + text("B<>"), 6, {"B", 0, ""}},
        {"charset", "07 80 05 01 EA C3 A9 00"_octets, 8, {"", 0, QStringLiteral("\u00E9")}},
        {"length is not the address's", "02 80 61 40 62 00"_octets, 6, {"", 0, "a@b"}},
        {"length of 255", "FF 80 61 00"_octets, 4, {"", 0, "a"}},
        {"long length", "1F 81 00 80 61 00"_octets, 6, {"", 0, "a"}},
        {"address-present but length 1", "01 80 61 00"_octets, 2, placeholder},
        {"address-present but length 0", "00 80 61 00"_octets, 2, placeholder},
        {"address-present but negative length", "1F F8 80 80 80 00 80 61 00"_octets, 7,
         placeholder},
        {"insert-address with an address", "03 81 61 00"_octets, 2, placeholder},
        {"another token", "03 82 61 00"_octets, 2, placeholder},
        {"token in the slack octet", "05"_octets, 2, placeholder},
        {"empty address", "02 80 00"_octets, 3, placeholder},
        {"address truncated", "05 80 04 EA 61"_octets, 4, placeholder},
        {"terminator truncated", "05 80 61 40 62"_octets, 6, {"", 0, "a@b"}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        msg.setFrom(formerSender);
        const FieldReading reading = readField(makeField<FromField>, row.octets, msg);
        EXPECT_EQ(reading.result, Read);
        EXPECT_EQ(reading.position, row.position);
        EXPECT_EQ(msg.getFieldsPresent(), presenceBit(9));
        expectEntry(msg.getFrom(), row.from);
    }
}

TEST(FromField, ChangesNothingWhenTheTokenCannotBeRead)
{
    MMS_UA_UAMsg msg;
    msg.setFrom(formerSender);
    EXPECT_EQ(readFieldPastTheEnd(makeField<FromField>, msg), OutOfData);
    for (const auto &octets : {""_octets, "1F"_octets, "1F 81"_octets})
        EXPECT_EQ(readField(makeField<FromField>, octets, msg).result, OutOfData);
    EXPECT_EQ(msg.getFieldsPresent(), 0u);
    expectEntry(msg.getFrom(), formerSender);
}

TEST(FromField, WritesTheAddressOrTheInsertToken)
{
    struct
    {
        const char *name;
        MMS_UTIL_Entry from;
        QByteArray octets;
        unsigned char result = Written;
    } const rows[] = {
        {"nobody", {}, "89 01 81"_octets},
        {"placeholder", placeholder, "89 01 81"_octets},
        {"name alone", {"Ann", 0, ""}, "89 01 81"_octets},
        {"phone without a number", {"Ann", 1, ""}, "89 01 81"_octets},
        {"e-mail", {"Ann", 0, "a@b"}, "89 05 80 61 40 62 00"_octets},
        {"phone", {"", 1, "+1"}, "89 0E 80"_octets + text("+1/TYPE=PLMN")},
        {"not ASCII", {"", 0, "é@x"}, "89 09 80 07 EA 7F C3 A9 40 78 00"_octets},
        {"longest short length",
         {"", 0, QString(28, 'a')},
         "89 1E 80"_octets + octet('a', 28) + "00"_octets},
        {"first long length",
         {"", 0, QString(29, 'a')},
         "89 1F 1F 80"_octets + octet('a', 29) + "00"_octets},
        {"of no kind", {"", 2, "a@b"}, "89 01 80"_octets, CannotWrite},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        msg.setFrom(row.from);
        expectWritten(makeField<FromField>, msg, row.octets, row.result);
    }
}

TEST(FromField, ReturnsOutOfDataWhenTheTokenDoesNotFit)
{
    for (const MMS_UTIL_Entry &from : {placeholder, formerSender}) {
        MMS_UA_UAMsg msg;
        msg.setFrom(from);
        Output output(2);
        EXPECT_EQ(FromField().writeField(output, &msg), OutOfData);
        EXPECT_EQ(output.octets().size(), 2);
    }
}

TEST(FromField, ReturnsWrittenWhenTheAddressDoesNotFit)
{
    MMS_UA_UAMsg msg;
    msg.setFrom(formerSender);
    Output output(3);
    EXPECT_EQ(FromField().writeField(output, &msg), Written);
    EXPECT_EQ(output.octets(), "89 05 80"_octets);
}

TEST(MsgDateField, StoresTheTimeOfDecodingForEveryDate)
{
    struct
    {
        const char *name;
        QByteArray octets;
        unsigned char result;
    } const rows[] = {
        {"2001", "04 3B 9A CA 00"_octets, Read},
        {"0", "80"_octets, Read},
        {"after 2038", "04 FF FF FF FF"_octets, Read},
        {"truncated", "04 3B 9A"_octets, OutOfData},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        const QDateTime before = QDateTime::currentDateTime();
        EXPECT_EQ(readField(makeField<MsgDateField>, row.octets, msg).result, row.result);
        EXPECT_GE(msg.getDate(), before);
        EXPECT_LE(msg.getDate(), QDateTime::currentDateTime());
        EXPECT_EQ(msg.getDate().timeSpec(), Qt::LocalTime);
        EXPECT_EQ(msg.getFieldsPresent(), presenceBit(5));
    }
}

TEST(MsgDateField, KeepsPresenceBitPastTheEnd)
{
    MMS_UA_UAMsg msg;
    EXPECT_EQ(readFieldPastTheEnd(makeField<MsgDateField>, msg), OutOfData);
    EXPECT_TRUE(msg.getDate().isValid());
    EXPECT_EQ(msg.getFieldsPresent(), presenceBit(5));
}

struct DateRow
{
    const char *zone;
    QDate date;
    QTime time;
    QByteArray seconds; // as an Integer-value
};

const std::vector<DateRow> &dateRows()
{
    static const std::vector<DateRow> rows{
        {TimeZone::Utc, {1970, 1, 1}, {0, 0}, "80"_octets},
        {TimeZone::Utc, {1970, 1, 1}, {0, 2, 8}, "01 80"_octets},
        {TimeZone::Utc, {2001, 9, 9}, {1, 46, 40}, "04 3B 9A CA 00"_octets},
        {TimeZone::Shanghai, {2001, 9, 9}, {1, 46, 40}, "04 3B 9A 59 80"_octets},
        {TimeZone::NewYork, {2001, 9, 9}, {1, 46, 40}, "04 3B 9B 02 40"_octets},
        {TimeZone::NewYork, {2003, 12, 31}, {19, 0}, "04 3F F3 63 00"_octets},
        {TimeZone::Utc, {2038, 1, 19}, {3, 14, 7}, "04 7F FF FF FF"_octets},
        {TimeZone::Utc, {2038, 1, 19}, {3, 14, 8}, "80"_octets},
    };
    return rows;
}

TEST(MsgDateField, WritesTheSecondsOfTheLocalDate)
{
    for (const DateRow &row : dateRows()) {
        SCOPED_TRACE(testing::Message() << row.zone << ' ' << testing::PrintToString(row.seconds));
        const TimeZone zone(row.zone);
        MMS_UA_UAMsg msg;
        msg.setDate(QDateTime(row.date, row.time));
        expectWritten(makeField<MsgDateField>, msg, "85"_octets + row.seconds);
    }
}

TEST(DeliveryTimeField, WritesTheAbsoluteForm)
{
    for (const DateRow &row : dateRows()) {
        SCOPED_TRACE(testing::Message() << row.zone << ' ' << testing::PrintToString(row.seconds));
        const TimeZone zone(row.zone);
        MMS_UA_UAMsg msg;
        msg.setDeliveryTime(QDateTime(row.date, row.time));
        const int length = static_cast<int>(row.seconds.size()) + 1;
        expectWritten(makeField<DeliveryTimeField>, msg,
                      "87"_octets + octet(length) + "80"_octets + row.seconds);
    }
}

TEST(TimeFields, ReturnTheWrittenSizeEvenForNoDate)
{
    MMS_UA_UAMsg msg;
    for (MakeField make : {makeField<MsgDateField>, makeField<DeliveryTimeField>})
        EXPECT_EQ(make()->fieldSize(&msg), writeField(make, msg).octets.size());
}

TEST(DeliveryTimeField, StoresTheTimeOfBothForms)
{
    const TimeZone zone(TimeZone::Shanghai);
    for (const auto &octets : {"06 80 04 3B 9A CA 00"_octets, "06 81 04 3B 9A CA 00"_octets}) {
        SCOPED_TRACE(testing::PrintToString(octets));
        MMS_UA_UAMsg msg;
        EXPECT_EQ(readField(makeField<DeliveryTimeField>, octets, msg).result, Read);
        EXPECT_EQ(msg.getDeliveryTime(), QDateTime(QDate(2001, 9, 9), QTime(9, 46, 40)));
        EXPECT_EQ(msg.getFieldsPresent(), presenceBit(7));
    }
}

TEST(DeliveryTimeField, StoresTheEpoch)
{
    for (const auto &octets : {"02 80 80"_octets, "06 80 04 3B"_octets, "06"_octets}) {
        SCOPED_TRACE(testing::PrintToString(octets));
        MMS_UA_UAMsg msg;
        EXPECT_EQ(readField(makeField<DeliveryTimeField>, octets, msg).result, Read);
        ASSERT_FALSE(msg.getDeliveryTime().isNull());
        EXPECT_EQ(msg.getDeliveryTime().toSecsSinceEpoch(), 0);
        EXPECT_EQ(msg.getFieldsPresent(), presenceBit(7));
    }
}

TEST(DeliveryTimeField, StoresNothingWhenTheDataRunsOut)
{
    const QDateTime before(QDate(2001, 9, 9), QTime(1, 46, 40));
    MMS_UA_UAMsg msg;
    msg.setDeliveryTime(before);
    EXPECT_EQ(readField(makeField<DeliveryTimeField>, ""_octets, msg).result, OutOfData);
    EXPECT_EQ(readFieldPastTheEnd(makeField<DeliveryTimeField>, msg), OutOfData);
    EXPECT_EQ(msg.getDeliveryTime(), before);
    EXPECT_EQ(msg.getFieldsPresent(), 0u);
}

TEST(ExpiryField, StoresLocalSecondsSinceItsReference)
{
    struct
    {
        const char *zone;
        QByteArray octets;
        int expiry;
    } const rows[] = {
        {TimeZone::Utc, "02 80 80"_octets, 413405696},
        {TimeZone::Utc, "02 81 81"_octets, 413405697},
        {TimeZone::Shanghai, "02 80 80"_octets, 413405696 + 28800},
        {TimeZone::NewYork, "02 80 80"_octets, 413405696 - 18000},
        {TimeZone::Utc, "06 80 04 3B 9A CA 00"_octets, 1413405696},
        {TimeZone::Shanghai, "06 80 04 3B 9A CA 00"_octets, 1413405696 + 28800},
        {TimeZone::NewYork, "06 80 04 3B 9A CA 00"_octets, 1413405696 - 14400},
        {TimeZone::NewYork, "06 80 04 3F F3 63 00"_octets, 1486320896 - 18000},
        {TimeZone::Utc, "06 80 04 67 5B ED FF"_octets, INT_MAX},
        {TimeZone::Utc, "06 80 04 67 5B EE 00"_octets, INT_MIN},
        {TimeZone::Utc, "06 80 04 7F FF FF FF"_octets, INT_MIN + 413405695},
        {TimeZone::Utc, "06 80 04 FF FF FF FF"_octets, 413405695},
        {TimeZone::Utc, "06"_octets, 413405696},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(testing::Message() << row.zone << ' ' << testing::PrintToString(row.octets));
        const TimeZone zone(row.zone);
        MMS_UA_UAMsg msg;
        EXPECT_EQ(readField(makeField<ExpiryField>, row.octets, msg).result, Read);
        EXPECT_EQ(msg.getExpiry(), row.expiry);
        EXPECT_EQ(msg.getFieldsPresent(), presenceBit(8));
    }
}

TEST(ExpiryField, KeepsPresenceBitAndValueAfterAFailedRead)
{
    for (const auto &octets : {""_octets, "1F"_octets}) {
        MMS_UA_UAMsg msg;
        msg.setExpiry(77);
        EXPECT_EQ(readField(makeField<ExpiryField>, octets, msg).result, OutOfData);
        EXPECT_EQ(msg.getExpiry(), 77);
        EXPECT_EQ(msg.getFieldsPresent(), presenceBit(8));
    }
}

TEST(ExpiryField, WritesTheStoredNumberAsARelativeTime)
{
    struct
    {
        int expiry;
        QByteArray octets;
    } const rows[] = {
        {0, "88 02 81 80"_octets},
        {127, "88 02 81 FF"_octets},
        {128, "88 03 81 01 80"_octets},
        {86400, "88 05 81 03 01 51 80"_octets},
        {1413405696, "88 06 81 04 54 3E DC 00"_octets},
        {INT_MAX, "88 06 81 04 7F FF FF FF"_octets},
        {-1, "88 02 81 FF"_octets},
        {INT_MIN, "88 02 81 80"_octets},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.expiry);
        MMS_UA_UAMsg msg;
        msg.setExpiry(row.expiry);
        expectWritten(makeField<ExpiryField>, msg, row.octets);
    }
}

} // namespace
