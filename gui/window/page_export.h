/*
 * Exports a message as a page.
 */
#pragma once

#include <QString>

struct MessageSource;

/// What became of a page.
struct ExportedPage
{
    QString error; ///< why it cannot be written; empty if it was
    bool isComplete =
        true; ///< false if media are left out, because they take too much time or space
};

/// Writes the page @p fileName, as `qvlmms html` does. Any thread may call it.
ExportedPage exportPage(const MessageSource &source, const QString &fileName);
