#include "commands/commands.h"

#include "check/check.h"
#include "commands/message_command.h"
#include "html/one_page.h"
#include "input/message.h"
#include "input/message_files.h"

#include <QCommandLineParser>

using namespace CommandLine;
using namespace Qt::StringLiterals;

namespace {

constexpr int SizeLimit = 300; // KB
constexpr int MostOfAnyLimit = 1'000'000;

/// Reads messages and adds them to a page.
class PageWriter
{
public:
    PageWriter(const ReadOptions &options, const PageLimits &limits, bool mayHaveIndex)
        : m_options(options), m_limits(limits), m_page(mayHaveIndex)
    {
    }

    /// Reads a message and adds it. Prints an error if the message cannot be read. False if the
    /// page cannot be written.
    bool add(const QString &fileName)
    {
        QString error;
        const auto message = readMessage(fileName, m_options, &error);
        if (!message) {
            m_exitCode = CannotDo;
            printError(error);
            return true;
        }
        const Check::Findings findings = Check::checkMessage(*message, {SizeLimit * qint64(1024)});
        PageMedia media(*message, m_limits);
        const bool isAdded = m_page.add(*message, findings, &media, &error);
        for (const QString &line : media.missingLines())
            printError(fileName + u": "_s + line);
        return isAdded || fail(error);
    }

    /// Writes the page to a file unless it has no message. Returns the exit code.
    int finish(const QString &fileName)
    {
        if (m_page.count() == 0) {
            printError(u"no message was found, so no page was written"_s);
            return CannotDo;
        }
        Report report;
        QString error;
        if (!m_page.write(fileName, &report, &error))
            fail(error);
        for (const QString &line : report.written)
            print(stdout, line.toUtf8() + '\n');
        return m_exitCode;
    }

private:
    bool fail(const QString &error)
    {
        printError(error);
        m_exitCode = CannotDo;
        return false;
    }

    const ReadOptions m_options;
    const PageLimits m_limits;
    OnePage m_page;
    int m_exitCode = AllDecoded;
};

int writePage(const QCommandLineParser &arguments)
{
    const auto number = [&](QLatin1StringView option) { return arguments.value(option).toInt(); };
    MessageFiles found(arguments.positionalArguments(), std::nullopt, false);
    const bool mayHaveSeveral = !found.isOneFile();
    PageWriter page({.sizeLimit = sizeLimit(arguments)},
                    {number("max-media"_L1), number("max-clips"_L1), number("max-decoded"_L1)},
                    mayHaveSeveral);
    while (const auto name = found.next()) {
        if (!page.add(*name))
            return CannotDo;
    }
    return page.finish(arguments.value(u"o"_s));
}

} // namespace

Command Commands::html()
{
    return {
        .description =
            {.name = "html",
             .summary = "write a page to look at messages in a browser",
             .purpose = "Writes a self-contained page that plays the slides of messages and shows "
                        "their headers, parts and problems. Limits bound the time and memory for "
                        "one message; a line says which limit left out media.",
             .exitCodes = "0 all written, 2 wrong usage, or a file that cannot be read or written.",
             .arguments = {{"FILE...",
                            "files with one message each, or folders; - is standard input"}},
             .groups = {{"Options",
                         {{.name = "o",
                           .value = "OUT",
                           .help = "the page to write; - is standard output",
                           .isNeeded = true},
                          {.name = "max-media",
                           .value = "N",
                           .help = "millions of octets of media that the slides of a message show",
                           .numbers = {.standard = PageLimits().media, .most = MostOfAnyLimit}},
                          {.name = "max-clips",
                           .value = "N",
                           .help = "clips of a message that are converted for the browser",
                           .numbers = {.standard = PageLimits().clips, .most = MostOfAnyLimit}},
                          {.name = "max-decoded",
                           .value = "N",
                           .help = "millions of pixels of pictures that are converted",
                           .numbers = {.standard = PageLimits().decoded, .most = MostOfAnyLimit}},
                          SizeLimitOption}}}},
        .run = writePage,
        .draws = true,
    };
}
