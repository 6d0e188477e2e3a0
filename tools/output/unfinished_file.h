/*
 * A file that gets its name once it is complete, so that no file under its final name is ever
 * partial. On most file systems it has no name before, and vanishes with the process. Elsewhere it
 * has a temporary name in the same folder. Nothing here follows a symbolic link of the final name.
 *
 * Not QSaveFile: that follows symbolic links, always replaces, and cannot open names that are not
 * UTF-8.
 */
#pragma once

#include "input/descriptor.h"
#include "output/octets.h"

#include <QByteArray>

class UnfinishedFile
{
public:
    enum Kind {
        Nameless, ///< or Named, where the file system has no files without a name
        Named,
    };
    enum Existing { Keep, Replace };

    /// A file in the folder @p folder. The folder does not change until write().
    explicit UnfinishedFile(QByteArray folder, Kind kind = Nameless);
    /// Removes the file unless it got its name.
    ~UnfinishedFile();
    Q_DISABLE_COPY_MOVE(UnfinishedFile)

    /// Creates the file, and writes @p octets to it and to the disk. May be called once. Returns 0,
    /// or the number of the error.
    int write(const QByteArray &octets);
    /// The same with the octets that @p writeTo writes.
    int write(const WriteTo &writeTo);

    /**
     * Gives the file the name @p path, in the same folder. @p existing says what happens to a file
     * or symbolic link of that name; Replace keeps the permissions of a file. A folder is never
     * replaced. Returns 0, or the number of the error, such as EEXIST for Keep; a later call may
     * try another name.
     */
    int moveTo(const QByteArray &path, Existing existing);

private:
    int create();
    int createNamed();
    int nameTemporarily();
    int moveWithoutReplacing(const QByteArray &path);
    int replace(const QByteArray &path);
    QByteArray newTemporaryName() const;

    const QByteArray m_folder;
    const Kind m_kind;
    Descriptor m_file;
    QByteArray m_name; ///< temporary name; empty without one
};
