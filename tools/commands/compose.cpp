#include "commands/commands.h"

#include "compose/composer.h"
#include "compose/options.h"

#include <QCommandLineParser>
#include <QHash>

#include <algorithm>

using namespace CommandLine;

namespace {

using Group = ComposeOption::Group;

QList<Option> optionsIn(Group group)
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

Outcome apply(const ComposeOption &option, const QString &value, Composer *composer)
{
    const QString name = QLatin1String("--") + QLatin1String(option.name);
    if (option.group == Group::OfSlide && composer->slideCount() == 0)
        return Problem{Problem::Usage,
                       name + QLatin1String(" applies to a slide: put --slide before it")};
    if (option.group == Group::Media && composer->slideCount() == 0)
        composer->addSlide();
    Outcome outcome = option.apply(*composer, value);
    if (outcome && outcome->kind == Problem::Value)
        outcome->text.prepend(name + QLatin1Char(' ') + value + QLatin1String(": "));
    return outcome;
}

// Applies the options for which @p isWanted is true, in their order on the command line.
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

Outcome compose(const QCommandLineParser &parser, Composer *composer)
{
    if (auto problem = applyAll(parser, composer, isField))
        return problem;
    if (auto problem = applyAll(parser, composer, std::not_fn(isField)))
        return problem;
    return composer->finish();
}

QString counted(qsizetype count, const char *what)
{
    return QStringLiteral(", %1 ").arg(count) + QLatin1String(what)
        + QLatin1String(count == 1 ? "" : "s");
}

// The numbers of octets, slides and parts.
QString sizesText(const Composer &composer)
{
    return counted(composer.pdu().size(), "octet") + counted(composer.slideCount(), "slide")
        + counted(composer.partCount(), "part");
}

int composeMessage(const QCommandLineParser &arguments)
{
    Composer composer;
    if (const Outcome problem = compose(arguments, &composer)) {
        printError(problem->text);
        return problem->kind == Problem::Content ? Refused : CannotDo;
    }
    return writeOutput(composer.pdu(), arguments.value(QStringLiteral("o")), sizesText(composer));
}

} // namespace

Command Commands::compose()
{
    const QList<Option> output{{"o", "OUT", "file to write; - is standard output", true}};
    return {
        .description =
            {.name = "compose",
             .summary = "compose a message from texts and files",
             .purpose = "Composes a message from texts and files.",
             .exitCodes =
                 "0 written, 1 the content was refused, 2 wrong usage or a file that cannot "
                 "be read or written.",
             .groups = {{"Message", output + optionsIn(Group::Fields)},
                        {"Content", optionsIn(Group::Content)},
                        {"Slide", optionsIn(Group::Media) + optionsIn(Group::OfSlide)}},
             .values = explainedValues(),
             .example =
                 "  qvlmms compose -o holiday.mms --to +4915112345678 --subject Holiday \\\n"
                 "    --slide --image beach.jpg --text 'At the sea' --duration 4s \\\n"
                 "    --slide --text 'See you soon!' --background navy --text-color white\n"},
        .run = composeMessage,
    };
}
