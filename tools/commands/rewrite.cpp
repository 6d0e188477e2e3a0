#include "commands/commands.h"

#include "commands/command_line.h"
#include "message.h"
#include "outgoing.h"

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

} // namespace

int Commands::rewrite(const QStringList &arguments)
{
    QCommandLineParser parser;
    describe(&parser, "rewrite",
             "Reads a message and writes it again: slides in the handset's layout, names for\n"
             "all parts, and the fields that its type takes. A message that brings no SMIL gets\n"
             "the slides that are made of its parts.\n"
             "Exit code: 0 written, 1 the message was refused or has no parts, 2 wrong usage or a\n"
             "file that cannot be read or written.",
             {{"FILE", "File with one PDU; - is standard input."},
              {"OUT", "File to write; - is standard output."}});
    int exitCode = AllDecoded;
    if (!parse(parser, arguments, 2, 2, &exitCode))
        return exitCode;

    const QStringList positional = parser.positionalArguments();
    QString error;
    const auto message = openMessage(positional[1]);
    if (!message)
        return CannotDo;
    if (message->isRefused()) {
        printRefusal(*message);
        return Refused;
    }
    if (message->body.getPartCount() == 0) {
        printError(positional[1] + QLatin1String(": the message has no parts"));
        return Refused;
    }
    if (Outgoing::write(rewritten(message.get()), positional[2], &error))
        return AllDecoded;
    printError(error);
    return CannotDo;
}
