#include "commands/commands.h"

#include "commands/many_files.h"
#include "commands/message_command.h"
#include "commands/shown_file.h"
#include "input/message.h"
#include "view/file_view.h"
#include "view/message_view.h"

#include <QCommandLineParser>

using namespace CommandLine;

namespace {

ShownFile showFile(const QString &fileName, const ReadOptions &options, bool json)
{
    ShownFile shown;
    if (const auto message = readMessage(fileName, options, &shown.error)) {
        shown.text =
            json ? messageJson(*message) : linesFor(stdout, messageText(*message)).toStdString();
        shown.advice = json ? QString() : whyNoMessage(*message);
        shown.exitCode = message->isRefused() ? Refused : AllDecoded;
    } else if (json) {
        shown.text = errorJson(fileName, shown.error);
    }
    return shown;
}

/// Prints files, and counts them by result.
class Printer
{
public:
    explicit Printer(bool json) : m_json(json) { }

    void print(const QString &name, const ShownFile &shown)
    {
        if (!shown.error.isEmpty()) {
            printError(shown.error);
            CommandLine::print(stdout, shown.text);
            ++m_unreadable;
        } else {
            printMessage(name, shown);
        }
    }

    /// Prints the numbers of files that were decoded, refused and not readable. Returns the exit
    /// code.
    int finish() const
    {
        const int total = m_decoded + m_refused + m_unreadable;
        if (total > 1 && !m_json)
            CommandLine::print(
                stdout,
                QStringLiteral("\n%1 messages: %2 decoded, %3 refused, %4 not readable\n")
                    .arg(total)
                    .arg(m_decoded)
                    .arg(m_refused)
                    .arg(m_unreadable)
                    .toUtf8());
        return m_unreadable > 0 ? CannotDo : m_refused > 0 ? Refused : AllDecoded;
    }

private:
    void printMessage(const QString &name, const ShownFile &shown)
    {
        if (m_decoded + m_refused > 0 && !m_json)
            CommandLine::print(stdout, "\n");
        ++(shown.exitCode == Refused ? m_refused : m_decoded);
        CommandLine::print(stdout, shown.text);
        if (!shown.advice.isEmpty())
            printError(name + QLatin1String(": ") + shown.advice);
    }

    const bool m_json;
    int m_decoded = 0;
    int m_refused = 0;
    int m_unreadable = 0;
};

int showFiles(const QCommandLineParser &arguments)
{
    const bool wantsJson = arguments.isSet(QStringLiteral("json"));
    const ReadOptions options{.sizeLimit = sizeLimit(arguments),
                              .reading = arguments.isSet(QStringLiteral("strict"))
                                  ? QvlMessage::Strict
                                  : QvlMessage::AnyVersion};
    Printer printer(wantsJson);
    NamedFiles files(arguments);
    const bool isWhole = files.forEach<ShownFile>(
        [&](const QString &name) { return showFile(name, options, wantsJson); },
        [&](const QString &name, const ShownFile &shown) { printer.print(name, shown); });
    const int exitCode = printer.finish();
    return isWhole ? exitCode : CannotDo;
}

} // namespace

Command Commands::show()
{
    return {
        .description =
            {.name = "show",
             .summary = "show the header, checks, parts and slides of messages",
             .purpose = "Shows the header, checks, parts and slides of messages.",
             .exitCodes =
                 "0 all decoded, 1 a message was refused, 2 wrong usage or an unreadable file.",
             .arguments = {FilesArgument},
             .groups = {{"Options",
                         QList<Option>{
                             {.name = "json", .help = "print one JSON object per line"},
                             {.name = "strict",
                              .help = "read messages of MMS 1.0 only, as the decoder alone does"},
                         } + manyFilesOptions()}}},
        .run = showFiles,
    };
}
