/*
 * The options of `qvlmms compose`: one table of which there are, what they mean and what they do.
 */
#pragma once

#include "compose/composer.h"

#include <span>

/// An option that sets something in a message or adds something to it.
struct ComposeOption
{
    enum Group {
        Fields, ///< of the header; what they set holds for all content
        Content, ///< acts in its place
        OfSlide, ///< the same, on the slide begun last
    };

    const char *name;
    const char *value; ///< what stands for its value in the help; null when it has none
    const char *help;
    Group group;
    Outcome (*apply)(Composer &composer, const QString &value);
};

/// What several options take in the same form.
struct ComposeValue
{
    const char *name; ///< what stands for it in the help
    const char *expected; ///< its form
};

/// All of them in the order of the help, each group together.
std::span<const ComposeOption> composeOptions();

/// The values that the help explains by themselves.
std::span<const ComposeValue> composeValues();
