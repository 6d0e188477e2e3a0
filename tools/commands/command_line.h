/*
 * The frame of every command: its arguments, output and exit code.
 */
#pragma once

#include "commands/description.h"

#include <QByteArray>
#include <QByteArrayView>
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
    bool draws = false; ///< renders slides, which needs a QGuiApplication
};

/// Parses @p arguments, which begin with the command's name, and runs @p command. Prints its help
/// instead if the arguments ask for it, or an error if they are wrong.
int run(const Command &command, const QStringList &arguments);

/// Writes the octets as they are.
void print(FILE *stream, QByteArrayView octets);

/// Writes what standard output still holds back. Returns 0, or the number of the first error since
/// the start of the program.
int flushOutput();

/// Lines of messageText() for @p stream: with colors if takesColors().
QByteArray linesFor(FILE *stream, const QString &text);

/// Writes the program's name and @p text, made visible, as a line to standard error.
void printError(const QString &text);

/// "; did you mean NAME?" if @p word is close to one of @p names, else "".
QString suggestion(const QString &word, const QStringList &names);

/// Writes @p octets to the file @p fileName, or to standard output for "-". Reports a written file
/// with @p details after its name. Returns the exit code.
int writeOutput(const QByteArray &octets, const QString &fileName, const QString &details);

} // namespace CommandLine
