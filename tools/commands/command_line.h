/*
 * What the commands share: arguments, output and exit codes.
 */
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdio>
#include <initializer_list>
#include <memory>

class QCommandLineParser;
struct Message;

namespace CommandLine {

enum ExitCode { AllDecoded = 0, Refused = 1, CannotDo = 2 };

/// Writes the octets as they are.
void print(FILE *stream, const QByteArray &octets);

/// Writes a line to standard error that begins with the program's name; @p text is made visible.
void printError(const QString &text);

/// An argument that is no option.
struct Argument
{
    const char *name; ///< "FILE..." for any number of them
    const char *help;
};

/// Says in the help of @p parser what the command @p name does and which arguments it takes.
void describe(QCommandLineParser *parser, const char *name, const char *description,
              std::initializer_list<Argument> arguments);

/**
 * Parses a command's arguments, of which the command itself is the first. When this is all there is
 * to do, because help was asked for or the arguments are wrong, false, and @p exitCode says how it
 * went.
 */
bool parse(QCommandLineParser &parser, const QStringList &arguments, qsizetype fewest,
           qsizetype most, int *exitCode);

/// Reads a message; when it cannot be read, null, and an error is printed.
std::unique_ptr<Message> openMessage(const QString &fileName);

/// Prints why the message was refused: all that can be told of it.
void printRefusal(const Message &message);

} // namespace CommandLine
