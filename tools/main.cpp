/*
 * qvlmms: shows what is in multimedia messages, for whoever has to find out why one does not show.
 */
#include "extract.h"
#include "message.h"
#include "model_text.h"
#include "show.h"
#include "terminal_text.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <cstdio>

#include <unistd.h>

namespace {

enum ExitCode { AllDecoded = 0, Refused = 1, CannotDo = 2 };

struct Command
{
    const char *name;
    const char *summary;
    int (*run)(const QStringList &arguments);
};

void print(FILE *stream, const QByteArray &octets)
{
    std::fwrite(octets.constData(), 1, size_t(octets.size()), stream);
}

void printError(const QString &text)
{
    print(stderr, QByteArrayLiteral("qvlmms: ") + TerminalText::visible(text).toUtf8() + '\n');
}

// Parses a command's arguments. When this is all there is to do, @p exitCode says how it went.
bool parse(QCommandLineParser &parser, const QStringList &arguments, qsizetype fewest,
           qsizetype most, int *exitCode)
{
    const QCommandLineOption help = parser.addHelpOption();
    const bool understood = parser.parse(arguments);
    if (understood && parser.isSet(help)) {
        print(stdout, parser.helpText().toUtf8());
        *exitCode = AllDecoded;
        return false;
    }
    const qsizetype given = parser.positionalArguments().size() - 1; // the command itself is first
    if (understood && given >= fewest && given <= most)
        return true;
    printError(understood ? (given < fewest ? QStringLiteral("too few arguments")
                                            : QStringLiteral("too many arguments"))
                          : parser.errorText());
    print(stderr,
          "Try: " + parser.helpText().section(QLatin1Char('\n'), 0, 0).mid(7).toUtf8() + '\n');
    *exitCode = CannotDo;
    return false;
}

// Text of several lines, made visible but for its line feeds when somebody looks at it.
QString visibleLines(const QString &text)
{
    if (!isatty(STDOUT_FILENO))
        return text;
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = TerminalText::visible(line);
    return lines.join(QLatin1Char('\n'));
}

/// A line on standard error that says how far a long run is, when somebody is there to see it. It
/// is out of the way while something is printed.
class Progress
{
public:
    explicit Progress(qsizetype total) : m_total(total), m_shown(total > 1 && isatty(STDERR_FILENO))
    {
    }
    ~Progress() { hide(); }

    void hide() const
    {
        if (m_shown)
            std::fputs("\r\x1B[K", stderr);
    }
    void step()
    {
        ++m_done;
        if (!m_shown)
            return;
        std::fflush(stdout);
        std::fprintf(stderr, "\r%lld of %lld", qlonglong(m_done), qlonglong(m_total));
    }

private:
    qsizetype m_total;
    qsizetype m_done = 0;
    bool m_shown;
};

QString summary(int decoded, int refused, int unreadable)
{
    return QStringLiteral("\n%1 messages: %2 decoded, %3 refused, %4 not readable\n")
        .arg(decoded + refused + unreadable)
        .arg(decoded)
        .arg(refused)
        .arg(unreadable);
}

int show(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Shows header, checks, parts and slides of messages.\n"
        "Exit code: 0 all decoded, 1 a message was refused, 2 wrong usage or an unreadable file."));
    parser.addPositionalArgument(QStringLiteral("show"), QStringLiteral("Show messages."),
                                 QStringLiteral("show"));
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 QStringLiteral("Files with one PDU each; - is standard input."),
                                 QStringLiteral("FILE..."));
    const QCommandLineOption json(QStringLiteral("json"),
                                  QStringLiteral("Print one JSON object a line."));
    parser.addOption(json);
    int exitCode = AllDecoded;
    if (!parse(parser, arguments, 1, arguments.size(), &exitCode))
        return exitCode;

    const QStringList files = parser.positionalArguments().sliced(1);
    int decoded = 0;
    int refused = 0;
    int unreadable = 0;
    Progress progress(files.size());
    for (const QString &file : files) {
        QString error;
        const auto message = readMessage(file, &error);
        progress.hide();
        if (message) {
            if (decoded + refused > 0 && !parser.isSet(json))
                print(stdout, "\n");
            ++(message->isRefused() ? refused : decoded);
            print(stdout,
                  parser.isSet(json) ? TerminalText::jsonLine(messageJson(*message))
                                     : messageText(*message).toUtf8());
        } else {
            printError(file + QLatin1String(": ") + error);
            ++unreadable;
        }
        progress.step();
    }
    progress.hide();
    if (files.size() > 1 && !parser.isSet(json))
        print(stdout, summary(decoded, refused, unreadable).toUtf8());
    return unreadable > 0 ? CannotDo : refused > 0 ? Refused : AllDecoded;
}

int extract(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Writes every part of a message to a new file in a folder, under its location's file "
        "name.\n"
        "Exit code: 0 decoded, 1 the message was refused, 2 wrong usage or a file that cannot be "
        "read or written."));
    parser.addPositionalArgument(QStringLiteral("extract"), QStringLiteral("Extract parts."),
                                 QStringLiteral("extract"));
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 QStringLiteral("File with one PDU; - is standard input."));
    parser.addPositionalArgument(QStringLiteral("DIR"), QStringLiteral("Folder for the parts."));
    int exitCode = AllDecoded;
    if (!parse(parser, arguments, 2, 2, &exitCode))
        return exitCode;

    const QStringList positional = parser.positionalArguments();
    QString error;
    const auto message = readMessage(positional[1], &error);
    if (!message) {
        printError(positional[1] + QLatin1String(": ") + error);
        return CannotDo;
    }
    QStringList report;
    const bool written = extractParts(*message, positional[2], &report, &error);
    for (const QString &line : report)
        print(stdout, line.toUtf8() + '\n');
    if (!written) {
        printError(error);
        return CannotDo;
    }
    if (message->isRefused()) {
        print(stderr, messageText(*message).toUtf8());
        return Refused;
    }
    if (report.isEmpty())
        print(stdout, "the message has no parts\n");
    return AllDecoded;
}

int smil(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Prints the normalised SMIL text of a message, or of a SMIL document by "
                       "itself, whose media\n"
                       "are then taken as being there.\n"
                       "Exit code: 0 read, 1 refused, 2 wrong usage or an unreadable file."));
    parser.addPositionalArgument(QStringLiteral("smil"), QStringLiteral("Print SMIL."),
                                 QStringLiteral("smil"));
    parser.addPositionalArgument(
        QStringLiteral("FILE"),
        QStringLiteral("File with one PDU or one SMIL document; - is standard input."));
    const QCommandLineOption model(QStringLiteral("model"),
                                   QStringLiteral("Print the presentation instead, a line for each "
                                                  "thing in it."));
    parser.addOption(model);
    int exitCode = AllDecoded;
    if (!parse(parser, arguments, 1, 1, &exitCode))
        return exitCode;

    const QString file = parser.positionalArguments().at(1);
    QString error;
    const auto message = readMessageOrDocument(file, &error);
    if (!message) {
        printError(file + QLatin1String(": ") + error);
        return CannotDo;
    }
    if (!message->smilResult) {
        printError(file
                   + (message->isRefused() ? QLatin1String(": the message was refused")
                                           : QLatin1String(": the message has no SMIL part")));
        return Refused;
    }
    const QString text = parser.isSet(model)
        ? ModelText::presentation(message->slides)
        : MMS_COMP_SMILParser::convertToSMILLang(&message->slides);
    if (!message->isRefused() || parser.isSet(model))
        print(stdout, visibleLines(text).toUtf8());
    if (!message->isRefused())
        return AllDecoded;
    printError(file + QLatin1String(": ") + refusedSmilText(*message));
    return Refused;
}

constexpr Command commands[] = {
    {"show", "show header, checks, parts and slides of messages", show},
    {"extract", "write the parts of a message to files", extract},
    {"smil", "print the normalised SMIL of a message or document", smil},
};

QByteArray usage()
{
    QByteArray text = "Usage: qvlmms COMMAND [ARGUMENT...]\n\nCommands:\n";
    for (const Command &command : commands)
        text += "  " + QByteArray(command.name).leftJustified(10) + command.summary + '\n';
    return text + "\nqvlmms COMMAND --help tells more; qvlmms --version tells the version.\n";
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("qvlmms"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QVLMMS_VERSION));
    const QStringList arguments = QCoreApplication::arguments();
    const QString name = arguments.value(1);
    if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
        print(stdout, usage());
        return AllDecoded;
    }
    if (name == QLatin1String("--version") || name == QLatin1String("-v")) {
        print(stdout, "qvlmms " QVLMMS_VERSION "\n");
        return AllDecoded;
    }
    const auto command =
        std::find_if(std::begin(commands), std::end(commands),
                     [&](const Command &row) { return name == QLatin1String(row.name); });
    if (command != std::end(commands))
        return command->run(arguments);
    if (!name.isEmpty())
        printError(QStringLiteral("there is no command ") + name);
    print(stderr, usage());
    return CannotDo;
}
