#include "commands/commands.h"

#include "commands/command_line.h"
#include "message.h"
#include "model_text.h"
#include "show.h"
#include "terminal_text.h"

#include <QCommandLineParser>

#include <unistd.h>

using namespace CommandLine;

namespace {

// Text of several lines, made visible but for its line feeds when somebody looks at it.
QString visibleLines(const QString &text)
{
    if (!isatty(STDOUT_FILENO))
        return text;
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = TerminalText::visible(line);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

int Commands::smil(const QStringList &arguments)
{
    QCommandLineParser parser;
    describe(&parser, "smil",
             "Prints the normalised SMIL text of a message, or of a SMIL document by itself,\n"
             "whose media are then taken as being there. A message that brings no SMIL gets the\n"
             "slides that are made of its parts.\n"
             "Exit code: 0 read, 1 refused, 2 wrong usage or an unreadable file.",
             {{"FILE", "File with one PDU or one SMIL document; - is standard input."}});
    const QCommandLineOption model(QStringLiteral("model"),
                                   QStringLiteral("Print the presentation instead, a line for each "
                                                  "thing in it."));
    parser.addOption(model);
    int exitCode = AllDecoded;
    if (!parse(parser, arguments, 1, 1, &exitCode))
        return exitCode;

    const QString file = parser.positionalArguments().at(1);
    QString error;
    const auto message = readMessageOrDocument(file, &error);
    if (!message) {
        printError(file + QLatin1String(": ") + error);
        return CannotDo;
    }
    if (!message->smilResult && !message->slidesAreMade) {
        printError(file
                   + (message->isRefused() ? QLatin1String(": the message was refused")
                                           : QLatin1String(": the message has no presentation")));
        return Refused;
    }
    const QString text = parser.isSet(model)
        ? ModelText::presentation(message->slides)
        : MMS_COMP_SMILParser::convertToSMILLang(&message->slides);
    if (!message->isRefused() || parser.isSet(model))
        print(stdout, visibleLines(text).toUtf8());
    if (!message->isRefused())
        return AllDecoded;
    printError(file + QLatin1String(": ") + refusedSmilText(*message));
    return Refused;
}
