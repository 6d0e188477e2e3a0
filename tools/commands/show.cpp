#include "commands/commands.h"

#include "commands/command_line.h"
#include "highlight.h"
#include "message.h"
#include "show.h"

#include <QCommandLineParser>
#include <QThreadPool>

#include <deque>
#include <future>
#include <memory>
#include <utility>

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
        shown.text = json ? messageJson(*message)
                          : linesFor(stdout, messageText(*message));
        shown.advice = json ? QString() : whyNoMessage(*message);
        shown.refused = message->isRefused();
    }
    return shown;
}

/// Shows files in their order, some of them at the same time.
class Files
{
public:
    Files(QStringList names, bool json, int jobs) : m_names(std::move(names)), m_json(json)
    {
        m_pool.setMaxThreadCount(jobs);
    }

    /// What the next file gives.
    Shown next()
    {
        if (m_pool.maxThreadCount() == 1)
            return showFile(m_names[m_started++], m_json);
        // Some wait, so that no thread is idle while a long file before them is shown.
        const size_t most = 4 * size_t(m_pool.maxThreadCount());
        while (m_running.size() < most && m_started < m_names.size())
            start(m_names[m_started++]);
        const Shown shown = m_running.front().get();
        m_running.pop_front();
        return shown;
    }

private:
    // Waiting for a QFuture would show files in this thread too, one more than the user asked for.
    void start(const QString &name)
    {
        const auto task = std::make_shared<std::packaged_task<Shown()>>(
            [name, json = m_json] { return showFile(name, json); });
        m_running.push_back(task->get_future());
        m_pool.start([task] { (*task)(); });
    }

    QStringList m_names;
    bool m_json;
    qsizetype m_started = 0;
    std::deque<std::future<Shown>> m_running;
    QThreadPool m_pool;
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
    Files files(names, wantsJson, *jobs);
    int decoded = 0;
    int refused = 0;
    int unreadable = 0;
    Progress progress(names.size());
    for (const QString &name : names) {
        const Shown shown = files.next();
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
    }
    progress.hide();
    if (names.size() > 1 && !wantsJson)
        print(stdout, summary(decoded, refused, unreadable).toUtf8());
    return unreadable > 0 ? CannotDo : refused > 0 ? Refused : AllDecoded;
}
