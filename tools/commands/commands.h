/*
 * The commands. Each takes the program's arguments from the command's own name on and returns a
 * CommandLine::ExitCode.
 */
#pragma once

#include <QStringList>

namespace Commands {

int show(const QStringList &arguments);
int extract(const QStringList &arguments);
int smil(const QStringList &arguments);
int render(const QStringList &arguments);
int compose(const QStringList &arguments);
int rewrite(const QStringList &arguments);

} // namespace Commands
