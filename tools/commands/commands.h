/*
 * The commands of the program. Each is in a file with its name.
 */
#pragma once

#include "commands/command_line.h"

#include <QList>
#include <QString>

namespace Commands {

CommandLine::Command list();
CommandLine::Command html();
CommandLine::Command show();
CommandLine::Command check();
CommandLine::Command extract();
CommandLine::Command smil();
CommandLine::Command render();
CommandLine::Command compose();
CommandLine::Command rewrite();
CommandLine::Command help();

/// All commands, in the order of the help.
const QList<CommandLine::Command> &all();

/// The command @p name; null when there is none.
const CommandLine::Command *find(const QString &name);

/// The help of the program.
QByteArray usage();

/// Prints an error: there is no command @p name. Returns the exit code.
int refuseUnknown(const QString &name);

} // namespace Commands
