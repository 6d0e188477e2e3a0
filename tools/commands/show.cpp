#include "commands/commands.h"

#include "commands/command_line.h"
#include "message/message.h"
#include "view/highlight.h"
#include "view/message_view.h"

#include <QCommandLineParser>

#include <algorithm>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

using namespace CommandLine;

namespace {

constexpr int MostJobs = 256;

/// A line on standard error that says how far a long run is, when somebody is there to see it. It
/// is out of the way while something is printed.
class Progress
{
public:
    explicit Progress(qsizetype total)
        : m_total(total), m_shown(total > 1 && isCapableTerminal(stderr))
    {
    }
    ~Progress() { hide(); }

    void hide() const
    {
        if (m_shown)
            std::fputs("\r\x1B[K", stderr);
    }
    void step()
    {
        ++m_done;
        if (!m_shown)
            return;
        std::fflush(stdout);
        std::fprintf(stderr, "\r%lld of %lld", qlonglong(m_done), qlonglong(m_total));
    }

private:
    qsizetype m_total;
    qsizetype m_done = 0;
    bool m_shown;
};

/// What is printed of one file.
struct Shown
{
    QByteArray text;
    QString error; ///< when the file could not be read
    QString advice; ///< when it is no message
    bool refused = false;
};

Shown showFile(const QString &file, bool json)
{
    Shown shown;
    if (const auto message = readMessage(file, &shown.error)) {
        shown.text = json ? messageJson(*message) : linesFor(stdout, messageText(*message));
        shown.advice = json ? QString() : whyNoMessage(*message);
        shown.refused = message->isRefused();
    }
    return shown;
}

/// Shows files in their order, several at the same time. Each thread takes the next file, and
/// prints what is ready up to there: none has to wake another for that.
class Files
{
public:
    using Print = std::function<void(const QString &name, const Shown &shown)>;

    Files(QStringList names, bool json, Print print)
        : m_names(std::move(names)), m_json(json), m_print(std::move(print))
    {
    }

    /// Prints all, with @p jobs threads.
    void show(int jobs)
    {
        m_mostAhead = 4 * qsizetype(jobs);
        std::vector<std::jthread> others;
        try {
            for (qsizetype i = 1; i < std::min<qsizetype>(jobs, m_names.size()); ++i)
                others.emplace_back([this] { work(); });
        } catch (const std::system_error &) {
            // The system has no more threads; those that there are show all files.
        }
        work();
    }

private:
    void work()
    {
        std::unique_lock lock(m_mutex);
        while (m_started < m_names.size()) {
            const qsizetype index = m_started++;
            // What is ready is kept until a long file before it is printed.
            m_printedMore.wait(lock, [&] { return index < m_printed + m_mostAhead; });
            lock.unlock();
            Shown shown = showFile(m_names[index], m_json);
            lock.lock();
            m_ready.emplace(index, std::move(shown));
            printReady();
        }
    }

    void printReady()
    {
        while (!m_ready.empty() && m_ready.begin()->first == m_printed) {
            m_print(m_names[m_printed++], m_ready.begin()->second);
            m_ready.erase(m_ready.begin());
        }
        m_printedMore.notify_all();
    }

    const QStringList m_names;
    const bool m_json;
    const Print m_print;
    qsizetype m_mostAhead = 0;

    std::mutex m_mutex; // for all that follows
    std::condition_variable m_printedMore;
    std::map<qsizetype, Shown> m_ready; // by index
    qsizetype m_started = 0;
    qsizetype m_printed = 0;
};

QString summary(int decoded, int refused, int unreadable)
{
    return QStringLiteral("\n%1 messages: %2 decoded, %3 refused, %4 not readable\n")
        .arg(decoded + refused + unreadable)
        .arg(decoded)
        .arg(refused)
        .arg(unreadable);
}

} // namespace

int Commands::show(const QStringList &arguments)
{
    static_assert(MostJobs == 256, "the help says so");
    const Description description{
        .name = "show",
        .purpose = "Shows header, checks, parts and slides of messages.",
        .exitCodes = "0 all decoded, 1 a message was refused, 2 wrong usage or an unreadable file.",
        .arguments = {{"FILE...", "files with one message each; - is standard input"}},
        .groups = {{"Options",
                    {{"json", nullptr, "print one JSON object a line"},
                     {"jobs", "N", "show N files at a time, in their order, 1 to 256 (1)"}}}}};
    QCommandLineParser parser;
    int exitCode = AllDecoded;
    if (!parse(&parser, description, arguments, &exitCode))
        return exitCode;
    const bool wantsJson = parser.isSet(QStringLiteral("json"));
    const auto jobs = numberOf(parser, "jobs", 1, MostJobs);
    if (!jobs)
        return CannotDo;

    const QStringList names = parser.positionalArguments();
    int decoded = 0;
    int refused = 0;
    int unreadable = 0;
    Progress progress(names.size());
    const auto printShown = [&](const QString &name, const Shown &shown) {
        progress.hide();
        if (shown.error.isEmpty()) {
            if (decoded + refused > 0 && !wantsJson)
                print(stdout, "\n");
            ++(shown.refused ? refused : decoded);
            print(stdout, shown.text);
            if (!shown.advice.isEmpty())
                printError(name + QLatin1String(": ") + shown.advice);
        } else {
            printError(shown.error);
            ++unreadable;
        }
        progress.step();
    };
    Files(names, wantsJson, printShown).show(*jobs);
    progress.hide();
    if (names.size() > 1 && !wantsJson)
        print(stdout, summary(decoded, refused, unreadable).toUtf8());
    return unreadable > 0 ? CannotDo : refused > 0 ? Refused : AllDecoded;
}
