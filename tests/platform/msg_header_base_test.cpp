/*
 * Shared header values of a message: initial values, setters, and the ownership of recipients.
 */
#include "platform/msg_header_base.h"

#include "support/octets.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

using namespace Qt::StringLiterals;

using testing::ElementsAre;
using testing::IsEmpty;

static_assert(!std::is_copy_constructible_v<MMS_UTIL_MsgHeaderBase>);
static_assert(std::has_virtual_destructor_v<MMS_UTIL_MsgHeaderBase>);

namespace {

MMS_UTIL_Entry emailEntry(const QString &address)
{
    return MMS_UTIL_Entry(QString(), MMS_UTIL_Entry::Email, address);
}

std::vector<std::string> addresses(const QPtrList<MMS_UTIL_Entry> &list)
{
    std::vector<std::string> result;
    for (const MMS_UTIL_Entry *entry : list)
        result.push_back(entry->getAddress().toStdString());
    return result;
}

} // namespace

TEST(MMS_UTIL_MsgHeaderBase, StartsWithoutAddresses)
{
    const MMS_UTIL_MsgHeaderBase header;
    EXPECT_TRUE(header.getFrom().isEmpty());
    EXPECT_EQ(header.getFrom().getType(), MMS_UTIL_Entry::Email);
    EXPECT_TRUE(header.getToRecipients().isEmpty());
    EXPECT_TRUE(header.getCcRecipients().isEmpty());
    EXPECT_TRUE(header.getBccRecipients().isEmpty());
}

TEST(MMS_UTIL_MsgHeaderBase, StartsWithNormalPriorityAndNothingElse)
{
    const MMS_UTIL_MsgHeaderBase header;
    EXPECT_EQ(header.getPriority(), 129);
    EXPECT_EQ(header.getSubject(), QString());
    EXPECT_FALSE(header.getDate().isValid());
    EXPECT_EQ(header.getExpiry(), 0);
    EXPECT_FALSE(header.getDeliveryTime().isValid());
    EXPECT_EQ(header.getMessageSize(), 0);
    EXPECT_FALSE(header.getReadReply());
    EXPECT_FALSE(header.getDeliveryReport());
    EXPECT_FALSE(header.getSenderVisibility());
    EXPECT_EQ(header.getContentType(), QString());
    EXPECT_EQ(header.getContentSubType(), QString());
    EXPECT_EQ(header.getContentTypeParams(), QString());
}

TEST(MMS_UTIL_MsgHeaderBase, KeepsTextsSeparate)
{
    MMS_UTIL_MsgHeaderBase header;
    header.setFrom(emailEntry(u"me@example.org"_s));
    header.setSubject(u"subject"_s);
    header.setContentType(u"application"_s);
    header.setContentSubType(u"vnd.wap.multipart.related"_s);
    header.setContentTypeParams(u"type=application/smil;start=<0>"_s);
    EXPECT_EQ(header.getFrom().getAddress(), u"me@example.org"_s);
    EXPECT_EQ(header.getSubject(), u"subject"_s);
    EXPECT_EQ(header.getContentType(), u"application"_s);
    EXPECT_EQ(header.getContentSubType(), u"vnd.wap.multipart.related"_s);
    EXPECT_EQ(header.getContentTypeParams(), u"type=application/smil;start=<0>"_s);
}

TEST(MMS_UTIL_MsgHeaderBase, KeepsNumbersAndTimesSeparate)
{
    const QDateTime date(QDate(2004, 2, 29), QTime(23, 59, 59));
    const QDateTime delivery(QDate(2038, 1, 19), QTime(3, 14, 8));
    MMS_UTIL_MsgHeaderBase header;
    header.setDate(date);
    header.setDeliveryTime(delivery);
    header.setExpiry(-604800);
    header.setPriority(130);
    header.setMessageSize(2147483647);
    EXPECT_EQ(header.getDate(), date);
    EXPECT_EQ(header.getDeliveryTime(), delivery);
    EXPECT_EQ(header.getExpiry(), -604800);
    EXPECT_EQ(header.getPriority(), 130);
    EXPECT_EQ(header.getMessageSize(), 2147483647);
}

TEST(MMS_UTIL_MsgHeaderBase, KeepsFlagsSeparate)
{
    for (int flag = 0; flag < 3; ++flag) {
        MMS_UTIL_MsgHeaderBase header;
        header.setReadReply(flag == 0);
        header.setDeliveryReport(flag == 1);
        header.setSenderVisibility(flag == 2);
        EXPECT_EQ(header.getReadReply(), flag == 0);
        EXPECT_EQ(header.getDeliveryReport(), flag == 1);
        EXPECT_EQ(header.getSenderVisibility(), flag == 2);
    }
}

TEST(MMS_UTIL_MsgHeaderBase, AddsRecipientsAtTheEndOfTheirOwnList)
{
    MMS_UTIL_MsgHeaderBase header;
    header.addToRecipient(emailEntry(u"to1"_s));
    header.addCcRecipient(emailEntry(u"cc"_s));
    header.addToRecipient(emailEntry(u"to2"_s));
    EXPECT_THAT(addresses(header.getToRecipients()), ElementsAre("to1", "to2"));
    EXPECT_THAT(addresses(header.getCcRecipients()), ElementsAre("cc"));
    EXPECT_THAT(addresses(header.getBccRecipients()), IsEmpty());
    header.addBccRecipient(emailEntry(u"bcc"_s));
    EXPECT_THAT(addresses(header.getCcRecipients()), ElementsAre("cc"));
    EXPECT_THAT(addresses(header.getBccRecipients()), ElementsAre("bcc"));
}

TEST(MMS_UTIL_MsgHeaderBase, CopiesTheEntryThatIsAdded)
{
    MMS_UTIL_MsgHeaderBase header;
    MMS_UTIL_Entry entry(u"Ana"_s, MMS_UTIL_Entry::Plmn, u"+49170"_s);
    header.addToRecipient(entry);
    entry.setAddress(u"changed"_s);
    const MMS_UTIL_Entry *copy = header.getToRecipients().at(0);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, &entry);
    EXPECT_EQ(copy->getName(), u"Ana"_s);
    EXPECT_EQ(copy->getType(), MMS_UTIL_Entry::Plmn);
    EXPECT_EQ(copy->getAddress(), u"+49170"_s);
}

TEST(MMS_UTIL_MsgHeaderBase, CanAddAnEntryOfItsOwnList)
{
    MMS_UTIL_MsgHeaderBase header;
    header.addToRecipient(emailEntry(u"first"_s));
    for (int i = 0; i < 20; ++i)
        header.addToRecipient(*header.getToRecipients().at(0));
    EXPECT_EQ(header.getToRecipients().count(), 21);
    EXPECT_EQ(header.getToRecipients().at(20)->getAddress(), u"first"_s);
}

TEST(MMS_UTIL_MsgHeaderBase, OwnsItsRecipients)
{
    MMS_UTIL_MsgHeaderBase header;
    EXPECT_TRUE(header.getToRecipients().autoDelete());
    EXPECT_TRUE(header.getCcRecipients().autoDelete());
    EXPECT_TRUE(header.getBccRecipients().autoDelete());
}

TEST(MMS_UTIL_MsgHeaderBase, CanBeDeletedThroughItsBase)
{
    struct Record : MMS_UTIL_MsgHeaderBase
    {
        explicit Record(bool *released) : m_released(released) { }
        ~Record() override { *m_released = true; }
        bool *m_released;
    };
    bool released = false;
    std::unique_ptr<MMS_UTIL_MsgHeaderBase> header = std::make_unique<Record>(&released);
    header->addBccRecipient(emailEntry(u"bcc"_s));
    header.reset();
    EXPECT_TRUE(released);
}

TEST(MMS_UTIL_MsgHeaderBase, ListsCanBeChangedInPlace)
{
    MMS_UTIL_MsgHeaderBase header;
    header.addToRecipient(emailEntry(u"first"_s));
    header.getToRecipients().append(new MMS_UTIL_Entry(emailEntry(u"second"_s)));
    EXPECT_TRUE(header.getToRecipients().remove(0));
    EXPECT_THAT(addresses(header.getToRecipients()), ElementsAre("second"));
}
