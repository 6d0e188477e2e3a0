#include "commands/commands.h"

#include "check/check.h"
#include "commands/many_files.h"
#include "commands/message_command.h"
#include "commands/shown_file.h"
#include "input/message.h"
#include "view/file_view.h"
#include "view/findings_view.h"

#include <QCommandLineParser>

#include <algorithm>
#include <array>
#include <optional>

using namespace CommandLine;
using namespace Check;

namespace {

constexpr int MostKilobytes = 1'000'000;
constexpr int OnlyWarnings = 3;

/// What the options say.
struct Options
{
    ReadOptions reading;
    Limits limits;
    Severity failOn;
    bool json;
};

std::optional<Severity> severityNamed(const QString &name)
{
    for (Severity severity : {Severity::Note, Severity::Warning, Severity::Error}) {
        if (name == nameOf(severity))
            return severity;
    }
    return std::nullopt;
}

int explainAll()
{
    QStringList texts;
    for (const RuleText &rule : rules())
        texts += explanation(rule);
    print(stdout, texts.join(QLatin1Char('\n')).toUtf8());
    return AllDecoded;
}

int explain(const QString &id)
{
    if (id == QLatin1String("all"))
        return explainAll();
    if (const RuleText *rule = findRule(id)) {
        print(stdout, explanation(*rule).toUtf8());
        return AllDecoded;
    }
    QStringList ids;
    for (const RuleText &rule : rules())
        ids += QString::fromLatin1(rule.id);
    printError(QLatin1String("there is no rule ") + id + suggestion(id, ids));
    print(stderr, "qvlmms check --explain all lists the rules.\n");
    return CannotDo;
}

int exitCodeOf(const Findings &findings, Severity failOn)
{
    for (Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        if (severity >= failOn && findings.count(severity) > 0)
            return Refused;
    }
    return findings.count(Severity::Warning) > 0 ? OnlyWarnings : AllDecoded;
}

ShownFile checkFile(const QString &fileName, const Options &options)
{
    ShownFile shown;
    if (const auto message = readMessage(fileName, options.reading, &shown.error)) {
        const Findings findings = checkMessage(*message, options.limits);
        shown.text = options.json
            ? findingsJson(*message, findings)
            : linesFor(stdout, findingsText(*message, findings)).toStdString();
        shown.exitCode = message->isRefused() ? Refused : exitCodeOf(findings, options.failOn);
    } else if (options.json) {
        shown.text = errorJson(fileName, shown.error);
    }
    return shown;
}

// Unreadable files outrank failures, and failures warnings.
int worse(int a, int b)
{
    constexpr std::array order{AllDecoded, ExitCode(OnlyWarnings), Refused, CannotDo};
    const auto rank = [&order](int code) { return std::ranges::find(order, code); };
    return rank(a) < rank(b) ? b : a;
}

int checkFiles(const QCommandLineParser &arguments, const Options &options)
{
    int exitCode = AllDecoded;
    NamedFiles files(arguments);
    const bool isWhole = files.forEach<ShownFile>(
        [&](const QString &name) { return checkFile(name, options); },
        [&](const QString &, const ShownFile &shown) {
            if (!shown.error.isEmpty())
                printError(shown.error);
            print(stdout, shown.text);
            exitCode = worse(exitCode, shown.error.isEmpty() ? shown.exitCode : CannotDo);
        });
    return isWhole ? exitCode : CannotDo;
}

int runCheck(const QCommandLineParser &arguments)
{
    if (arguments.isSet(QStringLiteral("explain")))
        return explain(arguments.value(QStringLiteral("explain")));
    const QString failOn = arguments.value(QStringLiteral("fail-on"));
    const auto severity = failOn.isEmpty() ? Severity::Error : severityNamed(failOn);
    if (!severity) {
        printError(QLatin1String("--fail-on ") + failOn
                   + QLatin1String(": error, warning or note is expected"));
        return CannotDo;
    }
    const Options options{{.sizeLimit = sizeLimit(arguments)},
                          {arguments.value(QStringLiteral("limit")).toInt() * qint64(1024)},
                          *severity,
                          arguments.isSet(QStringLiteral("json"))};
    return checkFiles(arguments, options);
}

} // namespace

Command Commands::check()
{
    return {
        .description =
            {.name = "check",
             .summary = "find what is wrong with messages, and say how to remedy it",
             .purpose =
                 "Finds what is wrong with messages: where it is, whom it hurts, and what to "
                 "do. An error makes receivers refuse or lose something, a warning some of "
                 "them; a note is worth knowing.",
             .exitCodes =
                 "0 nothing or only notes, 1 an error or a refused message (with --fail-on "
                 "warning or note these, too), 2 wrong usage or an unreadable file, 3 warnings "
                 "and no error.",
             .arguments = {FilesArgument},
             .groups = {{"Options",
                         QList<Option>{
                             {.name = "fail-on", .value = "WORD", .help = "error, warning or note"},
                             {.name = "limit",
                              .value = "KB",
                              .help = "largest message, in units of 1,024 octets",
                              .numbers = {.standard = UsualKilobytes, .most = MostKilobytes}},
                             {.name = "explain",
                              .value = "ID",
                              .help = "explain the rule with this identifier, or all",
                              .replacesArguments = true},
                             {.name = "json", .help = "print one JSON object per line"},
                         } + manyFilesOptions()}},
             .values = {{"WORD", "the least severity that gives the exit code 1 (default error)"}}},
        .run = runCheck,
    };
}
