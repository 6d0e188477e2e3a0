#include "commands/commands.h"

#include "commands/message_command.h"
#include "render/render.h"
#include "render/sheet.h"
#include "render/slide_files.h"

#include <QCommandLineParser>

using namespace CommandLine;

namespace {

constexpr int MostOfAnyLimit = 1'000'000;
constexpr int MostThumbnailSize = 1024;

int number(const QCommandLineParser &arguments, const char *option)
{
    return arguments.value(QLatin1String(option)).toInt();
}

RenderLimits limitsFrom(const QCommandLineParser &arguments, const Message &message)
{
    RenderLimits limits = limitsFor(message.octets.size());
    limits.slides = number(arguments, "max-slides");
    if (arguments.isSet(QStringLiteral("max-drawn")))
        limits.drawn = number(arguments, "max-drawn");
    if (arguments.isSet(QStringLiteral("max-decoded")))
        limits.decoded = number(arguments, "max-decoded");
    return limits;
}

int refuseWithoutSlides(const Message &message)
{
    return message.isRefused()
        ? refuse(message)
        : refuse(message,
                 QStringLiteral("the message has no slides; qvlmms show lists its contents"));
}

int renderToFolder(const Message &message, const QCommandLineParser &arguments)
{
    const bool hasSlides = message.slides().getTotalSlidesNum() > 0;
    const PictureSizes sizes{arguments.isSet(QStringLiteral("scale")) ? number(arguments, "scale")
                                                                      : 0,
                             number(arguments, "width")};
    const auto write = [&](const QString &directory, Report *report, QString *error) {
        return writeSlides(message, directory, sizes, limitsFrom(arguments, message), report,
                           error);
    };
    const int exitCode =
        writeToFolder(message, arguments.positionalArguments().at(1), hasSlides, write);
    return exitCode != AllDecoded || hasSlides ? exitCode : refuseWithoutSlides(message);
}

int renderThumbnail(const Message &message, const QCommandLineParser &arguments)
{
    if (message.slides().getTotalSlidesNum() == 0)
        return refuseWithoutSlides(message);
    const QImage page =
        firstPage(message, number(arguments, "thumbnail"), limitsFrom(arguments, message));
    if (page.isNull()) {
        printError(QStringLiteral("the first slide exceeds --max-drawn"));
        return CannotDo;
    }
    const QString size = QStringLiteral(" (%1x%2)").arg(page.width()).arg(page.height());
    const int exitCode = writeOutput(pngOctets(page), arguments.positionalArguments().at(1), size);
    return exitCode == AllDecoded && message.isRefused() ? refuse(message) : exitCode;
}

int renderMessage(Message &message, const QCommandLineParser &arguments)
{
    if (!arguments.isSet(QStringLiteral("thumbnail")))
        return renderToFolder(message, arguments);
    if (arguments.isSet(QStringLiteral("scale")) || arguments.isSet(QStringLiteral("width"))) {
        printError(
            QStringLiteral("--thumbnail determines the size; leave out --scale and --width"));
        return CannotDo;
    }
    return renderThumbnail(message, arguments);
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
                        "contact-sheet.png. Files of these names are replaced. The sheet also "
                        "has the texts that do not fit into their slides. Limits bound the "
                        "time and memory for one message; a line says which limit left out "
                        "slides or media.",
             .exitCodes =
                 "0 rendered, 1 the message was refused or has no slides, 2 wrong usage or a "
                 "file that cannot be read or written.",
             .arguments = {{"FILE", "file with one message; - is standard input"},
                           {"DIR",
                            "folder for the pictures, created if it does not exist; with "
                            "--thumbnail the PNG file, or - for standard output"}},
             .groups =
                 {{"Options",
                   {{.name = "scale",
                     .value = "N",
                     .help = "width and height of a handset pixel in picture pixels",
                     .numbers = {.standard = 2, .most = LargestScale}},
                    {.name = "width",
                     .value = "PIXELS",
                     .help = "width of the contact sheet; makes its slides, and unless "
                             "--scale is given all pictures, as large as that needs",
                     .numbers = {.least = LeastSheetWidth, .most = MostSheetWidth}},
                    {.name = "thumbnail",
                     .value = "SIZE",
                     .help = "write only the first slide, with a longer side of SIZE pixels",
                     .numbers = {.most = MostThumbnailSize}},
                    {.name = "max-slides",
                     .value = "N",
                     .help = "slides that are rendered",
                     .numbers = {.standard = RenderLimits().slides, .most = MostOfAnyLimit}},
                    {.name = "max-drawn",
                     .value = "N",
                     .help = "millions of pixels of slides and contact sheets; the default is for "
                             "each started 300 KB of the message",
                     .numbers = {.standard = RenderLimits().drawn, .most = MostOfAnyLimit}},
                    {.name = "max-decoded",
                     .value = "N",
                     .help = "millions of pixels of pictures that are decoded; the default is for "
                             "each started 300 KB",
                     .numbers = {.standard = RenderLimits().decoded, .most = MostOfAnyLimit}},
                    SizeLimitOption}}}},
        .run = onMessage(renderMessage),
        .draws = true,
    };
}
