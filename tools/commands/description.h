/*
 * The description of a command: what it does, its arguments, and its help.
 */
#pragma once

#include <QList>
#include <QString>

namespace CommandLine {

/// A positional argument, or the name of a value in the help.
struct Argument
{
    const char *name; ///< "FILE..." if it may be repeated, "[FILE]" if it is optional
    const char *help;
};

/// The whole numbers from @p least to @p most, and the default.
struct Numbers
{
    int standard = 0; ///< 0 when there is none
    int least = 1;
    int most = 0; ///< 0 when the value is not a number
};

/// An option; its name is short when it is a single letter.
struct Option
{
    const char *name;
    const char *value = nullptr; ///< name of its value in the help; null when it has none
    const char *help;
    bool isNeeded = false;
    Numbers numbers = {}; ///< accepted values; the help lists them
    bool isSize = false; ///< takes what sizeFrom() reads; the default is StandardSizeLimit
    bool replacesArguments = false; ///< with it, no argument is needed

    bool isNumber() const { return numbers.most > 0; }
};

/// Options under one title.
struct OptionGroup
{
    const char *title;
    QList<Option> options;
};

/// Describes a command and its arguments. Both the help and run() use only this.
struct Description
{
    const char *name;
    const char *summary; ///< for the list of commands
    const char *purpose;
    const char *exitCodes;
    QList<Argument> arguments = {};
    QList<OptionGroup> groups = {};
    QList<Argument> values = {}; ///< values of options that the help explains separately
    const char *example = nullptr; ///< lines, each with its line feed
};

/// All options, without their groups.
QList<Option> allOptions(const Description &description);

/// The option @p name as it is typed: "-o", "--json".
QString dashed(const QString &name);

/// The same with the name of its value: "-o OUT", "--json".
QString withValue(const Option &option);

/// The line of the help that shows the command with its arguments, with its line feed.
QString usageLine(const Description &description);

/// The whole help.
QString helpText(const Description &description);

/// @p title and a line for each of @p rows. Breaks long lines.
QString helpList(const char *title, const QList<Argument> &rows);

} // namespace CommandLine
