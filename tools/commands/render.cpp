#include "commands/commands.h"

#include "commands/message_command.h"
#include "render/render.h"

#include <QCommandLineParser>

using namespace CommandLine;

namespace {

constexpr int MostOfAnyLimit = 1'000'000;

int renderToFolder(Message &message, const QCommandLineParser &arguments)
{
    const auto number = [&](const char *option) {
        return arguments.value(QLatin1String(option)).toInt();
    };
    const RenderLimits limits{number("max-slides"), number("max-drawn"), number("max-decoded")};
    const bool hasSlides = message.slides().getTotalSlidesNum() > 0;
    const auto write = [&](const QString &directory, QStringList *report, QString *error) {
        return renderSlides(message, directory, number("scale"), limits, report, error);
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
                        "contact-sheet.png. Files of these names are replaced. Limits bound the "
                        "time and memory for one message; a line says which limit left out "
                        "slides or media.",
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
                          {.name = "max-slides",
                           .value = "N",
                           .help = "slides that are rendered",
                           .numbers = {.standard = RenderLimits().slides, .most = MostOfAnyLimit}},
                          {.name = "max-drawn",
                           .value = "N",
                           .help = "millions of pixels of slides and contact sheets",
                           .numbers = {.standard = RenderLimits().drawn, .most = MostOfAnyLimit}},
                          {.name = "max-decoded",
                           .value = "N",
                           .help = "millions of pixels of pictures that are decoded",
                           .numbers = {.standard = RenderLimits().decoded, .most = MostOfAnyLimit}},
                          SizeLimitOption}}}},
        .run = onMessage(renderToFolder),
        .draws = true,
    };
}
