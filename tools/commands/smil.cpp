#include "commands/commands.h"

#include "commands/command_line.h"
#include "message/message.h"
#include "view/message_view.h"
#include "view/model_text.h"
#include "view/terminal_text.h"

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
    const Description description{
        .name = "smil",
        .purpose = "Prints the normalised SMIL text of a message, or of a SMIL document by itself, "
                   "whose media are then taken as being there. A message that brings no SMIL gets "
                   "the slides that are made of its parts.",
        .exitCodes = "0 read, 1 refused, 2 wrong usage or an unreadable file.",
        .arguments = {{"FILE", "file with one message or one SMIL document; - is standard input"}},
        .groups = {
            {"Options",
             {{"model", nullptr, "print the presentation instead, a line for each thing in it"}}}}};
    QCommandLineParser parser;
    int exitCode = AllDecoded;
    if (!parse(&parser, description, arguments, &exitCode))
        return exitCode;

    const bool wantsModel = parser.isSet(QStringLiteral("model"));
    const QString file = parser.positionalArguments().at(0);
    QString error;
    const auto message = readMessageOrDocument(file, &error);
    if (!message) {
        printError(error);
        return CannotDo;
    }
    if (!message->smilResult && !message->slidesAreMade) {
        printError(file
                   + (message->isRefused()
                          ? QLatin1String(": the message was refused; qvlmms show tells why")
                          : QLatin1String(": the message has no presentation; qvlmms show tells "
                                          "what it has")));
        return Refused;
    }
    const QString text = wantsModel ? ModelText::presentation(message->slides)
                                    : MMS_COMP_SMILParser::convertToSMILLang(&message->slides);
    if (!message->isRefused() || wantsModel)
        print(stdout, visibleLines(text).toUtf8());
    if (!message->isRefused())
        return AllDecoded;
    printError(file + QLatin1String(": ") + refusedSmilText(*message));
    if (!message->smil.contains("<smil"))
        printAdvice(*message);
    return Refused;
}
