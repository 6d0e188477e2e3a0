#include "commands/commands.h"

#include "commands/message_command.h"

#include <QCommandLineParser>

using namespace CommandLine;

namespace {

// A message of attachments that no slide can show gets no SMIL part. One that it gets is named as
// the library names those that it generates.
bool encodeAgain(Message *message, QByteArray *octets)
{
    const bool hasSlides = message->smilResult || message->areSlidesGenerated();
    if (hasSlides && !message->storeSlides(QStringLiteral("qvlsmil.smil")))
        return false;
    // The decoder sets the flag for Hide, the encoder writes Show for it.
    message->header().setSenderVisibility(!message->header().getSenderVisibility());
    return message->encode(octets).isOk();
}

int rewriteMessage(Message &message, const QCommandLineParser &arguments)
{
    if (message.isRefused())
        return refuse(message);
    if (message.parts().getPartCount() == 0)
        return refuse(message,
                      QStringLiteral("the message has no parts, so there is nothing to write"));
    QByteArray octets;
    if (!encodeAgain(&message, &octets))
        return refuse(message, QStringLiteral("the message cannot be written"));
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
