/*
 * Names of files from a file, such as other programs write them: lines, or names that end with NUL.
 */
#pragma once

#include <QString>

#include <cstdio>
#include <memory>
#include <optional>

/// Reads one name after the other, so that a list of any length takes no memory.
class NameList
{
public:
    /// Opens the file @p fileName, or standard input for "-". Names end with the octet @p end.
    NameList(const QString &fileName, char end);

    /// The next name that is not empty; nothing after the last one, or after an error. A name is
    /// always that of a file: "-" is given as "./-".
    std::optional<QString> next();

    /// Why the list could not be read; empty if it could.
    QString error() const { return m_error; }
    /// The part of the list that was read, from 0 to 1; 0 if the size of the list is not known.
    double fraction() const;

private:
    using Close = int (*)(FILE *);

    void fail(const QString &reason);

    const QString m_fileName;
    const char m_end;
    std::unique_ptr<FILE, Close> m_file;
    qint64 m_size = 0; // octets; 0 when it is not known
    qint64 m_read = 0;
    QString m_error;
};
