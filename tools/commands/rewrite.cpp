#include "commands/commands.h"

#include "commands/message_command.h"

#include <QCommandLineParser>

using namespace CommandLine;

namespace {

// A message without slides gets no SMIL part. Other messages get one with the name that the library
// gives to generated SMIL.
bool encode(Message *message, QByteArray *octets)
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
    if (!encode(&message, &octets))
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
             .summary = "write a message as the library would send it",
             .purpose =
                 "Reads a message and writes it as the library would send it: with slides in the "
                 "handset's layout, names for all parts, and the fields of its type. A message "
                 "without SMIL gets slides generated from its parts.",
             .exitCodes =
                 "0 written, 1 the message was refused or has no parts, 2 wrong usage or a "
                 "file that cannot be read or written.",
             .arguments = {{"FILE", "file with one message; - is standard input"},
                           {"OUT", "file to write; - is standard output"}}},
        .run = onMessage(rewriteMessage),
    };
}
