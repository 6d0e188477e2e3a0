/*
 * Which fields of a message the record has, and which field was refused. The octets are written by
 * hand.
 */
#include "view/message_fields.h"

#include "input/message.h"
#include "support/octets.h"

#include <gtest/gtest.h>

namespace {

// m-retrieve-conf, version 1.0.
const QByteArray Start = "8C 84 8D 90"_octets;

struct Field
{
    qsizetype offset; // -1 for a field that only the decoder finds
    int recordCode;
    bool isListed = false;

    bool operator==(const Field &) const = default;
};

void PrintTo(const Field &field, std::ostream *out)
{
    *out << field.offset << " is " << field.recordCode << (field.isListed ? ", listed" : "");
}

struct Row
{
    const char *name;
    QByteArray octets;
    std::vector<Field> fields; // after the first two
};

const std::vector<Row> rows{
    {"LaterField", Start + "99 80 8F 80"_octets, {{4, 0}, {6, HeaderFieldCode::Priority}}},
    {"LastOfRepeatedFields",
     Start + "8F 80 8F 82"_octets,
     {{4, 0}, {6, HeaderFieldCode::Priority}}},
    {"MalformedAfterReadable",
     Start + "8F 80 8F 78 00"_octets,
     {{4, HeaderFieldCode::Priority}, {6, 0}}},
    {"RecipientsAreListedWithTheFirst",
     Start + "97 61 00 8F 80 97 62 00"_octets,
     {{4, HeaderFieldCode::To}, {7, HeaderFieldCode::Priority}, {9, 0, true}}},
    {"OnlyTheDecoderFindsIt",
     Start + "8F 80 98 54"_octets,
     {{4, HeaderFieldCode::Priority}, {-1, HeaderFieldCode::TransactionId}}},
    {"FieldBeforeAMalformedOne",
     Start + "8F 80 89 1E 2B 34 39 00"_octets,
     {{4, HeaderFieldCode::Priority}}},
};

std::vector<Field> fieldsOf(const Message &message)
{
    std::vector<Field> fields;
    for (const MessageField &field : messageFields(message))
        fields.push_back(
            {field.scanned ? field.scanned->offset : -1, field.recordCode, field.isListed});
    return fields;
}

std::unique_ptr<Message> received(const QByteArray &octets, QvlMessage::Reading reading)
{
    auto message = std::make_unique<Message>();
    message->octets = octets;
    message->reading = reading;
    message->headerResult = static_cast<unsigned char>(message->receive(octets, reading).code);
    return message;
}

struct RefusedRow
{
    const char *name;
    QByteArray octets;
    QvlMessage::Reading reading;
    qsizetype offset;
    int code;
};

const std::vector<RefusedRow> refusedRows{
    {"LaterField", Start + "8F 80 99 80"_octets, QvlMessage::Strict, 6, 0x19},
    {"MalformedValue", Start + "8F 78 00 99 80"_octets, QvlMessage::Strict, 4, 0x0F},
    {"NameInLetters", Start + "58 2D 00 61 00"_octets, QvlMessage::Strict, 4, -1},
    {"NoField", Start + "8F 80 00"_octets, QvlMessage::AnyVersion, 6, -1},
    {"LaterFieldBeforeATruncatedOne", Start + "99 80 89 1E 2B 34 39 00"_octets,
     QvlMessage::AnyVersion, 6, HeaderFieldCode::From},
    {"TruncatedFieldBeforeNothing", Start + "89 1E 2B 34 39 00"_octets, QvlMessage::Strict, 4,
     HeaderFieldCode::From},
};

} // namespace

TEST(MessageFields, AreThoseOfTheMessageInTheOrderOfItsOctets)
{
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        std::vector<Field> expected{{0, HeaderFieldCode::MessageType},
                                    {2, HeaderFieldCode::MmsVersion}};
        expected.insert(expected.end(), row.fields.begin(), row.fields.end());
        EXPECT_EQ(fieldsOf(*received(row.octets, QvlMessage::AnyVersion)), expected);
    }
}

// The decoder takes one octet for a class, the scanner a value-length and one more.
TEST(MessageFields, AreThoseOfTheDecoderIfItFindsOthers)
{
    const std::vector<Field> expected{{-1, HeaderFieldCode::MessageClass},
                                      {-1, HeaderFieldCode::Priority},
                                      {-1, HeaderFieldCode::Status}};
    EXPECT_EQ(fieldsOf(*received("8A 01 8F FF 95 80"_octets, QvlMessage::AnyVersion)), expected);
}

TEST(RefusedFields, AreTheFirstOnesThatAreNotRead)
{
    for (const RefusedRow &row : refusedRows) {
        SCOPED_TRACE(row.name);
        const auto message = received(row.octets, row.reading);
        const auto refused = refusedField(*message);
        ASSERT_TRUE(refused);
        EXPECT_EQ(refused->field.offset, row.offset);
        EXPECT_EQ(refused->field.code, row.code);
        EXPECT_STRNE(refused->reason, "");
    }
}

TEST(RefusedFields, AreNoneInAMessageThatWasRead)
{
    EXPECT_FALSE(refusedField(*received(Start, QvlMessage::Strict)));
    EXPECT_FALSE(refusedField(*received(Start + "99 80"_octets, QvlMessage::AnyVersion)));
}
