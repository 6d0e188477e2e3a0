/*
 * The messages of a list for a reader: as lines that fit a width, as JSON and as CSV.
 */
#pragma once

#include "list/entry.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <string>

/// Lines of a list. The columns have fixed widths, so that each line can be printed when its
/// message was read.
class ListLines
{
public:
    /// @p width is that of the terminal in columns; 0 for a list that is no terminal's, whose
    /// columns are never truncated.
    explicit ListLines(int width);

    /// The titles of the columns.
    QString title() const;
    /// The line of @p entry, safe for a terminal.
    QString lineOf(const MessageList::Entry &entry) const;

private:
    QString line(const QStringList &cells) const;

    static constexpr std::size_t Columns = 9;

    std::array<int, Columns> m_widths; // 0 for columns that are left out
    int m_gap;
    bool m_truncates;
};

/// The entry as a line of JSON.
std::string listJson(const MessageList::Entry &entry);

/// The header row of the CSV.
QByteArray csvTitle();

/// The entry as a row of CSV (RFC 4180).
QByteArray csvRow(const MessageList::Entry &entry);
