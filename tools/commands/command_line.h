/*
 * The frame of every command: its arguments, output and exit code.
 */
#pragma once

#include "commands/description.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdio>
#include <functional>

class QCommandLineParser;

namespace CommandLine {

enum ExitCode { AllDecoded = 0, Refused = 1, CannotDo = 2 };

/// A command: its description, and the function that runs it once its arguments are parsed.
struct Command
{
    Description description;
    std::function<int(const QCommandLineParser &arguments)> run; ///< returns an ExitCode
    bool draws = false; ///< needs a QGuiApplication
};

/// Parses @p arguments, of which the first is the command's name, and runs @p command. Prints its
/// help instead when the arguments ask for it, and an error when they are wrong.
int run(const Command &command, const QStringList &arguments);

/// Writes the octets as they are.
void print(FILE *stream, const QByteArray &octets);

/// Lines of messageText() for @p stream: with colors when it takes any.
QByteArray linesFor(FILE *stream, const QString &text);

/// Writes a line to standard error that begins with the program's name. Makes @p text visible.
void printError(const QString &text);

/// "; did you mean NAME?" for a @p word that is close to one of @p names, else "".
QString suggestion(const QString &word, const QStringList &names);

/// Writes @p octets to the file @p fileName, or to standard output for "-", and reports a written
/// file with @p details after its name.
int writeOutput(const QByteArray &octets, const QString &fileName, const QString &details);

} // namespace CommandLine
