/*
 * HTML that waits in a file without a name until the page is complete, so that a page takes no more
 * memory than a message.
 */
#pragma once

#include "html/html_writer.h"

#include <QString>
#include <QTemporaryFile>

class Draft
{
public:
    Draft();
    Q_DISABLE_COPY_MOVE(Draft)

    HtmlWriter &html() { return m_html; }
    /// Octets that were written so far.
    qint64 size() const { return m_file.size(); }
    /// Why the file did not take everything; "" if it did.
    QString error();
    /// Writes all of it to @p file. Returns 0, or the number of the error.
    int writeTo(int file);

private:
    QTemporaryFile m_file;
    HtmlWriter m_html{&m_file};
};
