#include "commands/commands.h"

#include "commands/message_command.h"
#include "render/render.h"

#include <QCommandLineParser>

using namespace CommandLine;

namespace {

int renderToFolder(Message &message, const QCommandLineParser &arguments)
{
    const int scale = arguments.value(QStringLiteral("scale")).toInt();
    const bool hasSlides = message.slides().getTotalSlidesNum() > 0;
    const auto write = [&](const QString &directory, QStringList *report, QString *error) {
        return renderSlides(message, directory, scale, report, error);
    };
    const int exitCode =
        writeToFolder(message, arguments.positionalArguments().at(1), hasSlides, write);
    if (exitCode != AllDecoded || hasSlides)
        return exitCode;
    return refuse(message,
                  QStringLiteral("the message has no slides; qvlmms show lists its contents"));
}

} // namespace

Command Commands::render()
{
    return {
        .description =
            {.name = "render",
             .summary = "render the slides of a message as the handset shows them",
             .purpose = "Renders every slide of a message, and a contact sheet of all slides, and "
                        "writes the pictures to a folder as slide-1.png and so on and "
                        "contact-sheet.png. Files of these names are replaced.",
             .exitCodes =
                 "0 rendered, 1 the message was refused or has no slides, 2 wrong usage or a "
                 "file that cannot be read or written.",
             .arguments = {{"FILE", "file with one message; - is standard input"},
                           {"DIR", "folder for the pictures; created if it does not exist"}},
             .groups = {{"Options",
                         {{.name = "scale",
                           .value = "N",
                           .help = "width and height of a handset pixel in picture pixels",
                           .numbers = {.standard = 2, .most = LargestScale}},
                          SizeLimitOption}}}},
        .run = onMessage(renderToFolder),
        .draws = true,
    };
}
