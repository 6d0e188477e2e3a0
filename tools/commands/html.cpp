#include "commands/commands.h"

#include "check/check.h"
#include "commands/many_files.h"
#include "commands/message_command.h"
#include "html/one_page.h"
#include "html/page_folder.h"
#include "input/file_name.h"
#include "input/message.h"
#include "input/message_files.h"
#include "output/write_file.h"

#include <QCommandLineParser>

#include <filesystem>
#include <memory>

using namespace CommandLine;
using namespace Qt::StringLiterals;

namespace {

constexpr int MostOfAnyLimit = 1'000'000;

std::filesystem::path pathOf(const QString &name)
{
    return FileName::toOctets(name).toStdString();
}

// True for a name that ends like a folder, or that a folder has.
bool namesFolder(const QString &name)
{
    return name.endsWith(u'/') || (!isStandardOutput(name) && isFolder(pathOf(name)));
}

// `-o *.mms` names the first message as the page.
bool isMessage(const QString &name)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(pathOf(name), ignored)
        && beginsLikeMessage(pathOf(name));
}

/// Reads messages and adds them to one page or to a folder of pages.
class PageWriter
{
public:
    PageWriter(const QCommandLineParser &arguments, bool mayHaveIndex)
        : m_arguments(arguments), m_mayHaveIndex(mayHaveIndex)
    {
    }

    /// Reads a message and adds it. Prints an error if the message cannot be read. False if the
    /// page cannot be written.
    bool add(const QString &fileName)
    {
        QString error;
        const auto message = readMessage(fileName, {.sizeLimit = sizeLimit(m_arguments)}, &error);
        if (!message) {
            m_exitCode = CannotDo;
            printError(error);
            return true;
        }
        if (!m_pages && !begin())
            return false;
        const Check::Findings findings = Check::checkMessage(*message, {});
        PageMedia media(*message,
                        {number("max-media"), number("max-clips"), number("max-decoded")});
        const bool isAdded = m_pages->add(*message, findings, &media, &error);
        for (const QString &line : media.missingLines())
            printError(fileName + u": "_s + line);
        return isAdded || fail(error);
    }

    /// Writes the rest unless there is no message. Returns the exit code.
    int finish()
    {
        if (!m_pages) {
            printError(u"no page was written"_s);
            return CannotDo;
        }
        Report report;
        QString error;
        if (!m_pages->finish(&report, &error))
            fail(error);
        for (const QString &line : report.written)
            print(stdout, line.toUtf8() + '\n');
        for (const QString &line : report.remarks)
            printError(line);
        return m_exitCode;
    }

private:
    int number(const char *option) const
    {
        return m_arguments.value(QLatin1StringView(option)).toInt();
    }

    // The folder is created once there is a message.
    bool begin()
    {
        const QString out = m_arguments.value(u"o"_s);
        const PageLimit limit{number("limit")};
        if (!namesFolder(out))
            m_pages = std::make_unique<OnePage>(out, limit, m_mayHaveIndex);
        else if (createFolder(out))
            m_pages = std::make_unique<PageFolder>(out, limit);
        return m_pages != nullptr;
    }

    bool fail(const QString &error)
    {
        printError(error);
        m_exitCode = CannotDo;
        return false;
    }

    const QCommandLineParser &m_arguments;
    const bool m_mayHaveIndex;
    std::unique_ptr<Pages> m_pages;
    int m_exitCode = AllDecoded;
};

int writePages(const QCommandLineParser &arguments)
{
    const QString out = arguments.value(u"o"_s);
    if (isMessage(out)) {
        printError(cannotWrite(out, u"it is a message; name another file"_s));
        return CannotDo;
    }
    NamedFiles files(arguments);
    PageWriter pages(arguments, !files.isOne());
    const bool isWhole = files.inTurn([&](const QString &name) { return pages.add(name); });
    return isWhole ? pages.finish() : CannotDo;
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
             .arguments = {FilesArgument},
             .groups =
                 {{"Options",
                   QList<Option>{
                       {.name = "o",
                        .value = "OUT",
                        .help = "the page to write, or a folder for an index and a page for each "
                                "message; - is standard output",
                        .isNeeded = true},
                       {.name = "limit",
                        .value = "MB",
                        .help = "largest page, in units of 1,024k",
                        .numbers = {.standard = StandardPageLimit, .most = LargestPageLimit}},
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
                        .numbers = {.standard = PageLimits().decoded, .most = MostOfAnyLimit}}}
                       + namingOptions()}}},
        .run = writePages,
        .draws = true,
    };
}
