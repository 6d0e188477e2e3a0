/*
 * Prepares text from a message for a terminal: makes control characters visible, and aligns columns
 * in any script.
 */
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace TerminalText {

/// False for characters that act on a terminal or show nothing, such as control characters and
/// changes of the writing direction.
bool hasVisibleForm(char32_t character);

/// Replaces characters of @p text without a visible form by \u{hex}.
QString visible(const QString &text);

/// The number of columns of @p text, made visible(), on a terminal.
int width(const QString &text);

/// @p text, which is visible(), with at most @p longest columns; a longer one ends in an ellipsis.
QString truncated(const QString &text, int longest);

/// The same with the end of a longer text, after an ellipsis.
QString endOf(const QString &text, int longest);

/// @p text, which is visible(), with blanks up to @p columns: after it, or before it.
QString padded(const QString &text, int columns, bool alignRight);

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
