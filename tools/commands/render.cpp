#include "commands/commands.h"

#include "commands/command_line.h"
#include "message.h"
#include "render/render.h"

#include <QCommandLineParser>

using namespace CommandLine;

int Commands::render(const QStringList &arguments)
{
    QCommandLineParser parser;
    describe(
        &parser, "render",
        "Draws every slide of a message, and all of them on a contact sheet, and writes\n"
        "the pictures to a folder as slide-1.png and so on and contact-sheet.png. Files of\n"
        "these names are replaced.\n"
        "Exit code: 0 drawn, 1 the message was refused or has no slides, 2 wrong usage or a\n"
        "file that cannot be read or written.",
        {{"FILE", "File with one PDU; - is standard input."}, {"DIR", "Folder for the pictures."}});
    const QCommandLineOption scaleOption(
        QStringLiteral("scale"),
        QStringLiteral("Picture pixels that one pixel of the handset takes, 1 to %1; 2 if not "
                       "given.")
            .arg(LargestScale),
        QStringLiteral("N"), QStringLiteral("2"));
    parser.addOption(scaleOption);
    int exitCode = AllDecoded;
    if (!parse(parser, arguments, 2, 2, &exitCode))
        return exitCode;
    bool isNumber = false;
    const int scale = parser.value(scaleOption).toInt(&isNumber);
    if (!isNumber || scale < 1 || scale > LargestScale) {
        printError(QStringLiteral("the scale is a number from 1 to %1, not ").arg(LargestScale)
                   + parser.value(scaleOption));
        return CannotDo;
    }

    const QStringList positional = parser.positionalArguments();
    QString error;
    const auto message = openMessage(positional[1]);
    if (!message)
        return CannotDo;
    const bool hasSlides = message->slides.getTotalSlidesNum() > 0;
    QStringList report;
    const bool written =
        !hasSlides || renderSlides(*message, positional[2], scale, &report, &error);
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
    printError(positional[1] + QLatin1String(": the message has no slides"));
    return Refused;
}
