#include "compose/composer.h"

#include "commands/command_line.h"
#include "commands/commands.h"
#include "compose/options.h"
#include "message/files.h"
#include "view/terminal_text.h"

#include <QCommandLineParser>
#include <QHash>

#include <algorithm>

using namespace CommandLine;

namespace {

using Group = ComposeOption::Group;

QList<Option> optionsOf(Group group)
{
    QList<Option> options;
    for (const ComposeOption &option : composeOptions()) {
        if (option.group == group)
            options += {option.name, option.value, option.help};
    }
    return options;
}

QList<Argument> explainedValues()
{
    QList<Argument> values;
    for (const ComposeValue &value : composeValues())
        values += Argument{value.name, value.expected};
    return values;
}

Description description()
{
    const QList<Option> output{{"o", "OUT", "file to write; - is standard output", true}};
    return {.name = "compose",
            .purpose = "Makes a message to send out of texts and files.",
            .exitCodes =
                "0 written, 1 the content was refused, 2 wrong usage or a file that cannot "
                "be read or written.",
            .groups = {{"Message", output + optionsOf(Group::Fields)},
                       {"Content", optionsOf(Group::Content)},
                       {"Slide", optionsOf(Group::OfSlide)}},
            .values = explainedValues(),
            .example = "  qvlmms compose -o holiday.mms --to +4915112345678 --subject Holiday \\\n"
                       "    --slide --image beach.jpg --text 'At the sea' --duration 4s \\\n"
                       "    --slide --text 'See you soon!' --background navy --text-color white\n"};
}

Outcome apply(const ComposeOption &option, const QString &value, Composer *composer)
{
    const QString name = QLatin1String("--") + QLatin1String(option.name);
    if (option.group == Group::OfSlide && composer->slideCount() == 0)
        return Problem{Problem::Usage,
                       name + QLatin1String(" is about a slide: put --slide before it")};
    Outcome outcome = option.apply(*composer, value);
    if (outcome && outcome->kind == Problem::Value)
        outcome->text.prepend(name + QLatin1Char(' ') + value + QLatin1String(": "));
    return outcome;
}

// Applies the options for which @p isWanted in the order in which they were given.
template <typename Predicate>
Outcome applyAll(const QCommandLineParser &parser, Composer *composer, Predicate isWanted)
{
    QHash<QString, qsizetype> used;
    for (const QString &name : parser.optionNames()) {
        const auto option =
            std::ranges::find_if(composeOptions(), [&](const ComposeOption &candidate) {
                return name == QLatin1String(candidate.name);
            });
        if (option == composeOptions().end() || !isWanted(*option))
            continue;
        const QString value = option->value ? parser.values(name).value(used[name]++) : QString();
        if (auto problem = apply(*option, value, composer))
            return problem;
    }
    return {};
}

bool isField(const ComposeOption &option)
{
    return option.group == Group::Fields;
}

Outcome make(const QCommandLineParser &parser, Composer *composer)
{
    if (auto problem = applyAll(parser, composer, isField))
        return problem;
    if (auto problem = applyAll(parser, composer, std::not_fn(isField)))
        return problem;
    return composer->finish();
}

Outcome write(const QByteArray &octets, const QString &fileName)
{
    QString error;
    if (writeFile(octets, fileName, &error))
        return {};
    return Problem{Problem::File, error};
}

QString counted(qsizetype count, const char *what)
{
    return QStringLiteral(", %1 ").arg(count) + QLatin1String(what)
        + QLatin1String(count == 1 ? "" : "s");
}

QString report(const QString &fileName, const Composer &composer)
{
    return QLatin1String("wrote ") + TerminalText::visible(fileName)
        + counted(composer.pdu().size(), "octet") + counted(composer.slideCount(), "slide")
        + counted(composer.partCount(), "part") + QLatin1Char('\n');
}

} // namespace

int Commands::compose(const QStringList &arguments)
{
    QCommandLineParser parser;
    int exitCode = AllDecoded;
    if (!parse(&parser, description(), arguments, &exitCode))
        return exitCode;

    const QString fileName = parser.value(QStringLiteral("o"));
    Composer composer;
    Outcome problem = make(parser, &composer);
    if (!problem)
        problem = write(composer.pdu(), fileName);
    if (problem) {
        printError(problem->text);
        return problem->kind == Problem::Content ? Refused : CannotDo;
    }
    if (fileName != QLatin1String("-"))
        print(stdout, report(fileName, composer).toUtf8());
    return AllDecoded;
}
