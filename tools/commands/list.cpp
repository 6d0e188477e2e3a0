#include "commands/commands.h"

#include "commands/many_files.h"
#include "commands/message_command.h"
#include "input/message.h"
#include "list/condition.h"
#include "list/order.h"
#include "view/list_view.h"

#include <QCommandLineParser>

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <optional>

using namespace CommandLine;
using namespace MessageList;
using namespace Qt::StringLiterals;

namespace {

// In columns; 0 when standard output is no terminal.
int terminalWidth()
{
    winsize size{};
    return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

/// The form in which entries are printed.
class Form
{
public:
    Form(bool json, bool csv) : m_json(json), m_csv(csv), m_lines(terminalWidth()) { }

    QByteArray title() const
    {
        return m_json ? QByteArray() : m_csv ? csvTitle() : m_lines.title().toUtf8();
    }
    void printRow(const Entry &entry) const
    {
        if (m_json)
            print(stdout, listJson(entry));
        else if (entry.error.isEmpty())
            print(stdout, m_csv ? csvRow(entry) : m_lines.lineOf(entry).toUtf8());
    }

private:
    bool m_json;
    bool m_csv;
    ListLines m_lines;
};

std::optional<std::vector<Condition>> readConditions(const QStringList &texts)
{
    std::vector<Condition> conditions;
    for (const QString &text : texts) {
        QString error;
        Condition condition = readCondition(text, &error);
        if (!condition) {
            printError(u"--where "_s + error);
            return std::nullopt;
        }
        conditions.push_back(std::move(condition));
    }
    return conditions;
}

/// Prints entries as they come, or sorted at the end.
class ListPrinter
{
public:
    ListPrinter(Form form, const QCommandLineParser &arguments, std::vector<Condition> conditions)
        : m_form(std::move(form)), m_order(arguments.value(u"sort"_s)),
          m_reverse(arguments.isSet(u"reverse"_s)), m_conditions(std::move(conditions))
    {
    }

    void add(Entry entry)
    {
        if (!entry.error.isEmpty())
            printError(entry.error);
        m_exitCode = std::max<int>(m_exitCode,
                                   !entry.error.isEmpty()                     ? CannotDo
                                       : entry.state == MessageState::Refused ? Refused
                                                                              : AllDecoded);
        if (!meetsAll(entry))
            return;
        if (!isSorted())
            m_form.printRow(entry);
        else
            m_entries.push_back(std::move(entry));
    }

    int finish()
    {
        if (!m_order.isEmpty())
            sort(&m_entries, m_order, m_reverse);
        else
            std::ranges::reverse(m_entries);
        for (const Entry &entry : m_entries)
            m_form.printRow(entry);
        return m_exitCode;
    }

private:
    bool isSorted() const { return m_reverse || !m_order.isEmpty(); }
    bool meetsAll(const Entry &entry) const
    {
        return (entry.error.isEmpty() || m_conditions.empty())
            && std::ranges::all_of(
                   m_conditions, [&entry](const Condition &condition) { return condition(entry); });
    }

    const Form m_form;
    const QString m_order;
    const bool m_reverse;
    const std::vector<Condition> m_conditions;
    std::vector<Entry> m_entries;
    int m_exitCode = AllDecoded;
};

Entry readEntry(const QString &fileName, const ReadOptions &options)
{
    Entry entry;
    entry.file = fileName;
    const auto message = readMessage(fileName, options, &entry.error);
    return message ? entryOf(*message) : entry;
}

// Describes the first mistake in the options, or nothing.
QString mistakeIn(const QCommandLineParser &arguments)
{
    const QString order = arguments.value(u"sort"_s);
    if (arguments.isSet(u"sort"_s) && !orderNames().contains(order))
        return u"--sort "_s + order + u": one of %1 is expected"_s.arg(orderNames().join(u", "_s));
    if (arguments.isSet(u"json"_s) && arguments.isSet(u"csv"_s))
        return u"--json and --csv exclude each other"_s;
    return QString();
}

int listFiles(const QCommandLineParser &arguments)
{
    auto conditions = readConditions(arguments.values(u"where"_s));
    if (!conditions)
        return CannotDo;
    if (const QString mistake = mistakeIn(arguments); !mistake.isEmpty()) {
        printError(mistake);
        return CannotDo;
    }
    const Form form(arguments.isSet(u"json"_s), arguments.isSet(u"csv"_s));
    ListPrinter printer(form, arguments, std::move(*conditions));
    print(stdout, form.title());
    const ReadOptions options{.sizeLimit = sizeLimit(arguments)};
    NamedFiles files(arguments, arguments.isSet(u"all"_s));
    const bool isWhole =
        files.forEach<Entry>([&](const QString &name) { return readEntry(name, options); },
                             [&](const QString &, Entry entry) { printer.add(std::move(entry)); });
    const int exitCode = printer.finish();
    return isWhole ? exitCode : CannotDo;
}

} // namespace

Command Commands::list()
{
    return {
        .description =
            {.name = "list",
             .summary = "list messages, one line for each",
             .purpose = "Lists messages, one line for each: date, type, sender or recipients, "
                        "subject, slides, parts, octets and state. A message is ok, changed "
                        "(something was left out or rewritten to read it) or refused. Parts are "
                        "counted by kind: i for images, a for audio, v for video, t for texts, s "
                        "for SMIL and o for others.",
             .exitCodes =
                 "0 all decoded, 1 a message was refused, 2 wrong usage or an unreadable file.",
             .arguments = {FilesArgument},
             .groups = {{"Options",
                         QList<Option>{
                             {.name = "sort",
                              .value = "WORD",
                              .help = "date, from, subject, size or type"},
                             {.name = "reverse", .help = "reverse the order"},
                             {.name = "where",
                              .value = "CONDITION",
                              .help = "list messages that meet the condition; may be repeated"},
                             {.name = "all", .help = "find hidden files in folders, too"},
                             {.name = "json", .help = "print one JSON object per line"},
                             {.name = "csv",
                              .help = "print comma-separated values with a title row"},
                         } + manyFilesOptions()}},
             .values = {{"CONDITION",
                         "from=ADDRESS, to=ADDRESS, subject~TEXT, type=TYPE, since=DATE, "
                         "until=DATE, has=KIND, larger=SIZE or state=STATE"},
                        {"ADDRESS",
                         "a phone number, with or without spaces and punctuation, or an e-mail "
                         "address"},
                        {"TEXT", "a part of the subject; case does not matter"},
                        {"TYPE", "the name or number of a message type, such as send-req or 128"},
                        {"DATE",
                         "a date such as 2026-05-01 or 2026-05-01T12:00, in local time "
                         "unless it has an offset; a date alone is midnight"},
                        {"KIND", "image, audio, video, text or smil"},
                        {"SIZE", "a number of octets such as 100k; k and M are 1,024 and 1,024k"},
                        {"STATE", "ok, changed or refused"}}},
        .run = listFiles,
    };
}
