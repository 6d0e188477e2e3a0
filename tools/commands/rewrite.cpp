#include "commands/commands.h"

#include "commands/message_command.h"
#include "message/outgoing.h"

#include <QCommandLineParser>

using namespace CommandLine;

namespace {

// Puts the slides into the message as its presentation. A message without SMIL gets the slides
// that were generated from its parts.
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
    // The decoder sets the flag for Hide, the encoder writes Show for it.
    message->header.setSenderVisibility(!message->header.getSenderVisibility());
    return Outgoing::pduOf(message);
}

int rewriteMessage(Message &message, const QCommandLineParser &arguments)
{
    if (message.isRefused())
        return refuse(message);
    if (message.body.getPartCount() == 0)
        return refuse(message,
                      QStringLiteral("the message has no parts, so there is nothing to write"));
    const QByteArray octets = rewritten(&message);
    return writeOutput(octets, arguments.positionalArguments().at(1),
                       QStringLiteral(" (%1 octets)").arg(octets.size()));
}

} // namespace

Command Commands::rewrite()
{
    return {
        .description =
            {.name = "rewrite",
             .summary = "write a message again as the library would send it",
             .purpose =
                 "Reads a message and writes it again: slides in the handset's layout, names "
                 "for all parts, and the fields that its type takes. A message that brings "
                 "no SMIL gets the slides that are made of its parts.",
             .exitCodes =
                 "0 written, 1 the message was refused or has no parts, 2 wrong usage or a "
                 "file that cannot be read or written.",
             .arguments = {{"FILE", "file with one message; - is standard input"},
                           {"OUT", "file to write; - is standard output"}}},
        .run = onMessage(rewriteMessage),
    };
}
