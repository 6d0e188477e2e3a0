/*
 * Prepares text from a message for a terminal: nothing in it acts on the terminal, and columns line
 * up in any script.
 */
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace TerminalText {

/// False for characters that act on a terminal or show nothing, such as control characters and
/// changes of the writing direction.
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
 * Lines of a table with a title line, each after @p indent. Makes cells visible(), and truncates
 * cells of more than 40 columns with an ellipsis.
 */
QStringList table(const QList<Column> &columns, const QList<QStringList> &rows,
                  const QString &indent);

} // namespace TerminalText
