#include "commands/commands.h"

#include "commands/command_line.h"
#include "message.h"
#include "show.h"
#include "terminal_text.h"

#include <QCommandLineParser>

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
    int exitCode = AllDecoded;
    if (!parse(parser, arguments, 1, arguments.size(), &exitCode))
        return exitCode;

    const QStringList files = parser.positionalArguments().sliced(1);
    int decoded = 0;
    int refused = 0;
    int unreadable = 0;
    Progress progress(files.size());
    for (const QString &file : files) {
        QString error;
        const auto message = readMessage(file, &error);
        progress.hide();
        if (message) {
            if (decoded + refused > 0 && !parser.isSet(json))
                print(stdout, "\n");
            ++(message->isRefused() ? refused : decoded);
            print(stdout,
                  parser.isSet(json) ? TerminalText::jsonLine(messageJson(*message))
                                     : messageText(*message).toUtf8());
        } else {
            printError(file + QLatin1String(": ") + error);
            ++unreadable;
        }
        progress.step();
    }
    progress.hide();
    if (files.size() > 1 && !parser.isSet(json))
        print(stdout, summary(decoded, refused, unreadable).toUtf8());
    return unreadable > 0 ? CannotDo : refused > 0 ? Refused : AllDecoded;
}
