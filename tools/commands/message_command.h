/*
 * The frame of commands about one message, which their first argument names: they open it, report
 * on it, and end with its exit code.
 */
#pragma once

#include "commands/command_line.h"
#include "input/message.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace CommandLine {

using RunOnMessage = int (*)(Message &message, const QCommandLineParser &arguments);
using ReadMessage = std::unique_ptr<Message> (*)(const QString &fileName, QString *error);

/// For Command::run: opens the message with @p read and calls @p run. Prints an error when the
/// message cannot be read.
std::function<int(const QCommandLineParser &)> onMessage(RunOnMessage run,
                                                         ReadMessage read = readMessage);

/// Prints all that is known about a message that was refused. Returns the exit code.
int refuse(const Message &message);

/// Prints why the command refuses a message. Returns the exit code.
int refuse(const Message &message, const QString &why);

/// Prints why a file cannot be a message, if so.
void printAdvice(const Message &message);

/// Writes files to a folder, adds a line to @p report for each of them, and returns whether all
/// were written, with the reason in @p error when not.
using WriteFiles =
    std::function<bool(const QString &directory, QStringList *report, QString *error)>;

/// Calls @p write for the folder @p directory, makes the folder before that if @p hasFiles, and
/// prints the report. Returns the exit code, which also says whether the message was refused.
int writeToFolder(const Message &message, const QString &directory, bool hasFiles,
                  const WriteFiles &write);

} // namespace CommandLine
