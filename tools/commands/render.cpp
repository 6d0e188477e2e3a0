#include "render/render.h"

#include "commands/command_line.h"
#include "commands/commands.h"
#include "message/message.h"

#include <QCommandLineParser>

using namespace CommandLine;

int Commands::render(const QStringList &arguments)
{
    static_assert(LargestScale == 8, "the help says so");
    const Description description{
        .name = "render",
        .purpose = "Draws every slide of a message, and all of them on a contact sheet, and writes "
                   "the pictures to a folder as slide-1.png and so on and contact-sheet.png. Files "
                   "of these names are replaced.",
        .exitCodes = "0 drawn, 1 the message was refused or has no slides, 2 wrong usage or a file "
                     "that cannot be read or written.",
        .arguments = {{"FILE", "file with one message; - is standard input"},
                      {"DIR", "folder for the pictures; it is made when it is not there"}},
        .groups = {
            {"Options",
             {{"scale", "N", "picture pixels that one pixel of the handset takes, 1 to 8 (2)"}}}}};
    QCommandLineParser parser;
    int exitCode = AllDecoded;
    if (!parse(&parser, description, arguments, &exitCode))
        return exitCode;
    const auto scale = numberOf(parser, "scale", 2, LargestScale);
    if (!scale)
        return CannotDo;

    const QStringList positional = parser.positionalArguments();
    QString error;
    const auto message = openMessage(positional[0]);
    if (!message)
        return CannotDo;
    const bool hasSlides = message->slides.getTotalSlidesNum() > 0;
    if (hasSlides && !makeFolder(positional[1]))
        return CannotDo;
    QStringList report;
    const bool written = renderSlides(*message, positional[1], *scale, &report, &error);
    for (const QString &line : report)
        print(stdout, line.toUtf8() + '\n');
    if (!written) {
        printError(error);
        return CannotDo;
    }
    if (message->isRefused()) {
        printRefusal(*message);
        return Refused;
    }
    if (hasSlides)
        return AllDecoded;
    printError(positional[0]
               + QLatin1String(": the message has no slides; qvlmms show tells what it has"));
    return Refused;
}
