/*
 * PDUs of MMS 1.1 to 1.3: one for each field that these versions added, for each message type and
 * for each form of Content-Type. Offsets and values are computed by hand.
 */
#include "scan/header_scanner.h"

#include "scan/scanned_fields.h"
#include "support/pdu_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace PduWriter;

namespace {

const QByteArray privet = "EF F0 E8 E2 E5 F2"_octets; // in windows-1251
const QByteArray nihon = "93 FA 96 7B"_octets; // in Shift_JIS
const QByteArray phone = text("+1/TYPE=PLMN"); // 13 octets
const QByteArray link = field(3, text("http://x/1")); // Content-Location, 12 octets
const QByteArray noCharsetTag = token(128) + text("tag");

constexpr quint64 july2004 = 1090000000;

// Message-Type, Transaction-Id and MMS-Version 1.3: 8 octets.
QByteArray opening(int type)
{
    return field(12, token(type)) + field(24, text("T1")) + field(13, integer(19));
}

// Message-Type and MMS-Version 1.3: 4 octets.
QByteArray shortOpening(int type)
{
    return field(12, token(type)) + field(13, integer(19));
}

/// "8+3 Date: number 5": where a field begins, how long its value is, and what it says.
std::vector<std::string> describedFields(const Scan &scan)
{
    std::vector<std::string> lines;
    for (const QvlScannedField &field : scan.fields)
        lines.push_back(std::to_string(field.offset) + "+" + std::to_string(field.value.size())
                        + " " + nameOf(field) + ": " + described(field.decoded()));
    return lines;
}

TEST(PduWriter, WritesOctets)
{
    EXPECT_EQ(uintvar(0), "00"_octets);
    EXPECT_EQ(uintvar(127), "7F"_octets);
    EXPECT_EQ(uintvar(128), "81 00"_octets);
    EXPECT_EQ(uintvar(16384), "81 80 00"_octets);
    EXPECT_EQ(uintvar(5, 3), "80 80 05"_octets);
    EXPECT_EQ(uintvar(300, 1), "82 2C"_octets);
    EXPECT_EQ(integer(127), "FF"_octets);
    EXPECT_EQ(integer(128), "01 80"_octets);
    EXPECT_EQ(integer(65536), "03 01 00 00"_octets);
    EXPECT_EQ(integer(0xFFFFFFFFFFFFFFFF), "08 FF FF FF FF FF FF FF FF"_octets);
    EXPECT_EQ(longInteger(5, 3), "03 00 00 05"_octets);
    EXPECT_EQ(withLength(octet(9, 30)), "1E"_octets + octet(9, 30));
    EXPECT_EQ(withLength(octet(9, 31)), "1F 1F"_octets + octet(9, 31));
    EXPECT_EQ(withLongLength("09"_octets, 2), "1F 80 01 09"_octets);
    EXPECT_EQ(encodedText(106, text("a")), "03 EA 61 00"_octets);
    EXPECT_EQ(encodedText(2251, privet), "09 02 08 CB EF F0 E8 E2 E5 F2"_octets);
    EXPECT_EQ(quotedText("\x80"), "7F 80 00"_octets);
    EXPECT_EQ(quotedString("a"), "22 61 00"_octets);
    EXPECT_EQ(absoluteTime(july2004), "06 80 04 40 F8 14 80"_octets);
    EXPECT_EQ(relativeTime(604800), "05 81 03 09 3A 80"_octets);
    EXPECT_EQ(sender(text("a")), "03 80 61 00"_octets);
    EXPECT_EQ(insertAddress(), "01 81"_octets);
    EXPECT_EQ(fieldInLetters("X", text("a")), "58 00 61 00"_octets);
    EXPECT_EQ(body({}), "00"_octets);
}

struct FieldRow
{
    int code;
    QByteArray value;
    int end; // where the next field begins; this one begins at 8
    std::string described;
};

const std::vector<FieldRow> &laterFields()
{
    static const std::vector<FieldRow> rows{
        {25, token(224), 10, "8+1 Retrieve-Status: token 224 error-permanent-failure"},
        {26, encodedText(18, text("\xC6\xFC\xCB\xDC")), 16,
         "8+7 Retrieve-Text: charset 18; \"日本\""},
        {27, token(129), 10, "8+1 Read-Status: token 129 deleted-without-being-read"},
        {28, token(129), 10, "8+1 Reply-Charging: token 129 requested-text-only"},
        {29, absoluteTime(july2004), 16,
         "8+7 Reply-Charging-Deadline: token 128 absolute; number 1090000000"},
        {30, text("m0"), 12, "8+3 Reply-Charging-ID: \"m0\""},
        {31, integer(30720), 12, "8+3 Reply-Charging-Size: number 30720"},
        {32, withLength(integer(2) + phone), 24,
         "8+15 Previously-Sent-By: count 2; \"+1/TYPE=PLMN\""},
        {33, withLength(integer(1) + date(july2004)), 16,
         "8+7 Previously-Sent-Date: count 1; number 1090000000"},
        {34, token(129), 10, "8+1 Store: token 129 no"},
        {35, token(131), 10, "8+1 MM-State: token 131 retrieved"},
        {36, withLength(token(130) + encodedText(2084, text("\xD0"))), 17,
         "8+8 MM-Flags: token 130 filter; charset 2084; \"п\""},
        {37, token(225), 10, "8+1 Store-Status: token 225 error-permanent-service-denied"},
        {38, text("full"), 14, "8+5 Store-Status-Text: \"full\""},
        {39, token(128), 10, "8+1 Stored: token 128 yes"},
        {40, withLength(token(129) + token(130) + token(150)), 13, "8+4 Attributes: count 3"},
        {41, token(128), 10, "8+1 Totals: token 128 yes"},
        {42, withLength(token(128) + integer(200)), 13,
         "8+4 Mbox-Totals: token 128 messages; number 200"},
        {43, token(129), 10, "8+1 Quotas: token 129 no"},
        {44, withLongLength(token(129) + longInteger(1048576, 4)), 17,
         "8+8 Mbox-Quotas: token 129 octets; number 1048576"},
        {45, integer(0), 10, "8+1 Message-Count: number 0"},
        {46, withLength("01 02"_octets), 12, "8+3 Content: unreadable"},
        {47, longInteger(5, 8), 18, "8+9 Start: number 5"},
        {48, withLength("8B 00"_octets), 12, "8+3 Additional-Headers: unreadable"},
        {49, token(128), 10, "8+1 Distribution-Indicator: token 128 yes"},
        {50, withLength(text("<a>") + field(1, mediaCode(30))), 16,
         "8+7 Element-Descriptor: \"<a>\""},
        {51, integer(200), 11, "8+2 Limit: number 200"},
        {52, token(128), 10, "8+1 Recommended-Retrieval-Mode: token 128 manual"},
        {53, encodedText(1015, "FE FF 00 61 00 00"_octets), 19,
         "8+10 Recommended-Retrieval-Mode-Text: charset 1015; \"a\""},
        {54, encodedText(4, text("\xE4")), 13, "8+4 Status-Text: charset 4; \"ä\""},
        {55, text("app"), 13, "8+4 Applic-ID: \"app\""},
        {56, quotedText("ü"), 13, "8+4 Reply-Applic-ID: \"ü\""},
        {57, text(""), 10, "8+1 Aux-Applic-Info: \"\""},
        {58, token(135), 10, "8+1 Content-Class: token 135 content-rich"},
        {59, token(128), 10, "8+1 DRM-Content: token 128 yes"},
        {60, token(129), 10, "8+1 Adaptation-Allowed: token 129 no"},
        {61, text("m1"), 12, "8+3 Replace-ID: \"m1\""},
        {62, text("m2"), 12, "8+3 Cancel-ID: \"m2\""},
        {63, token(129), 10, "8+1 Cancel-Status: token 129 cancel-request-corrupted"},
    };
    return rows;
}

QByteArray pduWith(const FieldRow &row)
{
    return opening(132) + field(row.code, row.value) + field(4, mediaCode(35)) + body({});
}

TEST(LaterMessages, HaveEveryLaterField)
{
    int code = QvlLaterFieldCode::RetrieveStatus;
    for (const FieldRow &row : laterFields()) {
        SCOPED_TRACE(row.code);
        EXPECT_EQ(row.code, code++);
        const Scan scan(pduWith(row));
        const std::string last = std::to_string(row.end)
            + "+1 Content-Type: number 35; \"application/vnd.wap.multipart.mixed\"";
        EXPECT_THAT(describedFields(scan),
                    testing::ElementsAre("0+1 Message-Type: token 132 m-retrieve-conf",
                                         "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
                                         row.described, last));
        EXPECT_EQ(scan.scanner.result(), QvlHeaderScanner::ContentTypeRead);
        EXPECT_EQ(scan.scanner.position(), row.end + 2);
        expectTiling(scan);
    }
    EXPECT_EQ(code, QvlLaterFieldCode::CancelStatus + 1);
}

struct MessageRow
{
    int type;
    QByteArray pdu;
    std::vector<std::string> fields; // after the first one, with its type
    QByteArray body;
};

QByteArray sendReq()
{
    const QByteArray parameters = field(10, text("<s>")) + field(9, text("application/smil"));
    const QByteArray plain = generalType(mediaCode(3), field(1, integer(106)));
    return opening(128) + field(5, date(july2004)) + field(9, insertAddress()) + field(23, phone)
        + field(22, encodedText(2251, text(privet))) + field(10, text("auto"))
        + field(8, relativeTime(604800)) + field(55, text("app")) + field(58, token(133))
        + field(60, token(129)) + field(4, generalType(mediaCode(51), parameters))
        + body({part(plain, field(64, quotedString("<s>")), "Hi")});
}

QByteArray notificationInd()
{
    return opening(130) + field(9, sender(text("a@b"))) + field(39, token(129))
        + field(10, token(128)) + field(14, integer(30720)) + field(8, relativeTime(604800))
        + field(28, token(128)) + field(29, absoluteTime(july2004)) + field(31, integer(256)) + link
        + field(50, withLength(text("<s>") + field(1, mediaCode(30)))) + field(52, token(128))
        + field(53, text("large"));
}

QByteArray retrieveConf()
{
    const QByteArray picture = part(mediaCode(30), field(14, text("a")), "FF D8"_octets);
    const QByteArray unknown = part(text("text/x-a"), fieldInLetters("X-B", text("c")), {});
    return opening(132) + field(11, text("m1")) + field(5, date(july2004))
        + field(9, sender(text("a@b"))) + field(32, withLength(integer(1) + text("a@b")))
        + field(33, withLength(integer(1) + date(july2004)))
        + field(22, encodedText(17, text(nihon))) + field(25, token(128)) + field(26, text("ok"))
        + field(59, token(129)) + field(61, text("m0")) + field(4, mediaCode(35))
        + body({picture, unknown}, 2);
}

QByteArray deliveryInd()
{
    return shortOpening(134) + field(11, text("m1")) + field(23, phone) + field(5, date(july2004))
        + field(21, token(134)) + field(54, encodedText(4, text("\xE4"))) + field(56, text("app"))
        + field(57, text("x"));
}

QByteArray readReport(int type, const QByteArray &from, int status)
{
    return shortOpening(type) + field(11, text("m1")) + field(23, phone) + field(9, from)
        + field(5, date(july2004)) + field(27, token(status));
}

// The messages that phones and relays exchange.
const std::vector<MessageRow> &deliveredMessages()
{
    static const std::vector<MessageRow> rows{
        {128,
         sendReq(),
         {"m-send-req", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+5 Date: number 1090000000", "14+2 From: token 129 insert-address",
          "17+13 To: \"+1/TYPE=PLMN\"", "31+11 Subject: charset 2251; \"привет\"",
          "43+5 Message-Class: \"auto\"", "49+6 Expiry: token 129 relative; number 604800",
          "56+4 Applic-ID: \"app\"", "61+1 Content-Class: token 133 megapixel",
          "63+1 Adaptation-Allowed: token 129 no",
          "65+25 Content-Type: number 51; \"application/vnd.wap.multipart.related\""},
         "01 0A 02 03 83 81 EA C0 22 3C 73 3E 00 48 69"_octets},
        {129,
         opening(129) + field(18, token(128)) + field(19, encodedText(106, text("ok")))
             + field(11, text("m1")) + field(37, token(128)) + field(38, text("done")),
         {"m-send-conf", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+1 Response-Status: token 128 ok", "10+5 Response-Text: charset 106; \"ok\"",
          "16+3 Message-ID: \"m1\"", "20+1 Store-Status: token 128 success",
          "22+5 Store-Status-Text: \"done\""},
         {}},
        {130,
         notificationInd(),
         {"m-notification-ind", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+6 From: token 128 address-present; \"a@b\"", "15+1 Stored: token 129 no",
          "17+1 Message-Class: token 128 personal", "19+3 Message-Size: number 30720",
          "23+6 Expiry: token 129 relative; number 604800",
          "30+1 Reply-Charging: token 128 requested",
          "32+7 Reply-Charging-Deadline: token 128 absolute; number 1090000000",
          "40+3 Reply-Charging-Size: number 256", "44+11 Content-Location: \"http://x/1\"",
          "56+7 Element-Descriptor: \"<s>\"", "64+1 Recommended-Retrieval-Mode: token 128 manual",
          "66+6 Recommended-Retrieval-Mode-Text: \"large\""},
         {}},
        {131,
         opening(131) + field(21, token(129)) + field(17, token(128)),
         {"m-notifyresp-ind", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+1 Status: token 129 retrieved", "10+1 Report-Allowed: token 128 yes"},
         {}},
        {132,
         retrieveConf(),
         {"m-retrieve-conf", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+3 Message-ID: \"m1\"", "12+5 Date: number 1090000000",
          "18+6 From: token 128 address-present; \"a@b\"",
          "25+6 Previously-Sent-By: count 1; \"a@b\"",
          "32+7 Previously-Sent-Date: count 1; number 1090000000",
          "40+7 Subject: charset 17; \"日本\"", "48+1 Retrieve-Status: token 128 ok",
          "50+3 Retrieve-Text: \"ok\"", "54+1 DRM-Content: token 129 no", "56+3 Replace-ID: \"m0\"",
          "60+1 Content-Type: number 35; \"application/vnd.wap.multipart.mixed\""},
         "80 02 04 02 9E 8E 61 00 FF D8"_octets
             + "0F 00 74 65 78 74 2F 78 2D 61 00 58 2D 42 00 63 00"_octets},
        {133,
         opening(133) + field(17, token(129)),
         {"m-acknowledge-ind", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+1 Report-Allowed: token 129 no"},
         {}},
        {134,
         deliveryInd(),
         {"m-delivery-ind", "2+1 MMS-Version: number 19", "4+3 Message-ID: \"m1\"",
          "8+13 To: \"+1/TYPE=PLMN\"", "22+5 Date: number 1090000000",
          "28+1 Status: token 134 forwarded", "30+4 Status-Text: charset 4; \"ä\"",
          "35+4 Reply-Applic-ID: \"app\"", "40+2 Aux-Applic-Info: \"x\""},
         {}},
        {135,
         readReport(135, insertAddress(), 128),
         {"m-read-rec-ind", "2+1 MMS-Version: number 19", "4+3 Message-ID: \"m1\"",
          "8+13 To: \"+1/TYPE=PLMN\"", "22+2 From: token 129 insert-address",
          "25+5 Date: number 1090000000", "31+1 Read-Status: token 128 read"},
         {}},
        {136,
         readReport(136, sender(encodedText(106, text("a@b"))), 129),
         {"m-read-orig-ind", "2+1 MMS-Version: number 19", "4+3 Message-ID: \"m1\"",
          "8+13 To: \"+1/TYPE=PLMN\"", "22+8 From: token 128 address-present; charset 106; \"a@b\"",
          "31+5 Date: number 1090000000", "37+1 Read-Status: token 129 deleted-without-being-read"},
         {}},
        {137,
         opening(137) + field(9, insertAddress()) + field(23, phone) + field(34, token(128))
             + field(35, token(132)) + field(36, withLength(noCharsetTag)) + field(30, text("m0"))
             + link,
         {"m-forward-req", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+2 From: token 129 insert-address", "11+13 To: \"+1/TYPE=PLMN\"",
          "25+1 Store: token 128 yes", "27+1 MM-State: token 132 forwarded",
          "29+6 MM-Flags: token 128 add; \"tag\"", "36+3 Reply-Charging-ID: \"m0\"",
          "40+11 Content-Location: \"http://x/1\""},
         {}},
        {138,
         opening(138) + field(18, token(230)) + field(11, text("m1")),
         {"m-forward-conf", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+1 Response-Status: token 230 error-permanent-reply-charging-limitations-not-met",
          "10+3 Message-ID: \"m1\""},
         {}},
    };
    return rows;
}

// The messages about the mailbox, and those that delete and cancel messages.
const std::vector<MessageRow> &mailboxMessages()
{
    static const std::vector<MessageRow> rows{
        {139,
         opening(139) + link + field(35, token(128))
             + field(36, withLength(token(129) + encodedText(106, text("tag")))),
         {"m-mbox-store-req", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+11 Content-Location: \"http://x/1\"", "20+1 MM-State: token 128 draft",
          "22+8 MM-Flags: token 129 remove; charset 106; \"tag\""},
         {}},
        {140,
         opening(140) + link + field(37, token(228)),
         {"m-mbox-store-conf", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+11 Content-Location: \"http://x/1\"",
          "20+1 Store-Status: token 228 error-permanent-mmbox-full"},
         {}},
        {141,
         opening(141) + field(40, withLength(token(150) + token(151))) + field(47, integer(0))
             + field(51, integer(256)) + field(41, token(128)) + field(43, token(128)),
         {"m-mbox-view-req", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+3 Attributes: count 2", "12+1 Start: number 0", "14+3 Limit: number 256",
          "18+1 Totals: token 128 yes", "20+1 Quotas: token 128 yes"},
         {}},
        {142,
         opening(142) + field(18, token(128)) + field(42, withLength(token(128) + integer(5)))
             + field(44, withLength(token(129) + integer(4096))) + field(45, integer(1))
             + field(4, mediaCode(35)) + body({}),
         {"m-mbox-view-conf", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+1 Response-Status: token 128 ok", "10+3 Mbox-Totals: token 128 messages; number 5",
          "14+5 Mbox-Quotas: token 129 octets; number 4096", "20+1 Message-Count: number 1",
          "22+1 Content-Type: number 35; \"application/vnd.wap.multipart.mixed\""},
         "00"_octets},
        {143,
         opening(143) + field(35, token(128)) + field(36, withLength(noCharsetTag))
             + field(4, text("text/plain")) + QByteArray("Hi"),
         {"m-mbox-upload-req", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+1 MM-State: token 128 draft", "10+6 MM-Flags: token 128 add; \"tag\"",
          "17+11 Content-Type: \"text/plain\""},
         "48 69"_octets},
        {144,
         opening(144) + link + field(37, token(128)),
         {"m-mbox-upload-conf", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+11 Content-Location: \"http://x/1\"", "20+1 Store-Status: token 128 success"},
         {}},
        {145,
         opening(145) + link + link,
         {"m-mbox-delete-req", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+11 Content-Location: \"http://x/1\"", "20+11 Content-Location: \"http://x/1\""},
         {}},
        {146,
         opening(146) + link + field(18, token(128)) + field(19, text("ok")),
         {"m-mbox-delete-conf", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+11 Content-Location: \"http://x/1\"", "20+1 Response-Status: token 128 ok",
          "22+3 Response-Text: \"ok\""},
         {}},
        {147,
         opening(147) + link + field(35, token(130)) + field(46, withLength("01 02"_octets))
             + field(48, withLength("8B 00"_octets)) + fieldInLetters("X-A", text("on"))
             + field(4, mediaCode(35)) + body({}),
         {"m-mbox-descr", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+11 Content-Location: \"http://x/1\"", "20+1 MM-State: token 130 new",
          "22+3 Content: unreadable", "26+3 Additional-Headers: unreadable", "30+3 X-A: \"on\"",
          "37+1 Content-Type: number 35; \"application/vnd.wap.multipart.mixed\""},
         "00"_octets},
        {148,
         opening(148) + link,
         {"m-delete-req", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+11 Content-Location: \"http://x/1\""},
         {}},
        {149,
         opening(149) + link + field(18, token(128)),
         {"m-delete-conf", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+11 Content-Location: \"http://x/1\"", "20+1 Response-Status: token 128 ok"},
         {}},
        {150,
         opening(150) + field(62, text("m1")),
         {"m-cancel-req", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+3 Cancel-ID: \"m1\""},
         {}},
        {151,
         opening(151) + field(63, token(128)),
         {"m-cancel-conf", "2+3 Transaction-Id: \"T1\"", "6+1 MMS-Version: number 19",
          "8+1 Cancel-Status: token 128 cancel-request-successfully-received"},
         {}},
    };
    return rows;
}

void expectMessage(const MessageRow &row)
{
    SCOPED_TRACE(row.type);
    const Scan scan(row.pdu);
    std::vector<std::string> fields = row.fields;
    fields.front() =
        "0+1 Message-Type: token " + std::to_string(row.type) + " " + row.fields.front();
    EXPECT_EQ(describedFields(scan), fields);
    EXPECT_TRUE(scan.scanner.isComplete());
    EXPECT_EQ(row.pdu.sliced(scan.scanner.position()), row.body);
    expectTiling(scan);
}

TEST(LaterMessages, HaveEveryType)
{
    int type = QvlMessageType::SendReq;
    for (const auto *rows : {&deliveredMessages(), &mailboxMessages()}) {
        for (const MessageRow &row : *rows) {
            EXPECT_EQ(row.type, type++);
            expectMessage(row);
        }
    }
    EXPECT_EQ(type, QvlMessageType::CancelConf + 1);
}

struct ContentTypeRow
{
    const char *name;
    QByteArray written;
    QByteArray value;
    int bodyStart; // the value begins at 5
    const char *described;
};

const std::vector<ContentTypeRow> &contentTypes()
{
    static const char related[] = "number 51; \"application/vnd.wap.multipart.related\"";
    static const QByteArray start = field(10, text("<s>"));
    static const QByteArray type = field(9, text("a/b"));
    static const std::vector<ContentTypeRow> rows{
        {"one octet", mediaCode(35), "A3"_octets, 6,
         "number 35; \"application/vnd.wap.multipart.mixed\""},
        {"an unassigned code", mediaCode(127), "FF"_octets, 6, "number 127"},
        {"letters", text("image/png"), "69 6D 61 67 65 2F 70 6E 67 00"_octets, 15, "\"image/png\""},
        {"general, code", generalType(mediaCode(51)), "01 B3"_octets, 7, related},
        {"general, letters", generalType(text("text/x")), "07 74 65 78 74 2F 78 00"_octets, 13,
         "\"text/x\""},
        {"Start and Type", generalType(mediaCode(51), start + type),
         "0B B3 8A 3C 73 3E 00 89 61 2F 62 00"_octets, 17, related},
        {"Type and Start", generalType(mediaCode(51), type + start),
         "0B B3 89 61 2F 62 00 8A 3C 73 3E 00"_octets, 17, related},
        {"a quoted Start", generalType(mediaCode(51), field(10, quotedString("<s>"))),
         "07 B3 8A 22 3C 73 3E 00"_octets, 13, related},
        {"Start in letters", generalType(mediaCode(51), fieldInLetters("start", text("<s>"))),
         "0B B3 73 74 61 72 74 00 3C 73 3E 00"_octets, 17, related},
        {"Start in letters, Type in code",
         generalType(mediaCode(51), fieldInLetters("start", text("<s>")) + type),
         "10 B3 73 74 61 72 74 00 3C 73 3E 00 89 61 2F 62 00"_octets, 22, related},
        {"Charset", generalType(mediaCode(3), field(1, integer(106))), "03 83 81 EA"_octets, 9,
         "number 3; \"text/plain\""},
        {"Charset of two octets", generalType(mediaCode(3), field(1, integer(1000))),
         "05 83 81 02 03 E8"_octets, 11, "number 3; \"text/plain\""},
        {"a parameter without a value", generalType(mediaCode(3), fieldInLetters("x", text(""))),
         "04 83 78 00 00"_octets, 10, "number 3; \"text/plain\""},
        {"letters and a parameter", generalType(text("image/gif"), field(5, text("n"))),
         "0D 69 6D 61 67 65 2F 67 69 66 00 85 6E 00"_octets, 19, "\"image/gif\""},
        {"a uintvar as the length", withLongLength(mediaCode(51)), "1F 01 B3"_octets, 8, related},
        {"a length in two octets", withLongLength(mediaCode(51), 2), "1F 80 01 B3"_octets, 9,
         related},
        {"33 octets", generalType(mediaCode(3), field(5, text(octet('n', 30)))),
         "1F 21 83 85"_octets + octet(0x6E, 30) + "00"_octets, 40, "number 3; \"text/plain\""},
        {"a code as a long integer", generalType(longInteger(30, 1)), "02 01 1E"_octets, 8,
         "number 30; \"image/jpeg\""},
        {"a code of two octets", generalType(longInteger(515, 2)), "03 02 02 03"_octets, 9,
         "number 515"},
    };
    return rows;
}

QByteArray pduWith(const ContentTypeRow &row)
{
    return shortOpening(132) + field(4, row.written) + body({part(mediaCode(3), {}, "Hi")});
}

TEST(LaterMessages, HaveEveryFormOfContentType)
{
    for (const ContentTypeRow &row : contentTypes()) {
        SCOPED_TRACE(row.name);
        const QByteArray pdu = pduWith(row);
        const Scan scan(pdu);
        ASSERT_EQ(scan.fields.size(), 3u);
        const QvlScannedField &field = scan.fields.back();
        EXPECT_EQ(field.offset, 4);
        EXPECT_EQ(field.valueOffset(), 5);
        EXPECT_EQ(field.value, row.value);
        EXPECT_EQ(described(field.decoded()), row.described);
        EXPECT_EQ(scan.scanner.result(), QvlHeaderScanner::ContentTypeRead);
        EXPECT_EQ(scan.scanner.position(), row.bodyStart);
        EXPECT_EQ(pdu.sliced(row.bodyStart), "01 01 02 83 48 69"_octets);
        expectTiling(scan);
    }
}

TEST(LaterMessages, HaveTheSameFieldsWhenTruncated)
{
    for (const FieldRow &row : laterFields()) {
        SCOPED_TRACE(row.described);
        expectSameFieldsWhenTruncated(pduWith(row));
    }
    for (const auto *rows : {&deliveredMessages(), &mailboxMessages()}) {
        for (const MessageRow &row : *rows) {
            SCOPED_TRACE(row.type);
            expectSameFieldsWhenTruncated(row.pdu);
        }
    }
    for (const ContentTypeRow &row : contentTypes()) {
        SCOPED_TRACE(row.name);
        expectSameFieldsWhenTruncated(pduWith(row));
    }
}

} // namespace
