#include "commands/commands.h"

#include "commands/message_command.h"
#include "view/message_view.h"
#include "view/model_text.h"
#include "view/terminal_text.h"

#include <QCommandLineParser>

#include <new>

#include <unistd.h>

using namespace CommandLine;

namespace {

// For a terminal, makes everything visible except line feeds.
QString visibleLines(const QString &text)
{
    if (!isatty(STDOUT_FILENO))
        return text;
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = TerminalText::visible(line);
    return lines.join(QLatin1Char('\n'));
}

int refuseWithoutSlides(const Message &message)
{
    return refuse(message,
                  message.isRefused()
                      ? QStringLiteral("the message was refused; qvlmms show prints the reason")
                      : QStringLiteral("the message has no presentation; qvlmms show lists its "
                                       "contents"));
}

int printSmil(Message &message, const QCommandLineParser &arguments)
{
    if (!message.smilResult && !message.areSlidesGenerated())
        return refuseWithoutSlides(message);
    const bool wantsModel = arguments.isSet(QStringLiteral("model"));
    if (!message.isRefused() || wantsModel) {
        const QString text = wantsModel ? ModelText::presentation(message.slides())
                                        : MMS_COMP_SMILParser::convertToSMILLang(&message.slides());
        if (text.isEmpty())
            throw std::bad_alloc();
        print(stdout, visibleLines(text).toUtf8());
    }
    if (!message.isRefused())
        return AllDecoded;
    const int exitCode = refuse(message, refusedSmilText(message));
    if (!message.smil.contains("<smil"))
        printAdvice(message);
    return exitCode;
}

} // namespace

Command Commands::smil()
{
    return {
        .description =
            {.name = "smil",
             .summary = "print the normalized SMIL of a message or document",
             .purpose = "Prints the normalized SMIL text of a message or of a SMIL document. The "
                        "media of a document are treated as present. A message without SMIL gets "
                        "slides generated from its parts.",
             .exitCodes = "0 read, 1 refused, 2 wrong usage or an unreadable file.",
             .arguments = {{"FILE",
                            "file with one message or one SMIL document; - is standard input"}},
             .groups = {{"Options",
                         {{.name = "model",
                           .help = "print the presentation instead, one item per line"},
                          SizeLimitOption}}}},
        .run = onMessage(printSmil, readMessageOrDocument),
    };
}
