/*
 * Conditions, order and the forms of a list, with entries that are made by hand.
 */
#include "list/condition.h"
#include "list/order.h"
#include "view/list_view.h"
#include "view/terminal_text.h"

#include <QDateTime>
#include <QTimeZone>

#include <gtest/gtest.h>

using namespace MessageList;
using namespace Qt::StringLiterals;

namespace {

Entry entry()
{
    Entry entry;
    entry.file = u"a.mms"_s;
    entry.date = 1'000'000'000; // 2001-09-09T01:46:40Z
    entry.type = 132;
    entry.from = u"+4915112345"_s;
    entry.to = {u"Anna@Example.org"_s};
    entry.subject = u"At the harbor"_s;
    entry.slides = 2;
    entry.parts = {1, 0, 0, 2, 1, 0};
    entry.octets = 2048;
    return entry;
}

struct Case
{
    const char *condition;
    bool holds;
};

void PrintTo(const Case &one, std::ostream *out)
{
    *out << one.condition;
}

class ListCondition : public testing::TestWithParam<Case>
{
};

TEST_P(ListCondition, ChoosesEntries)
{
    QString error;
    const Condition condition = readCondition(QString::fromLatin1(GetParam().condition), &error);
    ASSERT_TRUE(condition) << qPrintable(error);
    EXPECT_EQ(condition(entry()), GetParam().holds);
}

INSTANTIATE_TEST_SUITE_P(
    All, ListCondition,
    testing::Values(
        Case{"from=+4915112345", true}, Case{"from=+49 (151) 12-345", true},
        Case{"from=4915112345", false}, Case{"from=491511@2345", false},
        Case{"to=anna@example.ORG", true}, Case{"to=anna", false}, Case{"subject~HARBOR", true},
        Case{"subject~ship", false}, Case{"type=m-retrieve-conf", true},
        Case{"type=retrieve-conf", true}, Case{"type=132", true}, Case{"type=128", false},
        Case{"since=2001-09-09T01:46:40Z", true}, Case{"since=2001-09-09T01:46:41Z", false},
        Case{"until=2001-09-09T01:46:40Z", true}, Case{"until=2001-09-09T01:46:39Z", false},
        Case{"has=image", true}, Case{"has=audio", false}, Case{"has=smil", true},
        Case{"larger=2047", true}, Case{"larger=2048", false}, Case{"larger=1k", true},
        Case{"larger=2k", false}, Case{"larger=1M", false}, Case{"state=ok", true},
        Case{"state=refused", false}));

class NoCondition : public testing::TestWithParam<const char *>
{
};

TEST_P(NoCondition, IsRefusedWithAReason)
{
    QString error;
    EXPECT_FALSE(readCondition(QString::fromLatin1(GetParam()), &error));
    EXPECT_FALSE(error.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, NoCondition,
                         testing::Values("", "sender=1", "from=", "to=", "subject~", "type=letter",
                                         "since=yesterday", "until=", "has=smell",
                                         "larger=", "larger=1g", "larger=-1", "state=fine"));

TEST(ListConditionOfDates, TakesADateAloneAsLocalMidnight)
{
    QString error;
    Entry atMidnight = entry();
    atMidnight.date = QDateTime(QDate(2020, 3, 1), QTime(0, 0)).toSecsSinceEpoch();
    EXPECT_TRUE(readCondition(u"since=2020-03-01"_s, &error)(atMidnight));
    EXPECT_TRUE(readCondition(u"until=2020-03-01"_s, &error)(atMidnight));
    --*atMidnight.date;
    EXPECT_FALSE(readCondition(u"since=2020-03-01"_s, &error)(atMidnight));
}

TEST(ListConditionOfDates, NeverChoosesAMessageWithoutADate)
{
    QString error;
    Entry undated = entry();
    undated.date.reset();
    EXPECT_FALSE(readCondition(u"since=1970-01-01"_s, &error)(undated));
    EXPECT_FALSE(readCondition(u"until=2999-01-01"_s, &error)(undated));
}

std::vector<Entry> entriesFrom(const QStringList &senders)
{
    std::vector<Entry> entries;
    for (const QString &sender : senders) {
        entries.push_back(entry());
        entries.back().from = sender;
    }
    return entries;
}

QStringList senders(const std::vector<Entry> &entries)
{
    QStringList senders;
    for (const Entry &one : entries)
        senders += one.from;
    return senders;
}

TEST(ListOrder, PutsEntriesWithoutAValueLast)
{
    std::vector<Entry> entries = entriesFrom({u""_s, u"b"_s, u"A"_s});
    sort(&entries, u"from"_s, false);
    EXPECT_EQ(senders(entries), (QStringList{u"A"_s, u"b"_s, u""_s}));
    sort(&entries, u"from"_s, true);
    EXPECT_EQ(senders(entries), (QStringList{u"b"_s, u"A"_s, u""_s}));
}

TEST(ListOrder, KeepsTheOrderOfEqualEntries)
{
    std::vector<Entry> entries = entriesFrom({u"b"_s, u"a"_s});
    for (const QString &name : {u"date"_s, u"subject"_s, u"size"_s, u"type"_s}) {
        sort(&entries, name, false);
        EXPECT_EQ(senders(entries), (QStringList{u"b"_s, u"a"_s})) << qPrintable(name);
    }
}

TEST(ListLine, FitsTheWidthOfTheTerminal)
{
    Entry wide = entry();
    wide.subject = u"港口の写真と長い件名がここに続きます"_s;
    for (int width : {36, 40, 60, 76, 80, 100, 120, 200}) {
        const ListLines lines(width);
        EXPECT_LE(TerminalText::width(lines.lineOf(wide).chopped(1)), width) << width;
        EXPECT_LE(TerminalText::width(lines.title().chopped(1)), width) << width;
    }
}

TEST(ListLine, HasAllColumnsOnAnOrdinaryTerminal)
{
    const QString line = ListLines(80).lineOf(entry());
    for (const char *cell : {"2001-09-09 ", " retriev… ", " +4915112345 ", " At the … ", " 2 ",
                             " 1i 2… ", " 2048 ", " ok ", " a.mms"})
        EXPECT_TRUE(line.contains(QString::fromUtf8(cell))) << cell << " in " << qPrintable(line);
}

TEST(ListLine, LeavesOutColumnsOnANarrowTerminal)
{
    EXPECT_EQ(ListLines(40).title().simplified(), u"Date From or to Subject State"_s);
    EXPECT_TRUE(ListLines(60).lineOf(entry()).contains(u"2048"_s));
}

TEST(ListLine, EndsWithTheEndOfThePath)
{
    Entry deep = entry();
    deep.file = u"messages/of/the/last/year/harbor.mms"_s;
    EXPECT_TRUE(ListLines(100).lineOf(deep).endsWith(u" …ear/harbor.mms\n"_s))
        << qPrintable(ListLines(100).lineOf(deep));
}

TEST(ListLine, CountsTheOtherRecipients)
{
    Entry sent = entry();
    sent.from.clear();
    sent.to = {u"+49151"_s, u"a@example.org"_s, u"b@example.org"_s};
    EXPECT_TRUE(ListLines(0).lineOf(sent).contains(u" +49151 +2 "_s));
    sent.to = {u"+49151"_s};
    EXPECT_TRUE(ListLines(0).lineOf(sent).contains(u" +49151  "_s));
}

TEST(ListLine, AlignsWideCharacters)
{
    Entry wide = entry();
    wide.subject = u"港"_s;
    const ListLines lines(140);
    const auto columnOfFile = [](const QString &line) {
        return TerminalText::width(line.first(line.indexOf(u"a.mms"_s)));
    };
    EXPECT_EQ(columnOfFile(lines.lineOf(wide)), columnOfFile(lines.lineOf(entry())));
}

TEST(ListLine, MakesControlCharactersVisible)
{
    Entry hostile = entry();
    hostile.subject = u"a\x1B[31m\nb"_s;
    const QString line = ListLines(0).lineOf(hostile);
    EXPECT_TRUE(line.contains(u"a\\u{1b}[31m\\u{a}b"_s)) << qPrintable(line);
}

TEST(ListCsv, QuotesWhatNeedsQuotes)
{
    Entry quoted = entry();
    quoted.date.reset();
    quoted.subject = u"a \"b\", c"_s;
    EXPECT_EQ(
        csvRow(quoted),
        "a.mms,,m-retrieve-conf,+4915112345,Anna@Example.org,\"a \"\"b\"\", c\",2,1,0,0,2,1,0,"
        "2048,ok\r\n");
}

TEST(ListCsv, DisarmsFormulas)
{
    for (const QString &formula :
         {u"=1+1"_s, u"+1 x"_s, u"-1-1"_s, u"+49-151"_s, u"+1/2"_s, u"@SUM"_s, u"+"_s}) {
        Entry hostile = entry();
        hostile.subject = formula;
        EXPECT_TRUE(csvRow(hostile).contains(",'" + formula.toUtf8() + ",")) << qPrintable(formula);
    }
}

TEST(ListCsv, LeavesPhoneNumbersAsTheyAre)
{
    for (const QString &number : {u"+491"_s, u"+49 (151) 12345"_s}) {
        Entry sent = entry();
        sent.from = number;
        sent.to = {number, u"b@example.org"_s};
        const QByteArray row = csvRow(sent);
        EXPECT_TRUE(row.contains("," + number.toUtf8() + "," + number.toUtf8() + "; b@"))
            << row.toStdString();
    }
}

TEST(ListCsv, DisarmsEachRecipient)
{
    Entry sent = entry();
    sent.to = {u"+491"_s, u"=x"_s};
    EXPECT_TRUE(csvRow(sent).contains(",+491; '=x,")) << csvRow(sent).toStdString();
}

TEST(ListCsv, HasAFieldForEachTitle)
{
    EXPECT_EQ(csvTitle().count(','), csvRow(entry()).count(','));
}

TEST(ListJson, HasEverythingOfTheEntry)
{
    Entry utc = entry();
    utc.date.reset();
    EXPECT_EQ(
        listJson(utc),
        "{\"file\":\"a.mms\",\"from\":\"+4915112345\",\"octets\":2048,\"parts\":{\"audio\":0,"
        "\"image\":1,\"other\":0,\"smil\":1,\"text\":2,\"video\":0},\"slides\":2,\"state\":"
        "\"ok\",\"subject\":\"At the harbor\",\"to\":[\"Anna@Example.org\"],\"type\":{\"name\":"
        "\"m-retrieve-conf\",\"value\":132}}\n");
}

} // namespace
