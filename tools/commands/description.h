/*
 * What a command does and takes, and the help that tells it.
 */
#pragma once

#include <QList>
#include <QString>

namespace CommandLine {

/// An argument that is no option, or what stands for a value in the help.
struct Argument
{
    const char *name; ///< "FILE..." for one or more of them, "[FILE]" when it may be left out
    const char *help;
};

/// An option; its name is short when it is a single letter.
struct Option
{
    const char *name;
    const char *value; ///< what stands for its value in the help; null when it has none
    const char *help;
    bool isNeeded = false;
};

/// Options under a title of their own.
struct OptionGroup
{
    const char *title;
    QList<Option> options;
};

/// What a command does and takes. Its help says this and no more, and parse() takes no more.
struct Description
{
    const char *name;
    const char *purpose;
    const char *exitCodes;
    QList<Argument> arguments = {};
    QList<OptionGroup> groups = {};
    QList<Argument> values = {}; ///< of options, as far as they need more words
    const char *example = nullptr; ///< lines, each with its line feed
};

/// All options, without their groups.
QList<Option> optionsOf(const Description &description);

/// The option @p name as it is typed: "-o", "--json".
QString dashed(const QString &name);

/// The same with what stands for its value: "-o OUT", "--json".
QString withValue(const Option &option);

/// The line of the help that says how the command is called, with its line feed.
QString usageOf(const Description &description);

/// The whole help.
QString helpOf(const Description &description);

/// A line for each of @p rows, behind @p title. Long lines are broken.
QString helpList(const char *title, const QList<Argument> &rows);

} // namespace CommandLine
