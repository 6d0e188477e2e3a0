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
        Fields, ///< sets a header field; its position does not matter
        Content, ///< adds content, in the order of the options
        Media, ///< adds to the last slide so far; begins the first slide if there is none
        OfSlide, ///< changes the last slide so far
    };

    const char *name;
    const char *value; ///< name of its value in the help; null without a value
    const char *help;
    Group group;
    Outcome (*apply)(Composer &composer, const QString &value);
};

/// A value that several options take in the same form.
struct ComposeValue
{
    const char *name; ///< name in the help
    const char *expected; ///< accepted forms, in words
};

/// All options in the order of the help, group by group.
std::span<const ComposeOption> composeOptions();

/// The values that the help explains separately.
std::span<const ComposeValue> composeValues();
