/*
 * The options of `qvlmms compose`: one table of their names, their help and their effects.
 */
#pragma once

#include "compose/composer.h"

#include <span>

/// An option that sets something in a message or adds something to it.
struct ComposeOption
{
    enum Group {
        Fields, ///< sets a header field, wherever it stands
        Content, ///< adds content, in the order of the options
        OfSlide, ///< changes the last slide so far
    };

    const char *name;
    const char *value; ///< name of its value in the help; null when it has none
    const char *help;
    Group group;
    Outcome (*apply)(Composer &composer, const QString &value);
};

/// A value that several options take in the same form.
struct ComposeValue
{
    const char *name; ///< its name in the help
    const char *expected; ///< its form, in words
};

/// All options in the order of the help, group by group.
std::span<const ComposeOption> composeOptions();

/// The values that have a line of their own in the help.
std::span<const ComposeValue> composeValues();
