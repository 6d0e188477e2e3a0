#include "commands/commands.h"

#include "commands/command_line.h"
#include "message.h"
#include "show.h"
#include "terminal_text.h"

#include <QCommandLineParser>
#include <QtConcurrentRun>
#include <QThreadPool>

#include <utility>

#include <unistd.h>

using namespace CommandLine;

namespace {

/// A line on standard error that says how far a long run is, when somebody is there to see it. It
/// is out of the way while something is printed.
class Progress
{
public:
    explicit Progress(qsizetype total) : m_total(total), m_shown(total > 1 && isatty(STDERR_FILENO))
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
    bool refused = false;
};

Shown showFile(const QString &file, bool json)
{
    Shown shown;
    if (const auto message = readMessage(file, &shown.error)) {
        shown.text =
            json ? TerminalText::jsonLine(messageJson(*message)) : messageText(*message).toUtf8();
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
        // Some wait, so that nobody is idle while a long one before them is shown.
        const qsizetype most = 4 * m_pool.maxThreadCount();
        for (; m_running.size() < most && m_started < m_names.size(); ++m_started)
            m_running += QtConcurrent::run(&m_pool, showFile, m_names[m_started], m_json);
        return m_running.takeFirst().result();
    }

private:
    QStringList m_names;
    bool m_json;
    qsizetype m_started = 0;
    QList<QFuture<Shown>> m_running;
    QThreadPool m_pool;
};

// The number of jobs that is asked for, or 0 when it is no such number.
int jobsIn(const QString &text)
{
    constexpr int most = 256;
    const int jobs = text.toInt();
    return jobs >= 1 && jobs <= most ? jobs : 0;
}

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
    QCommandLineParser parser;
    describe(
        &parser, "show",
        "Shows header, checks, parts and slides of messages.\n"
        "Exit code: 0 all decoded, 1 a message was refused, 2 wrong usage or an unreadable file.",
        {{"FILE...", "Files with one PDU each; - is standard input."}});
    const QCommandLineOption json(QStringLiteral("json"),
                                  QStringLiteral("Print one JSON object a line."));
    parser.addOption(json);
    const QCommandLineOption jobs(QStringLiteral("jobs"),
                                  QStringLiteral("Show N files at a time, in their order."),
                                  QStringLiteral("N"), QStringLiteral("1"));
    parser.addOption(jobs);
    int exitCode = AllDecoded;
    if (!parse(parser, arguments, 1, arguments.size(), &exitCode))
        return exitCode;

    const int atATime = jobsIn(parser.value(jobs));
    if (atATime == 0) {
        printError(QStringLiteral("--jobs takes a number from 1 to 256"));
        return CannotDo;
    }

    const QStringList names = parser.positionalArguments().sliced(1);
    Files files(names, parser.isSet(json), atATime);
    int decoded = 0;
    int refused = 0;
    int unreadable = 0;
    Progress progress(names.size());
    for (const QString &name : names) {
        const Shown shown = files.next();
        progress.hide();
        if (shown.error.isEmpty()) {
            if (decoded + refused > 0 && !parser.isSet(json))
                print(stdout, "\n");
            ++(shown.refused ? refused : decoded);
            print(stdout, shown.text);
        } else {
            printError(name + QLatin1String(": ") + shown.error);
            ++unreadable;
        }
        progress.step();
    }
    progress.hide();
    if (names.size() > 1 && !parser.isSet(json))
        print(stdout, summary(decoded, refused, unreadable).toUtf8());
    return unreadable > 0 ? CannotDo : refused > 0 ? Refused : AllDecoded;
}
