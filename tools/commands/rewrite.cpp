#include "commands/commands.h"

#include "commands/message_command.h"
#include "rewrite/dropped.h"
#include "view/header_view.h"

#include <QCommandLineParser>

#include <algorithm>
#include <new>

using namespace CommandLine;

namespace {

// A message without slides gets no SMIL part. Other messages get one with the name that the library
// gives to generated SMIL.
bool encode(Message *message, QByteArray *octets)
{
    const bool hasSlides = message->smilResult || message->areSlidesGenerated();
    if (hasSlides && !message->storeSlides(QStringLiteral("qvlsmil.smil")))
        throw std::bad_alloc(); // the message was presented before
    // The decoder sets the flag for Hide, the encoder writes Show for it.
    message->header().setSenderVisibility(!message->header().getSenderVisibility());
    const QvlMessage::Result result = message->encode(octets);
    requireMemory(result);
    return result.isOk();
}

// The reason why the message cannot be written; "" if it can.
QString whyNotWritten(const Message &message)
{
    const MMS_UA_UAMsg &header = message.header();
    if (!header.fieldsPresent(headerFieldMask(HeaderFieldCode::MessageType)))
        return QStringLiteral("the message has no type, so there is nothing to write");
    const unsigned char type = header.getMessageType();
    if (!messageTypeInfo(type))
        return QStringLiteral("messages of this type cannot be written, only those of MMS 1.0: %1")
            .arg(messageTypeText(type));
    const int received = message.parts().getPartCount();
    if (messageTypeHasBody(type) && received == 0)
        return QStringLiteral("the message has no parts, so there is nothing to write");
    const int parts = received + (message.areSlidesGenerated() ? 1 : 0); // one for the SMIL
    if (parts > QvlMessage::MostParts)
        return QStringLiteral("the message would have more than %1 parts, and other software reads "
                              "no more")
            .arg(QvlMessage::MostParts);
    return QString();
}

void printDropped(const Message &message, const QStringList &dropped)
{
    constexpr qsizetype most = 30;
    if (dropped.isEmpty())
        return;
    QString text = dropped.first(std::min(most, dropped.size())).join(QLatin1String(", "));
    if (dropped.size() > most)
        text += QStringLiteral(" and %1 more").arg(dropped.size() - most);
    printError(message.fileName + QLatin1String(": not written: ") + text);
}

int rewriteMessage(Message &message, const QCommandLineParser &arguments)
{
    if (message.isRefused())
        return refuse(message);
    if (const QString why = whyNotWritten(message); !why.isEmpty())
        return refuse(message, why);
    const QStringList dropped = droppedItems(message); // encoding changes the content type
    QByteArray octets;
    if (!encode(&message, &octets))
        return refuse(message,
                      QStringLiteral("the message cannot be written: a name or a media "
                                     "type is too long, or a text has no form on the wire"));
    const int exitCode = writeOutput(octets, arguments.positionalArguments().at(1),
                                     QStringLiteral(" (%1 octets)").arg(octets.size()));
    if (exitCode == AllDecoded)
        printDropped(message, dropped);
    return exitCode;
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
                 "handset's layout, names for all parts, and the fields of its type in MMS 1.0. A "
                 "message without SMIL gets slides generated from its parts. Texts become UTF-8. "
                 "Lists on standard error what is not written, such as fields of later versions.",
             .exitCodes =
                 "0 written, 1 the message was refused, has no parts, or has a type that MMS 1.0 "
                 "lacks, 2 wrong usage or a file that cannot be read or written.",
             .arguments = {{"FILE", "file with one message; - is standard input"},
                           {"OUT", "file to write; - is standard output"}},
             .groups = {{"Options", {SizeLimitOption}}}},
        .run = onMessage(rewriteMessage),
    };
}
