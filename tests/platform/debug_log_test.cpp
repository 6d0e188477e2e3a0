/*
 * Octets in the debug log: a dump if the category is on, else nothing.
 */
#include "platform/debug_log.h"

#include <QLoggingCategory>
#include <QString>

#include <gmock/gmock.h>

#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

std::vector<std::string> messages;

void keepMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const bool expected =
        type == QtDebugMsg && std::string(context.category) == "qvl.platform.octets";
    messages.push_back((expected ? "" : "not of the category: ") + text.toStdString());
}

} // namespace

/// Catches every message of Qt while a test runs.
class MMS_UTIL_ToolTest : public testing::Test
{
protected:
    MMS_UTIL_ToolTest() : m_previous(qInstallMessageHandler(keepMessage)) { messages.clear(); }

    ~MMS_UTIL_ToolTest() override
    {
        QLoggingCategory::setFilterRules(QString());
        qInstallMessageHandler(m_previous);
    }

    static void switchOn()
    {
        QLoggingCategory::setFilterRules(QStringLiteral("qvl.platform.octets.debug=true"));
    }

private:
    QtMessageHandler m_previous;
};

TEST_F(MMS_UTIL_ToolTest, IsSilentByDefault)
{
    MMS_UTIL_Tool::logOut("octets", 6);
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(MMS_UTIL_ToolTest, DoesNotTouchTheOctetsWhileItIsOff)
{
    const auto *nowhere = reinterpret_cast<const char *>(16);
    MMS_UTIL_Tool::logOut(nowhere, 1 << 30);
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(MMS_UTIL_ToolTest, CanBeSwitchedOnAndOffAgain)
{
    switchOn();
    MMS_UTIL_Tool::logOut("a", 1);
    EXPECT_THAT(messages, SizeIs(1));
    QLoggingCategory::setFilterRules(QString());
    MMS_UTIL_Tool::logOut("a", 1);
    EXPECT_THAT(messages, SizeIs(1));
}

TEST_F(MMS_UTIL_ToolTest, LogsNothingForNoOctets)
{
    switchOn();
    MMS_UTIL_Tool::logOut(nullptr, 0);
    MMS_UTIL_Tool::logOut(nullptr, 16);
    MMS_UTIL_Tool::logOut("octets", 0);
    MMS_UTIL_Tool::logOut("octets", -1);
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(MMS_UTIL_ToolTest, DumpsAShortLine)
{
    switchOn();
    MMS_UTIL_Tool::logOut("Hi \"%1\"", 3);
    EXPECT_THAT(messages,
                ElementsAre("00000000  48 69 20                                          |Hi |"));
}

TEST_F(MMS_UTIL_ToolTest, DumpsSixteenOctetsPerLine)
{
    switchOn();
    MMS_UTIL_Tool::logOut("0123456789abcdefGHIJKLMNOPQRSTUVWXYZ", 33);
    EXPECT_THAT(
        messages,
        ElementsAre(
            "00000000  30 31 32 33 34 35 36 37  38 39 61 62 63 64 65 66  |0123456789abcdef|",
            "00000010  47 48 49 4a 4b 4c 4d 4e  4f 50 51 52 53 54 55 56  |GHIJKLMNOPQRSTUV|",
            "00000020  57                                                |W|"));
}

TEST_F(MMS_UTIL_ToolTest, EndsWithAFullLine)
{
    switchOn();
    MMS_UTIL_Tool::logOut("0123456789abcdef", 16);
    EXPECT_THAT(messages, SizeIs(1));
}

TEST_F(MMS_UTIL_ToolTest, ShowsOtherOctetsAsDots)
{
    switchOn();
    const char octets[] = {'\x00', '\x1f', ' ', '~', '\x7f', '\x80', '\xff', '\n', '"', '\\'};
    MMS_UTIL_Tool::logOut(octets, sizeof octets);
    EXPECT_THAT(messages,
                ElementsAre("00000000  00 1f 20 7e 7f 80 ff 0a  22 5c                    "
                            "|.. ~....\"\\|"));
}

TEST_F(MMS_UTIL_ToolTest, ReadsNoOctetPastTheEnd)
{
    switchOn();
    for (int length = 1; length <= 33; ++length) {
        const std::vector<char> octets(static_cast<std::size_t>(length), 'x');
        messages.clear();
        MMS_UTIL_Tool::logOut(octets.data(), length);
        EXPECT_THAT(messages, SizeIs(static_cast<std::size_t>((length + 15) / 16))) << length;
    }
}

TEST_F(MMS_UTIL_ToolTest, CountsOffsetsInHexadecimal)
{
    switchOn();
    const std::vector<char> octets(10000, '\xA5');
    MMS_UTIL_Tool::logOut(octets.data(), 10000);
    ASSERT_THAT(messages, SizeIs(625));
    EXPECT_EQ(messages.back().substr(0, 13), "00002700  a5 ");
}
