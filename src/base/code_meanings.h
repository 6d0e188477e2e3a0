/*
 * Tables that say what a result code means.
 */
#pragma once

#include <span>

/// A result code and its meaning in words.
struct CodeMeaning
{
    int code;
    const char *text;
};

/// The meaning of @p code in @p table; never null.
inline const char *meaningOf(std::span<const CodeMeaning> table, int code)
{
    for (const CodeMeaning &row : table) {
        if (row.code == code)
            return row.text;
    }
    return "unknown result";
}
