/*
 * The table of message types: the fields that each type requires and the order in which its fields
 * are written, compared with a second list here.
 */
#include "wire/message_types.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace {

struct TypeRow
{
    int type;
    const char *name;
    unsigned int mandatoryFields;
    std::vector<unsigned char> writeOrder;
};

const std::vector<TypeRow> &typeRows()
{
    static const std::vector<TypeRow> rows{
        {128, "m-send-req", 0, {12, 24, 13, 5, 9, 23, 2, 1, 22, 10, 8, 7, 15, 20, 6, 16, 4}},
        {129, "m-send-conf", 0x00821800, {12, 24, 13, 18, 19, 11}},
        {130, "m-notification-ind", 0x00803A84, {12, 24, 13, 9, 22, 10, 14, 8, 3}},
        {131, "m-notifyresp-ind", 0, {12, 24, 13, 21, 17}},
        {132,
         "m-retrieve-conf",
         0x00001818,
         {12, 24, 13, 11, 5, 9, 23, 2, 1, 22, 10, 15, 6, 16, 4}},
        {133, "m-acknowledge-ind", 0, {12, 24, 13, 17}},
        {134, "m-delivery-ind", 0x00501C10, {12, 13, 24, 23, 5, 21}},
    };
    return rows;
}

TEST(MessageTypes, HoldsTheSevenTypesInTheOrderOfTheirValues)
{
    ASSERT_EQ(messageTypes().size(), typeRows().size());
    for (size_t i = 0; i < typeRows().size(); ++i) {
        const TypeRow &row = typeRows()[i];
        SCOPED_TRACE(row.name);
        const MessageTypeInfo &type = messageTypes()[i];
        EXPECT_EQ(type.type, row.type);
        EXPECT_STREQ(type.name, row.name);
        EXPECT_EQ(messageTypeInfo(type.type), &type);
    }
}

TEST(MessageTypes, RequiresThePublishedFields)
{
    for (const TypeRow &row : typeRows())
        EXPECT_EQ(messageTypeInfo(static_cast<unsigned char>(row.type))->mandatoryFields,
                  row.mandatoryFields)
            << row.name;
}

TEST(MessageTypes, WritesFieldsInThePublishedOrder)
{
    for (const TypeRow &row : typeRows())
        EXPECT_THAT(messageTypeInfo(static_cast<unsigned char>(row.type))->writeOrder,
                    testing::ElementsAreArray(row.writeOrder))
            << row.name;
}

TEST(MessageTypes, HoldsNoOtherType)
{
    for (int type = 0; type < 256; ++type) {
        const bool known = type >= 128 && type <= 134;
        EXPECT_EQ(messageTypeInfo(static_cast<unsigned char>(type)) != nullptr, known) << type;
    }
}

} // namespace
