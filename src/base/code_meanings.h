/*
 * Tables with the meanings of result codes in words.
 */
#pragma once

#include "base/tables.h"

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
    const CodeMeaning *row = rowOf(table, code, &CodeMeaning::code);
    return row ? row->text : "unknown result";
}
