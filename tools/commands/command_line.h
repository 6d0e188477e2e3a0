/*
 * What the commands share: arguments, output and exit codes.
 */
#pragma once

#include "commands/description.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdio>
#include <memory>
#include <optional>

class QCommandLineParser;
struct Message;

namespace CommandLine {

enum ExitCode { AllDecoded = 0, Refused = 1, CannotDo = 2 };

/// Writes the octets as they are.
void print(FILE *stream, const QByteArray &octets);

/// Lines of messageText() as @p stream gets them: with colours when it takes any.
QByteArray linesFor(FILE *stream, const QString &text);

/// Writes a line to standard error that begins with the program's name; @p text is made visible.
void printError(const QString &text);

/// "; did you mean NAME?" for a @p word that is close to one of @p names, else "".
QString suggestion(const QString &word, const QStringList &names);

/**
 * Parses a command's arguments, of which the first is its name. When this is all there is to do,
 * because help was asked for or the arguments are wrong, false, and @p exitCode says how it went.
 */
bool parse(QCommandLineParser *parser, const Description &description, const QStringList &arguments,
           int *exitCode);

/// The number from 1 to @p most that is given with an option, or else @p standard. When something
/// else is given, nothing, and an error is printed.
std::optional<int> numberOf(const QCommandLineParser &parser, const char *option, int standard,
                            int most);

/// Reads a message; when it cannot be read, null, and an error is printed.
std::unique_ptr<Message> openMessage(const QString &fileName);

/// Prints why the message was refused: all that can be told of it.
void printRefusal(const Message &message);

/// Says why what was taken for a message cannot be one, if so.
void printAdvice(const Message &message);

/// Makes a folder unless it is there; when that cannot be done, false, and an error is printed.
bool makeFolder(const QString &directory);

} // namespace CommandLine
