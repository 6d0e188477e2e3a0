/*
 * The frame of the commands whose first argument is a message: opens the message, reports why it
 * was refused, and determines the exit code.
 */
#pragma once

#include "commands/command_line.h"
#include "input/message.h"
#include "output/report.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace CommandLine {

using RunOnMessage = int (*)(Message &message, const QCommandLineParser &arguments);
using ReadMessage = std::unique_ptr<Message> (*)(const QString &fileName,
                                                 const ReadOptions &options, QString *error);

/// The option of every command that reads messages: the largest size of a file.
inline constexpr Option SizeLimitOption{
    .name = "max-size",
    .value = "SIZE",
    .help = "largest file to read, in octets, or in units of 1,024 octets (k), 1,024k (M) or "
            "1,024M (G)",
    .isSize = true};

/// The value of SizeLimitOption, in octets.
qint64 sizeLimit(const QCommandLineParser &arguments);

/// For Command::run: opens the message with @p read and calls @p run. Prints an error if the
/// message cannot be read.
std::function<int(const QCommandLineParser &)> onMessage(RunOnMessage run,
                                                         ReadMessage read = readMessage);

/// Prints a refused message as far as it was decoded. Returns the exit code.
int refuse(const Message &message);

/// Prints why the command refuses a message. Returns the exit code.
int refuse(const Message &message, const QString &why);

/// Prints why the file cannot be a message, if that is so.
void printAdvice(const Message &message);

/// Creates the folder @p directory unless it exists. Prints an error if that fails.
bool createFolder(const QString &directory);

/// Writes files to a folder and reports each. False, with the reason in @p error, if a file cannot
/// be written.
using WriteFiles = std::function<bool(const QString &directory, Report *report, QString *error)>;

/// Creates the folder @p directory if @p hasFiles, calls @p write for it, and prints the report.
/// Returns the exit code, also for a message that was refused.
int writeToFolder(const Message &message, const QString &directory, bool hasFiles,
                  const WriteFiles &write);

} // namespace CommandLine
