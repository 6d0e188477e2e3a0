/*
 * Text from a message on its way to a terminal: nothing in it may act on the terminal, and columns
 * line up in any script.
 */
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace TerminalText {

/// False for what acts on a terminal or shows nothing: controls, turns of the writing direction,
/// ...
bool hasVisibleForm(char32_t character);

/// @p text with every character without a visible form written as \u{hex}.
QString visible(const QString &text);

/// Columns that @p text, which is visible(), takes on a terminal.
int width(const QString &text);

/// A column of a table.
struct Column
{
    QString title;
    bool alignRight = false;
};

/**
 * Lines of a table with a title line, each behind @p indent. Cells are made visible(), and cut with
 * an ellipsis when they are longer than 40 columns.
 */
QStringList table(const QList<Column> &columns, const QList<QStringList> &rows,
                  const QString &indent);

} // namespace TerminalText
