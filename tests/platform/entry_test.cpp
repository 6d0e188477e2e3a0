/*
 * Address entries: initial values, setters, and when they are empty.
 */
#include "platform/entry.h"

#include "support/octets.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(MMS_UTIL_Entry, StartsAsAnEmptyEmailAddress)
{
    const MMS_UTIL_Entry entry;
    EXPECT_EQ(entry.getName(), QString());
    EXPECT_EQ(entry.getType(), MMS_UTIL_Entry::Email);
    EXPECT_EQ(entry.getAddress(), QString());
    EXPECT_TRUE(entry.isEmpty());
}

TEST(MMS_UTIL_Entry, NumbersItsTypesAsTheFieldCodecsDo)
{
    EXPECT_EQ(MMS_UTIL_Entry::Email, 0);
    EXPECT_EQ(MMS_UTIL_Entry::Plmn, 1);
    EXPECT_EQ(MMS_UTIL_Entry::Absent, 2);
}

TEST(MMS_UTIL_Entry, KeepsItsConstructorArguments)
{
    const MMS_UTIL_Entry entry(u"Ana"_s, MMS_UTIL_Entry::Plmn, u"+49170"_s);
    EXPECT_EQ(entry.getName(), u"Ana"_s);
    EXPECT_EQ(entry.getType(), MMS_UTIL_Entry::Plmn);
    EXPECT_EQ(entry.getAddress(), u"+49170"_s);
}

TEST(MMS_UTIL_Entry, KeepsWhatIsSet)
{
    MMS_UTIL_Entry entry(u"Ana"_s, MMS_UTIL_Entry::Plmn, u"+49170"_s);
    entry.setName(u"Bo"_s);
    entry.setType(200);
    entry.setAddress(u"bo@example.org"_s);
    EXPECT_EQ(entry.getName(), u"Bo"_s);
    EXPECT_EQ(entry.getType(), 200);
    EXPECT_EQ(entry.getAddress(), u"bo@example.org"_s);
}

TEST(MMS_UTIL_Entry, IsEmptyOnlyWithoutNameAndAddress)
{
    struct
    {
        QString name;
        unsigned char type;
        QString address;
        bool empty;
    } const rows[] = {
        {QString(), MMS_UTIL_Entry::Email, QString(), true},
        {u""_s, MMS_UTIL_Entry::Plmn, u""_s, true},
        {u"NoBody"_s, MMS_UTIL_Entry::Absent, QString(), false},
        {QString(), MMS_UTIL_Entry::Email, u"a@b"_s, false},
        {u" "_s, MMS_UTIL_Entry::Email, QString(), false},
        {u"Ana"_s, MMS_UTIL_Entry::Email, u"a@b"_s, false},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(MMS_UTIL_Entry(row.name, row.type, row.address).isEmpty(), row.empty)
            << row.name.toStdString() << ", " << row.address.toStdString();
    }
}
