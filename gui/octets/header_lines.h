/*
 * The header of a message as lines.
 */
#pragma once

#include "view/header_view.h"

struct Message;

/// Hostile messages have a hundred thousand fields, and fields of a hundred thousand characters.
constexpr qsizetype MostHeaderLines = 2000;
constexpr qsizetype LongestHeaderLine = 2000; // characters of a value

/// All fields, and what was left out or rewritten to read them, within these bounds. Any thread may
/// call it.
QList<FieldView> headerLines(const Message &message);
