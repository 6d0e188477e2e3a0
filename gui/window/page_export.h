/*
 * Exports a message as a page.
 */
#pragma once

#include "check/findings.h"

#include <QByteArray>
#include <QString>

/// What is exported. The thread that exports decodes a message of its own.
struct PageSource
{
    QByteArray pdu;
    QString fileName; ///< of the message; the page shows only the last part
    Check::Findings findings;
};

/// Writes the page @p fileName, as `qvlmms html` does. Any thread may call it. Returns why the page
/// cannot be written; empty if it was.
QString exportPage(const PageSource &source, const QString &fileName);
