/*
 * HTML that waits in a file without a name until the page is complete, so that a page takes no more
 * memory than a message.
 */
#pragma once

#include "html/html_writer.h"

#include <QIODevice>
#include <QString>
#include <QTemporaryFile>

/// Not a QTemporaryFile alone, because that does not say why it takes only some of the octets.
class DraftFile : public QIODevice
{
public:
    DraftFile();

    qint64 size() const override { return m_size; }
    /// Passes on what it still holds back. Returns 0, or the number of the first error.
    int flush();
    /// Writes all of it to @p file. Returns 0, or the number of the error.
    int copyTo(int file);

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *octets, qint64 size) override;

private:
    QTemporaryFile m_file;
    QByteArray m_held;
    qint64 m_size = 0;
    int m_error = 0;
};

class Draft
{
public:
    HtmlWriter &html() { return m_html; }
    /// Octets that were written so far.
    qint64 size() const { return m_file.size(); }
    /// Why the file did not take everything; "" if it did.
    QString error();
    /// Writes all of it to @p file. Returns 0, or the number of the error.
    int writeTo(int file) { return m_file.copyTo(file); }

private:
    DraftFile m_file;
    HtmlWriter m_html{&m_file};
};
