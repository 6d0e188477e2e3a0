#include "commands/commands.h"

#include "commands/command_line.h"
#include "message/files.h"
#include "message/message.h"
#include "message/outgoing.h"
#include "view/terminal_text.h"

#include <QCommandLineParser>

using namespace CommandLine;

namespace {

// Puts the slides into the message as its presentation; one that brings none gets the slides that
// were made of its parts.
void writeSlides(Message *message)
{
    const QByteArray smil = Outgoing::smilOf(&message->slides);
    if (message->slidesAreMade)
        MMS_COMP_SMILParser::makeSmilForMixed(&message->body, &message->slides, true);
    if (auto *part = message->body.getSmilPart())
        part->setBodyData(smil);
}

QByteArray rewritten(Message *message)
{
    writeSlides(message);
    // The decoder's sense of the flag is the reverse of the encoder's.
    message->header.setSenderVisibility(!message->header.getSenderVisibility());
    return Outgoing::pduOf(message);
}

QString report(const QString &fileName, qsizetype octets)
{
    return QLatin1String("wrote ") + TerminalText::visible(fileName)
        + QStringLiteral(" (%1 octets)\n").arg(octets);
}

} // namespace

int Commands::rewrite(const QStringList &arguments)
{
    const Description description{
        .name = "rewrite",
        .purpose = "Reads a message and writes it again: slides in the handset's layout, names for "
                   "all parts, and the fields that its type takes. A message that brings no SMIL "
                   "gets the slides that are made of its parts.",
        .exitCodes =
            "0 written, 1 the message was refused or has no parts, 2 wrong usage or a file "
            "that cannot be read or written.",
        .arguments = {{"FILE", "file with one message; - is standard input"},
                      {"OUT", "file to write; - is standard output"}}};
    QCommandLineParser parser;
    int exitCode = AllDecoded;
    if (!parse(&parser, description, arguments, &exitCode))
        return exitCode;

    const QStringList positional = parser.positionalArguments();
    QString error;
    const auto message = openMessage(positional[0]);
    if (!message)
        return CannotDo;
    if (message->isRefused()) {
        printRefusal(*message);
        return Refused;
    }
    if (message->body.getPartCount() == 0) {
        printError(positional[0]
                   + QLatin1String(": the message has no parts, so there is nothing to write"));
        return Refused;
    }
    const QByteArray octets = rewritten(message.get());
    if (!writeFile(octets, positional[1], &error)) {
        printError(error);
        return CannotDo;
    }
    if (positional[1] != QLatin1String("-"))
        print(stdout, report(positional[1], octets.size()).toUtf8());
    return AllDecoded;
}
