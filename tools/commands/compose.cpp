#include "compose/composer.h"

#include "commands/command_line.h"
#include "commands/commands.h"
#include "compose/options.h"
#include "outgoing.h"
#include "terminal_text.h"

#include <QCommandLineParser>
#include <QHash>

#include <algorithm>

using namespace CommandLine;

namespace {

using Group = ComposeOption::Group;

QString helpLine(const QString &option, const char *help)
{
    return QLatin1String("  ") + option.leftJustified(24) + QLatin1String(help) + QLatin1Char('\n');
}

QString helpOf(Group group)
{
    QString text;
    for (const ComposeOption &option : composeOptions()) {
        if (option.group == group)
            text += helpLine(QStringLiteral("--%1 %2").arg(QLatin1String(option.name),
                                                           QLatin1String(option.value)),
                             option.help);
    }
    return text;
}

QString description()
{
    return QLatin1String("Makes a message to send out of texts and files.\n\nMessage:\n")
        + helpLine(QStringLiteral("-o OUT"), "file to write; - is standard output")
        + helpOf(Group::Fields) + QLatin1String("\nContent:\n") + helpOf(Group::Content)
        + QLatin1String("\nSlide:\n") + helpOf(Group::OfSlide)
        + QLatin1String(
               "\nExample:\n"
               "  qvlmms compose -o holiday.mms --to +4915112345678 --subject Holiday \\\n"
               "    --slide --image beach.jpg --text 'At the sea' --duration 4s \\\n"
               "    --slide --text 'See you soon!' --background navy --text-color white\n\n"
               "Exit code: 0 written, 1 the content was refused, 2 wrong usage or a file that "
               "cannot be read\nor written.");
}

void addOptions(QCommandLineParser *parser)
{
    const auto add = [parser](const char *name, const char *value) {
        QCommandLineOption option(QString::fromLatin1(name), QString(), QString::fromLatin1(value));
        option.setFlags(QCommandLineOption::HiddenFromHelp); // the description lists them
        parser->addOption(option);
    };
    add("o", "OUT");
    for (const ComposeOption &option : composeOptions())
        add(option.name, option.value);
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
        const QString value = parser.values(name).value(used[name]++);
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
    if (Outgoing::write(octets, fileName, &error))
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
    parser.setApplicationDescription(description());
    parser.addPositionalArgument(QStringLiteral("compose"), QStringLiteral("Make a message."),
                                 QStringLiteral("compose -o OUT"));
    addOptions(&parser);
    int exitCode = AllDecoded;
    if (!parse(parser, arguments, 0, 0, &exitCode))
        return exitCode;

    const QString fileName = parser.value(QStringLiteral("o"));
    Composer composer;
    Outcome problem = fileName.isEmpty()
        ? Problem{Problem::Usage, QStringLiteral("there is no file to write: -o OUT")}
        : make(parser, &composer);
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
