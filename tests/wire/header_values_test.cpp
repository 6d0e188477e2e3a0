/*
 * Names of header field values, against the tables of the standard (OMA-MMS-ENC, 7.3).
 */
#include "wire/header_values.h"

#include "wire/header_fields.h"
#include "wire/message_types.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

using Names = std::map<int, std::string>;

Names namesBy(const char *(*nameOf)(unsigned char), std::span<const QvlFieldValue> values)
{
    Names names;
    for (const QvlFieldValue &row : values)
        EXPECT_STREQ(nameOf(row.value), row.name);
    for (int value = 0; value < 256; ++value) {
        if (const char *name = nameOf(static_cast<unsigned char>(value)))
            names[value] = name;
    }
    EXPECT_EQ(names.size(), values.size());
    return names;
}

} // namespace

TEST(MessageClass, HasTheNamesOfTheStandard)
{
    EXPECT_EQ(
        namesBy(QvlMessageClass::nameOf, QvlMessageClass::values()),
        (Names{{128, "personal"}, {129, "advertisement"}, {130, "informational"}, {131, "auto"}}));
}

TEST(Priority, HasTheNamesOfTheStandard)
{
    EXPECT_EQ(namesBy(QvlPriority::nameOf, QvlPriority::values()),
              (Names{{128, "low"}, {129, "normal"}, {130, "high"}}));
}

TEST(Status, HasTheNamesOfTheStandard)
{
    EXPECT_EQ(namesBy(QvlStatus::nameOf, QvlStatus::values()),
              (Names{{128, "expired"},
                     {129, "retrieved"},
                     {130, "rejected"},
                     {131, "deferred"},
                     {132, "unrecognised"},
                     {133, "indeterminate"},
                     {134, "forwarded"},
                     {135, "unreachable"}}));
}

TEST(ResponseStatus, HasTheNamesOfTheStandard)
{
    EXPECT_EQ(namesBy(QvlResponseStatus::nameOf, QvlResponseStatus::values()),
              (Names{{128, "ok"},
                     {129, "error-unspecified"},
                     {130, "error-service-denied"},
                     {131, "error-message-format-corrupt"},
                     {132, "error-sending-address-unresolved"},
                     {133, "error-message-not-found"},
                     {134, "error-network-problem"},
                     {135, "error-content-not-accepted"},
                     {136, "error-unsupported-message"},
                     {192, "error-transient-failure"},
                     {193, "error-transient-sending-address-unresolved"},
                     {194, "error-transient-message-not-found"},
                     {195, "error-transient-network-problem"},
                     {196, "error-transient-partial-success"},
                     {224, "error-permanent-failure"},
                     {225, "error-permanent-service-denied"},
                     {226, "error-permanent-message-format-corrupt"},
                     {227, "error-permanent-sending-address-unresolved"},
                     {228, "error-permanent-message-not-found"},
                     {229, "error-permanent-content-not-accepted"},
                     {230, "error-permanent-reply-charging-limitations-not-met"},
                     {231, "error-permanent-reply-charging-request-not-accepted"},
                     {232, "error-permanent-reply-charging-forwarding-denied"},
                     {233, "error-permanent-reply-charging-not-supported"},
                     {234, "error-permanent-address-hiding-not-supported"},
                     {235, "error-permanent-lack-of-prepaid"}}));
}

TEST(MessageType, HasTheNamesOfTheStandard)
{
    EXPECT_EQ(
        namesBy(QvlMessageType::nameOf, QvlMessageType::values()),
        (Names{
            {128, "m-send-req"},         {129, "m-send-conf"},        {130, "m-notification-ind"},
            {131, "m-notifyresp-ind"},   {132, "m-retrieve-conf"},    {133, "m-acknowledge-ind"},
            {134, "m-delivery-ind"},     {135, "m-read-rec-ind"},     {136, "m-read-orig-ind"},
            {137, "m-forward-req"},      {138, "m-forward-conf"},     {139, "m-mbox-store-req"},
            {140, "m-mbox-store-conf"},  {141, "m-mbox-view-req"},    {142, "m-mbox-view-conf"},
            {143, "m-mbox-upload-req"},  {144, "m-mbox-upload-conf"}, {145, "m-mbox-delete-req"},
            {146, "m-mbox-delete-conf"}, {147, "m-mbox-descr"},       {148, "m-delete-req"},
            {149, "m-delete-conf"},      {150, "m-cancel-req"},       {151, "m-cancel-conf"}}));
}

TEST(MessageType, IsNamedByTheTableOfMessageTypes)
{
    EXPECT_STREQ(messageTypeInfo(QvlMessageType::SendReq)->name, "m-send-req");
    EXPECT_STREQ(messageTypeInfo(QvlMessageType::SendConf)->name, "m-send-conf");
    EXPECT_STREQ(messageTypeInfo(QvlMessageType::NotificationInd)->name, "m-notification-ind");
    EXPECT_STREQ(messageTypeInfo(QvlMessageType::NotifyRespInd)->name, "m-notifyresp-ind");
    EXPECT_STREQ(messageTypeInfo(QvlMessageType::RetrieveConf)->name, "m-retrieve-conf");
    EXPECT_STREQ(messageTypeInfo(QvlMessageType::AcknowledgeInd)->name, "m-acknowledge-ind");
    EXPECT_STREQ(messageTypeInfo(QvlMessageType::DeliveryInd)->name, "m-delivery-ind");
}
